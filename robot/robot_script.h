// A robot script: text in UTF-8, one command a line, words separated by blanks. A word in quotes
// may have blanks, and "" in it is one quote; `#` at the start of a word begins a comment.
// docs/robot.md lists the commands.
//
// A script is parsed as a whole before it runs: an unknown command, a missing word or an impossible
// target is reported with its line. Only the run shows whether a window has the control.
#pragma once

#include "platform/text.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantora {

struct ScriptError : std::runtime_error {
  ScriptError(int line, const std::string& what) : std::runtime_error(what), Line(line) {}
  int Line;
};

// The window, control or cell that a line is about: `frmX`, `frmX.Caption`, `frmX.list`,
// `frmX.button(0)`, `frmX.list(1,2)`, `frmX.list(0)(1,2)`. All but the first two may end with
// `.Property`.
struct Target {
  Text Form;
  Text Control;            // blank: the window itself
  std::vector<int> Index;  // numbers in the first brackets: an element, a line, or row and column
  std::vector<int> Cell;   // numbers in the second brackets
  Text Property;           // blank: the property that a user sees
};

enum class Compare { Equal, NotEqual, Less, Greater, Matches };

struct ScriptWord {
  Text Content;
  bool Quoted = false;
};

struct ScriptLine {
  int Number = 0;  // from 1
  Text Source;     // the line as written, for messages
  Text Verb;
  std::vector<ScriptWord> Words;      // words after the verb
  std::optional<Target> Subject;      // of lines that begin with a window or a control
  std::vector<int> Numbers;           // rows, milliseconds, sizes
  Compare Operator = Compare::Equal;  // for expectations
  Text Value;                         // the value to compare with, to type or to set
  std::unique_ptr<ScriptLine> Inner;  // for `after` and `within`
};

// False for lines that only check or prepare; such lines do not wait for the program's next turn.
bool ActsOnProgram(const ScriptLine& line);
// True for lines that need a running program.
bool NeedsProgram(const ScriptLine& line);
// True for lines that are allowed only while no program runs.
bool PreparesStart(const ScriptLine& line);

// These functions raise ScriptError.
std::vector<ScriptLine> ParseScript(std::string_view script);
std::vector<ScriptWord> ParseWords(const Text& source, int line);
Target ParseTarget(const Text& word, int line);

// Compares numbers as numbers when both sides are numbers, otherwise as text; `Matches` searches
// for a regular expression.
bool Compares(const Text& found, Compare how, const Text& wanted);
const wchar_t* OperatorName(Compare how);

// "C:\Música\a.wav", split into drive, folders and name.
struct ScriptPath {
  Text Drive;  // "C"; blank for a bare name
  std::vector<Text> Folders;
  Text Name;
};
ScriptPath ParsePath(const Text& path);

}  // namespace vantora
