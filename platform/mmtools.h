// The audio component set, as far as wave files, preview and devices go, and the maker of the
// components of a sound chain.
// Audio is 44.1 kHz, 16 bit, stereo throughout: a frame is 4 bytes.
#pragma once

#include "platform/mmchain.h"
#include "platform/text.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

// One wave file. Opening reads the header only, whatever the length. Failures are Laufzeitfehler
// with the numbers of platform/files.h; a file that is no wave file raises 57.
class MMWave {
 public:
  virtual ~MMWave() = default;
  virtual void Open(const Text& file) = 0;  // for reading; the first write makes it writable
  virtual void Close() = 0;                 // header and file agree afterwards
  virtual int BitsPerSample() const = 0;
  virtual int SampleRate() const = 0;        // Hz
  virtual int StereoMode() const = 0;        // 0 mono, 1 stereo
  virtual std::int64_t Samples() const = 0;  // frames of the data chunk that the file holds
  virtual std::int64_t DataBytes() const = 0;
  // Place of the next read or write, in bytes from the start of the audio data.
  virtual void SetPosition(std::int64_t bytes) = 0;
  virtual std::size_t Read(void* target, std::size_t bytes) = 0;  // fewer only at the end
  virtual void Write(const void* source, std::size_t bytes) = 0;  // lengthens the data at its end
  virtual void Save() = 0;  // brings the header to the disk; chunks behind the data stay
};

// Plays one wave file on the sound card. Events arrive on the interface thread.
class MMWavePlayerX {
 public:
  virtual ~MMWavePlayerX() = default;
  virtual void SetFileName(const Text& file) = 0;  // from its first byte on
  // Where the next Start begins, in bytes from the start of the audio data; a whole frame.
  virtual void SetPosition(std::int64_t bytes) = 0;
  virtual void Start() = 0;  // error 57 when the card refuses
  virtual void Stop() = 0;   // no effect when nothing plays
  virtual bool Playing() const = 0;
  virtual std::int64_t Position() const = 0;  // frames heard since the start

  std::function<void()> OnStart, OnStop;             // OnStop: at the end and after Stop
  std::function<void(int left, int right)> OnLevel;  // peaks of 0 to 32767, about 20 a second
};

class MMTools {
 public:
  virtual ~MMTools() = default;
  virtual std::unique_ptr<MMWave> NewWaveFile() = 0;
  virtual std::unique_ptr<MMWavePlayerX> NewPlayer() = 0;
  virtual int waveOutGetNumDevs() = 0;
  virtual Text waveOutGetDevCaps(int device) = 0;  // the device's name, from 0

  // ---- components of a chain ----
  virtual std::unique_ptr<MMWaveFileX> NewWaveFileX() = 0;
  virtual std::unique_ptr<MMPCMConverterX> NewPCMConverter() = 0;
  virtual std::unique_ptr<MMPeakDetectX> NewPeakDetect() = 0;
  virtual std::unique_ptr<MMDSPInterfaceX> NewDSPInterface() = 0;
  virtual std::unique_ptr<MMEqualizerX> NewEqualizer() = 0;
  virtual std::unique_ptr<MMReverbX> NewReverb() = 0;
  virtual std::unique_ptr<MMFlangerX> NewFlanger() = 0;
  virtual std::unique_ptr<MMVolumeX> NewVolume() = 0;
  virtual std::unique_ptr<MMPitchX> NewPitch() = 0;
  virtual std::unique_ptr<MMWaveOutX> NewWaveOut() = 0;
  virtual std::unique_ptr<MMWaveInX> NewWaveIn() = 0;
  virtual std::unique_ptr<MMConnectorX> NewConnector() = 0;
  virtual std::unique_ptr<MMTriggerX> NewTrigger() = 0;
  virtual MMHelperX& Helper() = 0;

  // Brings the highest peak of a wave file to `percent` of full scale, in place, in two passes over
  // it in blocks of at most 1 MiB. `callback` hears of the phase (0 looks for the peak, 1 writes)
  // and of its progress in percent, at each percent at the most; it may let events run. Silence
  // stays silence. Failures as those of MMWave.
  virtual void NormalizeFile(const Text& file,
                             const std::function<void(int phase, int percent)>& callback,
                             int percent) = 0;
};

}  // namespace vantora
