// The picture of the sound, the time above it, and what is selected on it.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include <cmath>

namespace vantora {

namespace {

constexpr double kFramesJeMs = 44.1;
constexpr int kSegmente = 16;       // of a trace; also the points that a twip of the window has
constexpr double kAusschlag = 0.9;  // share of a quarter of the height that full scale takes
constexpr double kVollausschlag = 32768.0;
constexpr int kMeldePunkte = 11025;
constexpr int kTeilung = 20;  // ticks in the width of the window
constexpr float kMaxZoom = 16;
constexpr int kSchrift = 8;
constexpr int kZifferHoehe = 180;  // twips; of a "0" in the ruler
constexpr Color kWeiss = Rgb(255, 255, 255);
constexpr Color kHellgelb = Rgb(255, 255, 85);     // 14 of the old sixteen
constexpr Color kHellmagenta = Rgb(255, 85, 255);  // 13 of them

DrawItem Linie(int x1, int y1, int x2, int y2, Color farbe) {
  DrawItem linie;
  linie.Points = {x1, y1, x2, y2};
  linie.Ink = farbe;
  return linie;
}

}  // namespace

Text frmWaveEditor::SmpToTime(double frames) {
  if (frames == 0) return L"0:00.0";
  const std::int64_t ms = Ganz64(frames / kFramesJeMs);
  const std::int64_t gesamt = Ganz64(static_cast<double>(ms) / 1000);
  const auto zahl = [](std::int64_t wert) { return static_cast<double>(wert); };
  // The minutes come out of the rounded seconds, so the last half second of a minute belongs to
  // the next one.
  return ZahlText(gesamt / 60) + L":" + Format(zahl(ms % 60000 / 1000), L"##00") + L":" +
         Format(zahl(ms % 1000 / 100), L"#0");
}

std::int32_t frmWaveEditor::Laenge() const {
  return SourceFile->Wave.IsOpen() ? SourceFile->Wave.DataSize() : 0;
}

// ---- reading the sound ----

void frmWaveEditor::ScanWave(const PictureBox& bild) {
  if (BatchLaeuft) return;
  EventLoop& schleife = prog.plattform.schleife;
  ScanAbbruch = false;
  picWaveBack.Cls();
  ScanLaeuft = true;
  shpMarker.Visible = false;
  marker_reset();
  schleife.DoEvents();
  prog.AppLog(L"ScanWave", L"scanning wave");
  const int breite = bild.Width;
  const double viertel = Runden(bild.Height / 4.0);
  const double faktor = -(viertel / kVollausschlag) * kAusschlag;
  const std::int32_t punkte = breite * kSegmente;
  WellenPunkte.assign(static_cast<std::size_t>(punkte) + 1, Punkt{});
  MMWaveObject& quelle = SourceFile->Wave;
  if (quelle.IsOpen()) quelle.SetBufferBytes(kBlockBytes);
  BlockLesen(0);
  std::int64_t basis = 0;
  const double schritt = Quotient(Runden(Laenge() / 16.0), breite);
  for (std::int32_t i = 0; i <= punkte; ++i) {
    const std::int64_t p = GanzSchnell(i * schritt);
    if (p - basis >= kBlockFrames) {
      basis = p;
      BlockLesen(basis);
    }
    const Frame& frame = BlockPuffer[static_cast<std::size_t>(p - basis)];
    Punkt& punkt = WellenPunkte[static_cast<std::size_t>(i)];
    punkt.Links = static_cast<std::int16_t>(GanzSchnell(frame.Links * faktor + viertel));
    punkt.Rechts = static_cast<std::int16_t>(GanzSchnell(frame.Rechts * faktor + 3 * viertel));
    if (ScanAbbruch) {
      quelle.Close();
      Out->Stop();
      ScanLaeuft = false;
      lblStatus.Caption = L"";
      return;
    }
    if (i % kMeldePunkte == 0) {
      lblStatus.Caption = LoadResString(21607) + Format(i * 100.0 / punkte, L"#,##00") + L"%";
      schleife.DoEvents();
    }
  }
  lblStatus.Caption = L"";
  ScanLaeuft = false;
}

// One block from a frame on; silence where the file has none.
void frmWaveEditor::BlockLesen(std::int64_t frame) {
  std::size_t bytes = 0;
  MMWaveObject& quelle = SourceFile->Wave;
  Weiter([&] {
    if (!quelle.IsOpen() || frame >= quelle.DataSize()) return;
    quelle.SetPosition(Ganz32(static_cast<double>(frame)));
    bytes = quelle.ReadData(BlockPuffer.data(), kBlockBytes);
  });
  std::fill(BlockPuffer.begin() + static_cast<std::ptrdiff_t>(bytes / sizeof(Frame)),
            BlockPuffer.end(), Frame{});
}

// ---- drawing ----

void frmWaveEditor::DrawWave(const PictureBox& fenster, PictureBox& flaeche) {
  if (BatchLaeuft) return;
  prog.AppLog(L"DrawWave", L"drawing wave");
  const int breite = Ganz32(ZoomFaktor * static_cast<float>(fenster.Width()));
  flaeche.Width = breite;
  picZeitFront.Width = breite;
  QuelleNeuOeffnen();
  ZeitLineal(breite);
  flaeche.Cls();
  SpurenZeichnen(flaeche);
  if (ZoomFaktor <= 1) return;
  const double platz =
      Laenge() == 0 ? 0 : Runden(1.0 * SourceFile->Wave.Position() / Laenge() * breite);
  sliderWave.Value = std::min(Ganz32(platz), sliderWave.Max());
  sliderWave_OnChange();
}

void frmWaveEditor::QuelleNeuOeffnen() {
  MMWaveObject& quelle = SourceFile->Wave;
  quelle.SetFileName(WorkDatei);
  Weiter([&] {
    quelle.Open();
    quelle.SetPosition(NurCursor ? CursorPos : MarkerAnfang);
  });
}

void frmWaveEditor::ZeitLineal(int breite) {
  const double teile = ZoomFaktor * static_cast<double>(kTeilung);
  const double strich = Laenge() / teile;
  const int unten = picZeitFront.Height;
  picZeitFront.Cls();
  for (int i = 1; i <= Ganz32(teile - 1); ++i) {
    const int x = Ganz32(i / teile * breite);
    picZeitFront.Draw(Linie(x, unten - kZifferHoehe, x, unten, kWeiss));
    DrawItem zeit;
    zeit.Kind = DrawItem::What::Words;
    zeit.Points = {x, 0};
    zeit.Content = SmpToTime(Runden(strich * i));
    zeit.Ink = kWeiss;
    zeit.FontSize = kSchrift;
    zeit.Align = Alignment::Center;
    picZeitFront.Draw(std::move(zeit));
  }
}

void frmWaveEditor::SpurenZeichnen(PictureBox& flaeche) {
  const Pixel pixel = PixelTwips();
  const int breite = flaeche.Width;
  const int laenge = breite / kSegmente;
  if (laenge == 0 || WellenPunkte.empty()) return;
  const auto schritt = static_cast<std::size_t>(kMaxZoom / ZoomFaktor);  // of the points
  LinkePunkte.resize(static_cast<std::size_t>(laenge));
  RechtePunkte.resize(static_cast<std::size_t>(laenge));
  std::size_t stelle = 0;
  for (int i = 0; i <= breite; ++i, ++stelle) {
    if (stelle == LinkePunkte.size()) {
      SegmentZeichnen(flaeche, stelle);
      stelle = 0;
    }
    const std::size_t k = std::min(schritt * static_cast<std::size_t>(i), WellenPunkte.size() - 1);
    const Punkt& punkt = WellenPunkte[k];
    LinkePunkte[stelle] = {i / pixel.X, punkt.Links / pixel.Y};
    RechtePunkte[stelle] = {i / pixel.X, punkt.Rechts / pixel.Y};
  }
  SegmentZeichnen(flaeche, static_cast<std::size_t>(breite % laenge));
  const int viertel = Ganz32(flaeche.Height / 4.0);
  flaeche.Draw(Linie(0, viertel, breite, viertel, kHellmagenta));
  flaeche.Draw(Linie(0, 3 * viertel, breite, 3 * viertel, kHellmagenta));
}

frmWaveEditor::Pixel frmWaveEditor::PixelTwips() const {
  Display& bildschirm = prog.plattform.bildschirm;
  return {Ganz32(bildschirm.TwipsPerPixelX()), Ganz32(bildschirm.TwipsPerPixelY())};
}

void frmWaveEditor::SegmentZeichnen(PictureBox& flaeche, std::size_t punkte) {
  if (punkte == 0) return;
  const Pixel pixel = PixelTwips();
  for (const std::vector<Pixel>* spur : {&LinkePunkte, &RechtePunkte}) {
    DrawItem zug;
    zug.Kind = DrawItem::What::Polyline;
    zug.Ink = kHellgelb;
    zug.Points.reserve(2 * punkte);
    for (std::size_t i = 0; i < punkte; ++i) {
      zug.Points.push_back((*spur)[i].X * pixel.X);
      zug.Points.push_back((*spur)[i].Y * pixel.Y);
    }
    flaeche.Draw(std::move(zug));
  }
}

// ---- zoom ----

void frmWaveEditor::imgZoom_MouseUp(int index) {
  if (Spielt) return;
  if (index == 0 ? ZoomFaktor >= kMaxZoom : ZoomFaktor <= 1) return;
  if (index == 0) ZoomFaktor = std::min(ZoomFaktor * 2, kMaxZoom);
  if (index == 1) ZoomFaktor = std::max(std::floor(ZoomFaktor / 2), 1.0F);
  if (index == 2) ZoomFaktor = 1;
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  sliderWave.Min = 0;
  lblZoomFaktor.Caption = ZahlText(static_cast<double>(ZoomFaktor)) + LoadResString(21611);
  if (ZoomFaktor > 1) {
    sliderWave.Max = Ganz32((ZoomFaktor - 1) * static_cast<float>(picWave.Width()));
    sliderWave.Visible = true;
  } else {
    sliderWave.Visible = false;
    sliderWave.Value = 0;
    sliderWave_OnChange();
  }
  DrawWave(picWave, picWaveBack);
  MarkerZeigen();
  Window.Enabled = true;
  schleife.MousePointer(Pointer::Normal);
}

void frmWaveEditor::MarkerZeigen() {
  if (Laenge() == 0) return;
  const double verhaeltnis = 1.0 * picWaveBack.Width / Laenge();
  const auto x = [&](std::int32_t frames) { return Ganz32(verhaeltnis * frames); };
  if (NurCursor) {
    MarkerSetzen(x(CursorPos), 1);
  } else {
    MarkerSetzen(x(MarkerAnfang), x(MarkerEnde - MarkerAnfang));
  }
  PositionSetzen(shpMarker.Left);
}

void frmWaveEditor::sliderWave_OnChange() {
  picWaveBack.Left = -sliderWave.Value();
  picZeitFront.Left = -sliderWave.Value();
}

}  // namespace vantora
