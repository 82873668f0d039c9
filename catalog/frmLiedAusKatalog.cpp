#include "catalog/frmLiedAusKatalog.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "catalog/frmHauptForm.h"

namespace vantora {

frmLiedAusKatalog::frmLiedAusKatalog(Programm& programm)
    : VtrFenster(programm, L"frmLiedAusKatalog") {
  lstLiedAusKatalog.MultiSelect = true;
  for (int i = 0; i < imgControl.Count(); ++i) {
    Knopf(imgControl(i), [this, i] { imgControl_MouseUp(i); });
  }
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  lstLiedAusKatalog.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) imgControl_MouseUp(0);
  };
  lstLiedAusKatalog.Click = [this] { lstLiedAusKatalog_Click(); };
}

void frmLiedAusKatalog::Form_Load() {
  FensterEinrichten();
  SetTexte();
}

void frmLiedAusKatalog::SetTexte() {
  Caption = LoadResString(10200);
  lblTitel.Caption = LoadResString(10200);
  Beschriften(lblButtCaption(0), imgControl(0), LoadResString(4));
  Beschriften(lblButtCaption(1), imgControl(1), LoadResString(5));
  lstLiedAusKatalog.ToolTipText = LoadResString(10400);
  lstLiedAusKatalog.AccessibleName = LoadResString(10200);
  imgControl(0).ToolTipText = LoadResString(10401);
  imgControl(1).ToolTipText = LoadResString(10402);
  imgHelp.ToolTipText = LoadResString(1);
}

// The list cuts off long lines, so the tooltip shows the whole line.
void frmLiedAusKatalog::lstLiedAusKatalog_Click() {
  const int zeile = lstLiedAusKatalog.ListIndex;
  if (zeile >= 0) lstLiedAusKatalog.ToolTipText = lstLiedAusKatalog.List(zeile);
}

void frmLiedAusKatalog::imgControl_MouseUp(int index) {
  if (index == 0) {
    prog.QuellAuswahl.clear();
    for (int i = 0; i < lstLiedAusKatalog.ListCount(); ++i) {
      if (lstLiedAusKatalog.Selected(i)) prog.QuellAuswahl.push_back(Ganz16(i + 1.0));
    }
    if (!prog.QuellAuswahl.empty()) prog.frmHauptForm().LiedAusKatalogImport();
  }
  prog.frmLiedAusKatalog.Entladen();
}

bool frmLiedAusKatalog::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgControl_MouseUp(1);
  return true;
}

}  // namespace vantora
