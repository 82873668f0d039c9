#include "backends/alsa/alsa_player.h"

#include "tests/backends/alsa/listener.h"

namespace vantora::test {

namespace {

class Sounding : public Listener {};

}  // namespace

TEST_F(Sounding, AWaveLastsAsLongAsItIsAndItsPositionTellsWhatHasBeenHeard) {
  Wave(Steps(std::vector<int>(15, 8000)));
  const double start = Now();
  player.Start();
  EXPECT_TRUE(player.Playing());
  EXPECT_EQ(Log, "") << "events come through the loop";
  std::int64_t before = 0;
  double ahead = 0, behind = 0;  // lead and lag of the position, in seconds
  while (Now() - start < 1.4) {
    Run(0.02);
    const std::int64_t now = player.Position();
    EXPECT_GE(now, before);
    const double late = Now() - start - static_cast<double>(now) / 44100;
    ahead = std::max(ahead, -late);
    behind = std::max(behind, late);
    before = now;
  }
  EXPECT_LE(ahead, 0.03) << "nobody hears what has not been played";
  EXPECT_LE(behind, 0.6);
  EXPECT_GT(before, 44100 / 2);
  Run(3, "stop");
  EXPECT_EQ(Log, "start stop");
  EXPECT_NEAR(StoppedAt - start, 1.5, 0.4);
  EXPECT_EQ(player.Position(), 15 * 4410);
  EXPECT_FALSE(Elsewhere);
}

TEST_F(Sounding, LevelsAreThePeaksOfWhatIsHeardTwentyTimesASecond) {
  Wave(Steps({1000, 1000, 32000, 32000, 0, 0, 500, 500}));
  player.Start();
  Run(3, "stop");
  ASSERT_EQ(Levels.size(), 16U);
  for (std::size_t i = 0; i < Levels.size(); ++i) {
    const int expected = i < 4 ? 1000 : i < 8 ? 32000 : i < 12 ? 0 : 500;
    EXPECT_EQ(Levels[i], std::make_pair(expected, expected / 2)) << i;
  }
}

TEST_F(Sounding, StoppingIsQuickAndToldOnce) {
  Wave(Steps(std::vector<int>(600, 3000)));
  player.Start();
  Run(0.5);
  const double stop = Now();
  player.Stop();
  EXPECT_LT(Now() - stop, 0.25);
  EXPECT_FALSE(player.Playing());
  const std::int64_t there = player.Position();
  EXPECT_LT(there, 44100);
  const std::size_t levels = Levels.size();
  player.Stop();
  EXPECT_EQ(Log, "start");
  Run(0.2);
  EXPECT_EQ(Log, "start stop");
  EXPECT_EQ(Levels.size(), levels) << "nothing is heard after the stop";
  EXPECT_EQ(player.Position(), there);
}

TEST_F(Sounding, StartingAgainBeginsAnewAndEndsTheOneBefore) {
  Wave(Steps(std::vector<int>(4, 3000)));
  player.Start();
  Run(0.25);
  player.Start();
  EXPECT_EQ(Log, "start stop");
  EXPECT_LT(player.Position(), 4410);
  Run(3, "start stop start stop");
  EXPECT_EQ(Log, "start stop start stop");
  EXPECT_EQ(player.Position(), 4 * 4410);
  // The OnStop of a stop that is still posted belongs to the sound before.
  player.Start();
  player.Stop();
  player.Start();
  Run(3, "start stop stop start stop");
  EXPECT_EQ(Log.substr(22), "stop start stop");
}

TEST_F(Sounding, ASoundOfAFewFramesEndsToo) {
  for (const std::size_t frames : {1U, 100U, 3000U}) {
    Log.clear();
    Wave(Noise(frames * 4));
    const double start = Now();
    player.Start();
    Run(3, "stop");
    EXPECT_LT(Now() - start, 1) << "a server that still tells a delay must not hold the end up";
    EXPECT_EQ(Log, "start stop");
    EXPECT_EQ(player.Position(), static_cast<std::int64_t>(frames));
  }
}

TEST_F(Sounding, AFileThatCannotBePlayedIsRefusedWithoutAnEvent) {
  player.SetFileName(L"C:\\b.wav");
  EXPECT_EQ(ErrorOf([&] { player.Start(); }), kFehlerDateiFehlt);
  for (const std::string& bytes : {std::string("text"), test::Wave(Noise(400), "", {1, 1}),
                                   test::Wave(Noise(400), "", {1, 2, 48000})}) {
    Put(home / "b.wav", bytes);
    EXPECT_EQ(ErrorOf([&] { player.Start(); }), 57);
    EXPECT_FALSE(player.Playing());
  }
  Run(0.1);
  EXPECT_EQ(Log, "");
}

TEST_F(Sounding, AFileThatGoesOrIsCutWhileItPlaysEndsItsSound) {
  Wave(Steps(std::vector<int>(60, 3000)));
  player.Start();
  Run(0.3);
  fs::remove(home / "a.wav");
  Run(0.3);
  EXPECT_TRUE(player.Playing()) << "what is open can be read to its end";
  player.Stop();
  Run(0.1);
  Log.clear();

  Wave(Steps(std::vector<int>(60, 3000)));
  player.Start();
  Run(0.3);
  fs::resize_file(home / "a.wav", 44);
  Run(3, "stop");
  EXPECT_EQ(Log, "start stop");
  EXPECT_LT(player.Position(), 2 * 44100);
}

TEST_F(Sounding, APlayerThatGoesAwayWhileItPlaysSaysNothingMore) {
  Wave(Steps(std::vector<int>(60, 3000)));
  const double start = Now();
  {
    AlsaPlayer other(home.Files, loop, volume);
    other.OnStart = other.OnStop = [] { ADD_FAILURE() << "an event of nobody"; };
    other.SetFileName(L"C:\\a.wav");
    other.Start();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
  }
  EXPECT_LT(Now() - start, 0.6);
  Run(0.1);
}

}  // namespace vantora::test
