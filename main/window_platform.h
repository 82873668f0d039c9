// The program's platform for stories in real windows. Only the widgets and the time differ from the
// platform without a screen; time runs several times as fast as the real clock.
#pragma once

#include "backends/linux/file_resources.h"
#include "backends/linux/linux_clock.h"
#include "backends/linux/thread_background.h"
#include "backends/qt/help/help_viewer.h"
#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/loop/qt_hands.h"
#include "backends/qt/print/qt_print_shop.h"
#include "main/headless_platform.h"
#include "main/help_words.h"
#include "main/story_platform.h"

namespace vantora {

// A clock that starts at a given date and time and runs `speed` times as fast as the real clock.
class FastClock final : public Clock {
 public:
  explicit FastClock(double speed) : speed_(speed), start_(machine_.Ticks()) {}

  void Set(const DateTime& now);
  DateTime Now() override;
  double Timer() override;
  std::int64_t Ticks() override;

 private:
  LinuxClock machine_;
  double speed_;
  std::int64_t start_;
  std::int64_t setAt_ = 0;  // ticks
  DateTime set_{2026, 11, 24, 10, 0, 0};
};

inline constexpr double kStorySpeed = 20;

struct WindowWorld {
  using PrintShop = QtPrintShop<NoQueues>;

  WindowWorld(const std::filesystem::path& resourceFolder, const std::filesystem::path& cache)
      : loop(resourceFolder / "pictures", cache / kDrawnPictures, kStorySpeed),
        texts(resourceFolder),
        help(
            resourceFolder / "help", [this] { return WordsOfHelp(texts); },
            [](const Text& /*address*/) {}),
        menus([this] { return WordsOfMenus(texts); }) {}

  FastClock clock{kStorySpeed};
  QtEventLoop loop;
  ThreadBackground background{kStorySpeed};
  QtHands hands{loop};
  FileResources texts;
  HelpViewer help;
  ToolkitWords menus;
};

// The world without a screen, with printing.
struct PrintingWorld : HeadlessWorld {
  using PrintShop = QtPrintShop<NoQueues>;
  using HeadlessWorld::HeadlessWorld;
};

using PrintingPlatform = StoryPlatform<PrintingWorld>;
using WindowPlatform = StoryPlatform<WindowWorld>;

}  // namespace vantora
