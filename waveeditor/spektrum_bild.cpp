#include "waveeditor/spektrum_bild.h"

#include "app/werte/zahlen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kBereich = 70;  // dB
constexpr std::int32_t kBlock = 1024;

// The range is rounded to whole blocks, up as well as down.
std::int32_t Bloecke(std::int32_t frames) {
  return Ganz32(Quotient(frames, kBlock));
}

}  // namespace

SpektrumBild::SpektrumBild(Audiolib& bibliothek) : bibliothek_(bibliothek) {
  bibliothek_.func_15(kBereich);
}

void SpektrumBild::Umrechnen(const std::vector<std::int16_t>& samples, std::int32_t frames) {
  bibliothek_.func_17(samples.data(), Bloecke(frames), kBlock, 1);
}

void SpektrumBild::Zeichnen(PictureBox& bild, std::int32_t hoehe, std::int32_t breite,
                            const Text& xText, const Text& yText) {
  bibliothek_.func_18(bild, hoehe, breite, xText, yText);
}

void LinkenKanalLesen(MMWaveObject& wave, std::int32_t frames,
                      std::vector<frmWaveEditor::Frame>& puffer,
                      std::vector<std::int16_t>& samples) {
  constexpr std::int32_t kGanze = frmWaveEditor::kBlockFrames;
  const std::int32_t bedarf = std::max(frames + 1, Bloecke(frames) * kBlock);
  samples.assign(static_cast<std::size_t>(bedarf), 0);
  auto ziel = samples.begin();
  const auto lesen = [&](std::int32_t anzahl) {
    const std::size_t bytes = static_cast<std::size_t>(anzahl) * sizeof(frmWaveEditor::Frame);
    const std::size_t gelesen = wave.ReadData(puffer.data(), bytes) / sizeof(frmWaveEditor::Frame);
    for (std::size_t i = 0; i < gelesen; ++i) *ziel++ = puffer[i].Links;
  };
  for (std::int32_t i = 0; i < frames / kGanze; ++i) lesen(kGanze);
  const std::int32_t rest = frames % kGanze;
  if (rest != 0) lesen(rest);
}

}  // namespace vantora
