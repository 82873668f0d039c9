#include "backends/sound/edits/normalizer.h"

#include "backends/sound/edits/vector_unit.h"
#include "backends/sound/files/wave_file.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace vantora {

namespace {

constexpr int kFullScale = 32767;
constexpr std::int64_t kSampleBytes = 2;
// Fits the processor's cache between reading and writing.
constexpr std::size_t kBlockSamples = 1U << 16U;

VANTORA_VECTOR_UNIT int Peak(const std::int16_t* samples, std::size_t count) {
  std::int16_t lowest = 0, highest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    lowest = std::min(lowest, samples[i]);
    highest = std::max(highest, samples[i]);
  }
  return std::max(-lowest, int{highest});
}

class Teller {
 public:
  using Callback = std::function<void(int phase, int percent)>;
  explicit Teller(const Callback& callback) : callback_(callback) {}

  void operator()(int phase, int percent) {
    if (phase == phase_ && percent == percent_) return;
    phase_ = phase;
    percent_ = percent;
    if (callback_) callback_(phase, percent);
  }

 private:
  const Callback& callback_;
  int phase_ = -1, percent_ = -1;
};

int PeakOf(WaveFile& wave, Teller& tell) {
  const std::int64_t end = wave.DataBytes() / kSampleBytes * kSampleBytes;
  std::vector<std::int16_t> block(kBlockSamples);
  int peak = 0;
  tell(0, 0);
  for (std::int64_t place = 0; place < end;) {
    const std::int64_t left = (end - place) / kSampleBytes;
    const std::size_t wanted = std::min(block.size(), static_cast<std::size_t>(left));
    const std::size_t count = wave.Read(block.data(), wanted * kSampleBytes) / kSampleBytes;
    // Another program has shortened the file since it was opened.
    if (count == 0) throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
    peak = std::max(peak, Peak(block.data(), count));
    place += static_cast<std::int64_t>(count) * kSampleBytes;
    tell(0, static_cast<int>(place * 100 / end));
  }
  return peak;
}

}  // namespace

void NormalizeWaveFile(Dateien& dateien, Edits& edits, const Text& file,
                       const std::function<void(int phase, int percent)>& callback, int percent) {
  WaveFile wave(dateien);
  wave.Open(file);
  if (wave.BitsPerSample() != 16) {
    throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo no tiene muestras de 16 bits");
  }
  Teller tell(callback);
  const std::int64_t bytes = wave.DataBytes();
  const int peak = PeakOf(wave, tell);
  wave.Close();
  const int target = static_cast<int>(std::rint(kFullScale * std::clamp(percent, 0, 100) / 100.0));
  if (peak == 0 || peak == target) return;
  const double factor = static_cast<float>(target) / static_cast<float>(peak);
  tell(1, 0);
  WaveEdit scale{file, bytes, bytes, {ScaleStep(0, bytes / kSampleBytes * kSampleBytes, factor)}};
  edits.Apply({{scale}, [&tell](int done) { tell(1, done); }});
}

}  // namespace vantora
