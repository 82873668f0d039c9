#include <gtest/gtest.h>

#include "backends/headless/headless_loop.h"
#include "backends/sound/audio_library.h"
#include "backends/sound/spectrum/waterfall_view.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace vantora {
namespace {

constexpr int kBlock = 1024;

std::vector<std::int16_t> Tone(double hertz, double amplitude, int blocks, int from = 0) {
  std::vector<std::int16_t> sound(static_cast<std::size_t>(blocks) * kBlock);
  for (std::size_t i = static_cast<std::size_t>(from) * kBlock; i < sound.size(); ++i) {
    const double turn = 2 * std::numbers::pi * hertz / 44100;
    sound[i] = static_cast<std::int16_t>(
        std::lround(500 + amplitude * std::sin(turn * static_cast<double>(i))));
  }
  return sound;
}

TEST(Spectrum, AToneStandsAtItsPlaceWithItsLevelAndAlone) {
  for (const double hertz : {430.0, 1000.0, 3333.3, 9999.0, 21000.0}) {
    for (const double level : {0.0, -12.0, -40.0}) {
      Spectrum spectrum(70);
      spectrum.Transform(Tone(hertz, 32000 * std::pow(10, level / 20), 3).data(), 3, kBlock, 1);
      for (int block = 0; block < 3; ++block) {
        int highest = 0;
        for (int bin = 0; bin < spectrum.Bins(); ++bin) {
          if (spectrum.Level(block, bin) > spectrum.Level(block, highest)) highest = bin;
        }
        EXPECT_NEAR(highest * spectrum.BinHertz(), hertz, spectrum.BinHertz() / 2 + 0.1);
        EXPECT_NEAR(spectrum.Level(block, highest), level - 0.6, 0.6) << hertz;
        for (int bin = 0; bin < spectrum.Bins(); ++bin) {
          if (std::abs(bin - highest) <= 5) continue;
          EXPECT_LT(spectrum.Level(block, bin), std::max(level - 80, -100.0))
              << hertz << " " << bin;
        }
      }
    }
  }
}

class Waterfall : public testing::Test {
 protected:
  void Draw(const std::vector<std::int16_t>& sound, int blocks) {
    picture.Cls();
    library.func_15(70);
    library.func_17(sound.data(), blocks, kBlock, 1);
    library.func_18(picture, height, width, L"frequency", L"time");
    library.func_16();
  }
  struct Spot {
    int X, Y;
  };
  // Calls `look` with each point of all areas.
  template <class Look>
  void AtPoints(Look look) const {
    for (const DrawItem& item : picture.Drawing()) {
      const std::vector<int>& at = item.Points;
      if (item.Kind != DrawItem::What::Polygon) continue;
      for (std::size_t i = 0; i < at.size(); i += 2) look(item, Spot{at[i], at[i + 1]});
    }
  }
  // The highest point of the front face, whose areas have no edge line.
  Spot Peak() const {
    Spot peak{0, height};
    AtPoints([&](const DrawItem& item, Spot at) {
      if (item.Ink == kTransparent && at.Y < peak.Y) peak = at;
    });
    return peak;
  }
  // Top and bottom of everything that rises from the floor, which is the first area.
  Spot Behind() const {
    Spot extent{height, 0};
    const DrawItem* floor = nullptr;
    AtPoints([&](const DrawItem& item, Spot at) {
      if (floor == nullptr) floor = &item;
      if (floor != &item) extent = {std::min(extent.X, at.Y), std::max(extent.Y, at.Y)};
    });
    return extent;
  }
  std::optional<int> LabelAt(const Text& words) const {
    for (const DrawItem& item : picture.Drawing()) {
      if (item.Kind == DrawItem::What::Words && item.Content == words) return item.Points[0];
    }
    return std::nullopt;
  }
  std::size_t Areas() const {
    return static_cast<std::size_t>(
        std::count_if(picture.Drawing().begin(), picture.Drawing().end(),
                      [](const DrawItem& item) { return item.Kind == DrawItem::What::Polygon; }));
  }

  int width = 15360, height = 10500;
  AudioLibrary library;
  HeadlessClock clock;
  HeadlessLoop loop{clock};
  Form form{loop, L"form"};
  PictureBox picture{form, L"picture"};
};

TEST_F(Waterfall, ShowsATonesPeakOverItsNumberAndKeepsWithinThePictureAtEverySize) {
  const int sizes[][2] = {{15360, 11520}, {12000, 8000}, {3000, 2000}, {2000, 3000}};
  for (const auto& size : sizes) {
    width = size[0], height = size[1];
    for (const auto& [hertz, label] : {std::pair{1000, L"1k"}, {10000, L"10k"}}) {
      for (const int blocks : {1, 2, 4, 35, 70}) {
        Draw(Tone(hertz, 20000, blocks), blocks);
        const auto at = LabelAt(label);
        ASSERT_TRUE(at) << width;
        EXPECT_NEAR(Peak().X, *at, width / 40.0) << hertz << " in " << width << "x" << height;
        EXPECT_TRUE(LabelAt(L"frequency") && LabelAt(L"time") && LabelAt(L"0"));
        std::size_t points = 0;
        for (const DrawItem& item : picture.Drawing()) {
          points += item.Points.size() / 2;
          for (std::size_t i = 0; i < item.Points.size(); i += 2) {
            ASSERT_TRUE(item.Points[i] >= 0 && item.Points[i] <= width);
            ASSERT_TRUE(item.Points[i + 1] >= 0 && item.Points[i + 1] <= height);
          }
        }
        EXPECT_LT(points, 40000U);
      }
    }
  }
}

TEST_F(Waterfall, LetsLaterBlocksStandFartherBackAndLouderOnesHigher) {
  Draw(Tone(3000, 20000, 70), 70);
  const Spot whole = Behind();
  Draw(Tone(3000, 20000, 70, 60), 70);
  EXPECT_LT(Behind().Y, whole.Y) << "the late tone reaches the front edge";
  EXPECT_EQ(Behind().X, whole.X) << "the late tone does not stand at the back";

  std::vector<std::int16_t> loudAndSoft = Tone(3000, 20000, 4);
  const std::vector<std::int16_t> soft = Tone(800, 200, 4);
  for (std::size_t i = 0; i < soft.size(); ++i) {
    loudAndSoft[i] = static_cast<std::int16_t>(loudAndSoft[i] + soft[i]);
  }
  Spectrum spectrum(70);
  spectrum.Transform(loudAndSoft.data(), 4, kBlock, 1);
  const WaterfallView view(spectrum, width, height);
  EXPECT_NEAR(view.Up(spectrum.Level(0, 70)) - view.Up(spectrum.Level(0, 19)), 40.0 / 70, 0.03);
}

TEST_F(Waterfall, OfSilenceIsTheFloorWithItsScalesAndOfNothingNothing) {
  Draw(std::vector<std::int16_t>(4UL * kBlock), 4);
  EXPECT_EQ(Areas(), 1U);
  EXPECT_TRUE(LabelAt(L"0") && LabelAt(L"100") && LabelAt(L"frequency"));
  Draw({}, 0);
  EXPECT_TRUE(picture.Drawing().empty());
  library.func_17(Tone(1000, 1000, 1).data(), 1, kBlock, 1);  // no spectrum has been begun
  library.func_18(picture, height, width, L"", L"");
  EXPECT_TRUE(picture.Drawing().empty());
}

}  // namespace
}  // namespace vantora
