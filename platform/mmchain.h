// The sound chain of the audio component set. Components are wired one behind the other by their
// inputs, also while they play; the end of the chain pulls sound through them in buffers.
// Between components sound is 44.1 kHz, 16 bit, stereo: a frame is 4 bytes.
//
// Who owns the components keeps them all for as long as one of them works.
#pragma once

#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantora {

inline constexpr std::size_t kBufferBytes = 4096;  // what goes through a chain at a time

// One buffer on its way through the chain.
struct MMData {
  std::array<std::int16_t, kBufferBytes / 2> Samples;  // left, right, left …
  std::size_t Bytes = 0;                               // 0: the sound is over
};

// Bytes of sound in a buffer, 0 for none; its sound out of it and back into it.
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

  // The neighbours. A component that has dropped out of the path keeps its input, so that it can be
  // wired in again.
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

  // The next buffer of the sound; a chain without a source has none.
  virtual void Pull(MMData& data) {
    data.Bytes = 0;
    if (input_ != nullptr) input_->Pull(data);
  }
  // What the next Pull brings, while nothing moves on. Components that change sound do not stand
  // before one that looks ahead.
  virtual void Peek(MMData& data) {
    data.Bytes = 0;
    if (input_ != nullptr) input_->Peek(data);
  }
  // The sound begins anew: the source goes back to the start of its range. Echoes that still ring
  // go on ringing.
  virtual void Rewind() {
    if (input_ != nullptr) input_->Rewind();
  }
  // What stands behind the end of a chain: it hears that sound follows, and then each buffer.
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

// ---- wave files ----

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
  int SampleRate = 44100;  // Hz

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
  int SampleRate = 44100;  // Hz
  int BitLength = 16;
  int Channels = 2;
};

// ---- looking and listening on the way ----

class MMPeakDetectX : public MMComponentX {
 public:
  virtual int PeakLeft() const = 0;  // highest sample of the last buffer, 0 to 32768
  virtual int PeakRight() const = 0;
};

class MMDSPInterfaceX : public MMComponentX {
 public:
  // May change the buffer. Peek shows the one that follows it.
  std::function<void(MMData& data)> OnBufferFilled;
};

// ---- effects ----

// All effects start switched off; then sound passes through them untouched. To switch on again what
// is on changes nothing, to switch it on after it was off begins without echoes of the past.
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
    virtual void SetGain(double gain) = 0;  // dB; glides to it
  };
  int SampleRate = 44100;                                                       // Hz
  virtual void Add(double frequencyFrom, double frequencyTo, double gain) = 0;  // Hz, Hz, dB
  virtual int Count() const = 0;
  virtual Filter& Item(int index) = 0;  // from 0; error 9 for none
};

class MMReverbX : public MMEffectX {
 public:
  virtual void SetFeedback(int percent) = 0;    // -99 to 99, scales the echoes' own
  virtual void SetOutputGain(int percent) = 0;  // 0 to 99, of the echoes beside the sound itself
  // Takes the eight echoes of a section. The section is named with or without what stands before
  // the first point of its name. A missing file or section changes nothing.
  virtual void LoadFromIni(const Text& iniFile, const Text& section) = 0;
};

class MMFlangerX : public MMEffectX {
 public:
  virtual void SetDryMix(int percent) = 0;
  virtual void SetWetMix(int percent) = 0;
  virtual void SetFeedBack(int percent) = 0;  // 0 to 99
  virtual void SetDepth(float percent) = 0;   // 0 to 99, of the sweep
  virtual void SetRate(float hertz) = 0;      // sweeps a second, 0 to 5
};

class MMVolumeX : public MMEffectX {
 public:
  virtual void SetVolume(int volume) = 0;  // 16384 leaves it as loud as it is
};

// Bends speed and pitch together, as a hand on a turning record does. A bent sound is longer or
// shorter than it was.
class MMPitchX : public MMComponentX {
 public:
  // The change of speed in steps of 0.16 %; from a quarter of the speed to four times it. What is
  // set holds at the end of the next buffer, to which the speed goes in a straight line; what is
  // set before the sound begins holds from its first frame. As long as it has been 0 since then,
  // the sound passes as it is.
  float Pitch = 0;
};

// ---- ends of a chain ----

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

// ---- helpers ----

class MMHelperX {
 public:
  virtual ~MMHelperX() = default;
  virtual double Db(double value, double fullScale) = 0;        // level in dB, -100 for 0 and less
  virtual Text IniSection(int index, const Text& iniFile) = 0;  // from 0; blank behind the last
  int InStr(const Text& text, const Text& part) const {         // place from 1, 0 for not there
    const std::size_t place = text.find(part);
    return place == Text::npos ? 0 : static_cast<int>(place) + 1;
  }
  int Len(const Text& text) const { return static_cast<int>(text.size()); }
  Text Mid(const Text& text, int from) const {  // from a place, counted from 1, to the end
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
