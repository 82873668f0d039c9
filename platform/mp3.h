// Decodes an MP3 file of any rate and channel count to a wave file of 44.1 kHz, 16 bit, stereo.
// The work runs beside the interface thread; the events arrive on it.
#pragma once

#include "platform/text.h"

#include <functional>

namespace vantora {

enum Mp3State : int {
  kMp3Closed = 0,
  kMp3Open = 1,
  kMp3Busy = 2,
  kMp3Stopped = 3,
  kMp3Unusable = 4,  // the file holds no MPEG audio
};

class Qm3Play {
 public:
  virtual ~Qm3Play() = default;
  virtual void Init() = 0;
  // Opens the source for questions, and for decoding when there is a target. Blank names reset.
  // 0 for success; a source that is no MP3 gives another number and the state 4.
  virtual int Open(const Text& source, const Text& target) = 0;
  virtual int State() const = 0;        // one of Mp3State
  virtual double LengthMs() const = 0;  // of the open source; exact for VBR and broken tails too
  virtual int FrameCount() const = 0;   // MPEG frames
  virtual void
  Decode() = 0;  // starts writing the target; a failure removes it and is told as event
  virtual bool Busy() const = 0;
  virtual void Stop() = 0;  // within 0.5 s; the target then is a wave file of what was decoded
  virtual void Close() = 0;

  std::function<void(int frame)> Mp3Play1_ActFrame;  // at most about 20 a second, and the last one
  std::function<void(int code, const Text& text)> Mp3Play1_Failure;
  std::function<void()> Mp3Play1_ThreadEnded;  // always last, also after a failure and a stop
};

}  // namespace vantora
