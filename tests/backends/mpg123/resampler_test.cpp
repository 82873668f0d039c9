#include "backends/mpg123/resampler.h"

#include <gtest/gtest.h>

#include "tests/backends/mpg123/tones.h"

#include <algorithm>
#include <random>

namespace vantora::test {

namespace {

constexpr long kRates[] = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 48000};
constexpr double kAmplitude = 0.9;

// One and a half seconds of two tones, resampled in blocks of random sizes.
std::vector<std::int16_t> Resampled(long rate, double left, double right, unsigned seed = 1) {
  Resampler resampler(rate);
  std::vector<float> in;
  const auto frames = static_cast<std::size_t>(rate) * 3 / 2;
  for (std::size_t i = 0; i < frames; ++i) {
    for (const double hertz : {left, right}) {
      const double angle =
          2 * std::numbers::pi * hertz / static_cast<double>(rate) * static_cast<double>(i);
      in.push_back(static_cast<float>(kAmplitude * std::sin(angle)));
    }
  }
  std::mt19937 random(seed);
  std::vector<std::int16_t> out;
  for (std::size_t done = 0; done < frames;) {
    const std::size_t some = std::min<std::size_t>(frames - done, random() % 1500);
    resampler.Push(&in[2 * done], some, out);
    done += some;
  }
  resampler.Flush(out);
  return out;
}

std::complex<double> Arrow(const std::vector<std::int16_t>& out, std::size_t channel,
                           double hertz) {
  const std::vector<double> sound = ChannelOf(out, channel);
  return ToneIn(sound, hertz, 44100, 4000, sound.size() - 4000);
}

double Measured(const std::vector<std::int16_t>& out, std::size_t channel, double hertz) {
  return std::abs(Arrow(out, channel, hertz));
}

}  // namespace

TEST(Resampler, TonesKeepTheirLevelAndPlaceUpTo18KilohertzAndLeaveNoImages) {
  for (const long rate : kRates) {
    const double hertz = static_cast<double>(rate);
    const double flat = 18000 * std::min(1.0, hertz / 44100);
    for (const double part : {0.02, 0.6, 1.0}) {
      const double tone = part * flat;
      SCOPED_TRACE(std::to_string(rate) + " " + std::to_string(tone));
      const auto out = Resampled(rate, tone, tone * 0.9);
      EXPECT_EQ(out, Resampled(rate, tone, tone * 0.9, 99)) << "in other blocks";
      EXPECT_NEAR(Decibels(Measured(out, 0, tone) / kAmplitude), 0, 0.02);
      const double turn = 2 * std::numbers::pi * tone / 44100;
      EXPECT_NEAR(std::arg(Arrow(out, 0, tone)) / turn, 0, 0.001) << "frames";
      EXPECT_LT(Decibels(Measured(out, 1, tone)), -95) << "the channels must not mix";
      for (double centre = hertz; centre - tone < 22000; centre += hertz) {
        for (const double image : {centre - tone, centre + tone}) {
          if (image > 22000) continue;
          EXPECT_LT(Decibels(Measured(out, 0, image) / kAmplitude), -95) << image;
        }
      }
    }
  }
  // A tone too high for 44.1 kHz would be aliased into the audible range.
  const double tone = 23990, alias = 44100 - tone;
  EXPECT_LT(Decibels(Measured(Resampled(48000, tone, 0), 0, alias) / kAmplitude), -95);
}

TEST(Resampler, NFramesInMakeNTimesTheRatioRoundedUp) {
  for (const long rate : kRates) {
    for (const std::size_t frames : {0U, 1U, 2U, 79U, 80U, 1000U, 12345U}) {
      Resampler resampler(rate);
      std::vector<std::int16_t> out;
      const std::vector<float> in(2 * frames, 0.5F);
      resampler.Push(in.data(), frames, out);
      resampler.Flush(out);
      const auto wide = static_cast<std::int64_t>(frames);
      EXPECT_EQ(static_cast<std::int64_t>(out.size()), 2 * ((wide * 44100 + rate - 1) / rate));
      if (frames >= 1000) {
        EXPECT_EQ(out[out.size() / 2], 16384) << "a constant passes as it is";
      }
    }
  }
}

TEST(Resampler, WhatIsTooLoudIsCutNotTurnedOver) {
  Resampler resampler(48000);
  std::vector<float> in(2000);
  for (std::size_t i = 0; i < in.size(); ++i) in[i] = i % 2 == 0 ? 1.5F : -1.5F;
  std::vector<std::int16_t> out;
  resampler.Push(in.data(), in.size() / 2, out);
  resampler.Flush(out);
  for (std::size_t i = 200; i < 1600; ++i) ASSERT_EQ(out.at(i), i % 2 == 0 ? 32767 : -32768);
}

}  // namespace vantora::test
