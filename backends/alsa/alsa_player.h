// Plays a wave file on the sound card "default" through libasound, in a thread of its own.
#pragma once

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mmtools.h"

#include <memory>

namespace vantora {

class AlsaPlayer final : public MMWavePlayerX {
 public:
  AlsaPlayer(Dateien& dateien, EventLoop& loop);
  ~AlsaPlayer() override;

  void SetFileName(const Text& file) override;
  // Starts again from the beginning when it plays already. Besides the refusal of the card, a file
  // that is missing or no usable wave raises the errors of MMWaveFileX::Open.
  void Start() override;
  void Stop() override;
  bool Playing() const override;
  std::int64_t Position() const override;

 private:
  struct Voice;

  void Silence();

  Dateien& dateien_;
  EventLoop& loop_;
  Text file_;
  std::shared_ptr<Voice> voice_;  // the sound that plays, or played last
};

}  // namespace vantora
