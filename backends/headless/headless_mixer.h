// A mixer whose lines are only numbers. Tests and scripts say which lines the card has, and move
// them from outside. A copy is another card that is set alike.
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
    bool On = true;  // not muted; selected
    bool HasSwitch = true;
  };

  // The card that there is when nobody says another one.
  std::deque<Line> Lines = {
      {L"Master", MixerCard::Role::Master, 49152}, {L"Line", MixerCard::Role::Output, 32768, false},
      {L"Wave", MixerCard::Role::Wave, 49152},     {L"CD", MixerCard::Role::Output, 32768},
      {L"Line", MixerCard::Role::Input, 49152},    {L"Mic", MixerCard::Role::Input, 32768, false}};
  bool Present = true;

  // Puts a line behind those that were put so before; the first one takes the place of all lines
  // but the master. "Wave" is the line of waves, "Master" the master.
  void Put(Line line);
  // The first line of that name, the outputs before the inputs; nothing when there is none.
  Line* Find(const Text& name, bool inputsOnly = false);

 private:
  bool own_ = true;  // the lines are those of the card that nobody has said
};

class HeadlessMixerCard final : public MixerCard {
 public:
  HeadlessMixerCard(HeadlessMixer& mixer, const HeadlessSoundCard& card)
      : mixer_(mixer), card_(card) {}

  void Search() override {}  // its lines are always those of this moment
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
