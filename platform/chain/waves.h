// Where the sound of a chain comes from and where it goes: wave files and the card's input.
#pragma once

#include "platform/cd_sound.h"
#include "platform/chain/component.h"
#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <functional>

namespace vantora {

enum class TimeFormat { tfSample, tfByte };  // positions in frames of 4 bytes, or in bytes

// The wave object of a wave file component. Failures are Laufzeitfehler with the numbers of
// platform/files.h; a file that is no wave file raises 57; a length or position in bytes that 32
// bits with a sign cannot hold raises 6.
class MMWaveObject {
 public:
  virtual ~MMWaveObject() = default;
  virtual const Text& FileName() const = 0;
  virtual void SetFileName(const Text& file) = 0;  // does not open it; an open one is closed
  bool FileMustExist = true;  // false: a missing file is opened as an empty one
  vantora::TimeFormat TimeFormat = vantora::TimeFormat::tfSample;

  virtual void Open() = 0;   // again: looks at the file anew
  virtual void Close() = 0;  // header and file agree afterwards; no effect when it is closed
  virtual bool IsOpen() const = 0;
  virtual std::int32_t DataSize() const = 0;  // of the sound, in the object's unit; 0 when closed
  virtual bool Empty() const = 0;             // the file holds no sound
  // Setting it seeks the file. Reading moves it on; writing goes on where the last write ended and
  // leaves the value as it was.
  virtual std::int32_t Position() const = 0;
  virtual void SetPosition(std::int32_t position) = 0;
  std::int32_t PlayStart = 0, PlayEnd = 0;  // the range of playing, rendering and SaveRange

  virtual std::size_t ReadData(void* buffer, std::size_t bytes) = 0;  // fewer only at the end
  virtual std::size_t WriteData(const void* buffer, std::size_t bytes) = 0;  // lengthens the sound
  // The range as a new wave file, in place of one that is there. The position is lost.
  virtual void SaveRange(const Text& file) = 0;
  virtual void SetBufferBytes(std::int32_t bytes) = 0;  // how much is read ahead, at most 1 MiB
  // Header and file agree afterwards, as far as a killed program is concerned; the file stays open.
  virtual void SaveHeader() = 0;
};

// As a source it plays its range; behind a trigger or an input it is written anew. Without a file
// name it lets pass what comes.
class MMWaveFileX : public MMComponentX {
 public:
  explicit MMWaveFileX(MMWaveObject& wave) : Wave(wave) {}
  MMWaveObject& Wave;
};

// The sound card's input. The card is listened to in a thread of its own, which keeps at least 20
// seconds; from there buffers come on the interface thread, in order and whole, however long that
// was busy. `Close` gives the card back only when no `Open` follows before the next event, so
// between two takes the card goes on, and no frame is lost.
class MMWaveInX : public MMComponentX {
 public:
  std::size_t BufferSize = kBufferBytes;  // bytes; of each buffer
  int Mode = mStereo;
  int BitLength = b16Bit;
  int SampleRate = kSampleRate;  // Hz

  // Error 57, with the reason, when there is no input or it refuses; no effect when it is open.
  virtual void Open() = 0;
  virtual void Close() = 0;
  // What stands behind it hears that sound follows. From a handler of a buffer on its way the sound
  // goes on with the next buffer, whatever was stopped and closed before; at any other time it
  // begins with what is heard from now on.
  virtual void Start() = 0;
  virtual void Stop() = 0;
  virtual bool IsOpen() const = 0;
  // When the last frame of the buffer on its way was heard, in ms as Clock::Ticks counts.
  virtual std::int64_t BufferTicks() const = 0;

  // The card has lost so much sound, in ms, before the buffer that follows; the input goes on.
  std::function<void(std::int64_t ms)> OnOverrun;
  // What stands behind it has failed at a buffer, as a disk that is full does; the input goes on.
  std::function<void(const Laufzeitfehler& error)> OnError;
  std::function<void()> OnLost;  // the device has gone away; closed now
};

// Brings what its source holds to the chain's format.
class MMPCMConverterX : public MMComponentX {
 public:
  int SampleRate = kSampleRate;  // Hz
  int BitLength = 16;
  int Channels = 2;
};

}  // namespace vantora
