// The system's sound mixer: the lines of the card that the program's sound goes to, each with a
// volume and perhaps a switch. Interface thread only.
//
// Nothing here raises. A card that has gone reads as volume 0 and switches that are off, takes what
// is set without a word, and is found again when it comes back.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

inline constexpr int kNoLine = 99;              // LineID of an object that stands for no line
inline constexpr int kMasterLine = 0x50030001;  // LineID of the volume of all outputs
inline constexpr int kFullVolume = 65536;

// One line of a mixer. Every object knows all lines of its mixer and stands for one of them.
class ucEQPro {
 public:
  virtual ~ucEQPro() = default;

  virtual void Init() = 0;                // looks for the card and its lines
  virtual int MixerCount() = 0;           // 0 on a machine without sound
  virtual Text MixerName(int index) = 0;  // from 0; blank for one that is not there
  virtual void MixerIndex(int index) = 0;
  virtual void PollInterval(int ms) = 0;  // values that are read are at most so old

  // Outputs but for the master, and inputs; from 0. An output may be a gap, whose ID is kNoLine:
  // the line of waves stands at 1 also where it is the only one.
  virtual int LineOutCount() = 0;
  virtual int LineOutID(int index) = 0;
  virtual int LineInCount() = 0;
  virtual int LineInID(int index) = 0;
  virtual bool HasMute(int lineID) = 0;  // it has a switch: mute, or select on an input

  virtual int LineID() const = 0;
  virtual void SetLineID(int lineID) = 0;
  virtual Text LineName() = 0;  // blank for no line
  // 0 to kFullVolume, as the ear hears it: half of it is half as loud.
  virtual int Volume() = 0;
  virtual void SetVolume(int volume) = 0;
  virtual bool Mute() = 0;  // of an output
  virtual void SetMute(bool mute) = 0;
  virtual bool Select() = 0;  // of an input
  virtual void SetSelect(bool select) = 0;
};

class EQPro {
 public:
  virtual ~EQPro() = default;
  virtual std::unique_ptr<ucEQPro> NewMixer() = 0;
};

}  // namespace vantora
