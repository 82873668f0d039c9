#include "dialogs/frmStartAssistent.h"

#include "app/programm.h"

namespace vantora {

namespace {

constexpr int kTexte[] = {20201, 20202, 20203, 20204, 20205, 20208};

}  // namespace

frmStartAssistent::frmStartAssistent(Programm& programm)
    : VtrFenster(programm, L"frmStartAssistent") {
  imgOK.MouseDown = [this](int taste) {
    if (taste == kLeftButton) imgOK_MouseDown();
  };
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  for (PictureButton* knopf : {&imgAbbrechen, &imgHelp}) {
    knopf->GotFocus = [this] { aufKnopf_ = true; };
    knopf->LostFocus = [this] { aufKnopf_ = false; };
  }
  for (int i = 0; i < StartOptionen.Count(); ++i) {
    StartOptionen(i).DblClick = [this] { imgOK_MouseDown(); };
  }
}

void frmStartAssistent::Form_Load() {
  FensterEinrichten();
  SetTexte();
  StartOptionen(0).SetValue(true);
  prog.plattform.schleife.SetFocus(StartOptionen(0));
}

void frmStartAssistent::SetTexte() {
  Caption = LoadResString(20200);
  lblTitel.Caption = LoadResString(20200);
  lblHilfe.Caption = LoadResString(20207);
  for (int i = 0; i < StartOptionen.Count(); ++i) {
    StartOptionen(i).Caption = LoadResString(kTexte[i]);
  }
  chkNichtMehrZeigen.Caption = LoadResString(20206);
  chkNichtMehrZeigen.ToolTipText = LoadResString(20400);
  Beschriften(lblButtCaption(0), imgOK, LoadResString(4));
  Beschriften(lblButtCaption(1), imgAbbrechen, LoadResString(5));
  imgOK.ToolTipText = LoadResString(20401);
  imgAbbrechen.ToolTipText = LoadResString(20402);
  imgHelp.ToolTipText = LoadResString(1);
}

void frmStartAssistent::Merken() {
  prog.Show_Start_Assistant = chkNichtMehrZeigen.Value == 0;
  prog.SaveExtrasSet();
}

void frmStartAssistent::imgOK_MouseDown() {
  Merken();
  for (int i = 0; i < StartOptionen.Count(); ++i) {
    if (StartOptionen(i).Value()) Ergebnis = i;
  }
  prog.frmStartAssistent.Entladen();
}

void frmStartAssistent::imgAbbrechen_MouseUp() {
  Merken();
  prog.frmStartAssistent.Entladen();
}

bool frmStartAssistent::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyReturn && aufKnopf_) return false;
  if (taste == kKeyReturn) imgOK_MouseDown();
  if (taste == kKeyEscape) imgAbbrechen_MouseUp();
  return taste == kKeyReturn || taste == kKeyEscape || VtrFenster::Form_KeyDown(taste, strg);
}

}  // namespace vantora
