#include "backends/linux/settings_file.h"

#include "backends/linux/replacement_file.h"
#include "backends/linux/utf8.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <string_view>

namespace vantora {

namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// A "%" that is not followed by two hexadecimal digits stands for itself.
Text Unescape(std::string_view escaped) {
  std::string bytes;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    const int high = escaped[i] == '%' && i + 2 < escaped.size() ? HexDigit(escaped[i + 1]) : -1;
    const int low = high >= 0 ? HexDigit(escaped[i + 2]) : -1;
    if (low >= 0) {
      bytes += static_cast<char>(high * 16 + low);
      i += 2;
    } else {
      bytes += escaped[i];
    }
  }
  return FromUtf8(bytes);
}

// Escapes `text`. `special` lists the characters that have a meaning at its place in the line.
std::string Escape(const Text& text, std::string_view special) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const std::string bytes = ToUtf8(text);
  std::string escaped;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    const auto code = static_cast<unsigned char>(c);
    const bool edge = i == 0 || i + 1 == bytes.size();
    if (code < 0x20 || code == 0x7F || c == '%' || (c == ' ' && edge) ||
        special.find(c) != std::string_view::npos) {
      escaped += '%';
      escaped += kDigits[code >> 4U];
      escaped += kDigits[code & 15U];
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Both names in the form used for comparing, with a NUL between them.
Text SectionName(const Text& application, const Text& section) {
  return LowerCase(application) + L'\0' + LowerCase(section);
}

}  // namespace

SettingsFile::SettingsFile(std::filesystem::path file) : file_(std::move(file)) {}

Text SettingsFile::GetSetting(const Text& application, const Text& section, const Text& key,
                              const Text& fallback) {
  ReadOnce();
  const auto place = places_.find({SectionName(application, section), LowerCase(key)});
  return place == places_.end() ? fallback : lines_[place->second].Value;
}

void SettingsFile::SaveSettings(const Text& application, const Text& section,
                                const std::vector<KeyValue>& settings) {
  ReadOnce();
  bool changed = !written_;
  for (const auto& [key, value] : settings) {
    changed = Set(application, section, key, value) || changed;
  }
  if (changed) Write();
}

// Returns false when the setting already has this value.
bool SettingsFile::Set(const Text& application, const Text& section, const Text& key,
                       const Text& value) {
  const Text name = SectionName(application, section);
  const auto place = places_.find({name, LowerCase(key)});
  const std::string raw = Escape(key, "=[#;") + "=" + Escape(value, "");
  if (place == places_.end()) {
    const std::string head =
        "[" + Escape(application, "[]\\") + "\\" + Escape(section, "[]\\") + "]";
    Add(name, head, LowerCase(key), raw, value);
  } else if (Line& line = lines_[place->second]; line.Value != value) {
    line.Raw = raw;
    line.Value = value;
  } else {
    return false;
  }
  return true;
}

// Removes all lines with this key: an earlier line must not come back when the last one is gone.
void SettingsFile::DeleteSetting(const Text& application, const Text& section, const Text& key) {
  ReadOnce();
  const Text name = SectionName(application, section), lower = LowerCase(key);
  if (lower.empty()) return;  // heads and comments have no key
  const std::size_t gone = std::erase_if(
      lines_, [&](const Line& line) { return line.Section == name && line.Key == lower; });
  if (gone == 0 && written_) return;
  FindPlaces();
  Write();
}

void SettingsFile::FindPlaces() {
  places_.clear();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (!lines_[i].Key.empty()) places_[{lines_[i].Section, lines_[i].Key}] = i;
  }
}

void SettingsFile::ReadOnce() {
  if (read_) return;
  read_ = true;
  RemoveLeftovers(file_);
  try {
    Parse(ReadSmallFile(file_).value_or(std::string()));
  } catch (const Laufzeitfehler& why) {
    unreadable_ = why;  // the file is not overwritten, to keep its contents
  }
}

void SettingsFile::Parse(const std::string& bytes) {
  Text section;
  std::string_view rest = bytes;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);  // byte order mark
  while (!rest.empty()) {
    const auto end = std::min(rest.find('\n'), rest.size());
    Line line{std::string(rest.substr(0, end)), section, {}, {}};
    rest.remove_prefix(std::min(end + 1, rest.size()));

    const std::string_view text = Trim(line.Raw);
    const auto equals = text.find('=');
    if (text.starts_with('[') && text.ends_with(']')) {
      const std::string_view name = text.substr(1, text.size() - 2);
      const auto between = name.find('\\');
      section.clear();
      if (between != std::string_view::npos) {
        section =
            SectionName(Unescape(name.substr(0, between)), Unescape(name.substr(between + 1)));
      }
      line.Section = section;
    } else if (!section.empty() && !text.starts_with('#') && !text.starts_with(';') &&
               equals != std::string_view::npos) {
      line.Key = LowerCase(Unescape(Trim(text.substr(0, equals))));
      line.Value = Unescape(Trim(text.substr(equals + 1)));
      places_[{section, line.Key}] = lines_.size();
    }
    lines_.push_back(std::move(line));
  }
}

// Inserts a line after the last non-blank line of its section, or in a new section at the end.
void SettingsFile::Add(const Text& section, const std::string& head, const Text& key,
                       const std::string& raw, const Text& value) {
  std::size_t place = lines_.size();
  while (place > 0 &&
         (lines_[place - 1].Section != section || Trim(lines_[place - 1].Raw).empty())) {
    --place;
  }
  if (place == 0) {
    if (!lines_.empty() && !Trim(lines_.back().Raw).empty()) lines_.push_back({});
    lines_.push_back({head, section, {}, {}});
    place = lines_.size();
  }
  for (auto& [name, number] : places_) {
    if (number >= place) ++number;
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), {raw, section, key, value});
  places_[{section, key}] = place;
}

void SettingsFile::Write() {
  if (unreadable_) {
    Report(*unreadable_);
    return;
  }
  std::string bytes;
  for (const Line& line : lines_) bytes += line.Raw + "\n";
  try {
    WriteSmallFile(file_, bytes);
    written_ = true;
  } catch (const Laufzeitfehler& why) {
    written_ = false;  // the values still hold for this run; the next call tries again
    Report(why);
  }
}

void SettingsFile::Report(const Laufzeitfehler& why) {
  if (reported_ || !OnUnwritable) return;
  reported_ = true;
  OnUnwritable(FromUtf8(file_.native()), why);
}

}  // namespace vantora
