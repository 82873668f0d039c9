#include "app/frmAbout.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"

namespace vantora {

namespace {

enum : int {
  kTextVersion = 30000,
  kTextMitwirkende = 30001,
  kTextLizenz = 30002,
  kTextErsterLink = 30003,  // of two
};

}  // namespace

frmAbout::frmAbout(Programm& programm) : VtrFenster(programm, L"frmAbout") {
  Knopf(imgOK, [this] { imgOK_MouseUp(); });
  for (int i = 0; i < lblLink.Count(); ++i) {
    lblLink(i).Click = [this, i] { prog.plattform.system.OpenLink(lblLink(i).Caption); };
  }
}

void frmAbout::Form_Load() {
  FensterEinrichten();
  SetTexte();
}

void frmAbout::SetTexte() {
  System& system = prog.plattform.system;
  Caption = LoadResString(8445);
  lblName.Caption = LoadResString(0);
  lblVersion.Caption = LoadResString(kTextVersion) + ZahlText(system.Major()) + L"." +
                       ZahlText(system.Minor()) + L"." + ZahlText(system.Revision());
  lblText.Caption = LoadResString(kTextMitwirkende);
  lblLizenz.Caption = LoadResString(kTextLizenz);
  lblLink(0).Caption = LoadResString(kTextErsterLink);
  lblLink(1).Caption = LoadResString(kTextErsterLink + 1);
  Beschriften(lblButtCaption(0), imgOK, LoadResString(4));
}

bool frmAbout::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgOK_MouseUp();
  return true;
}

void frmAbout::imgOK_MouseUp() {
  prog.frmAbout.Entladen();
}

}  // namespace vantora
