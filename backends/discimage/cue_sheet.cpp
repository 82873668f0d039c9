#include "backends/discimage/cue_sheet.h"

#include "backends/sound/disc/disc_text.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace vantora {

namespace {

std::string Quoted(const Text& text) {
  std::string bytes = DiscText(text.substr(0, text.find_last_not_of(L' ') + 1));
  std::replace(bytes.begin(), bytes.end(), '"', '\'');
  return "\"" + bytes + "\"";
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
