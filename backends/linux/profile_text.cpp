#include "backends/linux/profile_text.h"

#include "backends/linux/utf8.h"
#include "backends/linux/windows1252.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view WithoutQuotes(std::string_view value) {
  const std::string_view inner = Trim(value);
  const bool quoted = inner.size() >= 2 && inner.front() == inner.back() &&
                      (inner.front() == '"' || inner.front() == '\'');
  return quoted ? inner.substr(1, inner.size() - 2) : inner;
}

// The text in Windows-1252, with line ends replaced by blanks.
std::string OnOneLine(const Text& text) {
  std::string line = ToWindows1252(text);
  for (char& c : line) {
    if (c == '\r' || c == '\n' || c == '\0') c = ' ';
  }
  return line;
}

// The name in a section's head; `head` begins at its "[".
std::string_view SectionOf(std::string_view head) {
  const auto end = head.rfind(']');
  return Trim(head.substr(1, end == std::string_view::npos ? end : end - 1));
}

struct Setting {
  std::string_view Key, Value;
};

std::optional<Setting> SettingOf(std::string_view line) {
  const std::string_view text = Trim(line);
  const auto equals = text.find('=');
  if (equals == std::string_view::npos || text.front() == ';' || text.front() == '[') {
    return std::nullopt;
  }
  return Setting{Trim(text.substr(0, equals)), text.substr(equals + 1)};
}

// The name in the form used for comparing: lower case, also beyond ASCII.
std::string Compared(std::string_view name) {
  std::string lower(Trim(name));
  bool plain = true;
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    plain = plain && static_cast<unsigned char>(c) < 0x80;
  }
  return plain ? lower : ToWindows1252(LowerCase(FromWindows1252(lower)));
}

std::string Compared(const Text& name) {
  return Compared(std::string_view(OnOneLine(name)));
}

}  // namespace

ProfileText::ProfileText(std::string bytes) : bytes_(std::move(bytes)) {
  const std::size_t first = NextLine(0);
  if (first > 0 && !std::string_view(bytes_).substr(0, first).ends_with("\r\n")) end_ = "\n";
  BuildIndex();
}

std::size_t ProfileText::NextLine(std::size_t place) const {
  const auto end = bytes_.find('\n', place);
  return end == std::string::npos ? bytes_.size() : end + 1;
}

std::string_view ProfileText::Line(std::size_t place, std::size_t next) const {
  std::string_view line = std::string_view(bytes_).substr(place, next - place);
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
  return line;
}

// Looks for heads first, since they are few among many lines.
void ProfileText::BuildIndex() {
  heads_.clear();
  sections_.clear();
  Range* open = nullptr;
  for (std::size_t at = bytes_.find('['); at != std::string::npos; at = bytes_.find('[', at)) {
    std::size_t place = at;
    while (place > 0 && IsBlank(bytes_[place - 1])) --place;
    if (place > 0 && bytes_[place - 1] != '\n') {
      ++at;  // a "[" within a line
      continue;
    }
    const std::size_t next = NextLine(at);
    const std::string_view name = SectionOf(Line(at, next));
    if (open) open->End = place;
    const auto [section, first] =
        sections_.try_emplace(Compared(name), Range{place, next, bytes_.size()});
    open = first ? &section->second : nullptr;
    if (first) heads_.push_back(at);
    at = next;
  }
}

std::vector<Text> ProfileText::Sections(std::size_t limit) const {
  std::vector<Text> names;
  for (const std::size_t head : heads_) {
    const std::string_view name = SectionOf(Line(head));
    if (name.size() >= limit) break;
    limit -= name.size() + 1;
    names.push_back(FromWindows1252(name));
  }
  return names;
}

const ProfileText::Range* ProfileText::Find(const Text& section) const {
  const auto place = sections_.find(Compared(section));
  return place == sections_.end() ? nullptr : &place->second;
}

// The offset of the line of a key. Of two keys with the same name the first one counts.
std::optional<std::size_t> ProfileText::Find(const Text& section, const Text& key) const {
  const Range* range = Find(section);
  const std::string wanted = Compared(key);
  for (std::size_t place = range ? range->First : 0; range && place < range->End;) {
    const std::size_t next = NextLine(place);
    const auto setting = SettingOf(Line(place, next));
    if (setting && Compared(setting->Key) == wanted) return place;
    place = next;
  }
  return std::nullopt;
}

std::vector<ProfileEntry> ProfileText::Entries(const Text& section, std::size_t limit) const {
  std::vector<ProfileEntry> entries;
  const Range* range = Find(section);
  for (std::size_t place = range ? range->First : 0; range && place < range->End;) {
    const std::size_t next = NextLine(place);
    if (const auto setting = SettingOf(Line(place, next))) {
      entries.push_back({FromWindows1252(setting->Key),
                         FromWindows1252(WithoutQuotes(setting->Value).substr(0, limit))});
    }
    place = next;
  }
  return entries;
}

std::optional<Text> ProfileText::Value(const Text& section, const Text& key) const {
  const auto place = Find(section, key);
  if (!place) return std::nullopt;
  return FromWindows1252(WithoutQuotes(SettingOf(Line(*place))->Value));
}

bool ProfileText::SetValue(const Text& section, const Text& key, const Text& value) {
  const std::string line = std::string(Trim(OnOneLine(key))) + "=" + OnOneLine(value);
  const auto place = Find(section, key);
  const Range* range = Find(section);
  if (place) {
    if (Line(*place) == line) return false;
    bytes_.replace(*place, NextLine(*place) - *place, line + end_);
  } else if (range) {
    // Blank lines stay, as they separate this section from the next.
    std::size_t end = range->First;
    for (std::size_t at = range->First; at < range->End; at = NextLine(at)) {
      if (!Trim(Line(at)).empty()) end = NextLine(at);
    }
    Insert(end, line);
  } else {
    Insert(bytes_.size(), "[" + std::string(Trim(OnOneLine(section))) + "]");
    Insert(bytes_.size(), line);
  }
  BuildIndex();
  return true;
}

bool ProfileText::RemoveSection(const Text& section) {
  const Range* range = Find(section);
  if (!range) return false;
  bytes_.erase(range->Head, range->End - range->Head);
  BuildIndex();
  return true;
}

void ProfileText::Insert(std::size_t place, const std::string& line) {
  const bool open = place > 0 && bytes_[place - 1] != '\n';  // the last line has no line end
  bytes_.insert(place, (open ? end_ : std::string()) + line + end_);
}

}  // namespace vantora
