// Components that examine or change the sound inside a chain.
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
  // May change the buffer. Peek returns the one that follows it.
  std::function<void(MMData& data)> OnBufferFilled;
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

}  // namespace vantora
