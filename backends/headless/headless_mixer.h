// The mixer of a sound card, whose lines are only numbers. Tests and scripts choose the lines of
// the card and change their values. A copy is another card with the same lines.
#pragma once

#include "backends/headless/headless_player.h"
#include "backends/sound/mixer/mixer_lines.h"

#include <deque>

namespace vantora {

class HeadlessMixer {
 public:
  struct Line {
    Text Name;
    MixerCard::Role Is = MixerCard::Role::Output;
    int Volume = 0;
    bool On = true;  // an output is not muted; an input is selected
    bool HasSwitch = true;
  };

  // The lines of the card until the first call of Put.
  std::deque<Line> Lines = {
      {L"Master", MixerCard::Role::Master, 49152}, {L"Line", MixerCard::Role::Output, 32768, false},
      {L"Wave", MixerCard::Role::Wave, 49152},     {L"CD", MixerCard::Role::Output, 32768},
      {L"Line", MixerCard::Role::Input, 49152},    {L"Mic", MixerCard::Role::Input, 32768, false}};
  bool Present = true;

  // Adds a line after the lines that were put before. The first call removes all lines except the
  // master. The name "Wave" makes an output the wave line. The name "Master" makes it the master.
  void Put(Line line);
  // Returns the first line with that name, or nothing if there is none. Outputs come before inputs.
  Line* Find(const Text& name, bool inputsOnly = false);

 private:
  bool own_ = true;  // Put has not been called yet
};

class HeadlessMixerCard final : public MixerCard {
 public:
  HeadlessMixerCard(HeadlessMixer& mixer, const HeadlessSoundCard& card)
      : mixer_(mixer), card_(card) {}

  void Search() override {}  // Lines always reads the present lines
  bool Present() override { return mixer_.Present && card_.Present; }
  Text Name() override { return Present() ? L"Tarjeta de prueba" : L""; }
  std::vector<Line> Lines() override;
  int Volume(int id) override;
  void SetVolume(int id, int volume) override;
  bool On(int id) override;
  void SetOn(int id, bool on) override;

 private:
  HeadlessMixer::Line* Find(int id);

  HeadlessMixer& mixer_;
  const HeadlessSoundCard& card_;
};

}  // namespace vantora
