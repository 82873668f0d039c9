// The MP3 component through libmpg123. Sources of 44.1 kHz keep the exact samples that the library
// decodes. Sources of other rates are decoded to float and resampled once.
//
// Opening a source scans it, which takes a few ms for a song: the length in its header is wrong
// when the file was cut or joined.
#pragma once

#include "platform/background.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/mp3.h"

#include <cstdint>
#include <memory>

namespace vantora {

class Mp3Decoder final : public Qm3Play {
 public:
  Mp3Decoder(Dateien& dateien, EventLoop& loop, Background& background);
  ~Mp3Decoder() override;

  void Init() override;
  // Returns a number of platform/files.h for a source that cannot be read, and 321 for one without
  // MPEG audio. Both leave the state 4.
  int Open(const Text& source, const Text& target) override;
  int State() const override { return state_; }
  double LengthMs() const override { return lengthMs_; }
  int FrameCount() const override { return frames_; }
  void Decode() override;
  // Changes on the interface thread only, after the failure of a run has been reported, so that a
  // caller that waits for Busy to end sees the complete result.
  bool Busy() const override { return state_ == kMp3Busy; }
  void Stop() override;
  void Close() override;

 private:
  struct Run;

  void Post(std::function<void()> work);
  void RunEnded(int code, const Text& text);
  void TellEnd();

  Dateien& dateien_;
  EventLoop& loop_;
  Background& background_;
  Text source_, target_;
  int state_ = kMp3Closed;
  int frames_ = 0;
  double lengthMs_ = 0;
  bool endPending_ = false;
  // Posted events carry the token of their run. Events of a stopped run are dropped.
  std::shared_ptr<int> token_;
  std::shared_ptr<Run> run_;
  std::unique_ptr<BackgroundJob> job_;  // after `run_`, so that it ends first
};

}  // namespace vantora
