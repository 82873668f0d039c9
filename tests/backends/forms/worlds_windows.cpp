#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/loop/qt_hands.h"
#include "tests/backends/forms/worlds.h"

namespace vantora {

namespace {

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

std::unique_ptr<TestWorld> MakeWorldWithWidgets() {
  return std::make_unique<WithWidgets>();
}

INSTANTIATE_TEST_SUITE_P(Windows, Worlds, testing::Values(MakeWorldWithWidgets));

}  // namespace vantora
