#include "cdwriting/pausen.h"

#include "app/programm.h"
#include "catalog/frmHauptForm.h"

#include <vector>

namespace vantora {

namespace {

constexpr std::size_t kPausenBytes = std::size_t{4} * 44100;  // of a second, for appending
constexpr std::int64_t kPausenFrames = 44100;                 // of a second, for cutting

}  // namespace

void PausenAnhaengen(Programm& prog) {
  MMWaveFileX& wave = *prog.frmHauptForm().MMWaveFileX1;
  for (std::size_t i = 1; i + 1 < prog.Katalog.size(); ++i) {
    const KatalogEintrag& e = prog.Katalog[i];
    wave.Open(e.Datei.Getrimmt());
    wave.SetPosition(wave.DataBytes());
    const std::vector<char> stille(static_cast<std::size_t>(e.Pause) * kPausenBytes, '\0');
    wave.Write(stille.data(), stille.size());
    wave.Close();
  }
}

void PausenEntfernen(Programm& prog) {
  MMWaveFileX& wave = *prog.frmHauptForm().MMWaveFileX1;
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    const KatalogEintrag& e = prog.Katalog[i];
    wave.Open(e.Datei.Getrimmt());
    if (i + 1 < prog.Katalog.size()) {
      wave.SetLength(wave.Samples() - e.Pause * kPausenFrames);
      wave.Save();
    }
    wave.Close();
  }
}

}  // namespace vantora
