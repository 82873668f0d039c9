// The mixer of the card that plays the sound, through libasound's simple mixer. Without a card it
// is the mixer of the sound server.
//
// Volumes are proportional to perceived loudness: where the card reports decibels, half the volume
// sounds half as loud. A control without decibels, such as a sound server's, already counts so.
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
  // `control` is the name of one control, "hw:0" or "default". Blank stands for the control of the
  // card that plays the sound.
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
  // A line keeps its ID once it has been found, also when its card is unplugged and plugged in
  // again.
  struct Known {
    std::string Name;
    unsigned Index;
    bool Input;
    // The volume that was set last, and the card's numbers that resulted. While the card still has
    // these numbers, Volume returns `Set` exactly, although the card has fewer steps.
    int Set = -1;
    std::vector<long> Made;
  };

  static Handle Opened(const std::string& control);
  void Look();    // opens the mixer if it is not open, at most twice a second
  void Choose();  // opens the first control that has output volumes
  void Follow();  // Look, then TakeIn
  void TakeIn();  // reads changes made elsewhere; closes the mixer if its card is gone
  snd_mixer_elem_t* ElementOf(const Known& line) const;
  Known* Find(int id);
  int IDOf(const std::string& name, unsigned index, bool input);
  void AddLines(snd_mixer_elem_t* element, std::vector<Line>& lines);

  std::string control_, open_;  // asked for; in use
  Handle mixer_;
  bool sound_ = false;  // sound can be played, with or without a mixer
  std::optional<std::chrono::steady_clock::time_point> looked_;
  std::vector<Known> known_;
};

}  // namespace vantora
