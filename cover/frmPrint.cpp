#include "cover/frmPrint.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "cover/frmPrintStart.h"
#include "dialogs/datei_holen.h"

#include <cmath>

namespace vantora {

namespace {

constexpr int kErsteBeschriftung = 16206;
constexpr int kGrosserSchirm = 1024;
constexpr const wchar_t* kGrossesLayout = L"frmPrint_1000";
constexpr int kLinie = 15;  // twips, one pixel
constexpr int kBildPauseMs = 250;
constexpr Color kSchwarz = Rgb(0, 0, 0);
constexpr Color kPunkte = Rgb(128, 128, 128);  // the average colour of a dotted line
constexpr int kErsterTab = 20;                 // tab order of the texts

}  // namespace

frmPrint::frmPrint(Programm& programm) : VtrFenster(programm, L"frmPrint") {
  Lead1.Visible = false;
  Lead2.Container = &Lead2Container;
  Lead2.Click = [this] { Lead2_Click(); };
  Lead2.KeyDown = [this](int taste) {
    if (taste == kKeySpace) Lead2_Click();
  };
  for (int i = 0; i < picRotText.Count(); ++i) {
    picRotText(i).Container = &Lead2;
    Line1(i).Container = &Lead2;
    chkPaper(i).Click = [this] { chkPaper_Click(); };
    optLabelPos(i).Click = [this] { optLabelPos_Click(); };
  }
  for (int i = 0; i < lblBeschriftung.Count(); ++i) {
    Label& zeile = lblBeschriftung(i);
    TextEinrichten(zeile);
    zeile.MouseDown = [this, i](int taste) {
      if (taste == kLeftButton) lblBeschriftung_MouseDown(i);
    };
    zeile.MouseMove = [this, i](int taste) { lblBeschriftung_MouseMove(i, taste); };
    zeile.MouseUp = [this, i](int) { lblBeschriftung_MouseUp(i); };
  }
  for (Label* schild : {&lblCDTitel, &lblInterPret}) TextEinrichten(*schild);
  lblCDTitel.MouseDown = [this](int taste) {
    if (taste == kLeftButton) lblCDTitel_MouseDown();
  };
  lblCDTitel.MouseMove = [this](int taste) { lblCDTitel_MouseMove(taste); };
  lblInterPret.MouseDown = [this](int taste) {
    if (taste == kLeftButton) lblInterPret_MouseDown();
  };
  lblInterPret.MouseMove = [this](int taste) { lblInterPret_MouseMove(taste); };
  Text1.SelectOnFocus = false;
  Text1.KeyPress = [this](int zeichen) { return Text1_KeyPress(zeichen); };
  Text1.Change = [this] { Text1.Text = gesagt_; };
  for (int i = 0; i < imgControl.Count(); ++i) {
    Knopf(imgControl(i), [this, i] { imgControl_MouseUp(i); });
  }
  Knopf(imgLoadPic, [this] { imgLoadPic_MouseUp(); });
  Knopf(imgClearPic, [this] { imgClearPic_MouseUp(); });
  Knopf(imgPrintMe, [this] { imgPrintMe_MouseUp(); });
  Knopf(imgBack, [this] { imgBack_MouseUp(); });
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
}

void frmPrint::TextEinrichten(Label& schild) {
  schild.Container = &Lead2;
  schild.TabStop = true;
  schild.TabIndex = kErsterTab;
  schild.Tag = L"0";
  schild.KeyDown = [this, &schild](int taste) {
    if (taste == kKeySpace) Umschalten(schild);
  };
  schild.GotFocus = [this] { Sagen(); };
}

void frmPrint::Form_Load() {
  LayoutAnwenden(prog.BildschirmBreite >= kGrosserSchirm ? kGrossesLayout : Name);
  ToolTipsSetzen(*this);
  SkaliereForm(prog, *this);
  MitteSetzen(prog, *this);
  SetTexte();
  platz_ = {Lead2Container.Left, Lead2Container.Top, Lead2Container.Width, Lead2Container.Height};
  chkPaper(kZentriert).SetValue(true);
  optLabelPos(0).SetValue(true);
}

void frmPrint::SetTexte() {
  Caption = LoadResString(16200);
  lblTitel.Caption = LoadResString(16200);
  lblHilfe.Caption = LoadResString(16201);
  chkPaper(0).Caption = LoadResString(16202);
  chkPaper(1).Caption = LoadResString(16203);
  optLabelPos(0).Caption = LoadResString(16204);
  optLabelPos(1).Caption = LoadResString(16205);
  lblGruppe(0).Caption = LoadResString(30168);
  lblGruppe(1).Caption = LoadResString(16208);
  struct Knopftext {
    PictureButton& Knopf;
    int Hinweis;
  };
  const Knopftext knoepfe[] = {{imgControl(0), 16401}, {imgControl(1), 16402},
                               {imgControl(2), 16403}, {imgLoadPic, 16404},
                               {imgClearPic, 16405},   {imgPrintMe, 16406},
                               {imgBack, 30160},       {imgAbbrechen, 16407}};
  int i = 0;
  for (const Knopftext& k : knoepfe) {
    Beschriften(lblButtCaption(i), k.Knopf, LoadResString(kErsteBeschriftung + i));
    k.Knopf.ToolTipText = LoadResString(k.Hinweis);
    ++i;
  }
  Lead2.AccessibleName = LoadResString(30161);
  Text1.AccessibleName = LoadResString(30166);
  Text1.ToolTipText = LoadResString(30166);
  imgHelp.ToolTipText = LoadResString(1);
}

// Shows the current side with the current texts and colours.
void frmPrint::InitLabelPrint() {
  imgControl_MouseUp(Seite);
}

// ---- sides ----

void frmPrint::imgControl_MouseUp(int index) {
  Seite = SeiteFuer(index, PapierArt);
  const bool waehlbar = Seite == kLabel && PapierArt == kPapierQM;
  for (int i = 0; i < optLabelPos.Count(); ++i) optLabelPos(i).Enabled = waehlbar;
  const Mass mass = MassDerSeite(Seite);
  Lead1.Width = mass.Breite;
  Lead1.Height = mass.Hoehe;
  prog.plattform.schleife.SetFocus(Text1);
  ShowPic(Seite);
}

void frmPrint::chkPaper_Click() {
  PapierArt = chkPaper(kPapierQM).Value() ? kPapierQM : kZentriert;
  imgControl_MouseUp(Seite);
}

void frmPrint::optLabelPos_Click() {
  LabelPos = optLabelPos(1).Value() ? 1 : 0;
}

void frmPrint::ShowPic(int seite) {
  const Mass mass = MassDerSeite(seite);
  massstab_ = VorschauMass(mass, {platz_.Breite, platz_.Hoehe});
  for (PictureBox* bild : {&Lead2Container, &Lead2}) {
    bild->Width = Ganz32(mass.Breite * massstab_);
    bild->Height = Ganz32(mass.Hoehe * massstab_);
  }
  Lead2Container.Left = platz_.Links + (platz_.Breite - Lead2Container.Width) / 2;
  Lead2Container.Top = platz_.Oben + (platz_.Hoehe - Lead2Container.Height) / 2;
  for (int i = 0; i < imgControl.Count(); ++i) {
    PictureButton& knopf = imgControl(i);
    const bool gezeigt = TeilDerSeite(seite) == i;
    knopf.Picture = gezeigt ? knopf.PicturePressed : knopf.PictureReleased;
    knopf.State = gezeigt ? Lamp::On : Lamp::Off;
  }
  SeiteMalen();
  FalzeZeigen(mass);
  PutRotText(prog.CoverTitel);
  for (int i = 0; i < lblBeschriftung.Count(); ++i) {
    TextZeigen(Zeile(i), Element(prog.CoverZeilen, i + 1));
  }
  TextZeigen(Titel(), prog.CoverTitel);
  TextZeigen(Interpret(), prog.CoverInterpret);
  Sagen();
}

// Draws the background, the picture and the lines of the side, as they are printed.
void frmPrint::SeiteMalen() {
  Lead2.Cls();
  Lead2.BackColor = prog.CoverHintergrund;
  const auto hier = [this](int twips) { return Ganz32(twips * massstab_); };
  if (const Bild bild = Hintergrundbild()) {
    const Rechteck teil = BildPlatz(Seite);
    DrawItem foto;
    foto.Kind = DrawItem::What::Picture;
    foto.Photo = bild;
    foto.Points = {hier(teil.Links), hier(teil.Oben), hier(teil.Links + teil.Breite),
                   hier(teil.Oben + teil.Hoehe)};
    Lead2.Draw(std::move(foto));
  }
  const int rechts = Lead2.Width - kLinie, unten = Lead2.Height - kLinie;
  if (Seite != kLabel) {
    DrawItem rahmen;
    rahmen.Kind = DrawItem::What::Polyline;
    rahmen.Points = {0, 0, rechts, 0, rechts, unten, 0, unten, 0, 0};
    rahmen.Ink = kPunkte;
    Lead2.Draw(std::move(rahmen));
    return;
  }
  constexpr int kEcken = 180;
  const double pi = std::acos(-1.0);
  DrawItem scheibe;
  scheibe.Kind = DrawItem::What::Polygon;
  scheibe.Ink = kSchwarz;
  for (int i = 0; i < kEcken; ++i) {
    const double winkel = 2 * pi * i / kEcken;
    scheibe.Points.push_back(Ganz32(rechts / 2.0 * (1 + std::cos(winkel))));
    scheibe.Points.push_back(Ganz32(unten / 2.0 * (1 + std::sin(winkel))));
  }
  Lead2.Draw(std::move(scheibe));
}

void frmPrint::FalzeZeigen(const Mass& mass) {
  constexpr int kFalz = 385;  // distance of the back's folds from its edges
  const bool hinten = TeilDerSeite(Seite) == kTeilRueckseite;
  const std::array<int, 2> falze = {hinten ? kFalz : mass.Breite / 2, mass.Breite - kFalz};
  for (int i = 0; i < Line1.Count(); ++i) {
    Line1(i).Visible = Seite == kRueckseite || (Seite == kCoverDoppelt && i == 0);
    Line1(i).Left = Ganz32(Element(falze, i) * massstab_);
    Line1(i).Top = 0;
    Line1(i).Width = kLinie;
    Line1(i).Height = Lead2.Height;
    Line1(i).FillColor = kPunkte;
  }
}

void frmPrint::PutRotText(const Text& text) {
  const bool hinten = TeilDerSeite(Seite) == kTeilRueckseite;
  const int breite = Ganz32(kRueckenBreite * massstab_);
  for (int i = 0; i < picRotText.Count(); ++i) {
    PictureBox& ruecken = picRotText(i);
    ruecken.Cls();
    ruecken.Visible = hinten;
    ruecken.BackColor = prog.CoverHintergrund;
    ruecken.Left = i == 0 ? 0 : Lead2.Width - breite;
    ruecken.Top = 0;
    ruecken.Width = breite;
    ruecken.Height = Lead2.Height;
    if (!hinten) continue;
    BoxDevice ziel(ruecken, prog.plattform.schriften);
    ziel.FontName = prog.CoverFont;
    ziel.FontSize = prog.CoverFontSize * massstab_;
    ziel.FontBold = prog.CoverFontBold != 0;
    ziel.FontItalic = prog.CoverFontItalic != 0;
    ziel.ForeColor = prog.CoverTextFarbe;
    // The texts stand where the printed texts stand. The left text begins at the bottom.
    constexpr int kVomRand = 100, kVomAnfang = 200;
    const double rand = kVomRand * massstab_, anfang = kVomAnfang * massstab_;
    const bool geschrieben = Weiter([&] {
      if (i == 0) {
        DrawRotatedText(ziel, text, rand, ruecken.Height - anfang, 90);
      } else {
        DrawRotatedText(ziel, text, ruecken.Width - rand, anfang, 270);
      }
    });
    if (!geschrieben) prog.MsgBoxen(LoadResString(16001), kHinweis);
  }
}

// ---- pictures ----

void frmPrint::imgLoadPic_MouseUp() {
  DateiHolen(prog, kTypBild, kModusOeffnen);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return;
  }
  Text datei = prog.GewaehlteDatei;
  if (prog.MehrfachAuswahl) datei = datei.substr(0, datei.find(L'/'));
  if (datei.empty() || datei.find(L'*') != Text::npos) return;
  EventLoop& schleife = prog.plattform.schleife;
  // The window is disabled while the picture is being loaded.
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  const auto frei = [&] {
    Window.Enabled = true;
    schleife.MousePointer(Pointer::Normal);
  };
  try {
    const Bild bild = prog.plattform.bilder.Load(datei);
    Hintergrundbild() = bild;
    prog.Pausieren(kBildPauseMs);
    deckend_ = false;
    frei();
    ShowPic(Seite);
  } catch (const Laufzeitfehler& fehler) {
    frei();
    prog.BildFehlerMelden(datei, fehler);
  }
}

void frmPrint::imgClearPic_MouseUp() {
  if (prog.MsgBoxen(LoadResString(16000), kFrage) != kJa) return;
  Hintergrundbild() = nullptr;
  deckend_ = true;
  ShowPic(Seite);
}

// ---- closing the window ----

void frmPrint::imgBack_MouseUp() {
  prog.plattform.schleife.Hide(*this);
}

void frmPrint::imgAbbrechen_MouseUp() {
  prog.frmPrintStart().imgDruckEnde_MouseUp();
}

}  // namespace vantora
