#include "backends/headless/headless_loop.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_background.h"
#include "tests/backends/full_form.h"

namespace vantora {
namespace {

class Room : public testing::Test {
 protected:
  HeadlessClock clock;
  HeadlessLoop loop{clock};
};

}  // namespace

TEST_F(Room, WhatCanNeverEndIsStoppedWithAWordThatSaysWhy) {
  HeadlessLoop forEver(clock), round(clock);
  EXPECT_NE(Refusal([&] { forEver.Run(); }).find("wait for ever"), std::string::npos);
  round.MaxTurns = 1000;
  std::function<void()> again = [&] { round.Post(again); };
  round.Post(again);
  EXPECT_NE(Refusal([&] { round.Run(); }).find("round and round"), std::string::npos);
  loop.MaxVirtualMs = 10'000;
  // A program that catches the errors of its own statements cannot go on either.
  loop.Post([&] {
    for (int i = 0; i < 3; ++i) EXPECT_ANY_THROW(loop.Sleep(20'000));
  });
  EXPECT_NE(Refusal([&] { loop.Run(); }).find("without an end"), std::string::npos);
}

TEST_F(Room, SlicesRunInTurnWithTheTimersUntilTheyAreDoneOrNotWantedAnyMore) {
  HeadlessBackground background(loop);
  std::vector<std::int64_t> at;
  const auto job = background.Start([&] {
    at.push_back(clock.Ticks());
    return at.size() == 3 ? -1 : at.size() == 1 ? 0 : 500;
  });
  EXPECT_TRUE(at.empty()) << "the first slice waits for the loop";
  loop.Pass(2000);
  EXPECT_EQ(at, (std::vector<std::int64_t>{1, 2, 502}));
  int slices = 0;
  std::unique_ptr<BackgroundJob> dropped = background.Start([&] {
    if (++slices == 3) dropped.reset();
    return 0;
  });
  loop.Pass(100);
  EXPECT_EQ(slices, 3);
}

}  // namespace vantora
