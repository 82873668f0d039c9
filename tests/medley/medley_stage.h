// A program and the crossfade engine without its window, and a model of the expected sound.
#pragma once

#include "medley/ueberblendung.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"

#include <cmath>
#include <memory>

namespace vantora {

// Number of values that each file loses in a crossfade of `sekunden`.
inline std::size_t WerteVon(double sekunden) {
  const auto werte = static_cast<std::size_t>(std::nearbyint(sekunden * 88200));
  return werte - werte % 4;
}

// The linear crossfade of two sounds of the same length.
inline std::string Gemischt(const std::string& ende, const std::string& anfang) {
  std::vector<std::int16_t> mix = test::SamplesOf(ende);
  const std::vector<std::int16_t> zwei = test::SamplesOf(anfang);
  for (std::size_t v = 0; v < mix.size(); ++v) {
    const double f = static_cast<double>(v - v % 2) / static_cast<double>(mix.size());
    mix[v] = static_cast<std::int16_t>(std::nearbyint((1 - f) * mix[v] + f * zwei[v]));
  }
  return test::BytesOf(mix);
}

// Changes two sounds as a crossfade does, with the given mix or else the linear one.
inline void Ueberblende(std::string& a, std::string& b, double sekunden, std::string mix = {}) {
  const std::size_t u = WerteVon(sekunden);
  if (mix.empty()) mix = Gemischt(a.substr(a.size() - 2 * u), b.substr(0, 2 * u));
  a = a.substr(0, a.size() - 2 * u) + mix.substr(0, u);
  b = mix.substr(u) + b.substr(2 * u);
}

class MedleyBuehne {
 public:
  void Starte() {
    b.Start();
    b.prog.Medley.clear();
    b.prog.Temporary_Directory = L"C:\\Temp\\";
    motor = std::make_unique<Ueberblendung>(b.prog, chkPitch);
  }

  static Text Ort(std::size_t n) { return L"C:\\Vantora\\Wavs\\" + std::to_wstring(n) + L".wav"; }

  // Adds a track with this sound to the medley, in its own file.
  MedleyEintrag& Reihe(const std::string& ton, const Text& dauer = L"1",
                       const std::string& anhang = {}) {
    const std::size_t n = b.prog.Medley.size();
    b.Datei(Ort(n), test::Wave(ton, anhang));
    MedleyEintrag& reihe = b.prog.Medley.emplace_back();
    reihe.Titel = L"T" + std::to_wstring(n);
    reihe.Datei = Ort(n);
    reihe.Dauer = dauer;
    return reihe;
  }
  std::string Datei(std::size_t n) { return b.Lies(Ort(n)); }

  // Runs all transitions in order. Returns true when the catalog was marked as changed.
  bool Lauf() {
    bool markiert = false;
    b.Tu([&] {
      motor->LaufBeginnen();
      for (int j = 0; j + 1 < static_cast<int>(b.prog.Medley.size()); ++j) {
        motor->UeberblendungAusfuehren(j, j + 1);
      }
      markiert = motor->KatalogMarkieren();
    });
    return markiert;
  }

  Buehne b;
  Form fenster{b.platform.loop, L"frm"};
  CheckBox chkPitch{fenster, L"chkPitch"};
  std::unique_ptr<Ueberblendung> motor;
};

}  // namespace vantora
