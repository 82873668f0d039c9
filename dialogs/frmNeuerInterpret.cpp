#include "dialogs/frmNeuerInterpret.h"

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kLaengstePause = 9;  // seconds

}  // namespace

frmNeuerInterpret::frmNeuerInterpret(Programm& programm)
    : VtrFenster(programm, L"frmNeuerInterpret") {
  for (int i = 0; i < imgControl.Count(); ++i) {
    Knopf(imgControl(i), [this, i] { imgControl_MouseUp(i); });
  }
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  for (PictureButton* knopf : {&imgControl(1), &imgHelp}) {
    knopf->GotFocus = [this] { aufKnopf_ = true; };
    knopf->LostFocus = [this] { aufKnopf_ = false; };
  }
  cmbPause.KeyPress = [this](int taste) { return cmbPause_KeyPress(taste); };
}

void frmNeuerInterpret::Form_Load() {
  FensterEinrichten();
  SetTexte();
  for (int i = 0; i <= kLaengstePause; ++i) cmbPause.AddItem(ZahlText(i) + LoadResString(15600));
  prog.plattform.schleife.SetFocus(txtTitel);
}

void frmNeuerInterpret::SetTexte() {
  lblFeld(0).Caption = LoadResString(8069);
  lblFeld(1).Caption = LoadResString(15202);
  lblFeld(2).Caption = LoadResString(15203);
  lblFeld(3).Caption = LoadResString(30059);
  txtTitel.AccessibleName = lblFeld(0).Caption;
  txtInterpret.AccessibleName = lblFeld(1).Caption;
  cmbPause.AccessibleName = lblFeld(2).Caption;
  txtTitel.Text = L"";
  txtInterpret.Text = L"";
  Beschriften(lblButtCaption(0), imgControl(0), LoadResString(4));
  Beschriften(lblButtCaption(1), imgControl(1), LoadResString(5));
  cmbPause.ToolTipText = LoadResString(15400);
  imgControl(0).ToolTipText = LoadResString(15401);
  imgControl(1).ToolTipText = LoadResString(15402);
  txtInterpret.ToolTipText = LoadResString(15403);
  txtTitel.ToolTipText = LoadResString(15404);
  imgHelp.ToolTipText = LoadResString(1);
  DateiZeigen(L"");
}

void frmNeuerInterpret::DateiZeigen(const Text& pfad) {
  lblFeld(3).Visible = lblDatei.Visible = !pfad.empty();
  lblDatei.Caption = DateiNameOhnePfad(pfad);
  lblDatei.ToolTipText = pfad;
}

void frmNeuerInterpret::TrackZeigen(int nummer, const Text& titel, const Text& interpret) {
  const KatalogEintrag& e = Element(prog.Katalog, nummer);
  Caption = LoadResString(8069);
  lblTitel.Caption = LoadResString(8069);
  DateiZeigen(e.Datei.Getrimmt());
  cmbPause.Visible = true;
  cmbPause.Enabled = e.PauseSperre.Getrimmt().empty();
  cmbPause.ListIndex = cmbPause.Enabled ? std::clamp<int>(e.Pause, 0, kLaengstePause) : 0;
  txtInterpret.Text = interpret;
  txtTitel.Text = titel;
}

void frmNeuerInterpret::AufnahmeZeigen(const Text& titel, const Text& interpret) {
  Caption = LoadResString(8069);
  lblTitel.Caption = LoadResString(8069);
  txtInterpret.Text = interpret;
  txtTitel.Text = titel;
  cmbPause.Enabled = false;
  cmbPause.Visible = false;
  lblFeld(2).Visible = false;
}

void frmNeuerInterpret::KatalogZeigen(const Text& titel, const Text& interpret) {
  Caption = LoadResString(15201);
  lblTitel.Caption = LoadResString(15201);
  lblFeld(0).Caption = LoadResString(15201);
  txtTitel.AccessibleName = lblFeld(0).Caption;
  DateiZeigen(Trim(prog.KatalogDatei));
  txtInterpret.Text = interpret;
  txtTitel.Text = titel;
  cmbPause.Enabled = false;
  cmbPause.ListIndex = 0;
}

void frmNeuerInterpret::imgControl_MouseUp(int index) {
  Abbruch = index != 0;
  if (!Abbruch) {
    prog.NeuTitel = txtTitel.Text;
    prog.NeuInterpret = txtInterpret.Text;
    prog.DialogBestaetigt = true;
    if (cmbPause.Enabled) prog.NeuPause = ZahlText(cmbPause.ListIndex);
  }
  prog.frmNeuerInterpret.Entladen();
}

bool frmNeuerInterpret::cmbPause_KeyPress(int taste) {
  if (taste < L'0' || taste > L'9') return true;
  cmbPause.ListIndex = taste - L'0';
  return false;
}

bool frmNeuerInterpret::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyReturn && aufKnopf_) return false;
  if (taste == kKeyReturn) imgControl_MouseUp(0);
  if (taste == kKeyEscape) imgControl_MouseUp(1);
  return taste == kKeyReturn || taste == kKeyEscape || VtrFenster::Form_KeyDown(taste, strg);
}

}  // namespace vantora
