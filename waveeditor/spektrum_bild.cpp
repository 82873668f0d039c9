#include "waveeditor/spektrum_bild.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "klang/klang_frame.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace vantora {

namespace {

constexpr int kBereich = 70;  // dB
constexpr std::int32_t kBlock = 1024;

// Rounds a range up or down to whole blocks.
std::int32_t Bloecke(std::int32_t frames) {
  return Ganz32(Quotient(frames, kBlock));
}

// Reads the left channel of the range that begins at the position of the file.
std::vector<std::int16_t> LinkerKanal(MMWaveObject& wave, std::int32_t frames) {
  std::vector<KlangFrame> klang(static_cast<std::size_t>(frames));
  klang.resize(wave.ReadData(klang.data(), klang.size() * kFrameBytes) / kFrameBytes);
  const std::int32_t bedarf = std::max(frames + 1, Bloecke(frames) * kBlock);
  std::vector<std::int16_t> links(static_cast<std::size_t>(bedarf), 0);
  std::transform(klang.begin(), klang.end(), links.begin(),
                 [](const KlangFrame& frame) { return frame.Links; });
  return links;
}

}  // namespace

SpektrumBild::SpektrumBild(Programm& programm) : prog(programm) {
  prog.plattform.audiolib.func_15(kBereich);
}

SpektrumBild::~SpektrumBild() {
  prog.plattform.audiolib.func_16();
}

bool SpektrumBild::Lesen(const Text& datei, std::int32_t start, std::int32_t frames) {
  frames_ = frames;
  const std::unique_ptr<MMWaveFileX> WaveFile = prog.plattform.mmtools.NewWaveFileX();
  MMWaveObject& wave = WaveFile->Wave;
  wave.TimeFormat = TimeFormat::tfByte;
  const bool gelesen = Weiter([&] {
    wave.SetFileName(datei);
    wave.Open();
    wave.SetPosition(Ganz32(1.0 * start * kFrameBytes));
    start_ = wave.Position() / kFrameBytes;
    SpektrumDaten = LinkerKanal(wave, frames);
  });
  Weiter([&] { wave.Close(); });
  return gelesen;
}

void SpektrumBild::Umrechnen() {
  prog.plattform.audiolib.func_17(SpektrumDaten.data(), Bloecke(frames_), kBlock, 1);
}

void SpektrumBild::Zeichnen(PictureBox& bild) {
  const int hoehe = bild.Height;
  prog.plattform.audiolib.func_18(bild, hoehe, bild.Width, prog.Text(21600), prog.Text(21601));
}

}  // namespace vantora
