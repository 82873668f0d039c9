// The mixer of the card that sound goes to, through libasound's simple mixer; without a card the
// sound server's control.
//
// A line's volume is on the ear's scale: where the card knows its decibels, half the way sounds
// half as loud; a control without decibels counts so already, as a sound server's does.
#pragma once

#include "backends/sound/mixer/mixer_lines.h"

#include <alsa/asoundlib.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantora {

class AlsaMixer final : public MixerCard {
 public:
  // The name of one control, "hw:0" or "default"; blank: the one that sound goes to.
  explicit AlsaMixer(std::string control = {}) : control_(std::move(control)) {}

  void Search() override;
  bool Present() override;
  Text Name() override;
  std::vector<Line> Lines() override;
  int Volume(int id) override;
  void SetVolume(int id, int volume) override;
  bool On(int id) override;
  void SetOn(int id, bool on) override;

 private:
  struct Close {
    void operator()(snd_mixer_t* mixer) const { snd_mixer_close(mixer); }
  };
  using Handle = std::unique_ptr<snd_mixer_t, Close>;
  // A line that was found once keeps its ID, also when its card goes and comes back.
  struct Known {
    std::string Name;
    unsigned Index;
    bool Input;
    // What was set last, and what the card made of it: as long as it stays so, it reads as it was
    // set, though the card has fewer steps.
    int Set = -1;
    std::vector<long> Made;
  };

  static Handle Opened(const std::string& control);
  void Look();    // opens the mixer if it is not open, at most twice a second
  void Choose();  // the first control that helps
  void Follow();  // the same, and takes in what others have changed
  void TakeIn();  // the latter; lets a card go that is not there any more
  snd_mixer_elem_t* ElementOf(const Known& line) const;
  Known* Find(int id);
  int IDOf(const std::string& name, unsigned index, bool input);
  void AddLines(snd_mixer_elem_t* element, std::vector<Line>& lines);

  std::string control_, open_;  // asked for; open
  Handle mixer_;
  bool sound_ = false;  // there is something to play on, with or without a mixer
  std::optional<std::chrono::steady_clock::time_point> looked_;
  std::vector<Known> known_;
};

}  // namespace vantora
