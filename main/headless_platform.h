// The program's platform without a screen: virtual time, a sound card that only counts, and files
// in a home of its own. Tests and stories play on it.
#pragma once

#include "backends/headless/headless_background.h"
#include "backends/headless/headless_clock.h"
#include "backends/headless/headless_display.h"
#include "backends/headless/headless_hands.h"
#include "backends/headless/headless_loop.h"
#include "backends/headless/headless_player.h"
#include "backends/headless/headless_system.h"
#include "main/machine.h"

namespace vantora {

struct HeadlessPlatform {
  explicit HeadlessPlatform(const std::filesystem::path& home,
                            const std::filesystem::path& resourceFolder = ResourceFolder())
      : machine(PlacesBelow(home), resourceFolder, loop, background),
        mmtools(machine.files,
                HeadlessPlayers(loop, clock, card,
                                [this] { return std::make_unique<WaveFile>(machine.files); }),
                [this] {
                  return card.Present ? std::vector<Text>{L"Altavoces"} : std::vector<Text>{};
                }) {}

  HeadlessClock clock;
  HeadlessLoop loop{clock};
  HeadlessBackground background{loop};
  HeadlessDisplay display;
  HeadlessSystem system;
  HeadlessSoundCard card;
  Machine machine;
  SoundTools mmtools;
  HeadlessHands hands{loop};

  Plattform bundle{loop,
                   display,
                   clock,
                   system,
                   machine.files,
                   machine.letters,
                   machine.settings,
                   machine.profiles,
                   machine.registry,
                   machine.resources,
                   mmtools,
                   machine.cutter,
                   machine.mp3,
                   machine.writer,
                   machine.acd,
                   machine.cd,
                   machine.mci};
};

}  // namespace vantora
