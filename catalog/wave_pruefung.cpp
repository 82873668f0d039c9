#include "catalog/wave_pruefung.h"

#include "app/dienste.h"
#include "app/werte/weiter.h"
#include "klang/klang_frame.h"

#include "platform/cd_sound.h"

#include <cstring>

namespace vantora {

namespace {

constexpr std::int64_t kRiffKopf = 8;  // the size in the header does not count these bytes
constexpr std::uint32_t kLaengsterFremder = 200;  // bytes of a foreign chunk before the data

bool Marke(Datei& datei, const char* soll) {
  char ist[4];
  datei.Read(ist, sizeof ist);
  return std::memcmp(ist, soll, sizeof ist) == 0;
}

std::int32_t Zahl(Datei& datei) {
  unsigned char b[4];
  datei.Read(b, sizeof b);
  return static_cast<std::int32_t>(
      static_cast<std::uint32_t>(b[0]) | static_cast<std::uint32_t>(b[1]) << 8U |
      static_cast<std::uint32_t>(b[2]) << 16U | static_cast<std::uint32_t>(b[3]) << 24U);
}

void Ueberspringen(Datei& datei, std::int64_t laenge, std::uint32_t bytes) {
  const std::int64_t ziel = datei.Position() + bytes;
  if (ziel > laenge) throw Laufzeitfehler(kFehlerDateiEnde, L"Fin de archivo inesperado");
  datei.Seek(ziel);
}

bool KopfStimmt(Datei& datei, std::int64_t bytes) {
  return Marke(datei, "RIFF") && Zahl(datei) == bytes - kRiffKopf && Marke(datei, "WAVE") &&
         Marke(datei, "fmt ");
}

bool DatenGefunden(Datei& datei, std::int64_t bytes) {
  Ueberspringen(datei, bytes, static_cast<std::uint32_t>(Zahl(datei)));
  for (;;) {
    const bool daten = Marke(datei, "data");
    const std::int32_t groesse = Zahl(datei);
    if (daten) return groesse >= 0 && groesse <= bytes;
    if (groesse < 0 || static_cast<std::uint32_t>(groesse) > kLaengsterFremder) return false;
    Ueberspringen(datei, bytes, static_cast<std::uint32_t>(groesse));
  }
}

}  // namespace

WaveBefund WavePruefen(Plattform& plattform, MMWave& wave, const Text& datei) {
  WaveBefund befund;
  Weiter([&] {
    wave.Open(datei);  // raises an error if the file does not exist
    const bool tauglich = wave.BitsPerSample() == kSampleBits && wave.SampleRate() == kSampleRate &&
                          wave.StereoMode() == 1;
    befund.LaengeMs = static_cast<double>(wave.Samples()) / kFramesJeMs;
    wave.Close();
    if (!tauglich) return;
    // The file is opened for writing too, because a read-only or locked file is not usable.
    const auto offen = plattform.dateien.Open(datei, Zugriff::Binaer);
    befund.Bytes = offen->Length();
    befund.Datum = offen->DateTime();
    befund.Gueltig = KopfStimmt(*offen, befund.Bytes) && DatenGefunden(*offen, befund.Bytes);
  });
  return befund;
}

bool CheckWaveValid(Plattform& plattform, MMWave& wave, const Text& datei) {
  return WavePruefen(plattform, wave, datei).Gueltig;
}

double WaveLaenge(MMWave& wave, const Text& datei) {
  wave.Open(datei);
  const double ms = static_cast<double>(wave.Samples()) / kFramesJeMs;
  wave.Close();
  return ms;
}

}  // namespace vantora
