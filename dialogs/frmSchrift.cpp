#include "dialogs/frmSchrift.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include "platform/box_device.h"

#include <algorithm>
#include <array>

namespace vantora {

namespace {

constexpr int kUebernehmen = 0;
constexpr const wchar_t* kHilfe = L"frmDrucken";  // one help page for all dialogs about printing
constexpr int kKleinste = 4, kGroesste = 96;      // points
constexpr std::array kGroessen = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72};

int ZeileVon(const ListControl& liste, const Text& gesucht) {
  for (int i = 0; i < liste.ListCount(); ++i) {
    if (Lcase(liste.List(i)) == Lcase(gesucht)) return i;
  }
  return -1;
}

}  // namespace

frmSchrift::frmSchrift(Programm& programm) : VtrFenster(programm, L"frmSchrift") {
  for (int i = 0; i < pbButton.Count(); ++i) Knopf(pbButton(i), [this, i] { pbButton_MouseUp(i); });
  Knopf(imgHelp, [this] { prog.Hilfe(kHilfe); });
  txtGroesse.MaxLength = 2;
  txtGroesse.KeyPress = [](int zeichen) {
    return zeichen < kKeySpace || (zeichen >= L'0' && zeichen <= L'9');
  };
  txtGroesse.Change = [this] { txtGroesse_Change(); };
  lstName.Click = [this] { MusterZeichnen(); };
  lstGroesse.Click = [this] { lstGroesse_Click(); };
  chkFett.Click = chkKursiv.Click = [this] { MusterZeichnen(); };
  lstName.DblClick = lstGroesse.DblClick = [this] { pbButton_MouseUp(kUebernehmen); };
  const auto eingabe = [this](int taste) {
    if (taste == kKeyReturn) pbButton_MouseUp(kUebernehmen);
  };
  lstName.KeyDown = lstGroesse.KeyDown = txtGroesse.KeyDown = eingabe;
  chkFett.KeyDown = chkKursiv.KeyDown = eingabe;
}

void frmSchrift::Form_Load() {
  FensterEinrichten();
  SetTexte();
  for (const Text& name : prog.plattform.schriften.Families()) lstName.AddItem(name);
  for (const int groesse : kGroessen) lstGroesse.AddItem(ZahlText(groesse));
  prog.plattform.schleife.SetFocus(lstName);
}

void frmSchrift::SetTexte() {
  Caption = LoadResString(30140);
  lblTitel.Caption = Caption;
  lblName.Caption = LoadResString(30141);
  lblGroesse.Caption = LoadResString(30142);
  chkFett.Caption = LoadResString(30143);
  chkKursiv.Caption = LoadResString(30144);
  lblMuster.Caption = LoadResString(30145);
  lstName.AccessibleName = lblName.Caption;
  txtGroesse.AccessibleName = lstGroesse.AccessibleName = lblGroesse.Caption;
  picMuster.AccessibleName = lblMuster.Caption;
  txtGroesse.Text = L"";
  Beschriften(lblButtCaption(0), pbButton(0), LoadResString(4));
  Beschriften(lblButtCaption(1), pbButton(1), LoadResString(5));
  imgHelp.ToolTipText = LoadResString(1);
}

void frmSchrift::Beginnen(const Schriftart& schrift) {
  anfang_ = schrift.Name;
  zeile_ = ZeileVon(lstName, schrift.Name);
  if (zeile_ < 0) zeile_ = ZeileVon(lstName, prog.plattform.schriften.Substitute(schrift.Name));
  lstName.ListIndex = zeile_;
  chkFett.Value = schrift.Fett ? 1 : 0;
  chkKursiv.Value = schrift.Kursiv ? 1 : 0;
  txtGroesse.Text = ZahlText(schrift.Groesse);
  txtGroesse_Change();
}

// If the user does not choose another family, its name stays unchanged, even if the system spells
// it differently.
Schriftart frmSchrift::Wahl() const {
  Schriftart wahl;
  const int zeile = lstName.ListIndex;
  wahl.Name = zeile < 0 || zeile == zeile_ ? anfang_ : lstName.List(zeile);
  wahl.Groesse = std::clamp(Ganz32(Val(txtGroesse.Text)), kKleinste, kGroesste);
  wahl.Fett = chkFett.Value == 1;
  wahl.Kursiv = chkKursiv.Value == 1;
  return wahl;
}

void frmSchrift::lstGroesse_Click() {
  if (lstGroesse.ListIndex < 0) return;
  txtGroesse.Text = lstGroesse.List(lstGroesse.ListIndex);
  MusterZeichnen();
}

void frmSchrift::txtGroesse_Change() {
  lstGroesse.ListIndex = ZeileVon(lstGroesse, Trim(txtGroesse.Text));
  MusterZeichnen();
}

// Draws the sample in the middle of its box; a sample that is too large is cut off.
void frmSchrift::MusterZeichnen() {
  const Schriftart schrift = Wahl();
  picMuster.Cls();
  BoxDevice muster(picMuster, prog.plattform.schriften);
  muster.FontName = schrift.Name;
  muster.FontSize = schrift.Groesse;
  muster.FontBold = schrift.Fett;
  muster.FontItalic = schrift.Kursiv;
  const Text text = LoadResString(30146);
  muster.CurrentX = std::max(60.0, (picMuster.Width - muster.TextWidth(text)) / 2);
  muster.CurrentY = (picMuster.Height - muster.TextHeight(text)) / 2;
  muster.Print(text);
}

bool frmSchrift::GroesseGueltig() const {
  const double groesse = Val(txtGroesse.Text);
  return groesse >= kKleinste && groesse <= kGroesste;
}

void frmSchrift::pbButton_MouseUp(int index) {
  if (index == kUebernehmen && !GroesseGueltig()) {
    prog.MsgBoxen(LoadResString(30159) + ZahlText(kKleinste) + L" – " + ZahlText(kGroesste) + L".",
                  kHinweis);
    prog.plattform.schleife.SetFocus(txtGroesse);
    return;
  }
  Gewaehlt = index == kUebernehmen;
  prog.frmSchrift.Entladen();
}

bool frmSchrift::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyF1) {
    prog.Hilfe(kHilfe);
  } else if (taste == kKeyEscape) {
    pbButton_MouseUp(1);
  } else {
    return VtrFenster::Form_KeyDown(taste, strg);
  }
  return true;
}

}  // namespace vantora
