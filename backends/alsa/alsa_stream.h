// Plays sound from a source on the sound card "default", through libasound and on a separate
// thread.
#pragma once

#include "backends/alsa/alsa_output.h"
#include "backends/sound/mixer/output_volume.h"

#include "platform/event_loop.h"
#include "platform/sound_output.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace vantora {

class AlsaStream final {
 public:
  struct Calls {  // all made from the stream's thread
    SoundOutput::Source Source;
    std::function<void(std::int64_t frames)> Heard;  // frames so far, as it grows
    std::function<void()> Ended;                     // at the end of the sound, but not after Stop
  };
  // All sound is scaled by the program's own volume. Raises 57 when the card refuses.
  AlsaStream(Calls calls, const OutputVolume& volume, int aheadMs = kSoundAheadMs);
  ~AlsaStream() { Stop(); }
  AlsaStream(const AlsaStream&) = delete;
  AlsaStream& operator=(const AlsaStream&) = delete;

  void Stop();  // silences the sound; returns when the thread has ended
  std::int64_t Heard() const { return heard_; }

 private:
  void Play();
  void HandOver(const std::vector<std::int16_t>& sound, std::int64_t frames);
  void Drain();
  void Linger();
  void Listen();
  void Hear(std::int64_t frame);

  Calls calls_;
  const std::int64_t blockFrames_;  // a quarter of the card's buffer
  VolumeOnStream volume_;
  std::unique_ptr<AlsaOutput> output_;
  std::int64_t written_ = 0;
  std::atomic<std::int64_t> heard_{0};
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

class AlsaSoundOutput final : public SoundOutput {
 public:
  AlsaSoundOutput(EventLoop& loop, const OutputVolume& volume) : loop_(loop), volume_(volume) {}
  std::unique_ptr<SoundStream> Play(Source source, std::function<void()> ended,
                                    int aheadMs) override;

 private:
  EventLoop& loop_;
  const OutputVolume& volume_;
};

}  // namespace vantora
