// The texts of a side: showing, selecting and moving them, and the names that screen readers read.

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "cover/frmPrint.h"

#include "platform/twips.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

// Distance from a text's corner to the mouse that moves the text.
constexpr int kGriffX = 500, kGriffY = 200;

// A tab or a line break inside a text is printed as a blank.
Text Druckbar(Text text) {
  std::replace_if(
      text.begin(), text.end(), [](wchar_t c) { return c < L' '; }, L' ');
  return text;
}

}  // namespace

frmPrint::Beweglich frmPrint::Zeile(int index) {
  return {lblBeschriftung(index), Element(Element(prog.ZeilenPos, Seite), index + 1)};
}

frmPrint::Beweglich frmPrint::Titel() {
  return {lblCDTitel, Element(prog.TitelPos, Seite)};
}

frmPrint::Beweglich frmPrint::Interpret() {
  return {lblInterPret, Element(prog.InterpretPos, Seite)};
}

std::vector<frmPrint::Beweglich> frmPrint::Texte() {
  std::vector<Beweglich> alle;
  const auto auch = [&alle](const Beweglich& text) {
    if (text.Schild.Visible) alle.push_back(text);
  };
  for (int i = 0; i < lblBeschriftung.Count(); ++i) auch(Zeile(i));
  auch(Titel());
  auch(Interpret());
  return alle;
}

// The size of a text in twips of the printed side.
Mass frmPrint::TextMass(const Label& schild) const {
  LogicalFont schrift;
  schrift.FaceName = prog.CoverFont;
  schrift.Height = -prog.CoverFontSize * kTwipsPerPoint;
  schrift.Weight = prog.CoverFontBold != 0 ? kWeightBold : kWeightNormal;
  schrift.Italic = prog.CoverFontItalic != 0;
  const TextExtent reichweite = prog.plattform.schriften.Measure(schrift, schild.Caption);
  return {Ganz32(std::ceil(reichweite.Width)), Ganz32(std::ceil(reichweite.Height))};
}

void frmPrint::TextZeigen(const Beweglich& text, const Text& inhalt) {
  Label& schild = text.Schild;
  schild.Caption = Druckbar(inhalt);
  schild.Visible = !schild.Caption().empty();
  if (!schild.Visible) return Markieren(schild, false);
  schild.FontName = prog.CoverFont;
  schild.FontSize = prog.CoverFontSize;
  schild.FontBold = prog.CoverFontBold != 0;
  schild.FontItalic = prog.CoverFontItalic != 0;
  schild.FontScale = massstab_;
  schild.ForeColor = prog.CoverTextFarbe;
  schild.BackColor = deckend_ ? prog.CoverHintergrund : kTransparent;
  const Mass mass = TextMass(schild);
  schild.Width = Ganz32(std::ceil(mass.Breite * massstab_));
  schild.Height = Ganz32(std::ceil(mass.Hoehe * massstab_));
  Stellen(text);
}

void frmPrint::Stellen(const Beweglich& text) {
  text.Schild.Left = Ganz32(text.Platz[0] * massstab_);
  text.Schild.Top = Ganz32(text.Platz[1] * massstab_);
  text.Schild.AccessibleName = Beschreibung(text);
}

// ---- selecting ----

void frmPrint::Markieren(Label& schild, bool gewaehlt) {
  schild.Tag = gewaehlt ? L"1" : L"0";
  schild.BorderStyle = gewaehlt ? 1 : 0;
}

void frmPrint::Umschalten(Label& schild) {
  Markieren(schild, schild.Tag != L"1");
  for (const Beweglich& text : Texte()) text.Schild.AccessibleName = Beschreibung(text);
  Sagen();
}

void frmPrint::Lead2_Click() {
  for (const Beweglich& text : Texte()) {
    Markieren(text.Schild, false);
    text.Schild.AccessibleName = Beschreibung(text);
  }
  Sagen();
}

// ---- the mouse ----

