// `choose`: operates the program's file dialog: picks the drive, opens one folder after the other,
// marks files or types a name, and presses OK.

#include "backends/linux/utf8.h"
#include "dialogs/frmLoadSave.h"
#include "robot/robot.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kOk = 1, kCancel = 2;

bool SameName(const Text& a, const Text& b) {
  return LowerCase(a) == LowerCase(b);
}

frmLoadSave& DialogIn(Form* front) {
  auto* dialog = dynamic_cast<frmLoadSave*>(front);
  if (dialog == nullptr) {
    throw Unreachable("the file dialog was to be in front, it is " + Describe(front));
  }
  return *dialog;
}

// Returns the row, from 1, of the line that reads `wanted` behind its first `indent` characters; 0
// for none. Searches from line `first` on.
int RowOf(const ListControl& list, const Text& wanted, int first = 0, std::size_t indent = 0) {
  const auto find = [&](const auto& matches) {
    for (int i = first; i < list.ListCount(); ++i) {
      if (list.List(i).size() >= indent && matches(list.List(i).substr(indent))) return i + 1;
    }
    return 0;
  };
  const int exact = find([&](const Text& line) { return line == wanted; });
  return exact > 0 ? exact : find([&](const Text& line) { return SameName(line, wanted); });
}

// The wanted files with their folder. A bare name stays in the folder that the dialog shows.
ScriptPath WantedPath(const ScriptLine& line) {
  return ParsePath(line.Words.front().Content);
}

}  // namespace

void Robot::Choose(const ScriptLine& line, Form* front) {
  frmLoadSave& dialog = DialogIn(front);
  if (!line.Words.front().Quoted && line.Words.front().Content == L"cancel") {
    stage_.TheHands().Press(dialog.pbButton(kCancel));
    return;
  }
  const ScriptPath wanted = WantedPath(line);
  const Text shown = ParsePath(dialog.lblPfad.Caption).Drive;
  if (wanted.Drive.empty()) {
    ChooseFiles(line, front);
    return;
  }
  if (SameName(shown, wanted.Drive)) {
    WalkTo(line, front);
    return;
  }
  const int row = RowOf(dialog.cbxLaufwerk, wanted.Drive + L":");
  if (row == 0) {
    throw Unreachable("the dialog was to have the drive " + ToUtf8(wanted.Drive) +
                      ":, it has none");
  }
  Then(line, [this, &line](Form* next) { WalkTo(line, next); });
  stage_.TheHands().Select(dialog.cbxLaufwerk, {row});
}

// The list of folders shows the path from the root to the open folder, and below it the subfolders
// of the open folder. Each level is indented by two more blanks.
void Robot::WalkTo(const ScriptLine& line, Form* front) {
  frmLoadSave& dialog = DialogIn(front);
  const ScriptPath shown = ParsePath(dialog.lblPfad.Caption), wanted = WantedPath(line);
  if (!SameName(shown.Drive, wanted.Drive)) {
    throw Unreachable("the dialog was to open the drive " + ToUtf8(wanted.Drive) + ":, it shows " +
                      ToUtf8(dialog.lblPfad.Caption));
  }
  const std::size_t depth = shown.Folders.size();
  std::size_t common = 0;
  while (common < std::min(depth, wanted.Folders.size()) &&
         SameName(shown.Folders[common], wanted.Folders[common])) {
    ++common;
  }
  if (common == depth && common == wanted.Folders.size()) {
    ChooseFiles(line, front);
    return;
  }
  int row = static_cast<int>(common) + 1;
  if (common == depth) {
    row = RowOf(dialog.lstVerzeichnis, wanted.Folders[common], static_cast<int>(depth) + 1,
                2 * (depth + 1));
    if (row == 0) {
      throw Unreachable("the folder " + ToUtf8(wanted.Folders[common]) + " was to be in " +
                        ToUtf8(dialog.lblPfad.Caption) + ", there is none");
    }
  }
  Then(line, [this](Form* next) { stage_.TheHands().DoubleClick(DialogIn(next).lstVerzeichnis); });
  Then(line, [this, &line, before = dialog.lblPfad.Caption()](Form* next) {
    if (DialogIn(next).lblPfad.Caption() == before) {
      throw Unreachable("a folder below " + ToUtf8(before) + " was to open, it did not");
    }
    WalkTo(line, next);
  });
  stage_.TheHands().Select(dialog.lstVerzeichnis, {row});
}

// If a file is not in the list, it is a new one, so its name is typed.
void Robot::ChooseFiles(const ScriptLine& line, Form* front) {
  frmLoadSave& dialog = DialogIn(front);
  std::vector<int> rows;
  for (const ScriptWord& word : line.Words) {
    const Text name = ParsePath(word.Content).Name;
    const int row = RowOf(dialog.lstDatei, name);
    if (row == 0 && line.Words.size() > 1) {
      throw Unreachable("the file " + ToUtf8(name) + " was to be in " +
                        ToUtf8(dialog.lblPfad.Caption) + ", the list does not show it");
    }
    if (row > 0) rows.push_back(row);
  }
  Then(line, [this](Form* next) { stage_.TheHands().Press(DialogIn(next).pbButton(kOk)); });
  if (rows.empty()) {
    stage_.TheHands().Type(dialog.txtDateiName, WantedPath(line).Name);
  } else {
    stage_.TheHands().Select(dialog.lstDatei, rows);
  }
}

}  // namespace vantora
