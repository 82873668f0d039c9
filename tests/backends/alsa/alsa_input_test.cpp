// Records from a sound server whose input is its own output: the recorded sound must equal the
// played sound bit for bit.

#include "backends/alsa/alsa_input.h"

#include "backends/alsa/alsa_stream.h"
#include "backends/alsa/input_queue.h"
#include "backends/linux/linux_clock.h"
#include "backends/sound/chain/wave_in.h"
#include "tests/backends/alsa/listener.h"

namespace vantora::test {

namespace {

// The end of a chain, which stores all sound.
class Sink final : public MMComponentX {
 public:
  explicit Sink(MMWaveInX& in) : in_(in) {}
  void Push(const MMData& data) override {
    if (Each) Each();
    PcmData heard;
    CopyWaveHeader(data, heard.Samples.data(), data.Bytes);
    Sound.append(reinterpret_cast<const char*>(heard.Samples.data()), data.Bytes);
    Times.push_back(in_.BufferTicks());
  }
  std::function<void()> Each;
  std::string Sound;
  std::vector<std::int64_t> Times;

 private:
  MMWaveInX& in_;
};

// A source that plays bytes.
SoundOutput::Source Player(const std::string& sound, std::atomic<std::size_t>& at) {
  return [&sound, &at](std::int16_t* target, std::size_t frames) {
    const std::size_t bytes = std::min(frames * 4, sound.size() - at);
    std::memcpy(target, sound.data() + at, bytes);
    at += bytes;
    return bytes / 4;
  };
}

constexpr std::size_t kSecond = 176400;

}  // namespace

TEST(AlsaInput, WhatIsPlayedIsRecordedBitForBitHoweverBusyTheWindowIs) {
  HeadlessClock unused;
  HeadlessLoop loop{unused};
  LinuxClock clock;
  AlsaSoundInput input(loop, clock);
  OutputVolume volume;
  AlsaSoundOutput output(loop, volume);
  WaveIn in(loop, input);
  Sink sink(in);
  in.SetOutput(&sink);
  std::int64_t lost = 0;
  in.OnOverrun = [&](std::int64_t ms) { lost += ms; };
  // The component is stopped and closed between two takes while the card goes on.
  int buffers = 0;
  sink.Each = [&] {
    if (++buffers % 20 != 0) return;
    in.Stop();
    in.Close();
    in.Open();
    in.Start();
  };
  in.Open();
  in.Start();
  // The monitor of a null sink loses the first moments of a stream, so the sound starts with
  // silence.
  const std::string noise = Noise(6 * kSecond);
  const std::string played = std::string(2 * kSecond, '\0') + noise + std::string(kSecond, '\0');
  std::atomic<std::size_t> at = 0;
  const double start = Now();
  int ends = 0;
  const auto ended = [&ends, self = std::this_thread::get_id()] {
    ends += std::this_thread::get_id() == self ? 1 : 100;
  };
  const auto stream = output.Play(Player(played, at), ended, kSoundAheadMs);
  bool slept = false;
  std::int64_t longest = 0;  // from the source to the ear, in frames
  while (Now() - start < 10.5) {
    loop.DoEvents();
    const auto ahead = static_cast<std::int64_t>(at / 4) - stream->Heard();
    longest = std::max(longest, ahead);
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    if (slept || Now() - start < 3) continue;
    slept = true;
    std::this_thread::sleep_for(std::chrono::seconds(3));
  }
  in.Stop();
  in.Close();
  loop.DoEvents();
  EXPECT_EQ(ends, 1) << "the end is reported once, on the interface thread";
  EXPECT_EQ(stream->Heard(), static_cast<std::int64_t>(played.size() / 4));
  EXPECT_LE(longest, 0.47 * 44100);
  EXPECT_EQ(lost, 0);
  EXPECT_NE(sink.Sound.find(noise), std::string::npos);
  // The times are those of the recording, not of the delivery.
  ASSERT_GT(sink.Times.size(), 300U);
  for (std::size_t i = 43; i < sink.Times.size(); ++i) {
    EXPECT_GE(sink.Times[i], sink.Times[i - 1]);
    EXPECT_NEAR(static_cast<double>(sink.Times[i] - sink.Times[i - 43]), 43 * 1024 / 44.1, 150)
        << i;
  }
}

TEST(AlsaInput, ARingThatIsFullCountsWhatIsLostInFrontOfTheNextBuffer) {
  InputQueue ring(2);
  std::vector<std::int16_t> sound(1024 * 2);
  std::int64_t ticks = 0;
  const auto hear = [&](std::int16_t value, std::size_t frames, std::int64_t lost) {
    std::fill(sound.begin(), sound.end(), value);
    ticks += static_cast<std::int64_t>(frames) * 1000 / 44100 + lost;
    return ring.Append(sound.data(), frames, ticks, lost);
  };
  EXPECT_FALSE(hear(1, 1000, 0));
  EXPECT_TRUE(hear(2, 1000, 0));
  EXPECT_FALSE(hear(3, 1000, 70));  // within the buffer that is being filled
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(hear(4, 1024, 0));
  CapturedSound got;
  ASSERT_TRUE(ring.Next(got));
  EXPECT_EQ(got.LostMs, 0);
  EXPECT_EQ(got.Data.Samples[2 * 999], 1);
  EXPECT_EQ(got.Data.Samples[2 * 1000], 2);
  ASSERT_TRUE(ring.Next(got));
  EXPECT_EQ(got.LostMs, 70);
  EXPECT_FALSE(ring.Next(got));
  EXPECT_TRUE(hear(5, 1024, 0));
  ASSERT_TRUE(ring.Next(got));
  EXPECT_NEAR(static_cast<double>(got.LostMs), 3 * 23, 2);
  ring.End();
  EXPECT_TRUE(ring.Gone());
  // The card may hold sound from before a Skip.
  InputQueue skipped(4);
  skipped.Skip(1000);
  skipped.Append(sound.data(), 1024, 1000, 5);  // recorded before the Skip, read after it
  EXPECT_FALSE(skipped.Next(got));
  skipped.Append(sound.data(), 1024, 1001, 0);  // recorded around the Skip
  ASSERT_TRUE(skipped.Next(got));
  EXPECT_EQ(got.Ticks, 1001);
  EXPECT_EQ(got.LostMs, 0);
}

}  // namespace vantora::test