void frmPrint::Greifen(const Beweglich& text) {
  if (!text.Schild.ShiftHeld && !text.Schild.ControlHeld) return;
  prog.plattform.schleife.SetFocus(Lead2);
  Umschalten(text.Schild);
}

// The mouse position is measured from the side's corner; the grid is measured on the side, not in
// the window.
void frmPrint::Ziehen(const Beweglich& text, int taste) {
  if (taste != kLeftButton || text.Schild.ShiftHeld || text.Schild.ControlHeld) return;
  const int mausX = text.Schild.Left + text.Schild.MouseX;
  const int mausY = text.Schild.Top + text.Schild.MouseY;
  text.Platz =
      OrtInDerSeite(Seite, (mausX - kGriffX) / massstab_, (mausY - kGriffY) / massstab_,
                    TextMass(text.Schild), Raster(prog.plattform.bildschirm.TwipsPerPixelX()));
  Stellen(text);
}

void frmPrint::lblBeschriftung_MouseDown(int index) {
  Greifen(Zeile(index));
}
void frmPrint::lblBeschriftung_MouseMove(int index, int taste) {
  Ziehen(Zeile(index), taste);
}
void frmPrint::lblBeschriftung_MouseUp(int /*index*/) {
  Sagen();
}
void frmPrint::lblCDTitel_MouseDown() {
  Greifen(Titel());
}
void frmPrint::lblCDTitel_MouseMove(int taste) {
  Ziehen(Titel(), taste);
}
void frmPrint::lblInterPret_MouseDown() {
  Greifen(Interpret());
}
void frmPrint::lblInterPret_MouseMove(int taste) {
  Ziehen(Interpret(), taste);
}

// ---- the keyboard ----

bool frmPrint::Verschieben(int taste) {
  bool gewaehlt = false;
  for (const Beweglich& text : Texte()) {
    if (text.Schild.Tag != L"1") continue;
    gewaehlt = true;
    if (TastenSchritt(Seite, taste, TextMass(text.Schild), text.Platz)) Stellen(text);
  }
  if (gewaehlt) Sagen();
  return gewaehlt;
}

// Without a selected text, the arrow keys keep their usual function.
bool frmPrint::Form_KeyDown(int taste, bool strg) {
  if (taste >= kKeyLeft && taste <= kKeyDown) return Verschieben(taste);
  if (taste == 'A' && strg) {
    for (const Beweglich& text : Texte()) Markieren(text.Schild, true);
    for (const Beweglich& text : Texte()) text.Schild.AccessibleName = Beschreibung(text);
    Sagen();
    return true;
  }
  if (taste == kKeyEscape) {
    imgBack_MouseUp();
    return true;
  }
  return VtrFenster::Form_KeyDown(taste, strg);
}

// The box gets the focus so that arrow keys reach this window; it is read-only.
bool frmPrint::Text1_KeyPress(int /*zeichen*/) {
  return false;
}

// ---- descriptions for screen readers ----

Text frmPrint::Beschreibung(const Beweglich& text) const {
  const auto mm = [](std::int32_t twips) { return Format(twips / kTwipsPerMm, L"#0"); };
  const Text gewaehlt = text.Schild.Tag == L"1" ? LoadResString(30165) : Text();
  return text.Schild.Caption() + gewaehlt + LoadResString(30162) + mm(text.Platz[0]) +
         LoadResString(30163) + mm(text.Platz[1]) + LoadResString(30164);
}

// Names the selected text, or the number of selected texts.
void frmPrint::Sagen() {
  std::vector<Beweglich> gewaehlt;
  for (const Beweglich& text : Texte()) {
    if (text.Schild.Tag == L"1") gewaehlt.push_back(text);
  }
  gesagt_ = gewaehlt.empty() ? LoadResString(30169)
            : gewaehlt.size() == 1
                ? Beschreibung(gewaehlt.front())
                : ZahlText(static_cast<std::int64_t>(gewaehlt.size())) + LoadResString(30167);
  Text1.Text = gesagt_;
}

}  // namespace vantora
