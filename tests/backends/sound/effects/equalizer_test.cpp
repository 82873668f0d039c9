#include "backends/sound/effects/equalizer.h"

#include "tests/backends/linux/home.h"
#include "tests/backends/sound/chain_sounds.h"

namespace vantora::test {

namespace {

const std::vector<double> kTenBands{0, 60, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};
const std::vector<double> kLoudness{0,   22,  32,   38,   47,   61,    83,    106,   127,   144,
                                    230, 354, 6124, 8172, 9437, 11435, 13210, 15752, 18483, 22050};
const std::vector<double> kLoudnessGains{2, 4, 5,    6,    10,   11,   9, 7,    2,   1.35,
                                         0, 0, 1.07, 2.87, 5.39, 7.19, 9, 9.36, 9.36};

double Middle(double from, double to) {
  return from > 0 ? std::sqrt(from * to) : to / 2;
}

void AddBands(Equalizer& equalizer, const std::vector<double>& edges,
              const std::vector<double>& gains) {
  for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
    equalizer.Add(edges[i], edges[i + 1], gains[i]);
  }
}

// Measures the gain with an impulse in each channel, long enough for the narrowest band to decay.
// The impulse is small enough for all bands at maximum gain. Rounding then hides low levels, so
// deep notches are measured with sines.
double Gain(const std::vector<double>& edges, const std::vector<double>& gains, double hertz) {
  Equalizer equalizer;
  AddBands(equalizer, edges, gains);
  equalizer.Enable();
  const std::size_t frames = hertz < 300 ? 120'000 : 30'000;
  const double amplitude = 3000;
  const Sound out = Through(equalizer, Sine(hertz, amplitude, frames));
  return Decibels(Amplitude(out, hertz, frames / 3, frames) / amplitude);
}

}  // namespace

TEST(Equalizer, EveryBandDoesInItsMiddleWhatItIsSetToWhateverTheOthersAre) {
  std::mt19937 random(3);
  std::vector<std::vector<double>> settings{std::vector<double>(10, 16),
                                            std::vector<double>(10, -16),
                                            {16, -16, 16, -16, 16, -16, 16, -16, 16, -16},
                                            {0, 0, 0, 0, 0, 0, 0, 16, -16, 16}};
  for (int i = 0; i < 6; ++i) {
    std::vector<double>& gains = settings.emplace_back(10);
    for (double& gain : gains) gain = static_cast<double>(random() % 33) - 16;
  }
  for (const std::vector<double>& gains : settings) {
    for (std::size_t i = 0; i < 10; ++i) {
      EXPECT_NEAR(Gain(kTenBands, gains, Middle(kTenBands[i], kTenBands[i + 1])), gains[i], 0.5)
          << i;
    }
  }
  for (std::size_t i = 0; i < 19; ++i) {
    EXPECT_NEAR(Gain(kLoudness, kLoudnessGains, Middle(kLoudness[i], kLoudness[i + 1])),
                kLoudnessGains[i], 0.5)
        << i;
  }
}

TEST(Equalizer, AllAtZeroOrSwitchedOffLeavesEverySampleAsItIs) {
  const Sound hiss = Hiss(32768, 10'007);
  Equalizer equalizer;
  AddBands(equalizer, kTenBands, std::vector<double>(10, 6));
  EXPECT_EQ(Through(equalizer, hiss), hiss);
  equalizer.Enable();
  EXPECT_NE(Through(equalizer, hiss), hiss);
  for (int i = 0; i < 10; ++i) equalizer.Item(i).SetGain(0);
  Through(equalizer, hiss);
  EXPECT_EQ(Through(equalizer, hiss), hiss);
}

// While a slider moves up and down, only the level of the tone may change, without other noise.
TEST(Equalizer, ASliderThatMovesLeavesNoNoiseBesideTheTone) {
  for (const double hertz : {35.0, 775.0}) {
    Equalizer equalizer;
    AddBands(equalizer, kTenBands, std::vector<double>(10, 0));
    equalizer.Enable();
    std::mt19937 random(1);
    const auto turn = [&](std::size_t frame) {
      if (frame % 3072 != 0) return;
      equalizer.Item(static_cast<int>(random() % 10)).SetGain(random() % 2 == 0 ? 16 : -16);
    };
    EXPECT_LT(Rattle(equalizer, hertz, turn), -85) << hertz;
  }
}

TEST(Equalizer, NonsenseIsBroughtInsideAndABandThatIsNotThereIsAnError) {
  Equalizer equalizer;
  equalizer.Add(500, 100, 1e9);
  equalizer.Add(-1, 1e12, -1e9);
  equalizer.Add(30000, 40000, NAN);
  equalizer.Add(30000, 40000, 3);
  equalizer.Enable();
  const Sound out = Through(equalizer, Hiss(3000, 20'000));
  EXPECT_GT(Loudness(out, 10'000, 20'000), 1);
  for (const int index : {-1, 4}) {
    EXPECT_EQ(ErrorOf([&] { equalizer.Item(index); }), 9) << index;
  }
}

}  // namespace vantora::test
