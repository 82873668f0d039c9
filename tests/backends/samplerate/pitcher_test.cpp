#include "backends/samplerate/pitcher.h"

#include <gtest/gtest.h>

#include "tests/backends/sound/chain_sounds.h"

#include <complex>

namespace vantora::test {

namespace {

constexpr std::size_t kBuffer = 1024;  // frames
constexpr double kRate = 44100;

// A linear change of pitch from `From` to `To` over `Frames` output frames.
struct Slide {
  float From, To;
  std::size_t Frames;
  double Speed(double frame) const {
    return 1 + 0.0016 * (From + (To - From) * frame / static_cast<double>(Frames));
  }
  // The position in the source that is heard at an output frame.
  double Place(double frame) const { return frame * (Speed(0) + Speed(frame)) / 2; }
};

Sound Slid(const Sound& sound, const Slide& slide) {
  Pitcher pitcher;
  pitcher.Pitch = slide.From;
  pitcher.Rewind();
  return Through(pitcher, sound, [&](std::size_t frame) {
    const double place = static_cast<double>(frame + kBuffer) / static_cast<double>(slide.Frames);
    pitcher.Pitch = slide.From + (slide.To - slide.From) * static_cast<float>(place);
  });
}

// A part of a sound, measured against a sine with the expected phase: its amplitude and phase
// error, and the level of everything else.
struct Heard {
  std::complex<double> Arrow;
  double RestDb = 0;
};

template <class Phase>
Heard Listen(const Sound& sound, std::size_t from, std::size_t frames, Phase phase) {
  double cc = 0, cs = 0, ss = 0, xc = 0, xs = 0, xx = 0;
  for (std::size_t n = from; n < from + frames; ++n) {
    const double angle = phase(static_cast<double>(n)), x = sound[2 * n];
    const double c = std::cos(angle), s = std::sin(angle);
    cc += c * c;
    cs += c * s;
    ss += s * s;
    xc += x * c;
    xs += x * s;
    xx += x * x;
  }
  const double det = cc * ss - cs * cs;
  const double a = (xc * ss - xs * cs) / det, b = (xs * cc - xc * cs) / det;
  return {{b, a}, 10 * std::log10(std::max(xx - a * xc - b * xs, 1e-9) / xx)};
}

}  // namespace

TEST(Pitcher, ASineSlidesByTheLawAndStaysClean) {
  const Slide slides[] = {{0, 26.04F, 441'000}, {0, -26.04F, 441'000}, {0, 50, 44'100},
                          {0, -140, 88'200},    {0, 140, 44'100},      {-50, -50, 44'100}};
  for (const Slide& slide : slides) {
    for (const double hertz : {440.0, 3000.0, 12'000.0}) {
      SCOPED_TRACE(testing::Message() << slide.To << " " << hertz);
      const Sound out = Slid(Sine(hertz, 30'000, slide.Frames), slide);
      const std::size_t whole = std::min(slide.Frames, out.size() / 2) / kBuffer * kBuffer;
      const auto phase = [&](double frame) {
        return 2 * std::numbers::pi * hertz * slide.Place(frame) / kRate;
      };
      double worst = -200, turn = 0, before = 0;
      // A sound that starts with another pitch has no sound before it, so its first frames are not
      // a sine.
      const std::size_t start = slide.From == 0 ? 0 : kBuffer;
      for (std::size_t n = start; n + 2 * kBuffer < whole; n += kBuffer) {
        const Heard heard = Listen(out, n, kBuffer, phase);
        worst = std::max(worst, heard.RestDb);
        ASSERT_NEAR(std::abs(heard.Arrow), 30'000, 300) << n;
        // A frequency error of 0.1 % changes the phase by a known amount per buffer.
        if (n > start) {
          turn = std::max(
              turn, std::abs(std::remainder(std::arg(heard.Arrow) - before, 2 * std::numbers::pi)));
        }
        before = std::arg(heard.Arrow);
      }
      EXPECT_LT(worst, -90);
      EXPECT_LT(turn, 0.001 * 2 * std::numbers::pi * hertz * kBuffer / kRate);
      EXPECT_LT(std::abs(before), 0.02) << "the sound is where the law puts it";
    }
  }
}

TEST(Pitcher, TheLengthFollowsTheLawAndNothingOfTheEndIsLost) {
  for (const float pitch : {-150.0F, -26.0F, 26.0F, 150.0F}) {
    const Sound hiss = Hiss(9000, 50'000);
    const Sound out = Slid(hiss, {pitch, pitch, 50'000});
    EXPECT_NEAR(static_cast<double>(out.size() / 2), 50'000 / (1 + 0.0016 * pitch), 2);
    Sound click(2 * 50'000);
    click[2 * 49'900] = click[2 * 49'900 + 1] = 20'000;
    const Sound bent = Slid(click, {pitch, pitch, 50'000});
    const auto peak = std::max_element(bent.begin(), bent.end());
    EXPECT_NEAR(static_cast<double>(peak - bent.begin()) / 2, 49'900 / (1 + 0.0016 * pitch), 1);
  }
}

TEST(Pitcher, AtZeroItIsACopyAndWhenItSetsInLaterNothingClicks) {
  const Sound hiss = Hiss(32'768, 30'001);
  EXPECT_EQ(Slid(hiss, {0, 0, 30'000}), hiss);
  for (const float pitch : {0.001F, 3.0F, -1e9F, 1e30F}) {
    Pitcher pitcher;
    const auto turn = [&](std::size_t frame) {
      pitcher.Pitch = frame >= 20 * kBuffer && frame < 40 * kBuffer ? pitch : 0.0F;
    };
    EXPECT_LT(Rattle(pitcher, 150, turn), -80) << pitch;
  }
  Pitcher pitcher;
  pitcher.Pitch = std::nanf("");
  EXPECT_GT(Through(pitcher, hiss).size(), hiss.size());
}

}  // namespace vantora::test
