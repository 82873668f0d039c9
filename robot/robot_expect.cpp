// The commands that check.

#include "backends/checksum/sha256.h"
#include "backends/headless/headless_mixer.h"
#include "backends/linux/utf8.h"
#include "robot/robot_commands.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vantora {

namespace {

std::string Quoted(const Text& text) {
  return "\"" + ToUtf8(text) + "\"";
}

void Check(const std::string& what, const Text& found, const ScriptLine& line) {
  if (Compares(found, line.Operator, line.Value)) return;
  throw Unreachable(what + " was to be " + ToUtf8(OperatorName(line.Operator)) + " " +
                    Quoted(line.Value) + ", it is " + Quoted(found));
}

// The property of a control that a user sees.
const wchar_t* SeenOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return L"Caption";
    case ControlKind::TextBox:
    case ControlKind::ComboBox:
      return L"Text";
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Slider:
      return L"Value";
    case ControlKind::PictureButton:
    case ControlKind::PictureBox:
      return L"Picture";
    case ControlKind::ListBox:
    case ControlKind::ListView:
      return L"Count";
    case ControlKind::LevelMeter:
      return L"Active";
    default:
      return L"Visible";
  }
}

std::optional<Text> ReadWindow(const Form& form, const Text& property) {
  if (property.empty() || property == L"Caption") return form.Caption();
  if (property == L"Picture") return form.Picture();
  if (property == L"Visible") return form.Visible() ? L"True" : L"False";
  return form.Window.Read(property);
}

// Reads a line of a list, or a row and column of a list view; lines and rows count from 1.
std::optional<Text> ReadCell(const Control& control, const std::vector<int>& cell,
                             const Text& property) {
  const int row = cell.front();
  const auto flag = [](bool on) { return Text(on ? L"True" : L"False"); };
  if (const auto* list = dynamic_cast<const ListControl*>(&control)) {
    if (cell.size() != 1 || row < 1 || row > list->ListCount()) return std::nullopt;
    if (property.empty()) return list->List(row - 1);
    const auto* box = dynamic_cast<const ListBox*>(list);
    if (property != L"Selected") return std::nullopt;
    return flag(box != nullptr ? box->Selected(row - 1) : list->ListIndex == row - 1);
  }
  const auto* view = dynamic_cast<const ListView*>(&control);
  if (view == nullptr || row < 1 || row > view->ListItems.Count()) return std::nullopt;
  const ListItem& item = view->ListItems(row);
  if (property == L"Selected") return flag(item.Selected());
  if (!property.empty()) return std::nullopt;
  return item.SubItems(cell.size() == 2 ? cell.back() : 0);
}

std::optional<std::int64_t> LengthOf(Dateien& files, const Text& path) {
  try {
    return files.FileLen(path);
  } catch (const Laufzeitfehler&) {
    return std::nullopt;  // the cell does not exist, which the script may expect
  }
}

Text ReadTarget(const RobotScene& scene, const Target& target) {
  std::optional<Text> found;
  if (target.Control.empty()) {
    found = ReadWindow(scene.FindForm(target.Form), target.Property);
  } else {
    const Control& control = scene.FindControl(target);
    const std::vector<int>& cell = control.Index >= 0 ? target.Cell : target.Index;
    const Text property = target.Property.empty() ? SeenOf(control.Kind()) : target.Property;
    found = cell.empty() ? control.Read(property) : ReadCell(control, cell, target.Property);
  }
  if (!found) throw Unreachable("there was to be something to read, the control has no such thing");
  return *found;
}

void Expect(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  Check(ToUtf8(line.Words.front().Content), ReadTarget(scene, *line.Subject), line);
}

void ExpectBox(RobotScene& /*scene*/, const ScriptLine& line, Form* front) {
  const std::optional<Text> said = TextOfBox(front);
  if (!said) {
    throw Unreachable("a message box with " + Quoted(line.Value) + " was to be in front, it is " +
                      Describe(front));
  }
  Check("the message box", *said, line);
}

void ExpectWindow(RobotScene& /*scene*/, const ScriptLine& line, Form* front) {
  const Text& wanted = line.Subject->Form;
  if (front != nullptr && front->Name == wanted) return;
  throw Unreachable(ToUtf8(wanted) + " was to be in front, it is " + Describe(front));
}

void ExpectFile(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const Text& path = line.Words[0].Content;
  const Text& what = line.Words[1].Content;
  Dateien& files = scene.Stage().Files();
  const std::optional<std::int64_t> length = LengthOf(files, path);
  const bool there = length || files.IsDirectory(path);
  if (what == L"missing") {
    if (there) throw Unreachable(ToUtf8(path) + " was to be missing, it is there");
    return;
  }
  if (!there) throw Unreachable(ToUtf8(path) + " was to be there, it is missing");
  if (what == L"exists") return;
  if (!length) throw Unreachable(ToUtf8(path) + " was to be a file, it is a folder");
  const std::string found =
      what == L"size" ? std::to_string(*length) : Sha256Of(*files.Open(path, Zugriff::Lesen));
  if (found == ToUtf8(line.Value)) return;
  throw Unreachable(ToUtf8(path) + " was to have the " + ToUtf8(what) + " " + ToUtf8(line.Value) +
                    ", it has " + found);
}

// An output and an input may have the same name. The line then means the output; only `select`
// means the input, because outputs have no selection.
void ExpectMixer(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const Text& name = line.Words[0].Content;
  const Text& what = line.Words[1].Content;
  const HeadlessMixer::Line* found = scene.Stage().Mixer().Find(name, what == L"select");
  const OutputVolume& own = scene.Stage().OwnVolume();
  const bool isOwn = found == nullptr && name == L"Wave";
  if (found == nullptr && !isOwn) {
    throw Unreachable("the card was to have a line " + ToUtf8(name) + ", it has none");
  }
  const int volume = isOwn ? own.Volume() : found->Volume;
  const bool on = isOwn ? own.On() : found->On;
  const bool flag = what == L"mute" ? !on : on;
  Check(ToUtf8(what) + " of " + ToUtf8(name),
        what == L"volume" ? std::to_wstring(volume) : Text(flag ? L"True" : L"False"), line);
}

void ExpectHelp(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const Text& wanted = line.Subject->Form;
  const Text found = scene.Stage().HelpPage();
  if (found == wanted) return;
  throw Unreachable("the help was to show " + ToUtf8(wanted) + ", it shows " + Quoted(found));
}

}  // namespace

CommandTable Expectations() {
  return {
      {L"expect", Expect},
      {L"expect-box", ExpectBox},
      {L"expect-window", ExpectWindow},
      {L"expect-file", ExpectFile},
      {L"expect-mixer", ExpectMixer},
      {L"expect-help", ExpectHelp},
  };
}

}  // namespace vantora
