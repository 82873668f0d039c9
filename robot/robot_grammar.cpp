// The words of each command, and when a command may run.

#include "backends/linux/utf8.h"
#include "robot/robot_script.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <regex>
#include <utility>

namespace vantora {

namespace {

constexpr int kAny = 1'000'000'000;
constexpr wchar_t kFirstBrokenByte = 0xDC80, kLastBrokenByte = 0xDCFF;
constexpr wchar_t kByteOrderMark = 0xFEFF;

// Takes the words of a line one after another; raises an error for a missing or wrong word.
class Words {
 public:
  explicit Words(ScriptLine& line) : line_(line) {}

  [[noreturn]] void Refuse(const std::string& what) const {
    throw ScriptError(line_.Number, ToUtf8(line_.Verb) + ": " + what);
  }
  [[noreturn]] void RefuseLast(const std::string& wanted) const {
    Refuse("\"" + ToUtf8(line_.Words[next_ - 1].Content) + "\" is not " + wanted);
  }
  bool More() const { return next_ < line_.Words.size(); }
  const Text& Take(const char* what) {
    if (!More()) Refuse(std::string(what) + " is missing");
    return line_.Words[next_++].Content;
  }
  bool Skip(const wchar_t* literal) {
    const bool there =
        More() && !line_.Words[next_].Quoted && line_.Words[next_].Content == literal;
    if (there) ++next_;
    return there;
  }
  void SkipAll() { next_ = line_.Words.size(); }

  int Number(const char* what, int lowest, int highest) {
    const std::string digits = ToUtf8(Take(what));
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) RefuseLast(what);
    if (number < lowest || number > highest) {
      RefuseLast("from " + std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return number;
  }
  int Milliseconds(const char* seconds) {
    const std::string digits = ToUtf8(Take(seconds));
    double number = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, number, std::chars_format::fixed);
    constexpr double kMaxSeconds = 20'000;  // a longer wave file is not possible
    if (read.ec != std::errc() || read.ptr != end || number < 0 || number > kMaxSeconds) {
      RefuseLast(seconds);
    }
    return static_cast<int>(std::lround(number * 1000));
  }
  Target ControlName() {
    Target target = ParseTarget(Take("a control"), line_.Number);
    if (target.Control.empty() || !target.Property.empty() || target.Index.size() > 1 ||
        !target.Cell.empty()) {
      RefuseLast("a control");
    }
    return target;
  }
  Target WindowName() {
    Target target = ParseTarget(Take("a window"), line_.Number);
    if (!target.Control.empty() || !target.Property.empty()) RefuseLast("a window");
    return target;
  }
  Text ProductPath() {
    const Text& path = Take("a path");
    if (ParsePath(path).Drive.empty()) RefuseLast("a path with its drive");
    return path;
  }
  // Takes a comparison operator and the value behind it.
  void Comparison() {
    static const std::map<Text, Compare> kOperators = {{L"==", Compare::Equal},
                                                       {L"!=", Compare::NotEqual},
                                                       {L"<", Compare::Less},
                                                       {L">", Compare::Greater},
                                                       {L"~", Compare::Matches}};
    const auto found = kOperators.find(Take("== != < > or ~"));
    if (found == kOperators.end()) RefuseLast("one of == != < > ~");
    line_.Operator = found->second;
    line_.Value = Take("a value to compare with");
    if (line_.Operator != Compare::Matches) return;
    try {
      const std::wregex tried(line_.Value);
    } catch (const std::regex_error& error) {
      Refuse(std::string("no regular expression: ") + error.what());
    }
  }

