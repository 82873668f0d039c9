// What changes the sound on its way.
#pragma once

#include "platform/cd_sound.h"
#include "platform/chain/component.h"
#include "platform/text.h"

#include <functional>

namespace vantora {

class MMPeakDetectX : public MMComponentX {
 public:
  virtual int PeakLeft() const = 0;  // highest sample of the last buffer, 0 to 32768
  virtual int PeakRight() const = 0;
};

class MMDSPInterfaceX : public MMComponentX {
 public:
  std::function<void(MMData& data)> OnBufferFilled;  // may change the buffer
};

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
  int SampleRate = kSampleRate;                                                 // Hz
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

}  // namespace vantora
