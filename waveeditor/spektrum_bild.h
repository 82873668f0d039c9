// A picture of the spectrum of a range: its left channel in blocks of 1024 samples, drawn by the
// audio library. The small picture of the wave editor and that of the whole screen are made by the
// same steps. Events may run between them; the library works on one picture at a time.
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
  ~SpektrumBild();  // the library lets go of the picture
  SpektrumBild(const SpektrumBild&) = delete;
  SpektrumBild& operator=(const SpektrumBild&) = delete;

  // Reads so many frames of a wave file from a frame on. Behind the end of the file it is silent,
  // and so is what the last block reaches beyond the range. False for a file that cannot be read.
  bool Lesen(const Text& datei, std::int32_t start, std::int32_t frames);
  std::int32_t Start() const { return start_; }  // where the reading began in the file
  void Umrechnen();
  void Zeichnen(PictureBox& bild);

 private:
  Programm& prog;
  std::int32_t start_ = 0, frames_ = 0;
  std::vector<std::int16_t> SpektrumDaten;  // the left channel
};

}  // namespace vantora
