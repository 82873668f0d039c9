// The system's sound mixer: the lines of the card that plays the program's sound, each with a
// volume and perhaps a switch. All calls are from the interface thread.
//
// Nothing here raises. When the card is gone, volumes read as 0 and switches as off, and settings
// are ignored. The card is found again when it returns.
#pragma once

#include "platform/text.h"

#include <memory>

namespace vantora {

inline constexpr int kNoLine = 99;              // LineID of an object without a line
inline constexpr int kMasterLine = 0x50030001;  // LineID of the volume for all outputs
inline constexpr int kFullVolume = 65536;

// Access to one line of a mixer. Every object knows all lines of its mixer.
class ucEQPro {
 public:
  virtual ~ucEQPro() = default;

  virtual void Init() = 0;                // looks for the card and its lines
  virtual int MixerCount() = 0;           // 0 on a machine without sound
  virtual Text MixerName(int index) = 0;  // `index` from 0; blank when it does not exist
  virtual void MixerIndex(int index) = 0;
  virtual void PollInterval(int ms) = 0;  // maximum age of values that are read

  // The outputs without the master, and the inputs, with indexes from 0. The line for waves always
  // has index 1 among the outputs, even when it is the only one: the gap at index 0 then has the ID
  // kNoLine.
  virtual int LineOutCount() = 0;
  virtual int LineOutID(int index) = 0;
  virtual int LineInCount() = 0;
  virtual int LineInID(int index) = 0;
  virtual bool HasMute(int lineID) = 0;  // the line has a switch: mute, or select for an input

  virtual int LineID() const = 0;
  virtual void SetLineID(int lineID) = 0;
  virtual Text LineName() = 0;  // blank without a line
  // 0 to kFullVolume, proportional to perceived loudness: half the volume sounds half as loud.
  virtual int Volume() = 0;
  virtual void SetVolume(int volume) = 0;
  virtual bool Mute() = 0;  // for an output
  virtual void SetMute(bool mute) = 0;
  virtual bool Select() = 0;  // for an input
  virtual void SetSelect(bool select) = 0;
};

class EQPro {
 public:
  virtual ~EQPro() = default;
  virtual std::unique_ptr<ucEQPro> NewMixer() = 0;
};

}  // namespace vantora
