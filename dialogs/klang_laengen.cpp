#include "dialogs/klang_laengen.h"

#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

namespace vantora {

KlangLaengen::KlangLaengen(Plattform& plattform)
    : plattform_(plattform), wave_(plattform.mmtools.NewWaveFile()) {}

void KlangLaengen::Messen(const Text& datei) {
  double ms = 0;
  Weiter([&] { ms = Ucase(Rechts(datei, 3)) == L"MP3" ? Mp3Laenge(datei) : WaveLaenge(datei); });
  laengen_[datei] = static_cast<std::int64_t>(ms);
}

std::int64_t KlangLaengen::Laenge(const Text& datei) const {
  const auto gefunden = laengen_.find(datei);
  return gefunden == laengen_.end() ? 0 : gefunden->second;
}

double KlangLaengen::Mp3Laenge(const Text& datei) {
  Qm3Play& mp3 = plattform_.mp3;
  const double ms = mp3.Open(datei, L"") == 0 ? mp3.LengthMs() : 0;
  mp3.Close();
  return ms;
}

double KlangLaengen::WaveLaenge(const Text& datei) {
  wave_->Open(datei);
  const int rate = wave_->SampleRate();
  const double ms = rate > 0 ? 1000.0 * static_cast<double>(wave_->Samples()) / rate : 0;
  wave_->Close();
  return ms;
}

}  // namespace vantora
