#include "app/frmStartUp.h"

#include "app/programm.h"

#include "platform/twips.h"

namespace vantora {

namespace {

constexpr int kRand = 50;             // twips around the picture
constexpr double kZeilenHoehe = 1.5;  // of the height of the text

}  // namespace

frmStartUp::frmStartUp(Programm& programm) : VtrFenster(programm, L"frmStartUp") {}

void frmStartUp::Form_Load() {
  EventLoop& schleife = prog.plattform.schleife;
  LayoutAnwenden(Name);
  SkaliereForm(prog, *this);
  ToolTipsSetzen(*this);
  if (prog.plattform.system.PrevInstance()) {
    schleife.SystemBox(prog.Text(6), kWarnung, prog.Text(0));
    throw ProgrammEnde{};
  }
  prog.LogAktiv = false;
  schleife.MousePointer(Pointer::Hourglass);
  picBack.Picture = L"STARTSCREEN";
  Window.Width = picBack.Width + kRand;
  Window.Height = picBack.Height + kRand;
  lblStatus.Caption = prog.Text(28000);
  lblStatus.Height = static_cast<int>(lblStatus.FontSize * kTwipsPerPoint * kZeilenHoehe);
  lblStatus.Align = Alignment::Right;
  lblStatus.Left = picBack.Left + picBack.Width - lblStatus.Width - kRand;
  lblStatus.Top = picBack.Top + picBack.Height - lblStatus.Height - kRand;
  MitteSetzen(prog, *this);
  prog.Zeigen(*this);
  schleife.DoEvents();
  prog.Katalogfenster();  // loads it
  prog.frmStartUp.Entladen();
  schleife.MousePointer(Pointer::Normal);
}

bool frmStartUp::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyF12) {
    prog.LogAktiv = true;
    return true;
  }
  return VtrFenster::Form_KeyDown(taste, strg);
}

}  // namespace vantora
