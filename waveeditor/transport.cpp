#include "waveeditor/transport.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "klang/klang_frame.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr int kOeffnenMs = 50;
constexpr int kRunden = 10000;                         // repetitions of a loop
constexpr std::int32_t kSpulFrames = kSampleRate / 2;  // half a second
constexpr int kSpulErstMs = 500, kSpulWenigerMs = 40, kSpulSchnellMs = 100, kSpulLetztMs = 50;
constexpr std::int16_t kLastNachSpulen = 25;  // percent; winding distorts the measurement

// Dims the buttons that do nothing while the sound plays. Pasting needs something to paste.
void BearbeitenLassen(WellenTafel& tafel, bool ruht) {
  for (PictureButton* knopf :
       {&tafel.imgCut, &tafel.imgCopy, &tafel.imgMute, &tafel.imgFadeIn, &tafel.imgFadeOut,
        &tafel.imgSteuerung(WellenTafel::kUndo), &tafel.cmdAllesAuswaehlen}) {
    knopf->Enabled = ruht;
  }
  for (int i = 0; i < tafel.imgZoom.Count(); ++i) tafel.imgZoom(i).Enabled = ruht;
  tafel.imgPaste.Enabled = ruht && !tafel.lblPasteDisabled.Visible();
}

// Sets a flag for as long as this object lives.
class Waehrend {
 public:
  explicit Waehrend(bool& zeichen) : zeichen_(zeichen) { zeichen_ = true; }
  ~Waehrend() { zeichen_ = false; }
  Waehrend(const Waehrend&) = delete;
  Waehrend& operator=(const Waehrend&) = delete;

 private:
  bool& zeichen_;
};

}  // namespace

Transport::Transport(Programm& programm, Teile teile, EditorFenster& fenster)
    : prog(programm), t_(teile), fenster_(fenster) {}

// Sets range and position of the source from the selection.
void Transport::BereichSetzen() {
  MMWaveObject& quelle = t_.Kette.SourceFile().Wave;
  quelle.PlayEnd = t_.Auswahl.Ende(t_.Kette.Laenge());
  quelle.PlayStart = t_.Auswahl.Stelle();
  Weiter([&] { quelle.SetPosition(quelle.PlayStart); });
}

void Transport::PlayWave(bool an) {
  prog.AppLog(L"frmWaveEditor.PlayWave", an ? L"playing started" : L"stop");
  // A button may be let go, or another pressed, while the sound ends or the chain is wired.
  if (HaeltAn) {
    DanachSpielen = an;
    return;
  }
  if (!an) return Anhalten();
  if (Spielt_) {
    DanachSpielen = true;
    return Anhalten();
  }
  Beginnen();
}

void Transport::Beginnen() {
  fenster_.RuntimeConnections();
  if (Spielt_ || fenster_.Besetzt()) return;
  MMWaveOutX& out = t_.Kette.Out();
  out.Loop = false;
  t_.Tafel.imgSteuerung(WellenTafel::kEinrechnen).Enabled = false;
  t_.Tafel.lblEinrechnen.Enabled = false;
  t_.Tafel.imgNormalize.Enabled = false;
  BereichSetzen();
  const MMWaveObject& quelle = t_.Kette.SourceFile().Wave;
  if (t_.Kette.Laenge() == 0 || quelle.PlayStart == quelle.PlayEnd) return;
  out.Loop = LoopAktiv;
  if (LoopAktiv) {
    t_.Tafel.imgLoop.Picture = L"WAVELOOPPRESSED";
    t_.Tafel.imgLoop.State = Lamp::On;
    out.LoopCount = kRunden;
  } else {
    t_.Tafel.GedruecktZeigen(WellenTafel::kWiedergabe);
  }
  out.Open();
  prog.plattform.schleife.Sleep(kOeffnenMs);
  out.Open();
  out.Start();
  t_.Uhr.Enabled = true;
  Spielt_ = true;
  BearbeitenLassen(t_.Tafel, false);
}

void Transport::Anhalten() {
  {
    const Waehrend haelt(HaeltAn);
    SpielEnde();
  }
  if (std::exchange(DanachSpielen, false)) PlayWave(true);
}

void Transport::SpielEnde() {
  fenster_.Freigeben(false);
  t_.Kette.Out().Stop();
  t_.Kette.Out().Close();
  t_.Marker.PositionZumMarker();
  if (SpieltVorSpulen) fenster_.marker_update();
  MMWaveObject& quelle = t_.Kette.SourceFile().Wave;
  quelle.Close();
  Weiter([&] { quelle.Open(); });
  t_.Kette.Trigger().Stop();
  t_.Uhr.Enabled = false;
  prog.plattform.schleife.DoEvents();
  Spielt_ = false;
  Anzeigen();
  BereichSetzen();
  Anzeigen();
  KnoepfeFreigeben();
  // Stopping ends a pause too.
  if (Pausiert_) WellenTafel::GeloestZeigen(t_.Tafel.imgSteuerung(WellenTafel::kPause));
  Pausiert_ = false;
  fenster_.Freigeben(true);
}

void Transport::KnoepfeFreigeben() {
  WellenTafel& tafel = t_.Tafel;
  PictureButton& wiedergabe = tafel.imgSteuerung(WellenTafel::kWiedergabe);
  for (PictureButton* knopf :
       {&wiedergabe, &tafel.imgLoop, &tafel.imgSteuerung(WellenTafel::kEinrechnen),
        &tafel.imgNormalize}) {
    knopf->Enabled = true;
    KnopfBild(*knopf);
  }
  for (PictureButton* schalter : {&wiedergabe, &tafel.imgLoop}) schalter->State = Lamp::Off;
  tafel.lblEinrechnen.Enabled = true;
  BearbeitenLassen(tafel, true);
}

