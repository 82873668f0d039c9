#include "catalog/vorschau.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "mixer/frmMixer.h"

#include "platform/cd_sound.h"

namespace vantora {

namespace {

constexpr int kLetzteMixerLinie = 4;
constexpr int kLeiserPegel = 4001, kHoerbarerPegel = 50;
constexpr int kAnlaufMs = 100;
constexpr int kNachlaufMs = 250;                 // time until a stopped preview is silent
constexpr std::int64_t kWerteJeSekunde = 88200;  // samples of both channels

}  // namespace

Vorschau::Vorschau(Programm& programm, MMWave& wave, LevelMeter& pegel)
    : prog(programm),
      MMWaveFileX1(wave),
      Level(pegel),
      WavePlayer(programm.plattform.mmtools.NewPlayer()) {
  MMConnectorX1();
}

void Vorschau::MMConnectorX1() {
  WavePlayer->OnStart = [this] { Abspielen = true; };
  WavePlayer->OnStop = [this] {
    // An earlier preview has ended, and its notification came late.
    if (WavePlayer->Playing()) return;
    Stop();
  };
  WavePlayer->OnLevel = [this](int links, int rechts) {
    Level.PeakLeft = links;
    Level.PeakRight = rechts;
  };
}

// If the mixer would make the preview inaudible, asks the user whether to change that.
void Vorschau::MixerFragen() {
  vantora::frmMixer& mixer = prog.frmMixer();
  for (int i = 1; i <= kLetzteMixerLinie; ++i) {
    ucEQPro& linie = mixer.M(i);
    if (!Enthaelt(Ucase(linie.LineName()), L"WAV")) continue;
    if (linie.Mute() && prog.MsgBoxen(prog.Text(27000), kJaNein) == kJa) linie.SetMute(false);
    const bool leise =
        linie.Volume() < kLeiserPegel && prog.MsgBoxen(prog.Text(27001), kJaNein) == kJa;
    // Setting a fader's value also sends its mute box to the sound card, so the box is set first.
    mixer.Fader(i).Mute = linie.Mute() ? 1 : 0;
    if (leise) mixer.Fader(i).Value = kHoerbarerPegel;
    return;
  }
}

void Vorschau::PlayWaveNormal(const Text& datei) {
  if (!datei.empty() && prog.frmMixer.Geladen()) MixerFragen();
  const bool existiert = prog.DateiExistiert(datei);
  const Text endung = Ucase(Rechts(datei, 4));
  if (!existiert) {
    Level.Active = false;
    // The meter is switched on again when the window gets the focus next.
    Level.PeakLeft = Level.PeakRight = 0;
    WavePlayer->Stop();
  } else {
    Level.Active = true;
    if (Soundkarte_ && (endung == L".WAV" || endung == L".DAT")) {
      WavePlayer->Stop();
      WavePlayer->SetFileName(datei);
      prog.plattform.schleife.Sleep(kAnlaufMs);
      WavePlayer->Start();
    }
  }
  prog.Log.AktuelleDatei = datei;
}

void Vorschau::PlayWaveMitte(const Text& datei, std::int32_t sekunden) {
  WavePlayer->Stop();
  if (!prog.DateiExistiert(datei) || !Soundkarte_) return;
  MMWaveFileX1.Open(datei);
  const std::int64_t mitte = GanzDiv(MMWaveFileX1.DataBytes(), 2);
  MMWaveFileX1.Close();
  WavePlayer->SetFileName(datei);
  if (mitte >= sekunden * kWerteJeSekunde) WavePlayer->SetPosition(mitte - mitte % kFrameBytes);
  Level.Active = true;
  WavePlayer->Start();
}

void Vorschau::Vorspielen(const Text& datei) {
  PlayWaveNormal(datei);
  prog.plattform.schleife.DoEvents();
  Abspielen = true;
}

void Vorschau::Stop() {
  PlayWaveNormal(L"");
  Abspielen = false;
}

void Vorschau::Ausklingen() {
  if (!Abspielen) return;
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  PlayWaveNormal(L"");
  schleife.Sleep(kNachlaufMs);
  schleife.MousePointer(Pointer::Normal);
}

void Vorschau::PegelErneuern() {
  Level.Active = false;
  Level.Active = true;
  prog.plattform.schleife.DoEvents();
}

}  // namespace vantora
