#include "backends/discimage/cue_sheet.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace vantora {

namespace {

// Windows-1252 from 0x80 to 0x9F; the rest of it lies at its Unicode number.
constexpr std::wstring_view kUpperRow =
    L"\u20AC\xFFFD\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\xFFFD\u017D"
    L"\xFFFD"
    L"\xFFFD\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\xFFFD\u017E"
    L"\u0178";

char Byte(wchar_t letter) {
  const unsigned code = std::char_traits<wchar_t>::to_int_type(letter);
  if (letter == L'"') return '\'';
  if (code < 0x20 || code == 0x7F) return ' ';
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  const std::size_t place = kUpperRow.find(letter);
  if (letter == L'\xFFFD' || place == std::wstring_view::npos) return '?';
  return static_cast<char>(0x80 + place);
}

std::string Quoted(const Text& text) {
  const std::size_t end = text.find_last_not_of(L' ');
  std::string bytes = "\"";
  for (const wchar_t letter : text.substr(0, end + 1)) bytes += Byte(letter);
  return bytes + "\"";
}

void AddTexts(std::string& sheet, const char* indent, const Text& title, const Text& performer) {
  if (!title.empty()) sheet += indent + ("TITLE " + Quoted(title)) + "\r\n";
  if (!performer.empty()) sheet += indent + ("PERFORMER " + Quoted(performer)) + "\r\n";
}

}  // namespace

std::string FormatCueTime(std::int64_t sectors) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d",
                static_cast<int>(sectors / kSectorsPerSecond / 60),
                static_cast<int>(sectors / kSectorsPerSecond % 60),
                static_cast<int>(sectors % kSectorsPerSecond));
  return text.data();
}

std::string FormatCueSheet(const CueSheet& sheet) {
  std::string text;
  AddTexts(text, "", sheet.title, sheet.performer);
  text += "FILE " + Quoted(sheet.image) + " BINARY\r\n";
  int number = 0;
  for (const CueTrack& track : sheet.tracks) {
    std::array<char, 32> line{};
    std::snprintf(line.data(), line.size(), "  TRACK %02d AUDIO\r\n", ++number);
    text += line.data();
    AddTexts(text, "    ", track.title, track.performer);
    if (track.gap) text += "    INDEX 00 " + FormatCueTime(*track.gap) + "\r\n";
    text += "    INDEX 01 " + FormatCueTime(track.start) + "\r\n";
  }
  return text;
}

}  // namespace vantora
