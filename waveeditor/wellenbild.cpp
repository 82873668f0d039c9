#include "waveeditor/wellenbild.h"

#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/ansicht.h"
#include "waveeditor/zeit.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr std::int32_t kBlockFrames = 0x40000;
constexpr std::int32_t kBlockBytes = kBlockFrames * kFrameBytes;
constexpr int kSegmente = 16;       // segments of a trace; also points for each twip of the window
constexpr double kAusschlag = 0.9;  // full scale, as a share of a quarter of the height
constexpr double kVollausschlag = 32768.0;
constexpr int kMeldePunkte = 11025;
constexpr int kTeilung = 20;  // ticks in the width of the window
constexpr int kSchrift = 8;
constexpr int kZifferHoehe = 180;  // of a "0" in the ruler, in twips
constexpr Color kWeiss = Rgb(255, 255, 255);
constexpr Color kHellgelb = Rgb(255, 255, 85);     // number 14 of the sixteen basic colours
constexpr Color kHellmagenta = Rgb(255, 85, 255);  // number 13

DrawItem Linie(int x1, int y1, int x2, int y2, Color farbe) {
  DrawItem linie;
  linie.Points = {x1, y1, x2, y2};
  linie.Ink = farbe;
  return linie;
}

}  // namespace

// ---- reading ----

void WellenBild::ScanBeginnen() {
  ScanAbbruch_ = false;
  ScanLaeuft_ = true;
}

bool WellenBild::Lesen(MMWaveObject& quelle, int breite, int hoehe,
                       const std::function<void(double prozent)>& melden) {
  const double viertel = Runden(hoehe / 4.0);
  const double faktor = -(viertel / kVollausschlag) * kAusschlag;
  const std::int32_t punkte = breite * kSegmente;
  WellenPunkte_.assign(static_cast<std::size_t>(punkte) + 1, Punkt{});
  BlockPuffer.resize(kBlockFrames);
  if (quelle.IsOpen()) quelle.SetBufferBytes(kBlockBytes);
  BlockLesen(quelle, 0);
  std::int64_t basis = 0;
  const double schritt = Quotient(Runden(quelle.DataSize() / 16.0), breite);
  for (std::int32_t i = 0; i <= punkte; ++i) {
    const std::int64_t p = GanzSchnell(i * schritt);
    if (p - basis >= kBlockFrames) {
      basis = p;
      BlockLesen(quelle, basis);
    }
    const KlangFrame& frame = BlockPuffer[static_cast<std::size_t>(p - basis)];
    Punkt& punkt = WellenPunkte_[static_cast<std::size_t>(i)];
    punkt.Links = static_cast<std::int16_t>(GanzSchnell(frame.Links * faktor + viertel));
    punkt.Rechts = static_cast<std::int16_t>(GanzSchnell(frame.Rechts * faktor + 3 * viertel));
    if (ScanAbbruch_) return false;
    if (i % kMeldePunkte == 0) melden(i * 100.0 / punkte);
  }
  return true;
}

// Reads one block that begins at a frame. Samples after the end of the file are silent.
void WellenBild::BlockLesen(MMWaveObject& quelle, std::int64_t frame) {
  std::size_t bytes = 0;
  Weiter([&] {
    if (!quelle.IsOpen() || frame >= quelle.DataSize()) return;
    quelle.SetPosition(Ganz32(static_cast<double>(frame)));
    bytes = quelle.ReadData(BlockPuffer.data(), kBlockBytes);
  });
  std::fill(BlockPuffer.begin() + static_cast<std::ptrdiff_t>(bytes / kFrameBytes),
            BlockPuffer.end(), KlangFrame{});
}

void WellenBild::Vergessen() {
  WellenPunkte_ = std::vector<Punkt>(1);
  LinkePunkte = RechtePunkte = std::vector<Pixel>(1);
}

// ---- drawing ----

void WellenBild::LinealZeichnen(PictureBox& lineal, float zoom, std::int32_t laenge) {
  const double teile = zoom * static_cast<double>(kTeilung);
  const double strich = laenge / teile;
  const int breite = lineal.Width, unten = lineal.Height;
  lineal.Cls();
  for (int i = 1; i <= Ganz32(teile - 1); ++i) {
    const int x = Ganz32(i / teile * breite);
    lineal.Draw(Linie(x, unten - kZifferHoehe, x, unten, kWeiss));
    DrawItem zeit;
    zeit.Kind = DrawItem::What::Words;
    zeit.Points = {x, 0};
    zeit.Content = SmpToTime(Runden(strich * i));
    zeit.Ink = kWeiss;
    zeit.FontSize = kSchrift;
    zeit.Align = Alignment::Center;
    lineal.Draw(std::move(zeit));
  }
}

void WellenBild::Zeichnen(PictureBox& flaeche, float zoom) {
  flaeche.Cls();
  const Pixel pixel = PixelTwips();
  const int breite = flaeche.Width;
  const int laenge = breite / kSegmente;
  if (laenge == 0 || WellenPunkte_.empty()) return;
  // The distance from one drawn point to the next.
  const auto schritt = static_cast<std::size_t>(Ansicht::kMaxZoom / zoom);
  LinkePunkte.resize(static_cast<std::size_t>(laenge));
  RechtePunkte.resize(static_cast<std::size_t>(laenge));
  std::size_t stelle = 0;
  for (int i = 0; i <= breite; ++i, ++stelle) {
    if (stelle == LinkePunkte.size()) {
      SegmentZeichnen(flaeche, stelle);
      stelle = 0;
    }
    const std::size_t k = std::min(schritt * static_cast<std::size_t>(i), WellenPunkte_.size() - 1);
    const Punkt& punkt = WellenPunkte_[k];
    LinkePunkte[stelle] = {i / pixel.X, punkt.Links / pixel.Y};
    RechtePunkte[stelle] = {i / pixel.X, punkt.Rechts / pixel.Y};
  }
  SegmentZeichnen(flaeche, static_cast<std::size_t>(breite % laenge));
  const int viertel = Ganz32(flaeche.Height / 4.0);
  flaeche.Draw(Linie(0, viertel, breite, viertel, kHellmagenta));
  flaeche.Draw(Linie(0, 3 * viertel, breite, 3 * viertel, kHellmagenta));
}

WellenBild::Pixel WellenBild::PixelTwips() const {
  return {Ganz32(bildschirm_.TwipsPerPixelX()), Ganz32(bildschirm_.TwipsPerPixelY())};
}

void WellenBild::SegmentZeichnen(PictureBox& flaeche, std::size_t punkte) {
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

}  // namespace vantora
