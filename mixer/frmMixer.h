// The mixer's window. It stays loaded and hidden; its lines come with the mixer itself, so until
// then there are none and nothing is muted.
#pragma once

#include "app/fenster.h"

#include <vector>

namespace vantora {

struct MixerLinie {
  Text Name;
  bool Stumm = false;
  int Pegel = 0;
};

class frmMixer final : public VtrFenster {
 public:
  explicit frmMixer(Programm& programm) : VtrFenster(programm, L"frmMixer") {}

  int LinienAnzahl() const { return static_cast<int>(Linien.size()); }
  MixerLinie& Linie(int nummer) {
    return Linien.at(static_cast<std::size_t>(nummer - 1));
  }  // from 1

  Timer tmrGetWinMixerData{*this, L"tmrGetWinMixerData"};
  std::vector<MixerLinie> Linien;
};

}  // namespace vantora
