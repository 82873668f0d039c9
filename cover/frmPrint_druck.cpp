// Printing a side: in the middle of any sheet with a frame and cut marks, or at the places of a
// pre-cut sheet. All positions are twips of the page, from the corner of its printable area.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "cover/frmPrint.h"
#include "dialogs/druck_dialoge.h"

namespace vantora {

namespace {

constexpr Color kSchwarz = Rgb(0, 0, 0);
constexpr int kFalz = 385;  // distance of the back's folds from its edges
// Of the spines' texts, from the edges of the side.
constexpr int kTextVomRand = 100, kTextVomEnde = 200;
constexpr int kMarkeNah = 200, kMarkeFern = 900;  // start and end of the cut marks, from the frame

// Places on the pre-cut sheet, from the edge of the paper.
constexpr int kBlattCoverX = 3402, kBlattCoverY = 1361;
constexpr int kBlattRueckseiteX = 1644, kBlattRueckseiteY = 8781;
constexpr int kBlattLabelX = 2608, kBlattLabelObenY = 680 + 283, kBlattLabelUntenY = 9327;

}  // namespace

frmPrint::Faktoren frmPrint::DruckFaktoren() const {
  return {Quotient(Lead1.Width, Lead2.Width), Quotient(Lead1.Height, Lead2.Height)};
}

void frmPrint::SchriftSetzen() {
  Printer& drucker = prog.plattform.drucker.Printer();
  drucker.FontName = prog.CoverFont;
  drucker.FontSize = prog.CoverFontSize;
  drucker.FontBold = prog.CoverFontBold != 0;
  drucker.FontItalic = prog.CoverFontItalic != 0;
  drucker.ForeColor = prog.CoverTextFarbe;
}

// ---- text ----

// Prints with a rotated font, and restores the device's position and font.
void frmPrint::DrawRotatedText(Device& ziel, const Text& text, double x, double y, int winkel) {
  LogicalFont schrift;
  schrift.FaceName = ziel.FontName;
  schrift.Height = ziel.FontSize * -20 / ziel.TwipsPerPixelY();
  schrift.Escapement = winkel * 10;
  schrift.Orientation = winkel * 10;
  schrift.Weight = ziel.FontBold ? kWeightBold : kWeightNormal;
  schrift.Italic = ziel.FontItalic;
  schrift.Underline = ziel.FontUnderline;
  schrift.StrikeOut = ziel.FontStrikethru;
  FontHandle neu = CreateFontIndirectA(schrift);
  const FontHandle alt = SelectObject(ziel.hDC(), neu);
  const double vorherX = ziel.CurrentX, vorherY = ziel.CurrentY;
  ziel.CurrentX = x;
  ziel.CurrentY = y;
  ziel.Print(text);
  ziel.CurrentX = vorherX;
  ziel.CurrentY = vorherY;
  SelectObject(ziel.hDC(), alt);
  DeleteObject(neu);
}

void frmPrint::PrintRotatedText(const Text& text, int winkel, double x, double y) {
  Printer& drucker = prog.plattform.drucker.Printer();
  SchriftSetzen();
  SetTextColor(drucker.hDC(), prog.CoverTextFarbe);
  SetBkMode(drucker.hDC(), kBackgroundTransparent);
  DrawRotatedText(drucker, text, x, y, winkel);
}

void frmPrint::PrintBeschriftung(double x0, double y0, double sx, double sy) {
  Printer& drucker = prog.plattform.drucker.Printer();
  for (const Beweglich& text : Texte()) {
    drucker.CurrentX = text.Schild.Left * sx + x0;
    drucker.CurrentY = text.Schild.Top * sy + y0;
    SchriftSetzen();
    SetTextColor(drucker.hDC(), prog.CoverTextFarbe);
    SetBkColor(drucker.hDC(), 1);
    SetBkMode(drucker.hDC(), kBackgroundTransparent);
    TextOut(drucker.hDC(), drucker.CurrentX / drucker.TwipsPerPixelX(),
            drucker.CurrentY / drucker.TwipsPerPixelY(), text.Schild.Caption);
  }
}

// ---- parts of a page ----

// Prints the background of the current side, with the corner of the side at (x, y).
void frmPrint::SeiteDrucken(int x, int y) {
  Printer& drucker = prog.plattform.drucker.Printer();
  const Mass mass = MassDerSeite(Seite);
  drucker.ForeColor = prog.CoverTextFarbe;
  drucker.DrawStyle = kDrawInvisible;
  drucker.Line(x, y, x + mass.Breite, y + mass.Hoehe, prog.CoverHintergrund, LineKind::FilledBox);
  drucker.DrawStyle = kDrawSolid;
}

void frmPrint::BildDrucken(int x, int y) {
  const Bild bild = Hintergrundbild();
  if (!bild) return;
  const Rechteck teil = BildPlatz(Seite);
  prog.plattform.drucker.Printer().PaintPicture(bild, x + teil.Links, y + teil.Oben, teil.Breite,
                                                teil.Hoehe);
}

void frmPrint::RueckenDrucken(int x, int y) {
  const Mass mass = MassDerSeite(Seite);
  PrintRotatedText(prog.CoverTitel, 90, x + kTextVomRand, y + mass.Hoehe - kTextVomEnde);
  PrintRotatedText(prog.CoverTitel, 270, x + mass.Breite - kTextVomRand, y + kTextVomEnde);
}

void frmPrint::RahmenDrucken(int x, int y) {
  Printer& drucker = prog.plattform.drucker.Printer();
  const Mass mass = MassDerSeite(Seite);
  Punktreihe(x, x + mass.Breite, [&](int i) {
    drucker.PSet(i, y, kSchwarz);
    drucker.PSet(i, y + mass.Hoehe, kSchwarz);
  });
  Punktreihe(y, y + mass.Hoehe, [&](int i) {
    drucker.PSet(x, i, kSchwarz);
    drucker.PSet(x + mass.Breite, i, kSchwarz);
  });
}

void frmPrint::HilfslinienDrucken(int x, int y) {
  Printer& drucker = prog.plattform.drucker.Printer();
  const Mass mass = MassDerSeite(Seite);
  const int rechts = x + mass.Breite, unten = y + mass.Hoehe;
  const auto waagerecht = [&](int i) {
    drucker.PSet(i, y, kSchwarz);
    drucker.PSet(i, unten, kSchwarz);
  };
  const auto senkrecht = [&](int i) {
    drucker.PSet(x, i, kSchwarz);
    drucker.PSet(rechts, i, kSchwarz);
  };
  Punktreihe(x - kMarkeFern, x - kMarkeNah, waagerecht);
  Punktreihe(rechts + kMarkeNah, rechts + kMarkeFern, waagerecht);
  Punktreihe(y - kMarkeFern, y - kMarkeNah, senkrecht);
  Punktreihe(unten + kMarkeNah, unten + kMarkeFern, senkrecht);
}

// ---- pages ----

void frmPrint::PrintCentered() {
  const Faktoren mal = DruckFaktoren();
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  Printer& drucker = prog.plattform.drucker.Printer();
  drucker.Orientation = kLandscape;
  const double seitenBreite = drucker.Width(), seitenHoehe = drucker.Height();
  drucker.Print(L"");  // opens the page
  prog.AppLog(L"PrintCentered", L"Start");
  const Mass mass = MassDerSeite(Seite);
  const int x = Ganz32((seitenBreite - mass.Breite) / 2);
  const int y = Ganz32((seitenHoehe - mass.Hoehe) / 2);
  SeiteDrucken(x, y);
  if (Seite == kRueckseite) RueckenDrucken(x, y);
  BildDrucken(x, y);
  if (Seite == kRueckseite) {
    Punktreihe(y, y + mass.Hoehe, [&](int i) {
      drucker.PSet(x + kFalz, i, kSchwarz);
      drucker.PSet(x + mass.Breite - kFalz, i, kSchwarz);
    });
  } else if (Seite == kCoverDoppelt) {
    const int falz = x + mass.Breite / 2;
    Punktreihe(y, y + mass.Hoehe, [&](int i) { drucker.PSet(falz, i, kSchwarz); });
  } else {
    drucker.Circle(x + mass.Breite / 2.0, y + mass.Hoehe / 2.0, mass.Hoehe / 2.0, kSchwarz);
  }
  prog.AppLog(L"PrintCentered", L"Bild rein");
  PrintBeschriftung(x, y, mal.X, mal.Y);
  prog.AppLog(L"PrintCentered", L"Texte rein");
  RahmenDrucken(x, y);
  prog.AppLog(L"PrintCentered", L"Umrandung gemalt");
  HilfslinienDrucken(x, y);
  prog.AppLog(L"PrintCentered", L"Hilfslinien gemalt");
  drucker.EndDoc();
  prog.AppLog(L"PrintCentered", L"Doc abgeschickt");
  schleife.MousePointer(Pointer::Normal);
}

void frmPrint::PrintQMPaper() {
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  Printer& drucker = prog.plattform.drucker.Printer();
  // Set before the margin is read, which depends on the orientation.
  drucker.Orientation = kPortrait;
  const double x0 = drucker.DeviceCaps(DeviceCap::PhysicalOffsetX) * drucker.TwipsPerPixelX();
  const double y0 = drucker.DeviceCaps(DeviceCap::PhysicalOffsetY) * drucker.TwipsPerPixelY();
  drucker.Print(L"");  // opens the page
  prog.AppLog(L"PrintQMPaper", L"Print Start");
  const auto teil = [&](int blattX, int blattY, bool ruecken) {
    const int x = Ganz32(blattX - x0), y = Ganz32(blattY - y0);
    SeiteDrucken(x, y);
    if (ruecken) {
      RueckenDrucken(x, y);
      prog.AppLog(L"PrintQMPaper", L"rotated Text");
    }
    BildDrucken(x, y);
    // Each side has its own scale in the window.
    const Faktoren mal = DruckFaktoren();
    PrintBeschriftung(x, y, mal.X, mal.Y);
  };
  if (Seite == kLabel) {
    teil(kBlattLabelX, LabelPos == 0 ? kBlattLabelObenY : kBlattLabelUntenY, false);
  } else {
    imgControl_MouseUp(kCoverDoppelt);
    teil(kBlattCoverX, kBlattCoverY, false);
    imgControl_MouseUp(kRueckseite);
    teil(kBlattRueckseiteX, kBlattRueckseiteY, true);
    prog.AppLog(L"PrintQMPaper", L"Beschriftung");
  }
  prog.AppLog(L"PrintQMPaper", L"Bild");
  drucker.EndDoc();
  prog.AppLog(L"PrintQMPaper", L"Doc abgeschickt");
  schleife.MousePointer(Pointer::Normal);
}

// Cancelling a dialog ends the printing. A failed job leaves no file behind.
void frmPrint::imgPrintMe_MouseUp() {
  try {
    DruckerHolen(prog, kDruckerWaehlen);
    if (PapierArt == kZentriert) {
      PrintCentered();
    } else {
      PrintQMPaper();
    }
  } catch (const Laufzeitfehler& fehler) {
    Printers& alle = prog.plattform.drucker;
    if (alle.Count() > 0) Weiter([&] { alle.Printer().KillDoc(); });
    prog.plattform.schleife.MousePointer(Pointer::Normal);
    if (fehler.Nummer != kFehlerAbbruch) prog.DruckFehlerMelden(fehler);
  }
}

}  // namespace vantora
