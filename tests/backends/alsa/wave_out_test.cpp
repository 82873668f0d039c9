#include "backends/sound/chain/wave_out.h"

#include "backends/alsa/alsa_stream.h"
#include "backends/sound/chain/dsp_interface.h"
#include "backends/sound/files/wave_object.h"
#include "tests/backends/alsa/listener.h"

namespace vantora::test {

namespace {

constexpr double kBytesASecond = 44100 * 4;

class Loud : public Listener {
 protected:
  Loud() {
    Wave(Steps(std::vector<int>(30, 3000)));
    source.Wave.SetFileName(L"C:\\a.wav");
    source.Wave.Open();
    source.Wave.PlayEnd = source.Wave.DataSize();
    dsp.SetInput(&source);
    dsp.OnBufferFilled = [this](MMData& data) { fetched += static_cast<std::int64_t>(data.Bytes); };
    out.SetInput(&dsp);
    out.Open();
  }

  // Advances the loop's clock with real time, since the turns of the output depend on it.
  void Play(double seconds) {
    const double end = Now() + seconds;
    while (Now() < end) Step();
  }
  void Step() {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    loop.Pass(static_cast<int>((Now() - began) * 1000) - static_cast<int>(clock.Ticks()));
  }

  const double began = Now();
  AlsaSoundOutput card{loop, volume};
  WaveComponent source{home.Files};
  DspInterface dsp;
  WaveOut out{loop, card};
  std::int64_t fetched = 0;  // in bytes
};

}  // namespace

TEST_F(Loud, AChainIsHeardAtTheRealPaceHalfASecondAheadAtTheMost) {
  const double start = Now();
  out.Start();
  double longest = 0;  // longest time from the chain to the ear
  std::int64_t before = 0;
  for (const bool busy : {false, true, false, true}) {
    Play(0.4);
    if (busy) std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const std::int64_t now = out.Position();
    EXPECT_GT(now, before);
    before = now;
    longest = std::max(longest, static_cast<double>(fetched - now) / kBytesASecond);
  }
  EXPECT_NEAR(static_cast<double>(out.Position()) / kBytesASecond, Now() - start, 0.3);
  EXPECT_LE(longest, 0.47);
  const std::int64_t there = fetched;
  const double change = Now();
  while (out.Position() < there && Now() - change < 1) Step();
  EXPECT_LT(Now() - change, 0.5) << "a change to the chain is heard now";

  out.Pause();
  const std::int64_t pause = out.Position();
  Play(0.3);
  EXPECT_EQ(out.Position(), pause);
  out.Restart();
  while (out.State() == MMWaveOutX::Running && Now() - start < 6) Step();
  EXPECT_EQ(out.State(), MMWaveOutX::Stopped);
  EXPECT_EQ(out.Position(), 30 * 4410 * 4);
  EXPECT_NEAR(Now() - start, 3.3, 0.5);
  EXPECT_EQ(out.Underruns(), 0);
}

}  // namespace vantora::test