void Transport::Verbinden(EffektKette::Ende ende) {
  prog.AppLog(L"RuntimeConnections()", L"building runtime connection");
  MMWaveOutX& out = t_.Kette.Out();
  const bool live = Spielt_ && !Pausiert_;
  const int diesmal = ++Verbindungen;
  std::int64_t gehoert = 0;
  if (live) {
    gehoert = std::max<std::int64_t>(out.Position(), 0);
    out.Pause();
  }
  t_.Kette.Verbinden(ende);
  prog.plattform.schleife.DoEvents();
  prog.AppLog(L"RuntimeConnections()", L"built runtime x-tions");
  // A handler may have stopped or paused the sound while events ran, or wired the chain anew and
  // gone on from where it was.
  if (!live || !Spielt_ || Pausiert_ || diesmal != Verbindungen) return;
  if (LoopAktiv) {
    PlayWave(false);
    BereichSetzen();
    PlayWave(true);
    return;
  }
  MMWaveObject& quelle = t_.Kette.SourceFile().Wave;
  const std::int64_t stelle = quelle.PlayStart + gehoert / kFrameBytes;
  quelle.PlayStart = Ganz32(static_cast<double>(std::min<std::int64_t>(stelle, quelle.PlayEnd)));
  out.Start();
}

// ---- display ----

void Transport::Anzeigen() {
  const std::int32_t laenge = t_.Kette.Laenge();
  if (laenge == 0) return SpieltNochPruefen();
  const MMWaveObject& quelle = t_.Kette.SourceFile().Wave;
  std::int64_t pos = SpulAktiv_ ? SpulPos : quelle.PlayStart;
  if (Spielt_ && !SpulAktiv_) {
    const std::int64_t bytes = t_.Kette.Out().Position();
    if (bytes >= 1) pos += bytes / kFrameBytes;
    if (bytes < 0) PlayWave(false);
  }
  fenster_.StelleZeigen(pos);
  if (Spielt_ && !LoopAktiv && (pos >= quelle.PlayEnd || pos < 0)) PlayWave(false);
  SpieltNochPruefen();
  prog.plattform.schleife.DoEvents();
}

// If another program has shortened or removed the file, the sound ends before the end of its range.
void Transport::SpieltNochPruefen() {
  if (Spielt_ && !SpulAktiv_ && t_.Kette.Out().State() == MMWaveOutX::Stopped) PlayWave(false);
}

// ---- buttons ----

void Transport::Wiedergabe() {
  if (Pausiert_) return PauseUmschalten();
  PlayWave(true);
}

void Transport::Stop() {
  PlayWave(false);
  Pausiert_ = false;
}

void Transport::PauseUmschalten() {
  MMWaveOutX& out = t_.Kette.Out();
  const int zustand = out.State();
  if (zustand == MMWaveOutX::Running) {
    out.Pause();
    Pausiert_ = true;
    t_.Tafel.GedruecktZeigen(WellenTafel::kPause);
    t_.Uhr.Enabled = false;
  } else if (Spielt_ && (zustand == MMWaveOutX::Stopped || zustand == MMWaveOutX::Paused)) {
    t_.Uhr.Enabled = true;
    WellenTafel::GeloestZeigen(t_.Tafel.imgSteuerung(WellenTafel::kPause));
    Pausiert_ = false;
    out.Restart();
  }
}

void Transport::Schleife() {
  if (Spielt_) return PlayWave(false);
  LoopAktiv = true;
  PlayWave(true);
}

void Transport::AnsEnde(bool hinten) {
  if (Spielt_) return;
  t_.Auswahl.NurCursor = true;
  t_.Auswahl.CursorPos = hinten ? t_.Kette.Laenge() : 0;
  t_.Marker.PositionSetzen(hinten ? t_.Tafel.picWaveBack.Width() : 0);
}

// ---- winding ----

void Transport::Spulen(bool vor) {
  if (LoopAktiv) return;
  SpulAktiv_ = true;
  SpieltVorSpulen = Spielt_;
  if (!Spielt_) BereichSetzen();  // from the place that was chosen last
  SpulPos = t_.Kette.SourceFile().Wave.PlayStart;
  if (Spielt_) {
    const auto gehoert = std::max<std::int64_t>(t_.Kette.Out().Position(), 0) / kFrameBytes;
    SpulPos = std::min(SpulPos + Ganz32(static_cast<double>(gehoert)), t_.Kette.Laenge());
    PlayWave(false);
  }
  int warten = kSpulErstMs;
  while (SpulAktiv_) {
    SpulPos = vor ? std::min(SpulPos + kSpulFrames, t_.Kette.Laenge())
                  : std::max(SpulPos - kSpulFrames, 0);
    t_.Auswahl.NurCursor = true;
    Anzeigen();
    prog.Pausieren(warten, SpulAktiv_);
    warten = warten - kSpulWenigerMs <= kSpulSchnellMs ? kSpulLetztMs : warten - kSpulWenigerMs;
  }
}

void Transport::SpulenBeenden() {
  if (!SpulAktiv_) return;
  SpulAktiv_ = false;
  MMWaveObject& quelle = t_.Kette.SourceFile().Wave;
  quelle.PlayStart = SpulPos;
  Weiter([&] { quelle.SetPosition(SpulPos); });
  t_.Last.Annehmen(kLastNachSpulen);
  t_.Auswahl.NurCursor = true;
  t_.Auswahl.CursorPos = SpulPos;
  if (SpieltVorSpulen) PlayWave(true);
}

}  // namespace vantora
