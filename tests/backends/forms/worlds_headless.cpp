#include "backends/headless/headless_hands.h"
#include "tests/backends/forms/worlds.h"

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

}  // namespace

std::unique_ptr<TestWorld> MakeWorldWithoutScreen() {
  return std::make_unique<WithoutScreen>();
}

INSTANTIATE_TEST_SUITE_P(Headless, Worlds, testing::Values(MakeWorldWithoutScreen));

}  // namespace vantora
