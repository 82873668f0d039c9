// Plays a wave file on the sound card "default" through libasound, on a separate thread.
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
  // Starts again from the position set when it already plays. Raises 57 when the card refuses, and
  // the errors of MMWave::Open for a file that is missing or that is not a wave of 44.1 kHz, 16
  // bit, stereo.
  void Start() override;
  void Stop() override;
  // Changes only on the interface thread, just before OnStop.
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
  bool stopPending_ = false;
  std::shared_ptr<int> token_;    // the current sound's; its events carry it
  std::unique_ptr<Voice> voice_;  // the sound that plays, or that played last
};

}  // namespace vantora
