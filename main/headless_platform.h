// The program's platform without a screen: with virtual time, a story takes milliseconds.
#pragma once

#include "backends/headless/headless_background.h"
#include "backends/headless/headless_clock.h"
#include "backends/headless/headless_hands.h"
#include "backends/headless/headless_loop.h"
#include "backends/headless/headless_print_shop.h"
#include "main/story_platform.h"

namespace vantora {

struct HeadlessWorld {
  using PrintShop = HeadlessPrintShop;

  HeadlessWorld(const std::filesystem::path& /*resourceFolder*/,
                const std::filesystem::path& /*cache*/) {}

  HeadlessClock clock;
  HeadlessLoop loop{clock};
  HeadlessBackground background{loop};
  HeadlessHands hands{loop};
};

using HeadlessPlatform = StoryPlatform<HeadlessWorld>;

}  // namespace vantora
