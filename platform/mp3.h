// Decodes an MP3 file of any rate and number of channels to a wave file of 44.1 kHz, 16 bit,
// stereo. Decoding runs on another thread; calls and events are on the interface thread.
#pragma once

#include "platform/text.h"

#include <functional>

namespace vantora {

enum Mp3State : int {
  kMp3Closed = 0,
  kMp3Open = 1,
  kMp3Busy = 2,
  kMp3Stopped = 3,
  kMp3Unusable = 4,  // the file contains no MPEG audio
};

class Qm3Play {
 public:
  virtual ~Qm3Play() = default;
  virtual void Init() = 0;
  // Opens the source, and sets the target if it is to be decoded. A blank source closes. Returns 0
  // for success. For a source that is not an MP3 file, returns another number and sets the state 4.
  virtual int Open(const Text& source, const Text& target) = 0;
  virtual int State() const = 0;        // one of Mp3State
  virtual double LengthMs() const = 0;  // of the open source; also exact for VBR and damaged ends
  virtual int FrameCount() const = 0;   // number of MPEG frames
  virtual void Decode() = 0;            // raises 5 without a source and a target
  virtual bool Busy() const = 0;
  virtual void Stop() = 0;  // takes at most 0.5 s; leaves a wave file of the sound decoded so far
  virtual void Close() = 0;

  std::function<void(int frame)> Mp3Play1_ActFrame;  // about 20 a second, and the last frame
  std::function<void(int code, const Text& text)> Mp3Play1_Failure;
  std::function<void()> Mp3Play1_ThreadEnded;  // the last event, also after a failure or Stop
};

}  // namespace vantora
