#include "backends/sound/effects/volume.h"

#include <gtest/gtest.h>

#include "backends/sound/effects/equalizer.h"
#include "tests/backends/sound/chain_sounds.h"

namespace vantora::test {

TEST(Volume, EverySampleIsMultipliedAndRoundedToTheEvenOfTwoNeighbours) {
  const Sound hiss = Hiss(32'768, 40'000);
  for (const int volume : {0, 1, 3, 8191, 8192, 16'220, 16'384, 24'576, 32'767, 99'999, -5}) {
    Volume effect;
    effect.SetVolume(volume);
    EXPECT_EQ(Through(effect, hiss), hiss);
    effect.Rewind();
    effect.Enable();
    Sound expected = hiss;
    for (std::int16_t& sample : expected) {
      const double exact = double{1} * sample * std::clamp(volume, 0, 32'767) / 16'384;
      sample = Sample(static_cast<float>(exact));
    }
    EXPECT_EQ(Through(effect, hiss), expected) << volume;
  }
}

TEST(Volume, SoundThatALouderStageRaisedAboveTheGreatestSampleComesDownWhole) {
  Equalizer loud;
  loud.Add(700, 1400, 16);
  loud.Enable();
  Volume soft;
  soft.SetVolume(2048);  // an eighth
  soft.Enable();
  Source source(Sine(1000, 30'000, 44'100));
  loud.SetInput(&source);
  const Sound out = Behind(soft, loud, [](std::size_t) {});
  const double tall = Amplitude(out, 1000, 22'050, 44'100);
  EXPECT_GT(tall, 20'000);
  EXPECT_LT(Amplitude(out, 3000, 22'050, 44'100), tall / 1000);
}

TEST(Volume, AChangeTakesItsTimeAndNoStepIsHeard) {
  Volume effect;
  effect.Enable();
  const Sound level(40'000, 10'000);
  const Sound out = Through(effect, level, [&](std::size_t frame) {
    if (frame == 4096) effect.SetVolume(0);
    if (frame == 5120) effect.SetVolume(16'384);
    if (frame == 10'240) effect.SetVolume(8'192);
  });
  for (std::size_t n = 2; n < out.size(); ++n) ASSERT_LE(std::abs(out[n] - out[n - 2]), 9) << n;
  EXPECT_LT(out[10'240], 4000);
  EXPECT_EQ(out[18'000], 10'000);
  EXPECT_EQ(out[24'000], 5000);
}

}  // namespace vantora::test
