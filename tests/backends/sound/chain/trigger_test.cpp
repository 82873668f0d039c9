#include "backends/sound/chain/trigger.h"

#include "backends/sound/chain/dsp_interface.h"
#include "backends/sound/files/wave_object.h"
#include "tests/backends/bench.h"

namespace vantora::test {

namespace {

// A chain from one file to another. Each event adds a letter to the log.
class Pumping : public Bench {
 protected:
  Pumping() {
    Put(home / "a.wav", Wave(data));
    source.Wave.SetFileName(L"C:\\a.wav");
    source.Wave.Open();
    source.Wave.PlayEnd = source.Wave.DataSize();
    target.Wave.FileMustExist = false;
    target.Wave.SetFileName(L"C:\\b.wav");
    dsp.SetInput(&source);
    trigger->SetInput(&dsp);
    trigger->SetOutput(&target);
    trigger->OnStop = [this] { Log += 'S'; };
    trigger->OnError = [this] { Log += 'E'; };
  }
  std::string Written() {
    target.Wave.Close();
    return Get(home / "b.wav");
  }

  const std::string data = Noise(6'000'004);
  WaveComponent source{home.Files}, target{home.Files};
  DspInterface dsp;
  std::unique_ptr<Trigger> trigger = std::make_unique<Trigger>(loop);
  std::string Log;
};

}  // namespace

TEST_F(Pumping, TheRangeArrivesWholeAgainAndAgainAndItsEndIsToldOnce) {
  for (const std::int32_t from : {0, 12345}) {
    source.Wave.PlayStart = from;
    Log.clear();
    trigger->Start();
    EXPECT_EQ(Log, "") << "events come through the loop";
    loop.Pass(1000);
    EXPECT_EQ(Log, "S");
    EXPECT_EQ(Written(), Wave(data.substr(static_cast<std::size_t>(from) * 4)));
  }
  source.Wave.PlayStart = source.Wave.PlayEnd;
  trigger->Start();
  loop.Pass(1000);
  EXPECT_EQ(Log, "SS");
  EXPECT_EQ(Written(), Wave(""));
}

TEST_F(Pumping, TheLoopTurnsMeanwhileAndNothingIsToldAfterAStop) {
  using Clock = std::chrono::steady_clock;
  int buffers = 0, due = 0;
  trigger->OnBufferLoad = [&] { EXPECT_EQ(due++, buffers); };
  dsp.OnBufferFilled = [&](MMData&) {  // simulates slow effects: 2 ms per buffer
    ++buffers;
    for (const auto end = Clock::now() + std::chrono::milliseconds(2); Clock::now() < end;) {
    }
  };
  trigger->Start();
  loop.PostAfter(3, [&] { Log += "."; });
  loop.Pass(3);
  EXPECT_EQ(Log, ".") << "what is due runs between the slices";
  EXPECT_GE(buffers, 2);
  EXPECT_LE(buffers, 3 * 14) << "a slice takes no longer than the hand that waits for it";
  trigger->Stop();
  EXPECT_EQ(due, buffers) << "each buffer is announced";
  const int before = buffers;
  loop.Pass(1000);
  trigger->OnBufferLoad = nullptr;
  dsp.OnBufferFilled = [&](MMData&) { trigger->Stop(); };
  trigger->Start();
  loop.Pass(1000);
  dsp.OnBufferFilled = nullptr;
  trigger->Start();
  loop.Pass(2);
  trigger.reset();
  loop.Pass(1000);
  EXPECT_EQ(Log, ".");
  EXPECT_EQ(buffers, before);
}

TEST_F(Pumping, AnErrorOnEitherSideIsToldOnceAndLeavesTheSourceAsItWas) {
  const auto run = [this] {
    Log.clear();
    trigger->Start();
    loop.Pass(1000);
    target.Wave.Close();
    return Log;
  };
  target.Wave.SetFileName(L"Q:\\nowhere\\b.wav");
  EXPECT_EQ(run(), "E");
  target.Wave.SetFileName(L"C:\\b.wav");
  {
    const FullDisk full(3'000'000);
    EXPECT_EQ(run(), "E");
  }
  dsp.OnBufferFilled = [](MMData&) { throw Laufzeitfehler(kFehlerUeberlauf, L"x"); };
  EXPECT_EQ(run(), "E");
  std::vector<int> loopHears;
  loop.OnError = [&](const Laufzeitfehler& error) { loopHears.push_back(error.Nummer); };
  EXPECT_EQ(run(), "E");
  trigger->OnFailure = [this](const Laufzeitfehler& error) {
    Log += error.Nummer == kFehlerUeberlauf ? 'F' : '?';
  };
  EXPECT_EQ(run(), "F");
  EXPECT_EQ(loopHears, std::vector<int>{kFehlerUeberlauf}) << "one of the two has it";
  dsp.OnBufferFilled = nullptr;
  trigger->OnStop = [this] {  // the handler may destroy the trigger
    Log += 'S';
    trigger.reset();
  };
  EXPECT_EQ(run(), "S");
  EXPECT_EQ(Get(home / "a.wav"), Wave(data));
}

}  // namespace vantora::test
