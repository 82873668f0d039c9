#include "backends/sound/effects/flanger.h"

#include <gtest/gtest.h>

#include "tests/backends/sound/chain_sounds.h"

#include <complex>

namespace vantora::test {

namespace {

struct Knobs {
  int Dry, Wet, FeedBack;
  float Depth, Rate;
};

void Turn(Flanger& flanger, const Knobs& knobs) {
  flanger.SetDryMix(knobs.Dry);
  flanger.SetWetMix(knobs.Wet);
  flanger.SetFeedBack(knobs.FeedBack);
  flanger.SetDepth(knobs.Depth);
  flanger.SetRate(knobs.Rate);
}

Sound Flanged(const Sound& sound, const Knobs& knobs) {
  Flanger flanger;
  Turn(flanger, knobs);
  flanger.Enable();
  return Through(flanger, sound);
}

Sound MonoSum(Sound sound) {
  for (std::size_t n = 0; n < sound.size(); n += 2) {
    sound[n] = sound[n + 1] = Sample((sound[n] + sound[n + 1]) / 2.0);
  }
  return sound;
}

}  // namespace

TEST(Flanger, WithoutASwingItIsACombInTheMiddleOfTheWay) {
  for (const float depth : {0.0F, 50.0F, 99.0F}) {
    for (const int feedback : {0, 70}) {
      for (const double hertz : {900.0, 1234.0, 5000.0, 9001.0}) {
        const Knobs knobs{60, 40, feedback, depth, 0};
        const Sound out = MonoSum(Flanged(Sine(hertz, 8000, 30'000), knobs));
        const auto turned = [&](double frames) {
          return std::polar(1.0, -2 * std::numbers::pi * hertz / 44100 * frames);
        };
        const double f = feedback / 100.0;
        const std::complex<double> slow = 0.02 / (1.0 - 0.98 * turned(1));
        const std::complex<double> late = turned(4 + depth / 100.0 * 249 / 2);
        const std::complex<double> wet =
            late * std::sqrt(1 - f * f) / (1.0 - f * late * (1.0 - slow));
        EXPECT_NEAR(Amplitude(out, hertz, 10'000, 30'000), 8000 * std::abs(0.6 + 0.4 * wet), 40)
            << depth << " " << feedback << " " << hertz;
      }
    }
  }
}

TEST(Flanger, ItSwingsAsOftenAsItsRateSays) {
  for (const float rate : {0.5F, 2.0F, 5.0F}) {
    const Sound out = Flanged(Sine(2000, 8000, 200'000), {50, 50, 0, 90, rate});
    const auto turn = static_cast<std::size_t>(44100 / rate);
    double apart = 0;
    for (std::size_t at = 5000; at < 5000 + turn; at += turn / 40) {
      const auto now = [&](std::size_t frame) { return Amplitude(out, 2000, frame, frame + 400); };
      EXPECT_NEAR(now(at), now(at + turn), 80) << rate;
      apart = std::max(apart, std::abs(now(at) - now(at + turn / 2 + turn / 7)));
    }
    EXPECT_GT(apart, 2000) << rate;
  }
}

TEST(Flanger, ABrightToneGainsNoProducts) {
  const Sound out = Flanged(Sine(12'000, 10'000, 70'000), {50, 50, 0, 50, 0.5F});
  double strongest = 0;
  // The modulation itself moves the tone by up to 53 Hz.
  for (double off = 100; off < 250; off += 1) {
    for (const double hertz : {12'000 - off, 12'000 + off}) {
      strongest = std::max(strongest, Amplitude(out, hertz, 20'000, 64'100));
    }
  }
  EXPECT_LT(Decibels(strongest / 10'000), -60);
  // A slow modulation gathers all products in few lines: they are what the loudness of the tone
  // varies by between the delays.
  double sum = 0, squares = 0;
  constexpr int kDelays = 16;  // two frames
  for (int i = 0; i < kDelays; ++i) {
    const auto depth = static_cast<float>(30 + i * 0.1004);
    const Sound still = MonoSum(Flanged(Sine(12'000, 10'000, 12'000), {0, 99, 0, depth, 0}));
    const double level = Amplitude(still, 12'000, 2000, 11'975) / 10'000;
    sum += level, squares += level * level;
  }
  const double mean = sum / kDelays;
  EXPECT_LT(Decibels(std::sqrt(squares / kDelays - mean * mean) / mean), -60);
}

TEST(Flanger, TheMonoSumIsAsLoudAsTheSound) {
  Sound mono = Hiss(8000, 100'000);
  for (std::size_t n = 0; n < mono.size(); n += 2) mono[n + 1] = mono[n];
  const Sound out = Flanged(mono, {1, 99, 50, 80, 1});
  const Sound sum = MonoSum(out);
  double wide = 0;
  for (std::size_t n = 0; n < out.size(); n += 2) wide += std::abs(out[n] - out[n + 1]);
  // The interpolation attenuates the highest frequencies of the noise a little.
  EXPECT_NEAR(Decibels(Loudness(sum, 5000, 100'000) / Loudness(mono, 5000, 100'000)), 0, 2);
  EXPECT_GT(wide / 100'000, 1000);
}

TEST(Flanger, ItStaysStableAtFullFeedbackAndFallsSilentAfterwards) {
  for (const float rate : {0.0F, 0.1F, 5.0F}) {
    constexpr std::size_t kSecond = 44'100;
    Sound sound = Hiss(6000, 20 * kSecond);
    sound.resize(80 * kSecond);
    const Sound out = Flanged(sound, {1, 99, 99, 99, rate});
    const double early = Loudness(out, 2 * kSecond, 6 * kSecond);
    EXPECT_LT(Decibels(Loudness(out, 16 * kSecond, 20 * kSecond) / early), 1) << rate;
    EXPECT_LT(Decibels(early / Loudness(sound, 0, kSecond)), 3) << rate;
    EXPECT_EQ(Loudness(out, 39 * kSecond, 40 * kSecond), 0) << rate;
  }
}

TEST(Flanger, DryOrOffItLeavesEverySampleAndItsKnobsDoNotRattle) {
  const Sound hiss = Hiss(32'768, 20'000);
  EXPECT_EQ(Flanged(hiss, {100, 0, 80, 80, 3}), hiss);
  Flanger flanger;
  Turn(flanger, {20, 80, 80, 80, 3});
  EXPECT_EQ(Through(flanger, hiss), hiss);
  flanger.Enable();
  std::mt19937 random(2);
  const auto turn = [&](std::size_t frame) {
    if (frame % 3072 != 0) return;
    const auto knob = [&](unsigned most) { return static_cast<int>(random() % (most + 1)); };
    Turn(flanger, {knob(100), knob(100), knob(99), static_cast<float>(knob(99)),
                   static_cast<float>(knob(5))});
    if (frame % 9216 == 0) flanger.Disable();
    flanger.Enable();
  };
  EXPECT_LT(Rattle(flanger, 150, turn), -80);
}

}  // namespace vantora::test
