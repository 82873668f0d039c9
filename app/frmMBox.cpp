#include "app/frmMBox.h"

#include "app/dienste.h"
#include "app/programm.h"
#include "app/werte/zahlen.h"

#include "platform/device_text.h"
#include "platform/twips.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace vantora {

namespace {

constexpr int kMeldungsHoehe = 1200;  // twips, when no check box follows the message
constexpr int kZeilenHoehe = 210;     // twips
constexpr double kNutzbar =
    0.96;  // share of a line that words fill, since measures differ a little

// The sizes of the box. A long message, such as a list of files, gets a higher box.
struct Groesse {
  const wchar_t* Hintergrund;
  int Mehr;  // twips more than in the layout
};
constexpr Groesse kGroessen[] = {
    {L"MBOXBACK", 0}, {L"MBOXBACKMEDIO", 1320}, {L"MBOXBACKALTO", 3720}};

}  // namespace

frmMBox::frmMBox(Programm& programm) : VtrFenster(programm, L"frmMBox") {
  for (int i = 0; i < picMboxButton.Count(); ++i) {
    Knopf(picMboxButton(i), [this, i] { picMboxButton_MouseUp(i); });
  }
  Knopf(imgHelp, [this] { HilfeZeigen(); });
  // Return always presses the first button, so no other control may get the focus.
  picMboxButton(1).TabStop = imgHelp.TabStop = false;
}

void frmMBox::Form_Load() {
  FensterEinrichten();
  SetTexte();
  txtEingabe.Visible = false;
  KnopfZeigen(0, false);
  KnopfZeigen(1, false);
  KnopfZeigen(2, true);
}

void frmMBox::SetTexte() {
  Caption = LoadResString(12200);
  Beschriften(lblButtCaption(0), picMboxButton(0), LoadResString(2));
  Beschriften(lblButtCaption(1), picMboxButton(1), LoadResString(3));
  Beschriften(lblButtCaption(2), picMboxButton(2), LoadResString(12400));
  cbxNotShow.Caption = LoadResString(4022);
  imgHelp.ToolTipText = LoadResString(1);
}

void frmMBox::KnopfZeigen(int index, bool sichtbar) {
  picMboxButton(index).Visible = sichtbar;
  picMboxButton(index).Enabled = sichtbar;
  lblButtCaption(index).Visible = sichtbar;
}

// The number of lines that a text takes in the label.
int frmMBox::ZeilenVon(const Text& text) const {
  LogicalFont schrift;
  schrift.FaceName = L"Arial";
  schrift.Height = -lblMbMeldung.FontSize * kTwipsPerPoint;
  const double breite = lblMbMeldung.Width * kNutzbar;
  const auto mass = [&](const Text& worte) {
    return prog.plattform.schriften.Measure(schrift, worte).Width;
  };
  std::vector<Text> absaetze, worte;
  Split(text, L"\n", absaetze);
  int zeilen = 0;
  for (const Text& absatz : absaetze) {
    ++zeilen;
    double belegt = 0;
    Split(absatz, L" ", worte);
    for (const Text& wort : worte) {
      const double laenge = mass(wort + L" ");
      if (belegt > 0 && belegt + laenge > breite) {
        ++zeilen;
        belegt = 0;
      }
      belegt += laenge;
      const int weitere = Ganz32(std::floor(belegt / breite));  // of a path without blanks
      zeilen += weitere;
      belegt -= weitere * breite;
    }
  }
  return zeilen;
}

void frmMBox::HoeheAnpassen() {
  const int fehlt = ZeilenVon(lblMbMeldung.Caption) * kZeilenHoehe - lblMbMeldung.Height;
  const Groesse* groesse = std::begin(kGroessen);
  while (groesse->Mehr < fehlt && groesse + 1 != std::end(kGroessen)) ++groesse;
  const int mehr = groesse->Mehr;
  if (mehr == 0) return;
  const int unten = cbxNotShow.Top;
  for (Control* control : Controls) {
    if (control->Top >= std::min<int>(unten, txtEingabe.Top)) control->Top = control->Top + mehr;
  }
  lblMbMeldung.Height = lblMbMeldung.Height + mehr;
  Picture = groesse->Hintergrund;
  Window.Height = Window.Height + mehr;
  MitteSetzen(prog, *this);
}

void frmMBox::HilfeZeigen() {
  prog.Hilfe(dahinter_.empty() ? Name : dahinter_);
}

void frmMBox::Vorbereiten(const Text& text, int flags, const Text& titel, bool nichtMehrZeigen) {
  const Form* vorn = prog.plattform.schleife.Front();
  if (vorn != nullptr && vorn != this) dahinter_ = vorn->Name;
  lblMbTitel.Caption = titel;
  lblMbMeldung.Caption = text;
  cbxNotShow.Visible = nichtMehrZeigen;
  if (!nichtMehrZeigen) lblMbMeldung.Height = kMeldungsHoehe;
  switch (flags) {
    case 0:
    case 1:
    case 64:
    case kErfolg:
    case kAuskunft:
      KnopfZeigen(2, true);
      KnopfZeigen(0, false);
      KnopfZeigen(1, false);
      imgBoxType.Picture = flags == kErfolg     ? L"MBOXERFOLG"
                           : flags == kAuskunft ? L"MBOXAUSKUNFT"
                                                : L"MBOXAUSRUF";
      break;
    case 4:
    case 36:
    case 292:
      KnopfZeigen(0, true);
      KnopfZeigen(1, true);
      KnopfZeigen(2, false);
      imgBoxType.Picture = L"MBOXFRAGE";
      break;
    default:
      break;
  }
  HoeheAnpassen();
  prog.plattform.schleife.SetFocus(picMboxButton(2).Visible ? picMboxButton(2) : picMboxButton(0));
}

void frmMBox::picMboxButton_MouseUp(int index) {
  Window.Tag = index == 0 ? L"6" : L"7";
  if (cbxNotShow.Visible && cbxNotShow.Value == 1) prog.ZeigeTAOHinweis = false;
  prog.frmMBox.Entladen();
}

bool frmMBox::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyReturn || taste == kKeyEscape) {
    const int index = taste == kKeyReturn ? 0 : 1;
    if (!picMboxButton(index).PicturePressed.empty()) {
      picMboxButton(index).Picture = picMboxButton(index).PicturePressed;
    }
    Release(picMboxButton(index));
    return true;
  }
  if (taste != kKeyF1) return VtrFenster::Form_KeyDown(taste, strg);
  HilfeZeigen();
  return true;
}

}  // namespace vantora
