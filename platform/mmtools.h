// The audio components: wave files, a player and devices, and the factory for the components of a
// sound chain. All sound is 44.1 kHz, 16 bit, stereo: a frame is 4 bytes. All calls are from the
// interface thread.
#pragma once

#include "platform/mmchain.h"
#include "platform/text.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

// A wave file. Opening reads only the header. Failures are Laufzeitfehler with the numbers of
// platform/files.h; a file that is not a wave raises 57.
class MMWave {
 public:
  virtual ~MMWave() = default;
  virtual void Open(const Text& file) = 0;  // for reading; the first write makes the file writable
  virtual void Close() = 0;                 // makes header and file agree
  virtual int BitsPerSample() const = 0;
  virtual int SampleRate() const = 0;        // Hz
  virtual int StereoMode() const = 0;        // 0 mono, 1 stereo
  virtual std::int64_t Samples() const = 0;  // frames of sound that the file holds
  virtual std::int64_t DataBytes() const = 0;
  // Sets the position of the next read or write, in bytes from the start of the sound.
  virtual void SetPosition(std::int64_t bytes) = 0;
  virtual std::size_t Read(void* target, std::size_t bytes) = 0;  // returns fewer only at the end
  virtual void Write(const void* source, std::size_t bytes) = 0;  // extends the sound when needed
  virtual void Save() = 0;  // writes the header to the disk; chunks after the sound stay
};

// Plays a wave file on the sound card. Events are raised on the interface thread.
class MMWavePlayerX {
 public:
  virtual ~MMWavePlayerX() = default;
  virtual void SetFileName(const Text& file) = 0;  // also resets the position to 0
  // Sets where the next Start begins, in bytes from the start of the sound; must be a whole frame.
  virtual void SetPosition(std::int64_t bytes) = 0;
  virtual void Start() = 0;  // raises 57 when the card refuses
  virtual void Stop() = 0;   // without effect when nothing plays
  virtual bool Playing() const = 0;
  virtual std::int64_t Position() const = 0;  // frames heard since the start

  std::function<void()> OnStart, OnStop;             // OnStop: at the end and after Stop
  std::function<void(int left, int right)> OnLevel;  // peaks, 0 to 32767; about 20 a second
};

class MMTools {
 public:
  virtual ~MMTools() = default;
  virtual std::unique_ptr<MMWave> NewWaveFile() = 0;
  virtual std::unique_ptr<MMWavePlayerX> NewPlayer() = 0;
  virtual int waveOutGetNumDevs() = 0;
  virtual Text waveOutGetDevCaps(int device) = 0;  // name of a device, from 0

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

  // Scales a wave file in place so that its peak becomes `percent` of full scale. Makes two passes
  // over the file, in blocks of at most 1 MiB. `callback` receives the phase (0: finding the peak,
  // 1: writing) and its progress in percent, at most once per percent; it may process events. A
  // silent file stays unchanged. Raises the errors of MMWave.
  virtual void NormalizeFile(const Text& file,
                             const std::function<void(int phase, int percent)>& callback,
                             int percent) = 0;
};

}  // namespace vantora
