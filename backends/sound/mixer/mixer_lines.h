// The mixer as the program sees it, over whatever a card has to offer: the line of waves is found
// and named "Wave" and stands at index 1 of the outputs, where previews look for it. Where the card
// has no such line, or there is only a sound server, it is the program's own volume.
#pragma once

#include "backends/sound/mixer/output_volume.h"

#include "platform/eqpro.h"

#include <vector>

namespace vantora {

// The lines of the card that sound goes to.
class MixerCard {
 public:
  enum class Role { Output, Input, Wave, Master };  // at most one is the wave's, one the master
  struct Line {
    int ID = kNoLine;  // not kMasterLine, not below 1000
    Text Name;
    Role Is = Role::Output;
    bool HasSwitch = false;
  };

  virtual ~MixerCard() = default;
  // The card that sound goes to may have come or gone: looks for it anew, at most twice a second.
  virtual void Search() = 0;
  virtual bool Present() = 0;             // the machine has sound
  virtual Text Name() = 0;                // blank when it is not present
  virtual std::vector<Line> Lines() = 0;  // in the card's order
  virtual int Volume(int id) = 0;         // 0 to kFullVolume, as it is now
  virtual void SetVolume(int id, int volume) = 0;
  virtual bool On(int id) = 0;  // its switch; a line without one is on
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
