#include "backends/sound/chain/wave_out.h"

#include "backends/sound/chain/connector.h"
#include "backends/sound/chain/dsp_interface.h"
#include "backends/sound/files/wave_object.h"
#include "tests/backends/bench.h"
#include "tests/backends/ear.h"

#include <cmath>
#include <random>

namespace vantora::test {

namespace {

constexpr std::int64_t kMs = 441;  // frames in 10 ms
constexpr int kJoint = 220;        // frames over which a step fades out

class Playing : public Bench {
 protected:
  // Two seconds of sound whose left samples identify their position: a slow sine plus a ramp.
  static std::int16_t Sample(std::int64_t frame) {
    const auto at = static_cast<double>(frame);
    return static_cast<std::int16_t>(9000 * std::sin(at / 50) + at / 10);
  }
  Playing() {
    std::string data;
    for (std::int64_t frame = 0; frame < 88200; ++frame) {
      data += Number(static_cast<std::uint16_t>(Sample(frame)), 2) + Number(0, 2);
    }
    Put(home / "a.wav", Wave(data));
    source.Wave.SetFileName(L"C:\\a.wav");
    source.Wave.Open();
    dsp.SetInput(&source);
    out.SetInput(&dsp);
    connector.SetInput(&out);
    connector.OnLevel = [this](int left, int) { Levels.push_back(left); };
    out.Open();
  }
  void Range(std::int32_t from, std::int32_t to) {
    source.Wave.PlayStart = from;
    source.Wave.PlayEnd = to;
  }
  std::int64_t At() const { return out.Position() / 4; }
  // Checks that the last frames heard are those of the file from `frame` on. The first of them may
  // contain a fading step.
  void ExpectLast(std::int64_t frame, std::int64_t frames) {
    for (std::int64_t i = kJoint; i < frames; ++i) {
      const auto ear = static_cast<std::size_t>(Told() - frames + i);
      ASSERT_EQ(ear_.Left.at(ear), Sample(frame + i)) << frame << " + " << i;
    }
  }
  std::int64_t Told() const { return static_cast<std::int64_t>(ear_.Left.size()); }

