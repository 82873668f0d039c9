#include "backends/linux/profile_text.h"

#include "backends/linux/utf8.h"
#include "backends/linux/windows1252.h"

#include <algorithm>

namespace vantora {

namespace {

Text Trim(const Text& text) {
  const auto first = text.find_first_not_of(L" \t\r");
  if (first == Text::npos) return {};
  return text.substr(first, text.find_last_not_of(L" \t\r") - first + 1);
}

Text WithoutQuotes(const Text& value) {
  const Text inner = Trim(value);
  const bool quoted = inner.size() >= 2 && inner.front() == inner.back() &&
                      (inner.front() == L'"' || inner.front() == L'\'');
  return quoted ? Trim(inner.substr(1, inner.size() - 2)) : inner;
}

// A text that stays on its line.
Text OnOneLine(Text text) {
  for (wchar_t& c : text) {
    if (c == L'\r' || c == L'\n' || c == L'\0') c = L' ';
  }
  return text;
}

std::optional<Text> SectionOf(const Text& line) {
  const Text text = Trim(line);
  if (text.empty() || text.front() != L'[') return std::nullopt;
  const auto end = text.rfind(L']');
  return Trim(text.substr(1, end == Text::npos ? Text::npos : end - 1));
}

struct Setting {
  Text Key, Value;
};

std::optional<Setting> SettingOf(const Text& line) {
  const Text text = Trim(line);
  const auto equals = text.find(L'=');
  if (equals == Text::npos || text.front() == L';' || text.front() == L'[') return std::nullopt;
  return Setting{Trim(text.substr(0, equals)), text.substr(equals + 1)};
}

Text Compared(const Text& name) {
  return LowerCase(Trim(OnOneLine(name)));
}

}  // namespace

ProfileText::ProfileText(std::string_view bytes) {
  const Text text = FromWindows1252(bytes);
  for (std::size_t start = 0; start < text.size();) {
    const auto end = std::min(text.find(L'\n', start), text.size() - 1) + 1;
    lines_.push_back(text.substr(start, end - start));
    start = end;
  }
  if (!lines_.empty() && !lines_.front().ends_with(L"\r\n")) end_ = L"\n";
  BuildIndex();
}

std::string ProfileText::Bytes() const {
  Text text;
  for (const Text& line : lines_) text += line;
  return ToWindows1252(text);
}

void ProfileText::BuildIndex() {
  names_.clear();
  sections_.clear();
  places_.clear();
  Text section;
  Range* open = nullptr;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (const std::optional<Text> head = SectionOf(Line(i))) {
      section = Compared(*head);
      const auto [place, first] = sections_.insert({section, {i + 1, i + 1}});
      open = first ? &place->second : nullptr;
      if (first) names_.push_back(*head);
      continue;
    }
    if (!open) continue;
    open->End = i + 1;
    if (const std::optional<Setting> setting = SettingOf(Line(i))) {
      places_.insert({{section, Compared(setting->Key)}, i});
    }
  }
}

std::optional<Text> ProfileText::Value(const Text& section, const Text& key) const {
  const auto place = places_.find({Compared(section), Compared(key)});
  if (place == places_.end()) return std::nullopt;
  return WithoutQuotes(SettingOf(Line(place->second))->Value);
}

bool ProfileText::SetValue(const Text& section, const Text& key, const Text& value) {
  const Text line = Trim(OnOneLine(key)) + L"=" + OnOneLine(value);
  const auto place = places_.find({Compared(section), Compared(key)});
  const auto range = sections_.find(Compared(section));
  if (place != places_.end()) {
    if (Line(place->second) == line) return false;
    lines_[place->second] = line + end_;
  } else if (range != sections_.end()) {
    std::size_t end = range->second.End;  // blank lines part this section from the next
    while (end > range->second.First && Trim(Line(end - 1)).empty()) --end;
    Insert(end, line);
  } else {
    Insert(lines_.size(), L"[" + Trim(OnOneLine(section)) + L"]");
    Insert(lines_.size(), line);
  }
  BuildIndex();
  return true;
}

bool ProfileText::RemoveSection(const Text& section) {
  const auto range = sections_.find(Compared(section));
  if (range == sections_.end()) return false;
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(range->second.First) - 1,
               lines_.begin() + static_cast<std::ptrdiff_t>(range->second.End));
  BuildIndex();
  return true;
}

void ProfileText::Insert(std::size_t number, const Text& line) {
  if (number > 0 && !lines_[number - 1].ends_with(L'\n')) lines_[number - 1] += end_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(number), line + end_);
}

Text ProfileText::Line(std::size_t number) const {
  Text line = lines_[number];
  while (!line.empty() && (line.back() == L'\n' || line.back() == L'\r')) line.pop_back();
  return line;
}

}  // namespace vantora
