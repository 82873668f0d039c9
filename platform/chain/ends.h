// What stands at the end of a chain and pulls: the loudspeaker, and the pump into a file.
#pragma once

#include "platform/chain/component.h"
#include "platform/laufzeitfehler.h"

#include <functional>

namespace vantora {

// The loudspeaker. Runs up to `NumBuffers` buffers ahead of what is heard.
class MMWaveOutX : public MMComponentX {
 public:
  enum OutState : int { Closed = 0, Stopped = 1, Running = 6, Paused = 14 };

  std::size_t BufferSize = kBufferBytes;  // bytes
  int NumBuffers = 20;
  bool Loop = false;  // begins again at the end, so many times
  int LoopCount = 0;

  virtual void Open() = 0;  // no effect when it is open
  virtual void Close() = 0;
  virtual void Start() = 0;  // from the start of the source's range, also from a pause
  virtual void Stop() = 0;
  virtual void Pause() = 0;    // silence at once; what was not heard is kept
  virtual void Restart() = 0;  // goes on where the pause began
  // Bytes heard since the start, or since the sound began again in a loop. Negative when the card
  // has refused or is gone.
  virtual std::int64_t Position() const = 0;
  virtual int State() const = 0;  // one of OutState
};

// Between a loudspeaker and its level meters: tells what is being heard.
class MMConnectorX : public MMComponentX {
 public:
  int Speed = 1;
  bool RealTime = false, EnterIdle = false;
  std::function<void(int left, int right)> OnLevel;  // peaks, 0 to 32767; about 20 a second
  // For every buffer, before it goes on to what stands behind: what is opened there gets this very
  // buffer, what is closed there does not.
  std::function<void()> OnTrigger;
};

// Pumps a chain into what stands behind it, as fast as the machine allows and in slices, so that
// the windows live. Events arrive on the interface thread, none after `Stop`.
class MMTriggerX : public MMComponentX {
 public:
  std::size_t BufferSize = kBufferBytes;  // bytes
  int Interval = 0;                       // ms between buffers

  virtual void Start() = 0;
  virtual void Stop() = 0;
  void Close() { Stop(); }             // at the end of a piece of work
  std::function<void()> OnBufferLoad;  // before a buffer comes out of the chain, for each of them
  std::function<void()> OnStop;        // the sound has come to its end
  std::function<void()> OnError;       // what has failed then reaches the loop, as out of a handler
  // In place of OnError: the error goes nowhere else.
  std::function<void(const Laufzeitfehler& error)> OnFailure;
};

}  // namespace vantora
