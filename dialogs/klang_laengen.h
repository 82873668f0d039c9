// The lengths of sound files. Each file is measured once.
#pragma once

#include "platform/mmtools.h"
#include "platform/plattform.h"

#include <cstdint>
#include <map>
#include <memory>

namespace vantora {

class KlangLaengen {
 public:
  explicit KlangLaengen(Plattform& plattform);

  bool Gemessen(const Text& datei) const { return laengen_.contains(datei); }
  void Messen(const Text& datei);  // reads the file; an MP3 file is read to its end
  // Returns the length of a measured file in ms; 0 for a file that cannot be read.
  std::int64_t Laenge(const Text& datei) const;

 private:
  double Mp3Laenge(const Text& datei);
  double WaveLaenge(const Text& datei);

  Plattform& plattform_;
  std::unique_ptr<MMWave> wave_;
  std::map<Text, std::int64_t> laengen_;
};

}  // namespace vantora
