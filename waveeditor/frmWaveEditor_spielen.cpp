// Playing, pausing, looping and winding.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr int kOeffnenMs = 50;
constexpr int kRunden = 10000;               // of a loop
constexpr std::int32_t kSpulFrames = 22050;  // half a second
constexpr int kSpulErstMs = 500, kSpulWenigerMs = 40, kSpulSchnellMs = 100, kSpulLetztMs = 50;
constexpr std::int16_t kLastNachSpulen = 25;  // percent; winding tells nothing about the load
constexpr int kEinrechnen = 5;

// Sets a flag for as long as it lives.
class Waehrend {
 public:
  explicit Waehrend(bool& zeichen) : zeichen_(zeichen) { zeichen_ = true; }
  ~Waehrend() { zeichen_ = false; }
  Waehrend(const Waehrend&) = delete;
  Waehrend& operator=(const Waehrend&) = delete;

 private:
  bool& zeichen_;
};

Text SteuerungBild(const Text& zustand, int index) {
  return L"WAVESTEUERUNG" + zustand + L"_" + ZahlText(index);
}

}  // namespace

void frmWaveEditor::BereichSetzen() {
  MMWaveObject& quelle = SourceFile->Wave;
  quelle.PlayEnd = NurCursor ? Laenge() : MarkerEnde;
  quelle.PlayStart = NurCursor ? CursorPos : MarkerAnfang;
  Weiter([&] { quelle.SetPosition(quelle.PlayStart); });
}

void frmWaveEditor::PlayWave(bool an) {
  prog.AppLog(L"frmWaveEditor.PlayWave", an ? L"playing started" : L"stop");
  // A button may be let go, or another pressed, while the sound ends or the chain is connected.
  if (HaeltAn) {
    DanachSpielen = an;
    return;
  }
  if (!an) return Anhalten();
  if (Spielt) {
    DanachSpielen = true;  // anew, with what is selected now
    return Anhalten();
  }
  RuntimeConnections();
  if (Spielt || EinrechnenLaeuft || Beschaeftigt) return;
  Out->Loop = false;
  imgSteuerung(kEinrechnen).Enabled = false;
  lblEinrechnen.Enabled = false;
  imgNormalize.Enabled = false;
  BereichSetzen();
  if (Laenge() == 0 || SourceFile->Wave.PlayStart == SourceFile->Wave.PlayEnd) return;
  Out->Loop = LoopAktiv;
  if (LoopAktiv) {
    imgLoop.Picture = L"WAVELOOPPRESSED";
    Out->LoopCount = kRunden;
  } else {
    imgSteuerung(0).Picture = SteuerungBild(L"", 0);
  }
  Out->Open();
  prog.plattform.schleife.Sleep(kOeffnenMs);
  Out->Open();
  Out->Start();
  tmrAnzeigeTimer.Enabled = true;
  Spielt = true;
}

void frmWaveEditor::Anhalten() {
  {
    const Waehrend haelt(HaeltAn);
    SpielEnde();
  }
  if (std::exchange(DanachSpielen, false)) PlayWave(true);
}

void frmWaveEditor::SpielEnde() {
  Window.Enabled = false;
  Out->Stop();
  Out->Close();
  PositionSetzen(shpMarker.Left);
  if (SpieltVorSpulen) marker_update();
  MMWaveObject& quelle = SourceFile->Wave;
  quelle.Close();
  Weiter([&] { quelle.Open(); });
  Trigger->Stop();
  tmrAnzeigeTimer.Enabled = false;
  prog.plattform.schleife.DoEvents();
  Spielt = false;
  tmrAnzeigeTimer_Timer();
  BereichSetzen();
  tmrAnzeigeTimer_Timer();
  KnoepfeFreigeben();
  if (Pausiert) KnopfBild(imgSteuerung(2));  // it showed the pause that ends here
  Pausiert = false;
  Window.Enabled = true;
}

void frmWaveEditor::KnoepfeFreigeben() {
  for (PictureButton* knopf :
       {&imgSteuerung(0), &imgLoop, &imgSteuerung(kEinrechnen), &imgNormalize}) {
    knopf->Enabled = true;
    KnopfBild(*knopf);
  }
  lblEinrechnen.Enabled = true;
}

// ---- display ----

