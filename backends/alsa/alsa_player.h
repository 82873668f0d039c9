// Plays a wave file on the sound card "default" through libasound, in a thread of its own.
#pragma once

#include "backends/sound/mixer/output_volume.h"

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mmtools.h"

#include <memory>

namespace vantora {

class AlsaPlayer final : public MMWavePlayerX {
 public:
  AlsaPlayer(Dateien& dateien, EventLoop& loop, const OutputVolume& volume);
  ~AlsaPlayer() override;

  void SetFileName(const Text& file) override {
    file_ = file;
    from_ = 0;
  }
  void SetPosition(std::int64_t bytes) override { from_ = bytes; }
  // Starts again from its place when it plays already. Besides the refusal of the card, a file
  // that is missing or no wave of 44.1 kHz, 16 bit, stereo raises the errors of MMWave::Open.
  void Start() override;
  void Stop() override;
  // Changes on the interface thread only, just before OnStop.
  bool Playing() const override { return playing_; }
  std::int64_t Position() const override;

 private:
  class Voice;

  void Ended();

  Dateien& dateien_;
  EventLoop& loop_;
  const OutputVolume& volume_;
  Text file_;
  std::int64_t from_ = 0;
  bool playing_ = false;
  bool stopUntold_ = false;
  std::shared_ptr<int> token_;    // of the sound that plays; its events carry it
  std::unique_ptr<Voice> voice_;  // what plays, or played last
};

}  // namespace vantora
