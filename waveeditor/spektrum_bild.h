// What the small picture of the spectrum and the one of the whole screen have in common: the left
// channel of a range in blocks of 1024 samples, drawn by the audio library.
#pragma once

#include "waveeditor/frmWaveEditor.h"

#include "platform/audiolib.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace vantora {

// A picture in the making; the library lets go of it in whatever way its making ends.
class SpektrumBild {
 public:
  explicit SpektrumBild(Audiolib& bibliothek);
  ~SpektrumBild() { bibliothek_.func_16(); }
  SpektrumBild(const SpektrumBild&) = delete;
  SpektrumBild& operator=(const SpektrumBild&) = delete;

  void Umrechnen(const std::vector<std::int16_t>& samples, std::int32_t frames);
  void Zeichnen(PictureBox& bild, std::int32_t hoehe, std::int32_t breite, const Text& xText,
                const Text& yText);

 private:
  Audiolib& bibliothek_;
};

// Reads `frames` frames from where the file stands, through `puffer`, and puts the left channel
// into `samples` from index 0. Behind the end of the file it is silent, and so is what the last
// block reaches beyond the range.
void LinkenKanalLesen(MMWaveObject& wave, std::int32_t frames,
                      std::vector<frmWaveEditor::Frame>& puffer,
                      std::vector<std::int16_t>& samples);

}  // namespace vantora
