// The components that pull a chain at its end: the sound output, and the trigger that renders into
// a file.
#pragma once

#include "platform/chain/component.h"
#include "platform/laufzeitfehler.h"

#include <functional>

namespace vantora {

// The sound output. It fetches up to `NumBuffers` buffers ahead of the sound heard.
class MMWaveOutX : public MMComponentX {
 public:
  enum OutState : int { Closed = 0, Stopped = 1, Running = 6, Paused = 14 };

  std::size_t BufferSize = kBufferBytes;  // in bytes
  int NumBuffers = 20;
  bool Loop = false;  // repeats the sound, LoopCount times
  int LoopCount = 0;

  virtual void Open() = 0;  // without effect when it is open
  virtual void Close() = 0;
  virtual void Start() = 0;  // from the start of the source's range, also after a pause
  virtual void Stop() = 0;
  virtual void Pause() = 0;    // silent at once; no sound is lost
  virtual void Restart() = 0;  // continues after a pause
  // Bytes heard since the start, or since the current repetition began. -1 when the card has
  // refused or is gone.
  virtual std::int64_t Position() const = 0;
  virtual int State() const = 0;  // one of OutState
};

// Stands between a sound output and its level meters, and reports the sound when it is heard.
class MMConnectorX : public MMComponentX {
 public:
  int Speed = 1;
  bool RealTime = false, EnterIdle = false;
  std::function<void(int left, int right)> OnLevel;  // peaks, 0 to 32767; about 20 a second
  // Called for every buffer before it goes downstream. A component that the handler opens gets this
  // buffer. A component that the handler closes does not get it.
  std::function<void()> OnTrigger;
};

// Pulls sound through a chain and pushes it downstream, as fast as the machine allows and in
// slices, so that the windows stay responsive. Events are raised on the interface thread, none
// after `Stop`.
class MMTriggerX : public MMComponentX {
 public:
  std::size_t BufferSize = kBufferBytes;  // in bytes
  int Interval = 0;                       // in ms, between buffers; 0: no pause

  virtual void Start() = 0;
  virtual void Stop() = 0;
  void Close() { Stop(); }             // at the end of the work
  std::function<void()> OnBufferLoad;  // before each buffer is pulled
  std::function<void()> OnStop;        // at the end of the sound
  std::function<void()> OnError;       // after a failure; the error then goes to the event loop
  // When set, called in place of OnError; the error is not passed to the loop.
  std::function<void(const Laufzeitfehler& error)> OnFailure;
};

}  // namespace vantora
