// Printing: the properties of the printer, and the dialogs for fonts, colours and printing.

#include "backends/linux/utf8.h"
#include "dialogs/frmDrucken.h"
#include "dialogs/frmFarbe.h"
#include "dialogs/frmSchrift.h"
#include "robot/robot_commands.h"

#include "platform/printer.h"

#include <filesystem>

namespace vantora {

namespace {

constexpr int kAccept = 0, kCancel = 1;

template <typename Dialog>
Dialog& In(Form* front, const char* what) {
  auto* dialog = dynamic_cast<Dialog*>(front);
  if (dialog == nullptr) {
    throw Unreachable(std::string(what) + " was to be in front, it is " + Describe(front));
  }
  return *dialog;
}

frmSchrift& FontDialog(Form* front) {
  return In<frmSchrift>(front, "the font dialog");
}

frmFarbe& ColourDialog(Form* front) {
  return In<frmFarbe>(front, "the colour dialog");
}

int RowOf(const ListControl& list, const Text& wanted) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (LowerCase(list.List(i)) == LowerCase(wanted)) return i + 1;
  }
  throw Unreachable("the font " + ToUtf8(wanted) + " was to be in the list, it is not");
}

void SetPrinter(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  PrinterSetup& setup = scene.Stage().Printing();
  if (line.Value == L"none") {
    setup.Present = false;
  } else if (line.Value == L"pdf") {
    setup.Present = true;
    setup.PdfFolder = scene.HostPath(line.Words[1].Content);
    std::filesystem::create_directories(setup.PdfFolder);
  } else if (line.Value == L"paper") {
    setup.Paper = line.Words[1].Content;
  } else {
    setup.MarginX = line.Numbers[0];
    setup.MarginY = line.Numbers[1];
  }
}

void Print(RobotScene& scene, const ScriptLine& line, Form* front) {
  auto& dialog = In<frmDrucken>(front, "the print dialog");
  scene.TheHands().Press(dialog.pbButton(line.Numbers.empty() ? kCancel : kAccept));
}

void Font(RobotScene& scene, const ScriptLine& line, Form* front) {
  frmSchrift& dialog = FontDialog(front);
  Hands& hands = scene.TheHands();
  if (line.Numbers.empty()) return hands.Press(dialog.pbButton(kCancel));
  const auto tick = [&scene, &line](CheckBox frmSchrift::*box, int value) {
    scene.Turns().Then(line, [&scene, box, value](Form* next) {
      CheckBox& shown = FontDialog(next).*box;
      if (shown.Value != value) scene.TheHands().Press(shown);
    });
  };
  scene.Turns().Then(line, [&scene, &line](Form* next) {
    scene.TheHands().Type(FontDialog(next).txtGroesse, std::to_wstring(line.Numbers[0]));
  });
  tick(&frmSchrift::chkFett, line.Numbers[1]);
  tick(&frmSchrift::chkKursiv, line.Numbers[2]);
  scene.Turns().Then(
      line, [&scene](Form* next) { scene.TheHands().Press(FontDialog(next).pbButton(kAccept)); });
  hands.Select(dialog.lstName, {RowOf(dialog.lstName, line.Value)});
}

void Colour(RobotScene& scene, const ScriptLine& line, Form* front) {
  frmFarbe& dialog = ColourDialog(front);
  if (line.Numbers.empty()) return scene.TheHands().Press(dialog.pbButton(kCancel));
  for (int i = 1; i < dialog.txtAnteil.Count(); ++i) {
    scene.Turns().Then(line, [&scene, &line, i](Form* next) {
      scene.TheHands().Type(ColourDialog(next).txtAnteil(i),
                            std::to_wstring(line.Numbers[static_cast<std::size_t>(i)]));
    });
  }
  scene.Turns().Then(
      line, [&scene](Form* next) { scene.TheHands().Press(ColourDialog(next).pbButton(kAccept)); });
  scene.TheHands().Type(dialog.txtAnteil(0), std::to_wstring(line.Numbers[0]));
}

}  // namespace

CommandTable PrintCommands() {
  return {
      {L"printer", SetPrinter},
      {L"print", Print},
      {L"font", Font},
      {L"colour", Colour},
  };
}

}  // namespace vantora
