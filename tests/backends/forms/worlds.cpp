#include "tests/backends/forms/worlds.h"

#include "backends/headless/headless_hands.h"
#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/loop/qt_hands.h"

namespace vantora {

namespace {

class WithoutScreen final : public TestWorld {
 public:
  FormLoop& Loop() override { return loop_; }
  Hands& TheHands() override { return hands_; }

 private:
  HeadlessClock clock_;
  HeadlessLoop loop_{clock_};
  HeadlessHands hands_{loop_};
};

class WithWidgets final : public TestWorld {
 public:
  FormLoop& Loop() override { return loop_; }
  Hands& TheHands() override { return hands_; }
  void Settle() override { hands_.Settle(); }

 private:
  QtEventLoop loop_{"", {}, 20};  // no pictures; time runs 20 times as fast
  QtHands hands_{loop_};
};

}  // namespace

std::unique_ptr<TestWorld> TestWorld::Make(const std::string& name) {
  if (name == "Headless") return std::make_unique<WithoutScreen>();
  return std::make_unique<WithWidgets>();
}

INSTANTIATE_TEST_SUITE_P(Each, Worlds, testing::Values("Headless", "Windows"),
                         [](const auto& world) { return std::string(world.param); });

}  // namespace vantora
