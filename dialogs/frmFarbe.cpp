#include "dialogs/frmFarbe.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include <algorithm>
#include <array>

namespace vantora {

namespace {

constexpr int kUebernehmen = 0;
constexpr const wchar_t* kHilfe = L"frmDrucken";  // one help page for all dialogs about printing
constexpr int kSpalten = 8, kFelder = 48;
constexpr int kHoechster = 255;

// A row of greys, then rows of red, orange, yellow, green, turquoise, blue, violet and pink, from
// pale to dark.
constexpr std::array<Color, kFelder> kFarben = {
    0x000000, 0x242424, 0x494949, 0x6D6D6D, 0x929292, 0xB6B6B6, 0xDBDBDB, 0xFFFFFF,  //
    0xFFD6D6, 0xFFE8CC, 0xFFF9C4, 0xD7F2D0, 0xCFF1EF, 0xD0E0FF, 0xE4D7FA, 0xFBD5EA,  //
    0xFF8A80, 0xFFB870, 0xFFEE58, 0x8BD980, 0x76D7D0, 0x82AAFF, 0xB497EE, 0xF48FC4,  //
    0xFF0000, 0xFF8000, 0xFFFF00, 0x00C800, 0x00C8C0, 0x0000FF, 0x8000FF, 0xFF0080,  //
    0xB00000, 0xB85C00, 0xB8A800, 0x008000, 0x00807A, 0x0000A8, 0x5A00B0, 0xA8005A,  //
    0x640000, 0x663300, 0x665C00, 0x004000, 0x004040, 0x000060, 0x320064, 0x600034,
};

unsigned AnteilVon(Color farbe, int index) {
  return farbe >> static_cast<unsigned>(16 - 8 * index) & 255U;
}

}  // namespace

frmFarbe::frmFarbe(Programm& programm) : VtrFenster(programm, L"frmFarbe") {
  for (int i = 0; i < pbButton.Count(); ++i) Knopf(pbButton(i), [this, i] { pbButton_MouseUp(i); });
  Knopf(imgHelp, [this] { prog.Hilfe(kHilfe); });
  for (int i = 0; i < sldAnteil.Count(); ++i) {
    sldAnteil(i).Max = kHoechster;
    sldAnteil(i).Change = [this, i] { sldAnteil_Change(i); };
    txtAnteil(i).MaxLength = 3;
    txtAnteil(i).KeyPress = [](int zeichen) {
      return zeichen < kKeySpace || (zeichen >= L'0' && zeichen <= L'9');
    };
    txtAnteil(i).Change = [this, i] { txtAnteil_Change(i); };
    sldAnteil(i).KeyDown = txtAnteil(i).KeyDown = [this](int taste) {
      if (taste == kKeyReturn) pbButton_MouseUp(kUebernehmen);
    };
  }
  picFelder.MouseDown = [this](int) { picFelder_MouseDown(); };
  picFelder.KeyDown = [this](int taste) { picFelder_KeyDown(taste); };
}

void frmFarbe::Form_Load() {
  FensterEinrichten();
  SetTexte();
  prog.plattform.schleife.SetFocus(picFelder);
}

void frmFarbe::SetTexte() {
  lblFelder.Caption = LoadResString(30147);
  picFelder.AccessibleName = lblFelder.Caption;
  for (int i = 0; i < lblAnteil.Count(); ++i) {
    lblAnteil(i).Caption = LoadResString(30148 + i);
    sldAnteil(i).AccessibleName = txtAnteil(i).AccessibleName = lblAnteil(i).Caption;
  }
  lblMuster.Caption = LoadResString(30145);
  Beschriften(lblButtCaption(0), pbButton(0), LoadResString(4));
  Beschriften(lblButtCaption(1), pbButton(1), LoadResString(5));
  imgHelp.ToolTipText = LoadResString(1);
}

void frmFarbe::Beginnen(const Text& titel, Color farbe) {
  Caption = titel.empty() ? LoadResString(17206) : titel;
  lblTitel.Caption = Caption;
  Setzen(farbe);
}

Color frmFarbe::Wahl() const {
  const auto anteil = [this](int i) { return static_cast<unsigned>(sldAnteil(i).Value()); };
  return Rgb(anteil(0), anteil(1), anteil(2));
}

void frmFarbe::Setzen(Color farbe) {
  stellt_ = true;
  for (int i = 0; i < sldAnteil.Count(); ++i) {
    sldAnteil(i).Value = static_cast<int>(AnteilVon(farbe, i));
    txtAnteil(i).Text = ZahlText(sldAnteil(i).Value);
  }
  stellt_ = false;
  MusterZeigen();
}

// Moves the frame in the field to the chosen colour, or hides it if the field lacks this colour.
void frmFarbe::MusterZeigen() {
  const Color farbe = Wahl();
  shpMuster.FillColor = farbe;
  Text worte;
  for (int i = 0; i < lblAnteil.Count(); ++i) {
    worte += (i == 0 ? L"" : L", ") + lblAnteil(i).Caption() + L" " + ZahlText(sldAnteil(i).Value);
  }
  picFelder.AccessibleValue = worte;
  const auto gefunden = std::find(kFarben.begin(), kFarben.end(), farbe);
  feld_ = gefunden == kFarben.end() ? -1 : static_cast<int>(gefunden - kFarben.begin());
  FelderZeichnen();
}

// ---- the field ----

void frmFarbe::FelderZeichnen() {
  constexpr int kRand = 45, kRahmen = 15;  // twips
  const int breite = picFelder.Width / kSpalten, hoehe = picFelder.Height * kSpalten / kFelder;
  picFelder.Cls();
  for (int i = 0; i < kFelder; ++i) {
    const int links = i % kSpalten * breite, oben = i / kSpalten * hoehe;
    const auto kasten = [&](int rand, Color farbe) {
      DrawItem teil;
      teil.Kind = DrawItem::What::Rectangle;
      teil.Points = {links + rand, oben + rand, links + breite - rand, oben + hoehe - rand};
      teil.Ink = farbe;
      picFelder.Draw(std::move(teil));
    };
    if (i == feld_) {
      kasten(0, Rgb(255, 181, 69));
      kasten(2 * kRahmen, Rgb(16, 19, 31));
    }
    kasten(kRand, kFarben[static_cast<std::size_t>(i)]);
  }
}

void frmFarbe::FeldWaehlen(int feld) {
  if (feld >= 0 && feld < kFelder) Setzen(kFarben[static_cast<std::size_t>(feld)]);
}

void frmFarbe::picFelder_MouseDown() {
  const int spalte = picFelder.MouseX * kSpalten / std::max<int>(picFelder.Width, 1);
  const int zeile = picFelder.MouseY * (kFelder / kSpalten) / std::max<int>(picFelder.Height, 1);
  if (spalte < 0 || spalte >= kSpalten || zeile < 0) return;
  FeldWaehlen(zeile * kSpalten + spalte);
}

void frmFarbe::picFelder_KeyDown(int taste) {
  if (taste == kKeyReturn) return pbButton_MouseUp(kUebernehmen);
  const int schritt = taste == kKeyLeft    ? -1
                      : taste == kKeyRight ? 1
                      : taste == kKeyUp    ? -kSpalten
                      : taste == kKeyDown  ? kSpalten
                                           : 0;
  if (schritt != 0) FeldWaehlen(feld_ < 0 ? 0 : feld_ + schritt);
}

// ---- the shares of red, green and blue ----

void frmFarbe::sldAnteil_Change(int index) {
  if (stellt_) return;
  stellt_ = true;
  txtAnteil(index).Text = ZahlText(sldAnteil(index).Value);
  stellt_ = false;
  MusterZeigen();
}

// Limits the typed share to the valid range, and leaves the text unchanged while the user types.
void frmFarbe::txtAnteil_Change(int index) {
  if (stellt_) return;
  stellt_ = true;
  sldAnteil(index).Value = std::clamp(Ganz32(Val(txtAnteil(index).Text)), 0, kHoechster);
  stellt_ = false;
  MusterZeigen();
}

void frmFarbe::pbButton_MouseUp(int index) {
  Gewaehlt = index == kUebernehmen;
  prog.frmFarbe.Entladen();
}

bool frmFarbe::Form_KeyDown(int taste, bool strg) {
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
