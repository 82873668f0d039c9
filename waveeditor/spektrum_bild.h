// A picture of the spectrum of a range: its left channel in blocks of 1024 samples, drawn by the
// audio library. The small picture of the wave editor and the picture of the whole screen are made
// in the same steps. Events may run between the steps. The library works on one picture at a time.
#pragma once

#include "platform/form.h"
#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

struct Programm;

class SpektrumBild {
 public:
  explicit SpektrumBild(Programm& programm);
  ~SpektrumBild();  // releases the picture in the library
  SpektrumBild(const SpektrumBild&) = delete;
  SpektrumBild& operator=(const SpektrumBild&) = delete;

  // Reads a range of a wave file. Samples after the end of the file are silent. If the last block
  // reaches beyond the range, its other samples are silent too. Returns false for a file that
  // cannot be read.
  bool Lesen(const Text& datei, std::int32_t start, std::int32_t frames);
  std::int32_t Start() const { return start_; }  // the frame at which the reading began
  void Umrechnen();
  void Zeichnen(PictureBox& bild);

 private:
  Programm& prog;
  std::int32_t start_ = 0, frames_ = 0;
  std::vector<std::int16_t> SpektrumDaten;  // the left channel
};

}  // namespace vantora
