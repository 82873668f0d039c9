#include "app/fenster.h"

#include "app/programm.h"
#include "app/werte/layout.h"
#include "app/werte/zahlen.h"

#include "platform/twips.h"

namespace vantora {

namespace {

// With large fonts a pixel has fewer twips, and the pictures of the windows are measured in pixels.
constexpr double kSchriftVerhaeltnis = double{kLargeFontTwipsPerPixel} / kTwipsPerPixel;

void Skalieren(Control& control) {
  const auto mal = [](int wert) { return Ganz32(wert * kSchriftVerhaeltnis); };
  control.Width = mal(control.Width);
  control.Height = mal(control.Height);
  control.Left = mal(control.Left);
  control.Top = mal(control.Top);
}

}  // namespace

VtrFenster::VtrFenster(Programm& programm, const Text& name)
    : Form(programm.plattform.schleife, name), prog(programm) {}

bool VtrFenster::Form_KeyDown(int taste, bool /*strg*/) {
  if (taste != kKeyF1) return false;
  prog.Hilfe(Name);
  return true;
}

void VtrFenster::LayoutAnwenden(const Text& name) {
  LayoutLesen(prog.plattform.ressourcen.Layout(name), *this);
}

void VtrFenster::FensterEinrichten() {
  LayoutAnwenden(Name);
  ToolTipsSetzen(*this);
  SkaliereForm(prog, *this);
  MitteSetzen(prog, *this);
}

void VtrFenster::Knopf(PictureButton& knopf, std::function<void()> aktion) {
  knopf.MouseUp = [aktion = std::move(aktion)](int taste) {
    if (taste == kLeftButton) aktion();
  };
}

void VtrFenster::Beschriften(Label& schild, PictureButton& knopf, const Text& text) {
  schild.Caption = text;
  schild.Align = Alignment::Center;
  schild.Of = &knopf;
  if (knopf.AccessibleName().empty()) knopf.AccessibleName = text;
  schild.MouseDown = [&knopf](int taste) {
    if (taste != kLeftButton || !knopf.Enabled || knopf.PicturePressed.empty()) return;
    knopf.Picture = knopf.PicturePressed;
  };
  // Runs also when the mouse is released outside the label.
  schild.MouseUp = [&knopf](int) { KnopfBild(knopf); };
  schild.Click = [this, &knopf] {
    if (!knopf.Enabled || !Window.Enabled) return;
    Press(knopf);
    prog.plattform.schleife.DoEvents();
    // The second click of a double click comes here first. It has pressed the button already, and
    // may have closed the window.
    const bool gedrueckt = knopf.PicturePressed.empty() || knopf.Picture() == knopf.PicturePressed;
    if (gedrueckt && Visible() && knopf.InUse() && Window.Enabled) Release(knopf);
  };
}

Text VtrFenster::LoadResString(int nummer) const {
  return prog.Text(nummer);
}

std::shared_ptr<VtrFenster> FensterPlatz::Holen() {
  if (fenster_) return fenster_;
  // The local pointer keeps the window alive, because a window may unload itself while it loads.
  std::shared_ptr<VtrFenster> bleibt = macher_(prog_);
  fenster_ = bleibt;
  bleibt->Form_Load();
  return bleibt;
}

void FensterPlatz::Entladen() {
  if (!fenster_) return;
  const std::shared_ptr<VtrFenster> fenster = std::move(fenster_);
  fenster_.reset();
  fenster->Form_Unload();
  prog_.plattform.schleife.Hide(*fenster);
  prog_.Zuruecklegen(fenster);
}

void ToolTipsSetzen(Form& fenster) {
  const Text kLeer = L"--";
  for (Control* control : fenster.Controls) {
    if (auto* schild = dynamic_cast<Label*>(control)) schild->Caption = kLeer;
    if (auto* kasten = dynamic_cast<CheckBox*>(control)) kasten->Caption = kLeer;
    if (auto* wahl = dynamic_cast<OptionButton*>(control)) wahl->Caption = kLeer;
    if (auto* feld = dynamic_cast<TextBox*>(control)) feld->Text = kLeer;
    if (!control->ToolTipText().empty()) control->ToolTipText = kLeer;
  }
}

void SkaliereForm(Programm& prog, Form& fenster) {
  if (prog.plattform.bildschirm.TwipsPerPixelX() != kLargeFontTwipsPerPixel) return;
  EventLoop& schleife = prog.plattform.schleife;
  const Pointer vorher = schleife.MousePointer();
  schleife.MousePointer(Pointer::Hourglass);
  Skalieren(fenster.Window);
  for (Control* control : fenster.Controls) Skalieren(*control);
  schleife.MousePointer(vorher);
}

void MitteSetzen(Programm& prog, Form& fenster) {
  Display& bildschirm = prog.plattform.bildschirm;
  const int breite = Ganz32(bildschirm.Width() / bildschirm.Scale());
  const int hoehe = Ganz32(bildschirm.Height() / bildschirm.Scale());
  fenster.Window.Left = breite / 2 - fenster.Window.Width / 2;
  fenster.Window.Top = hoehe / 2 - fenster.Window.Height / 2;
}

void KnopfBild(PictureButton& ziel) {
  if (!ziel.PictureReleased.empty()) ziel.Picture = ziel.PictureReleased;
}

}  // namespace vantora