 private:
  ScriptLine& line_;
  std::size_t next_ = 0;
};

// ---- the words of each command ----

void ParseNothing(ScriptLine& /*line*/, Words& /*words*/) {}

void ParseValue(ScriptLine& line, Words& words) {
  line.Value = words.Take("a word");
}

void ParseShot(ScriptLine& line, Words& words) {
  line.Value = words.Take("a file name");
  if (words.More()) line.Subject = words.WindowName();
}

void ParseScreen(ScriptLine& line, Words& words) {
  line.Numbers = {words.Number("a width", 1, 10'000), words.Number("a height", 1, 10'000)};
}

void ParseColours(ScriptLine& line, Words& words) {
  line.Numbers = {words.Number("a number of bits", 1, 32)};
}

void ParseSound(ScriptLine& line, Words& words) {
  line.Numbers = {words.Skip(L"on") ? 1 : 0};
  if (line.Numbers.front() == 0 && !words.Skip(L"off")) words.Refuse("on or off is missing");
}

void ParseClock(ScriptLine& line, Words& words) {
  const std::string date = ToUtf8(words.Take("a date")), time = ToUtf8(words.Take("a time"));
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  const bool read = std::sscanf(date.c_str(), "%4d-%2d-%2d", &year, &month, &day) == 3 &&
                    std::sscanf(time.c_str(), "%2d:%2d:%2d", &hour, &minute, &second) >= 2;
  const bool valid = read && year >= 1980 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
                     hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
                     second < 60;
  if (!valid) words.Refuse("the time is to be written as 2026-11-24 10:00");
  line.Numbers = {year, month, day, hour, minute, second};
}

void ParsePair(ScriptLine& line, Words& words) {
  words.Take("the first word");
  line.Value = words.Take("the second word");
}

// Numbers: milliseconds, hertz, frames a second, bits, channels.
void ParseMakeWave(ScriptLine& line, Words& words) {
  line.Value = words.ProductPath();
  const int ms = words.Milliseconds("a number of seconds");
  const int hertz = words.Number("a frequency", 1, 20'000);
  int rate = 44100, bits = 16, channels = 2;
  while (words.More()) {
    if (words.Skip(L"mono")) {
      channels = 1;
    } else if (words.Skip(L"rate")) {
      rate = words.Number("a rate", 1000, 192'000);
    } else if (words.Skip(L"bits")) {
      bits = words.Number("a number of bits", 8, 16);
      if (bits != 8 && bits != 16) words.RefuseLast("8 or 16");
    } else {
      words.Take("mono, rate or bits");
      words.RefuseLast("mono, rate or bits");
    }
  }
  line.Numbers = {ms, hertz, rate, bits, channels};
}

void ParseMakePicture(ScriptLine& line, Words& words) {
  constexpr int kSide = 20'000;
  line.Value = words.ProductPath();
  const int width = words.Number("a number of points across", 1, kSide);
  line.Numbers = {width, words.Number("a number of points down", 1, kSide)};
}

void ParseMakeMp3(ScriptLine& line, Words& words) {
  line.Value = words.ProductPath();
  const int ms = words.Milliseconds("a number of seconds");
  line.Numbers = {ms, words.Number("a frequency", 1, 20'000)};
}

void ParseWriteFile(ScriptLine& line, Words& words) {
  words.ProductPath();
  if (!words.Skip(L"text")) words.Refuse("the word text is missing");
  line.Value = words.Take("the text");
}

void ParseProductPath(ScriptLine& line, Words& words) {
  line.Value = words.ProductPath();
}

void ParseControl(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
}

void ParsePress(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  if (words.More()) line.Numbers = {words.Number("a place to press at", 0, 1000)};
}

// Value: "shift" when the Shift key is held.
void ParsePressOrShift(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  if (words.Skip(L"shift")) {
    line.Value = L"shift";
  } else if (words.More()) {
    line.Numbers = {words.Number("shift or a place to press at", 0, 1000)};
  }
}

void ParseHold(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  line.Numbers = {words.Number("a number of milliseconds", 0, kAny)};
}

void ParseLoad(ScriptLine& line, Words& words) {
  if (!words.Skip(L"off")) line.Numbers = {words.Number("off or a load in percent", 0, 100)};
}

void ParseDrag(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  line.Numbers = {words.Number("a place to press at", 0, 1000),
                  words.Number("a place to let go at", 0, 1000)};
}

void ParsePull(ScriptLine& line, Words& words) {
  constexpr int kFar = 32'000;  // twips
  line.Subject = words.ControlName();
  line.Numbers = {words.Number("a way to the right", -kFar, kFar),
                  words.Number("a way down", -kFar, kFar)};
}

void ParseDrop(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  do words.ProductPath();
  while (words.More());
}

void ParseType(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  line.Value = words.Take("the text to type");
}

void ParseSelect(ScriptLine& line, Words& words) {
  line.Subject = words.ControlName();
  while (words.More()) line.Numbers.push_back(words.Number("a row", 1, kAny));
}

void ParseKey(ScriptLine& line, Words& words) {
  line.Subject = words.WindowName();
  line.Value = words.Take("a key");
}

void ParseChoose(ScriptLine& /*line*/, Words& words) {
  if (words.Skip(L"cancel")) return;
  std::optional<ScriptPath> first;
  do {
    const ScriptPath path = ParsePath(words.Take("a file, or cancel,"));
    if (path.Name.empty() || (path.Drive.empty() && !path.Folders.empty())) {
      words.RefuseLast("a full path of a file, nor a bare name");
    }
    if (!first) first = path;
    if (path.Drive != first->Drive || path.Folders != first->Folders) {
      words.RefuseLast("in the same folder as the first");
    }
  } while (words.More());
}

void ParseAnswer(ScriptLine& line, Words& words) {
  line.Numbers = {words.Number("an answer", 1, 7)};
}

void ParseWindowClose(ScriptLine& line, Words& words) {
  if (!words.Skip(L"close")) words.Refuse("the word close is missing");
  if (words.More()) line.Subject = words.WindowName();
}

void ParseExpect(ScriptLine& line, Words& words) {
  line.Subject = ParseTarget(words.Take("what to look at"), line.Number);
  words.Comparison();
}

void ParseExpectBox(ScriptLine& /*line*/, Words& words) {
  words.Comparison();
}

void ParseWindow(ScriptLine& line, Words& words) {
  line.Subject = words.WindowName();
}

// Value: the size, kept as text because a file may be larger than the numbers of a line.
void ParseExpectFile(ScriptLine& line, Words& words) {
  words.ProductPath();
  if (words.Skip(L"exists") || words.Skip(L"missing")) return;
  if (words.Skip(L"size")) {
    line.Value = words.Take("a number of bytes");
    const bool digits = std::all_of(line.Value.begin(), line.Value.end(),
                                    [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (!digits || line.Value.empty()) words.RefuseLast("a number of bytes");
  } else if (words.Skip(L"sha256")) {
    line.Value = LowerCase(words.Take("a sum of 64 hexadecimal digits"));
    const bool hex = line.Value.find_first_not_of(L"0123456789abcdef") == Text::npos;
    if (!hex || line.Value.size() != 64) words.RefuseLast("a sum of 64 hexadecimal digits");
  } else {
    words.Refuse("size, exists, missing or sha256 is missing");
  }
}

void ParseWait(ScriptLine& line, Words& words) {
  line.Numbers = {words.Number("a number of milliseconds", 0, kAny)};
}

void ParseInner(ScriptLine& line, Words& words);

// Value: "insert" or "eject"; the second word is the sheet.
void ParseDisc(ScriptLine& line, Words& words) {
  line.Value = words.Take("insert or eject");
  if (line.Value == L"eject") return;
  if (line.Value != L"insert") words.RefuseLast("insert or eject");
  const Text& sheet = words.Take("a .cue file");
  if (!LowerCase(sheet).ends_with(L".cue")) words.RefuseLast("a .cue file");
}

// Value: the event; Numbers: its time.
void ParseWriter(ScriptLine& line, Words& words) {
  if (words.Skip(L"fail")) {
    line.Value = words.Take("what is to fail");
    if (line.Value == L"unnoticed" && !words.Skip(L"at")) words.Refuse("at is missing");
    if (line.Value == L"at" || line.Value == L"unnoticed") {
      line.Numbers = {words.Number("a share of the disc", 0, 99)};
      if (!words.Skip(L"%")) words.Refuse("% is missing");
    } else if (line.Value == L"AddTrack") {
      line.Numbers = {words.More() ? words.Number("which track", 1, 99) : 1};
    } else if (line.Value != L"WriteTAO" && line.Value != L"WriteDAO" && line.Value != L"none") {
      words.RefuseLast("AddTrack, WriteTAO, WriteDAO, at N %, unnoticed at N % or none");
    }
  } else if (words.Skip(L"not-ready")) {
    line.Value = L"not-ready";
    line.Numbers = {words.Number("a number of times", 0, 1000)};
  } else if (words.Skip(L"pace")) {
    line.Value = L"pace";
    line.Numbers = {words.Skip(L"full") ? 0 : words.Number("full or a speed", 1, 1000)};
  } else {
    words.Refuse("fail, not-ready or pace is missing");
  }
}

// Value: out, in, none or set; Numbers: the volume; for an output, whether it is on and whether it
// has a switch; for an input, whether it is selected.
void ParseMixer(ScriptLine& line, Words& words) {
  line.Value = words.Take("out, in, none or set");
  if (line.Value == L"none") return;
  const bool out = line.Value == L"out", in = line.Value == L"in";
  if (!out && !in && line.Value != L"set") words.RefuseLast("out, in, none or set");
  words.Take("the name of a line");
  line.Numbers = {words.Number("a volume", 0, 65536), out ? 1 : 0, 1};
  if (out && words.Skip(L"mute")) line.Numbers[1] = 0;
  if (out && words.Skip(L"noswitch")) line.Numbers[2] = 0;
  if (in && words.Skip(L"select")) line.Numbers[1] = 1;
}

void ParseExpectMixer(ScriptLine& /*line*/, Words& words) {
  words.Take("the name of a line");
  if (!words.Skip(L"volume") && !words.Skip(L"mute") && !words.Skip(L"select")) {
    words.Refuse("volume, mute or select is missing");
  }
  words.Comparison();
}

void ParseLineIn(ScriptLine& line, Words& words) {
  if (words.Skip(L"overrun")) {
    line.Numbers = {words.Number("a number of milliseconds", 1, 60'000)};
  } else if (words.Skip(L"play")) {
    line.Value = words.Take("a wave file");
  } else {
    words.Refuse("play or overrun is missing");
  }
}

// Value: pdf, none, margins or paper; the second word is the folder or the paper.
void ParsePrinter(ScriptLine& line, Words& words) {
  line.Value = words.Take("pdf, none, margins or paper");
  if (line.Value == L"pdf") {
    words.Take("a folder");
  } else if (line.Value == L"margins") {
    constexpr int kWidest = 5000;
    line.Numbers = {words.Number("a margin in twips", 0, kWidest),
                    words.Number("a margin in twips", 0, kWidest)};
  } else if (line.Value == L"paper") {
    if (!words.Skip(L"A4") && !words.Skip(L"Letter")) words.Refuse("A4 or Letter is missing");
  } else if (line.Value != L"none") {
    words.RefuseLast("pdf, none, margins or paper");
  }
}

// Numbers: none for cancel.
void ParsePrint(ScriptLine& line, Words& words) {
  if (words.Skip(L"cancel")) return;
  if (!words.Skip(L"ok")) words.Refuse("ok or cancel is missing");
  line.Numbers = {1};
}

// Value: the family; Numbers: the size, bold and italic; none for cancel.
void ParseFont(ScriptLine& line, Words& words) {
  if (words.Skip(L"cancel")) return;
  line.Value = words.Take("a font, or cancel,");
  line.Numbers = {words.Number("a size in points", 1, 99), 0, 0};
  if (words.Skip(L"bold")) line.Numbers[1] = 1;
  if (words.Skip(L"italic")) line.Numbers[2] = 1;
}

// Numbers: red, green and blue; none for cancel.
void ParseColour(ScriptLine& line, Words& words) {
  if (words.Skip(L"cancel")) return;
  const std::string shares = ToUtf8(words.Take("R,G,B or cancel"));
  int red = 0, green = 0, blue = 0, length = 0;
  const int read = std::sscanf(shares.c_str(), "%3d,%3d,%3d%n", &red, &green, &blue, &length);
  const bool valid = read == 3 && static_cast<std::size_t>(length) == shares.size() &&
                     std::min({red, green, blue}) >= 0 && std::max({red, green, blue}) <= 255;
  if (!valid) words.RefuseLast("R,G,B of 0 to 255 each");
  line.Numbers = {red, green, blue};
}

// Value: the faults of the emulated drive from now on, one a line.
void ParseDriveFaults(ScriptLine& line, Words& words) {
  for (const ScriptWord& word : line.Words) line.Value += word.Content + L"\n";
  words.SkipAll();
}

void ParseEcho(ScriptLine& line, Words& words) {
  for (const ScriptWord& word : line.Words) {
    line.Value += (line.Value.empty() ? L"" : L" ") + word.Content;
  }
  words.SkipAll();
}

// ---- the commands ----

enum class When { Before, Any, Running };
enum class Does { Prepare, Look, Act };

struct Grammar {
  void (*Parse)(ScriptLine&, Words&);
  When Allowed;
  Does What;
  bool Later = false;  // may follow `after`
};

const std::map<Text, Grammar>& Commands() {
  static const std::map<Text, Grammar> kCommands = {
      {L"home", {ParseValue, When::Before, Does::Prepare}},
      {L"screen", {ParseScreen, When::Before, Does::Prepare}},
      {L"colours", {ParseColours, When::Before, Does::Prepare}},
      {L"sound", {ParseSound, When::Before, Does::Prepare}},
      {L"clock", {ParseClock, When::Before, Does::Prepare}},
      {L"setting", {ParsePair, When::Before, Does::Prepare}},
      {L"copy", {ParsePair, When::Any, Does::Prepare, true}},
      {L"makewave", {ParseMakeWave, When::Any, Does::Prepare, true}},
      {L"makepicture", {ParseMakePicture, When::Any, Does::Prepare, true}},
      {L"makemp3", {ParseMakeMp3, When::Any, Does::Prepare, true}},
      {L"writefile", {ParseWriteFile, When::Any, Does::Prepare, true}},
      {L"delete", {ParseProductPath, When::Any, Does::Prepare, true}},
      {L"start", {ParseNothing, When::Before, Does::Prepare}},
      {L"press", {ParsePressOrShift, When::Running, Does::Act, true}},
      {L"doubleclick", {ParsePress, When::Running, Does::Act, true}},
      {L"rightclick", {ParseControl, When::Running, Does::Act, true}},
      {L"drag", {ParseDrag, When::Running, Does::Act, true}},
      {L"pull", {ParsePull, When::Running, Does::Act, true}},
      {L"hold", {ParseHold, When::Running, Does::Act}},
      {L"drop", {ParseDrop, When::Running, Does::Act, true}},
      {L"type", {ParseType, When::Running, Does::Act, true}},
      {L"select", {ParseSelect, When::Running, Does::Act, true}},
      {L"key", {ParseKey, When::Running, Does::Act, true}},
      {L"menu", {ParseValue, When::Running, Does::Act, true}},
      {L"choose", {ParseChoose, When::Running, Does::Act}},
      {L"answer", {ParseAnswer, When::Running, Does::Act, true}},
      {L"answer-all", {ParseAnswer, When::Running, Does::Act}},
      {L"window", {ParseWindowClose, When::Running, Does::Act, true}},
      {L"close", {ParseNothing, When::Running, Does::Act}},
      {L"expect", {ParseExpect, When::Running, Does::Look, true}},
      {L"expect-box", {ParseExpectBox, When::Running, Does::Look, true}},
      {L"expect-window", {ParseWindow, When::Running, Does::Look, true}},
      {L"expect-help", {ParseWindow, When::Running, Does::Look, true}},
      {L"expect-file", {ParseExpectFile, When::Any, Does::Look, true}},
      {L"wait", {ParseWait, When::Running, Does::Act}},
      {L"after", {ParseInner, When::Running, Does::Prepare}},
      {L"within", {ParseInner, When::Running, Does::Act}},
      {L"disc", {ParseDisc, When::Any, Does::Prepare, true}},
      {L"writer", {ParseWriter, When::Any, Does::Prepare, true}},
      {L"drive", {ParseDriveFaults, When::Any, Does::Prepare, true}},
      {L"load", {ParseLoad, When::Any, Does::Prepare, true}},
      {L"linein", {ParseLineIn, When::Any, Does::Prepare, true}},
      {L"mixer", {ParseMixer, When::Any, Does::Prepare, true}},
      {L"printer", {ParsePrinter, When::Any, Does::Prepare, true}},
      {L"print", {ParsePrint, When::Running, Does::Act}},
      {L"font", {ParseFont, When::Running, Does::Act}},
      {L"colour", {ParseColour, When::Running, Does::Act}},
      {L"expect-mixer", {ParseExpectMixer, When::Any, Does::Look, true}},
      {L"shot", {ParseShot, When::Running, Does::Look, true}},
      {L"echo", {ParseEcho, When::Any, Does::Look, true}},
  };
  return kCommands;
}

const Grammar& GrammarOf(const ScriptLine& line) {
  const auto found = Commands().find(line.Verb);
  if (found == Commands().end()) {
    throw ScriptError(line.Number, "there is no command \"" + ToUtf8(line.Verb) + "\"");
  }
  return found->second;
}

// Takes the verb, and parses the other words by the rules of that verb.
ScriptLine ParseLine(int number, const Text& source, std::vector<ScriptWord> parts) {
  ScriptLine line;
  line.Number = number;
  line.Source = source;
  line.Verb = parts.front().Content;
  parts.erase(parts.begin());
  line.Words = std::move(parts);
  const Grammar& grammar = GrammarOf(line);
  Words words(line);
  grammar.Parse(line, words);
  if (words.More()) {
    words.Take("");
    words.RefuseLast("wanted here");
  }
  return line;
}

void ParseInner(ScriptLine& line, Words& words) {
  line.Numbers = {words.Number("a number of milliseconds", 0, kAny)};
  if (!words.More()) words.Refuse("a command is missing");
  words.SkipAll();
  ScriptLine inner =
      ParseLine(line.Number, line.Source, {line.Words.begin() + 1, line.Words.end()});
  const bool fits =
      line.Verb == L"within" ? inner.Verb.starts_with(L"expect") : GrammarOf(inner).Later;
  if (!fits) words.Refuse(ToUtf8(inner.Verb) + " cannot stand here");
  line.Inner = std::make_unique<ScriptLine>(std::move(inner));
}

// Replaces ${NAME} by the value of an environment variable. The value stays within its word.
Text WithVariables(Text word, int line) {
  for (std::size_t place = word.find(L"${"); place != Text::npos; place = word.find(L"${", place)) {
    const std::size_t end = word.find(L'}', place);
    if (end == Text::npos) throw ScriptError(line, "\"" + ToUtf8(word) + "\": } is missing");
    const std::string name = ToUtf8(word.substr(place + 2, end - place - 2));
    const char* value = std::getenv(name.c_str());
    if (value == nullptr) throw ScriptError(line, "the environment has no " + name);
    const Text text = FromUtf8(value);
    word.replace(place, end + 1 - place, text);
    place += text.size();
  }
  return word;
}

}  // namespace

bool ActsOnProgram(const ScriptLine& line) {
  return GrammarOf(line).What == Does::Act;
}

bool NeedsProgram(const ScriptLine& line) {
  return GrammarOf(line).Allowed == When::Running;
}

bool PreparesStart(const ScriptLine& line) {
  return GrammarOf(line).Allowed == When::Before;
}

std::vector<ScriptLine> ParseScript(std::string_view script) {
  std::vector<ScriptLine> lines;
  for (int number = 1; !script.empty(); ++number) {
    const std::size_t end = std::min(script.find('\n'), script.size());
    Text source = FromUtf8(script.substr(0, end));
    script.remove_prefix(std::min(end + 1, script.size()));
    if (number == 1 && !source.empty() && source.front() == kByteOrderMark) source.erase(0, 1);
    const bool broken = std::any_of(source.begin(), source.end(), [](wchar_t c) {
      return c >= kFirstBrokenByte && c <= kLastBrokenByte;
    });
    if (broken) throw ScriptError(number, "the line is no UTF-8");
    std::vector<ScriptWord> words = ParseWords(source, number);
    for (ScriptWord& word : words) word.Content = WithVariables(std::move(word.Content), number);
    if (!words.empty()) lines.push_back(ParseLine(number, source, std::move(words)));
  }
  return lines;
}

}  // namespace vantora
