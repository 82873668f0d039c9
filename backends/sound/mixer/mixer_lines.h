// The program's mixer, made from the lines of any card. The card's line for waves is named "Wave"
// and has index 1 among the outputs, where previews look for it. Without such a line, or with only
// a sound server, the program's own volume takes its place.
#pragma once

#include "backends/sound/mixer/output_volume.h"

#include "platform/eqpro.h"

#include <vector>

namespace vantora {

// The lines of the card that plays the sound.
class MixerCard {
 public:
  enum class Role { Output, Input, Wave, Master };  // at most one line is Wave and one Master
  struct Line {
    int ID = kNoLine;  // neither kMasterLine nor below 1000
    Text Name;
    Role Is = Role::Output;
    bool HasSwitch = false;
  };

  virtual ~MixerCard() = default;
  // Looks for a card that was plugged in or out, at most twice a second.
  virtual void Search() = 0;
  virtual bool Present() = 0;             // the machine can play sound
  virtual Text Name() = 0;                // blank when not present
  virtual std::vector<Line> Lines() = 0;  // in the card's order
  virtual int Volume(int id) = 0;         // current value, 0 to kFullVolume
  virtual void SetVolume(int id, int volume) = 0;
  virtual bool On(int id) = 0;  // the line's switch; true without a switch
  virtual void SetOn(int id, bool on) = 0;
};

class MixerLines final : public EQPro {
 public:
  MixerLines(MixerCard& card, OutputVolume& own) : card_(card), own_(own) {}
  std::unique_ptr<ucEQPro> NewMixer() override;

 private:
  MixerCard& card_;
  OutputVolume& own_;
};

}  // namespace vantora
