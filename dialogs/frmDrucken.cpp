#include "dialogs/frmDrucken.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "dialogs/datei_holen.h"

#include "platform/printer.h"
#include "platform/twips.h"

namespace vantora {

namespace {

constexpr int kUebernehmen = 0, kAndereDatei = 2;
constexpr int kMeisteKopien = 99;

}  // namespace

frmDrucken::frmDrucken(Programm& programm) : VtrFenster(programm, L"frmDrucken") {
  for (int i = 0; i < pbButton.Count(); ++i) Knopf(pbButton(i), [this, i] { pbButton_MouseUp(i); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  cbxDrucker.Click = [this] { cbxDrucker_Click(); };
  txtKopien.MaxLength = 2;
  txtKopien.KeyPress = [](int zeichen) {
    return zeichen < kKeySpace || (zeichen >= L'0' && zeichen <= L'9');
  };
  txtDatei.KeyDown = txtKopien.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) pbButton_MouseUp(kUebernehmen);
  };
}

void frmDrucken::Form_Load() {
  FensterEinrichten();
  SetTexte();
  Printers& drucker = prog.plattform.drucker;
  for (int i = 0; i < drucker.Count(); ++i) cbxDrucker.AddItem(drucker.Name(i));
  cbxDrucker.ListIndex = drucker.Current();
  txtDatei.Text = Vorschlag();
  txtKopien.Text = ZahlText(1);
  cbxDrucker_Click();
  prog.plattform.schleife.SetFocus(pbButton(kUebernehmen));
}

void frmDrucken::SetTexte() {
  Caption = LoadResString(16200);
  lblTitel.Caption = Caption;
  lblDrucker.Caption = LoadResString(30151);
  lblPapier.Caption = LoadResString(30152);
  lblDatei.Caption = LoadResString(30153);
  lblKopien.Caption = LoadResString(30154);
  cbxDrucker.AccessibleName = lblDrucker.Caption;
  txtDatei.AccessibleName = lblDatei.Caption;
  txtKopien.AccessibleName = lblKopien.Caption;
  Beschriften(lblButtCaption(0), pbButton(0), LoadResString(16211));
  Beschriften(lblButtCaption(1), pbButton(1), LoadResString(5));
  Beschriften(lblButtCaption(2), pbButton(2), LoadResString(30155));
  imgHelp.ToolTipText = LoadResString(1);
}

bool frmDrucken::InDatei() const {
  return cbxDrucker.ListIndex >= 0 && prog.plattform.drucker.WritesFile(cbxDrucker.ListIndex);
}

// Disables the controls that have no effect for the chosen printer.
void frmDrucken::cbxDrucker_Click() {
  const bool einer = cbxDrucker.ListIndex >= 0, datei = InDatei();
  lblDatei.Enabled = txtDatei.Enabled = pbButton(kAndereDatei).Enabled = datei;
  lblButtCaption(kAndereDatei).Enabled = datei;
  lblKopien.Enabled = txtKopien.Enabled = einer && !datei;
  pbButton(kUebernehmen).Enabled = einer;
  if (!einer) return;
  const PaperSize papier = prog.plattform.drucker.Paper(cbxDrucker.ListIndex);
  lblPapierName.Caption = papier.Name + L" (" + ZahlText(Ganz32(papier.Width / kTwipsPerMm)) +
                          L" × " + ZahlText(Ganz32(papier.Height / kTwipsPerMm)) + L" mm)";
}

// ---- the file ----

// Suggests a file name that is not in use.
Text frmDrucken::Vorschlag() const {
  Text vorgegeben = prog.plattform.drucker.SuggestedFile();
  if (!vorgegeben.empty()) return vorgegeben;
  const Text ordner = AddBackslash(prog.PdfOrdner.empty() ? prog.AppPfad : prog.PdfOrdner);
  const Text name = ordner + LoadResString(16207);
  Text datei = name + L".pdf";
  for (int i = 2; prog.DateiExistiert(datei); ++i) datei = name + L" " + ZahlText(i) + L".pdf";
  return datei;
}

void frmDrucken::AndereDatei() {
  DateiHolen(prog, kTypPdf, kModusSichern, DateiNameOhnePfad(txtDatei.Text));
  const bool keine = prog.DialogAbbruch || prog.GewaehlteDatei.empty();
  prog.DialogAbbruch = false;
  if (!keine) txtDatei.Text = prog.GewaehlteDatei;
}

// Returns false when the name is invalid, or when the user does not want to replace the file.
bool frmDrucken::DateiBestaetigt() {
  Text datei = Trim(txtDatei.Text);
  const Text name = DateiNameOhnePfad(datei);
  if (!DateiNameGueltig(name) || datei.find(L":\\") != 1) {
    prog.MsgBoxen(LoadResString(8038), kHinweis);
    prog.plattform.schleife.SetFocus(txtDatei);
    return false;
  }
  ExtensionSicher(datei, L".pdf");
  txtDatei.Text = datei;
  return !prog.DateiExistiert(datei) || prog.MsgBoxen(LoadResString(8055), kFrage) == kJa;
}

// ---- closing the window ----

bool frmDrucken::KopienGueltig() {
  const double kopien = Val(txtKopien.Text);
  if (kopien >= 1 && kopien <= kMeisteKopien) return true;
  prog.MsgBoxen(LoadResString(30159) + L"1 – " + ZahlText(kMeisteKopien) + L".", kHinweis);
  prog.plattform.schleife.SetFocus(txtKopien);
  return false;
}

void frmDrucken::Uebernehmen() {
  const bool datei = InDatei();
  if (datei ? !DateiBestaetigt() : !KopienGueltig()) return;
  Printers& drucker = prog.plattform.drucker;
  // If the printer was removed while the dialog was open, the print job reports it.
  if (drucker.Count() > 0) {
    drucker.Select(cbxDrucker.ListIndex);
    Printer& blatt = drucker.Printer();
    blatt.Copies = datei ? 1 : Ganz32(Val(txtKopien.Text));
    blatt.OutputFile = datei ? txtDatei.Text() : Text();
  }
  if (datei) {
    prog.PdfOrdner = Links(txtDatei.Text, txtDatei.Text().rfind(L'\\') + 1);
  }
  Gewaehlt = true;
  prog.frmDrucken.Entladen();
}

void frmDrucken::pbButton_MouseUp(int index) {
  if (index == kUebernehmen) return Uebernehmen();
  if (index == kAndereDatei) return AndereDatei();
  Gewaehlt = false;
  prog.frmDrucken.Entladen();
}

bool frmDrucken::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  pbButton_MouseUp(1);
  return true;
}

}  // namespace vantora
