// Printing: the properties of the printer, and the dialogs for fonts, colours and printing.

#include "backends/linux/utf8.h"
#include "dialogs/frmDrucken.h"
#include "dialogs/frmFarbe.h"
#include "dialogs/frmSchrift.h"
#include "robot/robot.h"

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

}  // namespace

void Robot::Printer(const ScriptLine& line, Form* /*front*/) {
  PrinterSetup& setup = stage_.Printing();
  if (line.Value == L"none") {
    setup.Present = false;
  } else if (line.Value == L"pdf") {
    setup.Present = true;
    setup.PdfFolder = HostPath(line.Words[1].Content);
    std::filesystem::create_directories(setup.PdfFolder);
  } else if (line.Value == L"paper") {
    setup.Paper = line.Words[1].Content;
  } else {
    setup.MarginX = line.Numbers[0];
    setup.MarginY = line.Numbers[1];
  }
}

void Robot::Print(const ScriptLine& line, Form* front) {
  auto& dialog = In<frmDrucken>(front, "the print dialog");
  stage_.TheHands().Press(dialog.pbButton(line.Numbers.empty() ? kCancel : kAccept));
}

void Robot::Font(const ScriptLine& line, Form* front) {
  frmSchrift& dialog = FontDialog(front);
  Hands& hands = stage_.TheHands();
  if (line.Numbers.empty()) return hands.Press(dialog.pbButton(kCancel));
  const auto tick = [this, &line](CheckBox frmSchrift::*box, int value) {
    Then(line, [this, box, value](Form* next) {
      CheckBox& shown = FontDialog(next).*box;
      if (shown.Value != value) stage_.TheHands().Press(shown);
    });
  };
  Then(line, [this, &line](Form* next) {
    stage_.TheHands().Type(FontDialog(next).txtGroesse, std::to_wstring(line.Numbers[0]));
  });
  tick(&frmSchrift::chkFett, line.Numbers[1]);
  tick(&frmSchrift::chkKursiv, line.Numbers[2]);
  Then(line, [this](Form* next) { stage_.TheHands().Press(FontDialog(next).pbButton(kAccept)); });
  hands.Select(dialog.lstName, {RowOf(dialog.lstName, line.Value)});
}

void Robot::Colour(const ScriptLine& line, Form* front) {
  frmFarbe& dialog = ColourDialog(front);
  if (line.Numbers.empty()) return stage_.TheHands().Press(dialog.pbButton(kCancel));
  for (int i = 1; i < dialog.txtAnteil.Count(); ++i) {
    Then(line, [this, &line, i](Form* next) {
      stage_.TheHands().Type(ColourDialog(next).txtAnteil(i),
                             std::to_wstring(line.Numbers[static_cast<std::size_t>(i)]));
    });
  }
  Then(line, [this](Form* next) { stage_.TheHands().Press(ColourDialog(next).pbButton(kAccept)); });
  stage_.TheHands().Type(dialog.txtAnteil(0), std::to_wstring(line.Numbers[0]));
}

}  // namespace vantora
