// `choose`: operates the program's file dialog: picks the drive, opens one folder after the other,
// marks files or types a name, and presses OK.

#include "backends/linux/utf8.h"
#include "dialogs/frmLoadSave.h"
#include "robot/robot_commands.h"

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

// If a file is not in the list, it is a new one, so its name is typed.
void ChooseFiles(RobotScene& scene, const ScriptLine& line, Form* front) {
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
  scene.Turns().Then(
      line, [&scene](Form* next) { scene.TheHands().Press(DialogIn(next).pbButton(kOk)); });
  if (rows.empty()) {
    scene.TheHands().Type(dialog.txtDateiName, WantedPath(line).Name);
  } else {
    scene.TheHands().Select(dialog.lstDatei, rows);
  }
}

// The list of folders shows the path from the root to the open folder, and below it the subfolders
// of the open folder. Each level is indented by two more blanks.
void WalkTo(RobotScene& scene, const ScriptLine& line, Form* front) {
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
    ChooseFiles(scene, line, front);
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
  scene.Turns().Then(
      line, [&scene](Form* next) { scene.TheHands().DoubleClick(DialogIn(next).lstVerzeichnis); });
  scene.Turns().Then(line, [&scene, &line, before = dialog.lblPfad.Caption()](Form* next) {
    if (DialogIn(next).lblPfad.Caption() == before) {
      throw Unreachable("a folder below " + ToUtf8(before) + " was to open, it did not");
    }
    WalkTo(scene, line, next);
  });
  scene.TheHands().Select(dialog.lstVerzeichnis, {row});
}

void Choose(RobotScene& scene, const ScriptLine& line, Form* front) {
  frmLoadSave& dialog = DialogIn(front);
  if (!line.Words.front().Quoted && line.Words.front().Content == L"cancel") {
    scene.TheHands().Press(dialog.pbButton(kCancel));
    return;
  }
  const ScriptPath wanted = WantedPath(line);
  const Text shown = ParsePath(dialog.lblPfad.Caption).Drive;
  if (wanted.Drive.empty()) {
    ChooseFiles(scene, line, front);
    return;
  }
  if (SameName(shown, wanted.Drive)) {
    WalkTo(scene, line, front);
    return;
  }
  const int row = RowOf(dialog.cbxLaufwerk, wanted.Drive + L":");
  if (row == 0) {
    throw Unreachable("the dialog was to have the drive " + ToUtf8(wanted.Drive) +
                      ":, it has none");
  }
  scene.Turns().Then(line, [&scene, &line](Form* next) { WalkTo(scene, line, next); });
  scene.TheHands().Select(dialog.cbxLaufwerk, {row});
}

}  // namespace

CommandTable FileDialogCommands() {
  return {
      {L"choose", Choose},
  };
}

}  // namespace vantora