  HeadlessSoundCard card;
  HeadlessOutput device{loop, clock, card};
  Ear ear_{device};
  WaveComponent source{home.Files};
  DspInterface dsp;
  WaveOut out{loop, ear_};
  Connector connector;
  std::vector<int> Levels;
};

}  // namespace

TEST_F(Playing, ARangeIsHeardWholeInItsTimeAndARoundFollowsARoundWithoutAGap) {
  Range(0, 22050);
  out.Loop = true;
  out.LoopCount = 2;
  out.Start();
  EXPECT_EQ(out.State(), MMWaveOutX::Running);
  for (int ms = 100; ms <= 1500; ms += 100) {
    loop.Pass(100);
    EXPECT_EQ(At(), ms == 1500 ? 22050 : ms % 500 * 441 / 10) << ms;
  }
  loop.Pass(50);
  EXPECT_EQ(out.State(), MMWaveOutX::Stopped);
  EXPECT_EQ(At(), 22050) << "the position stays at the end";
  ASSERT_EQ(Told(), 3 * 22050);
  for (int round = 0; round < 3; ++round) {
    for (std::int64_t i = 0; i < 22050; ++i) {
      ASSERT_EQ(ear_.Left[static_cast<std::size_t>(round * 22050L + i)], Sample(i)) << round;
    }
  }
  EXPECT_EQ(out.Underruns(), 0);
  EXPECT_NEAR(static_cast<double>(Levels.size()), 30, 3);
  EXPECT_NEAR(*std::max_element(Levels.begin(), Levels.end()), 9000 + 2205, 100);
  out.Restart();
  EXPECT_EQ(out.State(), MMWaveOutX::Stopped);
}

TEST_F(Playing, APauseKeepsWhatWasNotHeardAndGoesOnWhereItWasAskedFor) {
  std::mt19937 random(7);
  Range(0, 88200);
  out.Start();
  for (int i = 0; i < 20; ++i) {
    loop.Pass(static_cast<int>(random() % 60) + 8);
    const std::int64_t here = At();
    out.Pause();
    EXPECT_EQ(out.State(), MMWaveOutX::Paused);
    loop.Pass(i % 2 == 0 ? 41 : 500);
    EXPECT_EQ(At(), here);
    out.Restart();
    EXPECT_EQ(At(), here);
  }
  const std::int64_t here = At();
  loop.Pass(3000);
  EXPECT_EQ(At(), 88200);
  ExpectLast(here, 88200 - here);
  EXPECT_EQ(out.Underruns(), 0);
}

TEST_F(Playing, ARewiringIsHeardSoonWithoutAGapAClickOrAJump) {
  std::mt19937 random(3);
  Range(0, 88200);
  out.Start();
  const auto halve = [](MMData& data) {
    for (float& sample : data.Samples) sample = std::trunc(sample / 2);
  };
  std::vector<std::int64_t> changes;
  for (int i = 0; i < 12; ++i) {  // into the last half second
    loop.Pass(static_cast<int>(random() % 20) + 145);
    const std::int64_t here = source.Wave.PlayStart + At();
    out.Pause();
    loop.DoEvents();
    dsp.OnBufferFilled = i % 2 == 0 ? std::function<void(MMData&)>(halve) : nullptr;
    source.Wave.PlayStart += static_cast<std::int32_t>(At());
    out.Start();
    EXPECT_NEAR(static_cast<double>(source.Wave.PlayStart + At()), static_cast<double>(here), 50);
    changes.push_back(here);
  }
  loop.Pass(3000);
  EXPECT_EQ(source.Wave.PlayStart + At(), 88200);
  EXPECT_EQ(ear_.Streams, 1);
  ASSERT_EQ(Told(), 88200);
  std::size_t passed = 0;
  for (std::int64_t i = 0; i < Told(); ++i) {
    const int now = ear_.Left[static_cast<std::size_t>(i)];
    if (i > 0) {
      ASSERT_LT(std::abs(now - ear_.Left[static_cast<std::size_t>(i - 1)]), 400) << i;
    }
    while (passed < changes.size() && changes[passed] + 15 * kMs <= i) ++passed;
    if (passed == changes.size() || changes[passed] > i) {
      ASSERT_EQ(now, passed % 2 == 0 ? Sample(i) : Sample(i) / 2) << i;
    }
  }
}

TEST_F(Playing, AStartOutOfAPausePlaysTheRangeAndNothingOfWhatLayAhead) {
  for (const int ms : {5, 200}) {  // shortly and long after the pause
    Range(0, 88200);
    out.Start();
    loop.Pass(600);
    out.Pause();
    loop.Pass(ms);
    Range(441, 4851);
    out.Start();
    EXPECT_EQ(At(), 0);
    loop.Pass(200);
    EXPECT_EQ(At(), 4410);
    ExpectLast(441, 4410);
  }
}

TEST_F(Playing, ALateChainIsSilenceThatCountsAsNoSound) {
  Range(0, 88200);
  out.Start();
  loop.Pass(100);
  loop.Sleep(300);  // the interface thread is busy
  loop.Pass(100);
  EXPECT_EQ(out.Underruns(), 0);
  EXPECT_EQ(At(), 22050);
  loop.Sleep(1000);
  loop.Pass(50);
  EXPECT_EQ(out.Underruns(), 1);
  EXPECT_EQ(out.State(), MMWaveOutX::Running);
  EXPECT_GT(At(), 22050 + 40 * kMs);
  EXPECT_LT(At(), 22050 + 60 * kMs);
  loop.Pass(2000);
  EXPECT_EQ(At(), 88200);
  EXPECT_EQ(out.State(), MMWaveOutX::Stopped);
  EXPECT_GT(Told(), 88200 + 40 * kMs);
}

TEST_F(Playing, WithoutACardOrAFileTheSoundEndsAndThePositionIsNegative) {
  Range(0, 88200);
  const auto failed = [this] {
    EXPECT_EQ(out.State(), MMWaveOutX::Stopped);
    EXPECT_LT(out.Position(), 0);
    card.Present = true;
    dsp.OnBufferFilled = nullptr;
  };
  card.Present = false;
  out.Start();
  failed();
  out.Start();
  loop.Pass(500);
  EXPECT_GT(At(), 0) << "the card is there again";
  card.Present = false;
  loop.Pass(100);
  failed();
  for (const int ms : {0, 500}) {  // at the start and during the sound
    const auto gone = [](MMData&) { throw Laufzeitfehler(kFehlerEinAusgabe, L"weg"); };
    if (ms == 0) dsp.OnBufferFilled = gone;
    out.Start();
    loop.Pass(ms);
    dsp.OnBufferFilled = gone;
    loop.Pass(50);
    failed();
  }
  Range(100, 100);
  out.Loop = true;
  out.LoopCount = 10000;
  out.Start();
  EXPECT_EQ(out.State(), MMWaveOutX::Stopped) << "an empty range ends at once, however often";
  EXPECT_EQ(out.Position(), 0);
}

}  // namespace vantora::test
