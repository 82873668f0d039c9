// A robot script: text in UTF-8, one command a line, words between blanks. A word in quotes keeps
// its blanks, and "" in it is a quote; `#` at the start of a word begins a comment. docs/robot.md
// lists the commands.
//
// A script is read as a whole before anything runs: an unknown command, a missing word or a target
// that cannot be one is an error with its line. Whether a window has the control shows only later.
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

// What a line speaks of: `frmX`, `frmX.Caption`, `frmX.list`, `frmX.button(0)`, `frmX.list(1,2)`,
// `frmX.list(0)(1,2)`, each but the first two with `.Property` behind it when wanted.
struct Target {
  Text Form;
  Text Control;            // blank: the window itself
  std::vector<int> Index;  // numbers of the first brackets: an element, a line, or row and column
  std::vector<int> Cell;   // numbers of the second brackets
  Text Property;           // blank: the one that a person sees
};

enum class Compare { Equal, NotEqual, Less, Greater, Matches };

struct ScriptWord {
  Text Content;
  bool Quoted = false;
};

struct ScriptLine {
  int Number = 0;  // from 1
  Text Source;     // as it stands in the script, for messages
  Text Verb;
  std::vector<ScriptWord> Words;      // behind the verb
  std::optional<Target> Subject;      // of lines that name a window or a control first
  std::vector<int> Numbers;           // rows, milliseconds, sizes
  Compare Operator = Compare::Equal;  // of expectations
  Text Value;                         // what is compared with, typed, or said
  std::unique_ptr<ScriptLine> Inner;  // of `after` and `within`
};

// False for a line that only looks or prepares; such lines do not wait for the program to turn.
bool ActsOnProgram(const ScriptLine& line);
// True for lines that a running program must be there for.
bool NeedsProgram(const ScriptLine& line);
// True for lines that a running program must not be there for.
bool PreparesStart(const ScriptLine& line);

// Raises ScriptError.
std::vector<ScriptLine> ParseScript(std::string_view script);
std::vector<ScriptWord> ParseWords(const Text& source, int line);
Target ParseTarget(const Text& word, int line);

// Numbers are compared as numbers when both sides are numbers, else as text; `Matches` searches for
// a regular expression.
bool Compares(const Text& found, Compare how, const Text& wanted);
const wchar_t* OperatorName(Compare how);

// "C:\Música\a.wav" cut into its drive, its folders and its name.
struct ScriptPath {
  Text Drive;  // "C"; blank for a bare name
  std::vector<Text> Folders;
  Text Name;
};
ScriptPath ParsePath(const Text& path);

}  // namespace vantora