void frmWaveEditor::tmrAnzeigeTimer_Timer() {
  const std::int32_t laenge = Laenge();
  if (laenge == 0) return SpieltNochPruefen();
  std::int64_t pos = SpulAktiv ? SpulPos : SourceFile->Wave.PlayStart;
  if (Spielt && !SpulAktiv) {
    const std::int64_t bytes = Out->Position();
    if (bytes >= 1) pos += bytes / kFrameBytes;
    if (bytes < 0) PlayWave(false);
  }
  const auto stelle = static_cast<double>(pos);
  if (pos <= laenge) PositionSetzen(1.0 * picWaveBack.Width / laenge * stelle);
  lblStatus.Caption = SmpToTime(stelle);
  if (ZoomFaktor > 1) {
    const int seite = picWave.Width;
    sliderWave.Value = std::min(seite * (linPosition.Left / seite), sliderWave.Max());
    sliderWave_OnChange();
  }
  if (Spielt && !LoopAktiv && (pos >= SourceFile->Wave.PlayEnd || pos < 0)) PlayWave(false);
  SpieltNochPruefen();
  prog.plattform.schleife.DoEvents();
}

// The sound ends before its range where another program has shortened or removed the file.
void frmWaveEditor::SpieltNochPruefen() {
  if (Spielt && !SpulAktiv && Out->State() == MMWaveOutX::Stopped) PlayWave(false);
}

// ---- buttons ----

void frmWaveEditor::imgSteuerung_MouseUp(int index) {
  LoopAktiv = false;
  if (index != kEinrechnen) KnopfBild(imgSteuerung(index));
  switch (index) {
    case 0:
      return Pausiert ? PauseUmschalten() : PlayWave(true);
    case 1:
      PlayWave(false);
      Pausiert = false;
      return;
    case 2:
      return PauseUmschalten();
    case 3:
    case 4:
      return SpulenBeenden();
    case kEinrechnen:
      return Einrechnen();
    default:
      return UndoWave();
  }
}

void frmWaveEditor::PauseUmschalten() {
  const int zustand = Out->State();
  if (zustand == MMWaveOutX::Running) {
    Out->Pause();
    Pausiert = true;
    imgSteuerung(2).Picture = SteuerungBild(L"", 2);
    tmrAnzeigeTimer.Enabled = false;
  } else if (Spielt && (zustand == MMWaveOutX::Stopped || zustand == MMWaveOutX::Paused)) {
    tmrAnzeigeTimer.Enabled = true;
    KnopfBild(imgSteuerung(2));
    Pausiert = false;
    Out->Restart();
  }
}

void frmWaveEditor::imgLoop_MouseUp() {
  if (Spielt) return PlayWave(false);
  LoopAktiv = true;
  PlayWave(true);
}

void frmWaveEditor::imgSteuerung_DblClick(int index) {
  if (Spielt || (index != 3 && index != 4)) return;
  NurCursor = true;
  CursorPos = index == 3 ? Laenge() : 0;
  PositionSetzen(index == 3 ? picWaveBack.Width() : 0);
}

// ---- winding ----

void frmWaveEditor::imgSteuerung_MouseDown(int index) {
  if (index == kEinrechnen && EffekteAktiv) {
    imgSteuerung(kEinrechnen).Picture = L"WAVE_EINRECHNEN_PRESSED";
  }
  if ((index == 3 || index == 4) && !LoopAktiv) Spulen(index == 3);
}

void frmWaveEditor::Spulen(bool vor) {
  SpulAktiv = true;
  SpieltVorSpulen = Spielt;
  if (!Spielt) BereichSetzen();  // from the place that was chosen last
  SpulPos = SourceFile->Wave.PlayStart;
  if (Spielt) {
    const auto gehoert = std::max<std::int64_t>(Out->Position(), 0) / kFrameBytes;
    SpulPos = std::min(SpulPos + Ganz32(static_cast<double>(gehoert)), Laenge());
    PlayWave(false);
  }
  int warten = kSpulErstMs;
  while (SpulAktiv) {
    SpulPos = vor ? std::min(SpulPos + kSpulFrames, Laenge()) : std::max(SpulPos - kSpulFrames, 0);
    NurCursor = true;
    tmrAnzeigeTimer_Timer();
    prog.Pausieren(warten, SpulAktiv);
    warten = warten - kSpulWenigerMs <= kSpulSchnellMs ? kSpulLetztMs : warten - kSpulWenigerMs;
  }
}

void frmWaveEditor::Form_GotFocus() {
  if (!SpulAktiv) return;
  for (const int index : {3, 4}) KnopfBild(imgSteuerung(index));
  SpulenBeenden();
}

void frmWaveEditor::SpulenBeenden() {
  if (!SpulAktiv) return;
  SpulAktiv = false;
  MMWaveObject& quelle = SourceFile->Wave;
  quelle.PlayStart = SpulPos;
  Weiter([&] { quelle.SetPosition(SpulPos); });
  CPULast = kLastNachSpulen;
  NurCursor = true;
  CursorPos = SpulPos;
  if (SpieltVorSpulen) PlayWave(true);
}

}  // namespace vantora
