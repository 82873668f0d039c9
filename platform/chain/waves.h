// The sources and targets of a chain's sound: wave files, and the input of the sound card.
#pragma once

#include "platform/cd_sound.h"
#include "platform/chain/component.h"
#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <functional>

namespace vantora {

enum class TimeFormat { tfSample, tfByte };  // unit of positions: frames of 4 bytes, or bytes

// The wave file of a wave file component. Failures are Laufzeitfehler with the numbers of
// platform/files.h. A file that is not a wave raises 57; a length or position in bytes that does
// not fit into a signed 32-bit number raises 6.
class MMWaveObject {
 public:
  virtual ~MMWaveObject() = default;
  virtual const Text& FileName() const = 0;
  virtual void SetFileName(const Text& file) = 0;  // closes an open file; does not open the new one
  bool FileMustExist = true;  // false: a missing file is opened as an empty one
  vantora::TimeFormat TimeFormat = vantora::TimeFormat::tfSample;

  virtual void Open() = 0;   // opens the file, or reads an open one again
  virtual void Close() = 0;  // makes header and file agree; without effect when closed
  virtual bool IsOpen() const = 0;
  virtual std::int32_t DataSize() const = 0;  // of the sound, in TimeFormat units; 0 when closed
  virtual bool Empty() const = 0;             // the file contains no sound
  // The position of the next read. Reading advances it. Writing continues after the last write and
  // leaves the position unchanged. SetPosition applies to both.
  virtual std::int32_t Position() const = 0;
  virtual void SetPosition(std::int32_t position) = 0;
  std::int32_t PlayStart = 0, PlayEnd = 0;  // range for playing, rendering and SaveRange

  virtual std::size_t ReadData(void* buffer, std::size_t bytes) = 0;  // fewer only at the end
  virtual std::size_t WriteData(const void* buffer, std::size_t bytes) = 0;  // may extend the sound
  // Saves the range as a new wave file and replaces an existing one. The position is undefined
  // afterwards.
  virtual void SaveRange(const Text& file) = 0;
  virtual void SetBufferBytes(std::int32_t bytes) = 0;  // read ahead; at most 1 MiB
};

// A wave file in a chain. At the start of a chain, the component plays the range of its file. After
// a trigger or an input, the component records, and its file is created anew. Less than a second of
// sound is written at a time, together with the header, so that the file is a complete wave also if
// the program is killed. Without a file name the component passes the sound on.
class MMWaveFileX : public MMComponentX {
 public:
  explicit MMWaveFileX(MMWaveObject& wave) : Wave(wave) {}
  MMWaveObject& Wave;
};

// The sound card's input. A separate thread records and keeps at least 20 seconds of sound.
// Buffers are delivered on the interface thread, in order and complete, however long that thread
// was busy.
// `Close` releases the card only when no `Open` follows before the next event. The card thus goes
// on between two takes, and no frame is lost.
class MMWaveInX : public MMComponentX {
 public:
  std::size_t BufferSize = kBufferBytes;  // of each buffer, in bytes
  int Mode = mStereo;
  int BitLength = b16Bit;
  int SampleRate = kSampleRate;  // Hz

  // Raises 57, with the reason, when there is no input or it refuses. Without effect when it is
  // open.
  virtual void Open() = 0;
  virtual void Close() = 0;
  // Calls Receive downstream and starts delivering. When called from a handler of a buffer, even
  // after Stop and Close, the sound continues with the next buffer. Otherwise it begins with sound
  // recorded from now on.
  virtual void Start() = 0;
  virtual void Stop() = 0;
  virtual bool IsOpen() const = 0;
  // The time at which the last frame of the current buffer was recorded, on the scale of
  // Clock::Ticks.
  virtual std::int64_t BufferTicks() const = 0;
  // Delivers the sound that has been recorded and still waits, so that the caller acts at its place
  // in the sound even when the window was busy before. Without effect in a handler of a buffer.
  virtual void CatchUp() = 0;

  // Raised before a buffer when the card has lost `ms` of sound in front of it. The input goes on.
  std::function<void(std::int64_t ms)> OnOverrun;
  // Raised when a component downstream fails at a buffer, for example because the disk is full. The
  // input goes on.
  std::function<void(const Laufzeitfehler& error)> OnError;
  std::function<void()> OnLost;  // the device is gone, and the input is closed
};

// Stands in a chain where the sound of a source would be converted to the chain's format.
class MMPCMConverterX : public MMComponentX {
 public:
  int SampleRate = kSampleRate;  // Hz
  int BitLength = 16;
  int Channels = 2;
};

}  // namespace vantora
