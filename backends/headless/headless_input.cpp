#include "backends/headless/headless_input.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr std::int64_t kFrames = kBufferBytes / 4;  // in a buffer

std::int64_t FramesIn(std::int64_t ms) {
  return ms * kSampleRate / 1000;
}

}  // namespace

// An open capture. Its time counts in frames from its start. Lost frames count too.
struct HeadlessInput::Ear {
  EventLoop& Loop;
  Clock& Time;
  const bool& Present;
  const bool& Fleeting;
  std::shared_ptr<std::vector<Sound>> Sounds;
  std::function<void()> Ready;
  std::int64_t Start = 0;
  std::int64_t Frame = 0;  // the first frame of the next buffer
  std::int64_t LostMs = 0;
  bool Wanted = true;

  std::int64_t TicksAt(std::int64_t frame) const {
    return Start + (frame * 1000 + kSampleRate - 1) / kSampleRate;
  }
  std::int64_t Due() const { return TicksAt(Frame + kFrames); }
  bool Gone() const { return !Present || Fleeting; }
  bool Waits() const { return !Gone() && Due() <= Time.Ticks(); }

  // Fills a buffer with the sounds. A sound ends early when the next sound begins.
  void Hear(PcmData& data) const {
    data.Samples.fill(0);
    data.Bytes = kBufferBytes;
    for (std::size_t i = 0; i < Sounds->size(); ++i) {
      const Sound& sound = (*Sounds)[i];
      const std::int64_t first = FramesIn(sound.Start - Start);
      std::int64_t end = first + sound.File->Samples();
      if (i + 1 < Sounds->size()) end = std::min(end, FramesIn((*Sounds)[i + 1].Start - Start));
      const std::int64_t from = std::max(first, Frame), to = std::min(end, Frame + kFrames);
      if (from >= to) continue;
      sound.File->SetPosition((from - first) * 4);
      sound.File->Read(&data.Samples[static_cast<std::size_t>(from - Frame) * 2],
                       static_cast<std::size_t>(to - from) * 4);
    }
  }
};

namespace {

class Capture final : public SoundCapture {
 public:
  explicit Capture(std::shared_ptr<HeadlessInput::Ear> ear) : ear_(std::move(ear)) {}
  ~Capture() override { ear_->Wanted = false; }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

  bool Next(CapturedSound& sound) override {
    if (!ear_->Waits()) return false;
    ear_->Hear(sound.Data);
    sound.Ticks = ear_->Due();
    sound.LostMs = std::exchange(ear_->LostMs, 0);
    ear_->Frame += kFrames;
    return true;
  }
  void Skip() override {
    while (ear_->Waits()) ear_->Frame += kFrames;
    ear_->LostMs = 0;
  }
  bool Gone() override { return ear_->Gone(); }

 private:
  std::shared_ptr<HeadlessInput::Ear> ear_;
};

// Calls Ready when the next buffer is due. If the waiting buffer is not taken, Ready is called
// again a buffer later.
void Schedule(const std::shared_ptr<HeadlessInput::Ear>& ear) {
  constexpr std::int64_t kBufferMs = kFrames * 1000 / kSampleRate;
  const std::int64_t ms = ear->Due() - ear->Time.Ticks();
  ear->Loop.PostAfter(static_cast<int>(ms > 0 ? ms : kBufferMs), [ear] {
    if (!ear->Wanted) return;
    Schedule(ear);
    ear->Ready();
  });
}

}  // namespace

std::unique_ptr<SoundCapture> HeadlessInput::Listen(std::function<void()> ready) {
  if (!Present) throw Laufzeitfehler(kFehlerEinAusgabe, L"No se encuentra ninguna entrada.");
  if (Kept) throw Laufzeitfehler(kFehlerEinAusgabe, L"Otro programa usa la entrada.");
  const auto ear = std::make_shared<Ear>(
      Ear{loop_, clock_, Present, Fleeting, sounds_, std::move(ready), clock_.Ticks()});
  ear_ = ear;
  Schedule(ear);
  return std::make_unique<Capture>(ear);
}

void HeadlessInput::Play(const Text& file) {
  const std::shared_ptr<MMWave> wave = newWaveFile_();
  wave->Open(file);
  if (wave->SampleRate() != kSampleRate || wave->BitsPerSample() != kSampleBits ||
      wave->StereoMode() != 1) {
    throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo no tiene la calidad de un CD.");
  }
  sounds_->push_back({wave, clock_.Ticks()});
}

void HeadlessInput::Lose(int ms) {
  const std::shared_ptr<Ear> ear = ear_.lock();
  if (!ear) return;
  ear->Frame += FramesIn(ms);
  ear->LostMs += ms;
}

}  // namespace vantora
