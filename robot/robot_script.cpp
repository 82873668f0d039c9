#include "robot/robot_script.h"

#include "backends/linux/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <regex>

namespace vantora {

namespace {

bool IsBlank(wchar_t c) {
  return c == L' ' || c == L'\t' || c == L'\r';
}

std::optional<double> AsNumber(const Text& text) {
  const std::string narrow = ToUtf8(text);
  double number = 0;
  const char* end = narrow.data() + narrow.size();
  const auto read = std::from_chars(narrow.data(), end, number, std::chars_format::fixed);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

// The properties of a window itself; no control has such a name.
bool IsWindowProperty(const Text& name) {
  static const std::array<const wchar_t*, 8> kNames = {
      L"Caption", L"Picture", L"Visible", L"Enabled", L"Left", L"Top", L"Width", L"Height"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

// Parses a target from left to right.
class TargetReader {
 public:
  TargetReader(const Text& word, int line) : word_(word), line_(line) {}

  Target Read() {
    Target target;
    target.Form = Name();
    if (AtEnd()) return target;
    Expect(L'.');
    const Text name = Name();
    if (AtEnd() && IsWindowProperty(name)) {
      target.Property = name;
      return target;
    }
    target.Control = name;
    if (At(L'(')) target.Index = Brackets();
    if (At(L'(')) target.Cell = Brackets();
    if (!target.Cell.empty() && target.Index.size() != 1) Refuse();
    if (AtEnd()) return target;
    Expect(L'.');
    target.Property = Name();
    if (!AtEnd()) Refuse();
    return target;
  }

 private:
  bool AtEnd() const { return place_ == word_.size(); }
  bool At(wchar_t c) const { return !AtEnd() && word_[place_] == c; }
  void Expect(wchar_t c) {
    if (!At(c)) Refuse();
    ++place_;
  }
  Text Name() {
    const std::size_t end = std::min(word_.find_first_of(L".(), \"", place_), word_.size());
    Text name = word_.substr(place_, end - place_);
    if (name.empty()) Refuse();
    place_ = end;
    return name;
  }
  // Reads one or two numbers in brackets.
  std::vector<int> Brackets() {
    std::vector<int> numbers;
    Expect(L'(');
    do {
      int number = 0, digits = 0;
      for (; !AtEnd() && word_[place_] >= L'0' && word_[place_] <= L'9'; ++place_, ++digits) {
        number = number * 10 + static_cast<int>(word_[place_] - L'0');
      }
      if (digits < 1 || digits > 6) Refuse();
      numbers.push_back(number);
    } while (At(L',') && ++place_ != 0);
    Expect(L')');
    if (numbers.size() > 2) Refuse();
    return numbers;
  }
  [[noreturn]] void Refuse() const {
    throw ScriptError(line_, "\"" + ToUtf8(word_) + "\" names no window and no control");
  }

  const Text& word_;
  const int line_;
  std::size_t place_ = 0;
};

}  // namespace

Target ParseTarget(const Text& word, int line) {
  return TargetReader(word, line).Read();
}

std::vector<ScriptWord> ParseWords(const Text& source, int line) {
  std::vector<ScriptWord> words;
  std::size_t place = 0;
  while (true) {
    while (place < source.size() && IsBlank(source[place])) ++place;
    if (place == source.size() || source[place] == L'#') return words;
    ScriptWord word;
    word.Quoted = source[place] == L'"';
    if (!word.Quoted) {
      while (place < source.size() && !IsBlank(source[place])) word.Content += source[place++];
      words.push_back(std::move(word));
      continue;
    }
    for (++place;; ++place) {
      if (place == source.size()) throw ScriptError(line, "a quote is not closed");
      if (source[place] == L'"') {
        const bool doubled = place + 1 < source.size() && source[place + 1] == L'"';
        if (!doubled) break;
        ++place;
      }
      word.Content += source[place];
    }
    ++place;
    if (place < source.size() && !IsBlank(source[place])) {
      throw ScriptError(line, "a blank is missing behind a quote");
    }
    words.push_back(std::move(word));
  }
}

bool Compares(const Text& found, Compare how, const Text& wanted) {
  if (how == Compare::Matches) return std::regex_search(found, std::wregex(wanted));
  const std::optional<double> left = AsNumber(found), right = AsNumber(wanted);
  const bool numbers = left && right;
  const bool less = numbers ? *left < *right : found < wanted;
  const bool greater = numbers ? *left > *right : found > wanted;
  switch (how) {
    case Compare::Less:
      return less;
    case Compare::Greater:
      return greater;
    case Compare::NotEqual:
      return less || greater;
    default:
      return !less && !greater;
  }
}

const wchar_t* OperatorName(Compare how) {
  switch (how) {
    case Compare::Less:
      return L"<";
    case Compare::Greater:
      return L">";
    case Compare::NotEqual:
      return L"!=";
    case Compare::Matches:
      return L"~";
    default:
      return L"==";
  }
}

ScriptPath ParsePath(const Text& path) {
  ScriptPath parts;
  Text rest = path;
  if (path.size() >= 3 && path[1] == L':' && path[2] == L'\\') {
    parts.Drive = path.substr(0, 1);
    rest = path.substr(3);
  }
  for (std::size_t cut = rest.find(L'\\'); cut != Text::npos; cut = rest.find(L'\\')) {
    if (cut > 0) parts.Folders.push_back(rest.substr(0, cut));
    rest.erase(0, cut + 1);
  }
  parts.Name = rest;
  return parts;
}

}  // namespace vantora
