// The sound chain of the audio components. Components are connected by their inputs, which may
// change while they play. The last component pulls the sound through the chain, buffer by buffer.
// Between components sound is 44.1 kHz, 16 bit, stereo, so a frame is 4 bytes. Unless a comment
// says otherwise, all calls and events are on the interface thread.
//
// The owner of the components must keep all of them while one of them is working.
#pragma once

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantora {

inline constexpr std::size_t kBufferBytes = 4096;  // size of a buffer in a chain

// A buffer in the chain.
struct MMData {
  std::array<std::int16_t, kBufferBytes / 2> Samples;  // left, right, left …
  std::size_t Bytes = 0;                               // 0: end of the sound
};

// Return the number of bytes in a buffer, copy its sound out, and copy sound into it.
inline std::size_t ParseWaveHeader(const MMData& data) {
  return data.Bytes;
}
inline void CopyWaveHeader(const MMData& data, std::int16_t* buffer, std::size_t bytes) {
  std::copy_n(data.Samples.begin(), bytes / 2, buffer);
}
inline void FillWaveHeader(MMData& data, const std::int16_t* buffer, std::size_t bytes) {
  std::copy_n(buffer, bytes / 2, data.Samples.begin());
  data.Bytes = bytes;
}

enum MMBitLength : int { b8Bit = 8, b16Bit = 16 };
enum MMChannelMode : int { mMono = 0, mStereo = 1 };

class MMComponentX {
 public:
  MMComponentX() = default;
  virtual ~MMComponentX() = default;
  MMComponentX(const MMComponentX&) = delete;
  MMComponentX& operator=(const MMComponentX&) = delete;

  // The neighbours in the chain. A component that has been taken out of the chain keeps its input,
  // so that it can be inserted again.
  MMComponentX* Input() const { return input_; }
  MMComponentX* Output() const { return output_; }
  void SetInput(MMComponentX* input) {
    input_ = input;
    if (input != nullptr) input->output_ = this;
  }
  void SetOutput(MMComponentX* output) {
    output_ = output;
    if (output != nullptr) output->input_ = this;
  }

  // Returns the next buffer of the sound. A chain without a source returns an empty one.
  virtual void Pull(MMData& data) {
    data.Bytes = 0;
    if (input_ != nullptr) input_->Pull(data);
  }
  // Restarts the sound: the source goes back to the start of its range. Echoes that are still
  // sounding continue.
  virtual void Rewind() {
    if (input_ != nullptr) input_->Rewind();
  }
  // Called for components after the end of a chain: Receive before the sound begins, then Push for
  // each buffer.
  virtual void Receive() {
    if (output_ != nullptr) output_->Receive();
  }
  virtual void Push(const MMData& data) {
    if (output_ != nullptr) output_->Push(data);
  }

 private:
  MMComponentX* input_ = nullptr;
  MMComponentX* output_ = nullptr;
};

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
  // Writes the header, so that it matches the sound if the program is killed later. The file stays
  // open.
  virtual void SaveHeader() = 0;
};

// At the start of a chain it plays its range. After a trigger or an input it records: its file is
// created anew. Without a file name it passes the sound on.
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

class MMPeakDetectX : public MMComponentX {
 public:
  virtual int PeakLeft() const = 0;  // highest sample of the last buffer, 0 to 32768
  virtual int PeakRight() const = 0;
};

class MMDSPInterfaceX : public MMComponentX {
 public:
  std::function<void(MMData& data)> OnBufferFilled;  // may change the buffer
};

// An effect is initially off, and then passes the sound unchanged. Enabling an effect that is on
// changes nothing. Enabling one that was off starts it without echoes of earlier sound.
class MMEffectX : public MMComponentX {
 public:
  virtual void Enable() = 0;
  virtual void Disable() = 0;
};

class MMEqualizerX : public MMEffectX {
 public:
  class Filter {
   public:
    virtual ~Filter() = default;
    virtual double Gain() const = 0;
    virtual void SetGain(double gain) = 0;  // in dB; the gain changes gradually
  };
  int SampleRate = kSampleRate;                                                 // Hz
  virtual void Add(double frequencyFrom, double frequencyTo, double gain) = 0;  // in Hz, Hz, dB
  virtual int Count() const = 0;
  virtual Filter& Item(int index) = 0;  // `index` from 0; raises 9 for others
};

class MMReverbX : public MMEffectX {
 public:
  virtual void SetFeedback(int percent) = 0;    // -99 to 99; factor for each echo's own feedback
  virtual void SetOutputGain(int percent) = 0;  // 0 to 99; level of the echoes, added to the sound
  // Loads the eight echoes of a section. The section's name may be given with or without the part
  // up to its first dot. A missing file or section changes nothing.
  virtual void LoadFromIni(const Text& iniFile, const Text& section) = 0;
};

class MMFlangerX : public MMEffectX {
 public:
  virtual void SetDryMix(int percent) = 0;
  virtual void SetWetMix(int percent) = 0;
  virtual void SetFeedBack(int percent) = 0;  // 0 to 99
  virtual void SetDepth(float percent) = 0;   // 0 to 99, depth of the modulation
  virtual void SetRate(float hertz) = 0;      // modulation frequency, 0 to 5
};

class MMVolumeX : public MMEffectX {
 public:
  virtual void SetVolume(int volume) = 0;  // 16384 leaves the volume unchanged
};

// Changes speed and pitch together, like a hand on a turning record. The sound becomes longer or
// shorter.
class MMPitchX : public MMComponentX {
 public:
  // The change of speed in steps of 0.16 %. The speed is limited to a quarter and four times the
  // original. A new value is reached at the end of the next buffer, with a linear change of speed.
  // A value set before the sound begins applies from its first frame. The sound passes unchanged
  // until the value first differs from 0.
  float Pitch = 0;
};

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
  // buffer, one that it closes does not.
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
  std::function<void()> OnError;       // after a failure, whose error then goes to the event loop
  // When set, called in place of OnError; the error is not passed to the loop.
  std::function<void(const Laufzeitfehler& error)> OnFailure;
};

class MMHelperX {
 public:
  virtual ~MMHelperX() = default;
  virtual double Db(double value, double fullScale) = 0;        // level in dB; -100 for 0 and below
  virtual Text IniSection(int index, const Text& iniFile) = 0;  // from 0; blank after the last
  int InStr(const Text& text, const Text& part) const {         // position from 1, 0 when not found
    const std::size_t place = text.find(part);
    return place == Text::npos ? 0 : static_cast<int>(place) + 1;
  }
  int Len(const Text& text) const { return static_cast<int>(text.size()); }
  Text Mid(const Text& text, int from) const {  // from a position, counted from 1, to the end
    const auto start = static_cast<std::size_t>(from < 1 ? 0 : from - 1);
    return start < text.size() ? text.substr(start) : Text();
  }
};

struct MMWaveFormat {
  int BitsPerSample = 0, Channels = 0, SampleRate = 0;
};

class MMWaveHelperX {
 public:
  MMWaveFormat* WaveFormatPtr() { return &format_; }
  void PcmFormat(MMWaveFormat* format, int bits, int channels, int sampleRate) {
    *format = {bits, channels, sampleRate};
  }

 private:
  MMWaveFormat format_;
};

}  // namespace vantora
