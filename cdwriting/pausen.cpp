#include "cdwriting/pausen.h"

#include "app/programm.h"
#include "app/weiter.h"
#include "catalog/frmHauptForm.h"

#include <vector>

namespace vantora {

namespace {

constexpr std::size_t kPausenBytes = std::size_t{4} * 44100;  // of a second, for appending
constexpr std::int64_t kPausenFrames = 44100;                 // of a second, for cutting

void Anhaengen(MMWave& wave, const KatalogEintrag& e) {
  static const std::vector<char> kStille(kPausenBytes, '\0');
  wave.Open(e.Datei.Getrimmt());
  const std::int64_t vorher = wave.Samples();
  try {
    wave.SetPosition(wave.DataBytes());
    for (int sekunde = 0; sekunde < e.Pause; ++sekunde) wave.Write(kStille.data(), kStille.size());
    wave.Close();
  } catch (const Laufzeitfehler&) {
    Weiter([&] { wave.SetLength(vorher); });
    Weiter([&] { wave.Close(); });
    throw;
  }
}

void Entfernen(MMWave& wave, const KatalogEintrag& e) {
  wave.Open(e.Datei.Getrimmt());
  if (e.Pause > 0) {
    wave.SetLength(wave.Samples() - e.Pause * kPausenFrames);
    wave.Save();
  }
  wave.Close();
}

}  // namespace

void PausenAnhaengen(Programm& prog) {
  MMWave& wave = *prog.frmHauptForm().MMWaveFileX1;
  for (std::size_t i = 1; i + 1 < prog.Katalog.size(); ++i) {
    try {
      Anhaengen(wave, prog.Katalog[i]);
    } catch (const Laufzeitfehler&) {
      while (--i > 0) Weiter([&] { Entfernen(wave, prog.Katalog[i]); });
      throw;
    }
  }
}

void PausenEntfernen(Programm& prog) {
  MMWave& wave = *prog.frmHauptForm().MMWaveFileX1;
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    if (i + 1 < prog.Katalog.size()) {
      Entfernen(wave, prog.Katalog[i]);
    } else {
      wave.Open(prog.Katalog[i].Datei.Getrimmt());
      wave.Close();
    }
  }
}

}  // namespace vantora
