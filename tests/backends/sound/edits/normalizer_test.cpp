#include "backends/sound/edits/normalizer.h"

#include "backends/sound/edits/wave_edits.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"

#include <cmath>
#include <random>

namespace vantora::test {

TEST(Normalizer, ThePeakReachesItsShareAndEverySampleFollows) {
  const std::string tail = Chunk("LIST", Noise(33, 4));
  const struct {
    int Low, High, Percent, Target;
  } cases[] = {{-100, 100, 100, 32767},     {-1, 0, 100, 32767},     {-32768, 32767, 100, 32767},
               {-2, 2, 50, 16384},          {-32768, 10, 98, 32112}, {-7000, 20000, 1, 328},
               {-32767, 32767, 100, 32767}, {-5, 5, 0, 0},           {0, 0, 100, 0}};
  for (const auto& each : cases) {
    for (const std::size_t count : {1U, 2U, 131'071U, 131'072U, 700'003U}) {
      SCOPED_TRACE(each.High);
      std::mt19937 random(7);
      std::vector<std::int16_t> samples(count);
      for (auto& sample : samples) {
        const auto span = static_cast<unsigned>(each.High - each.Low + 1);
        sample = static_cast<std::int16_t>(each.Low + static_cast<int>(random() % span));
      }
      samples[count / 2] = static_cast<std::int16_t>(each.Low);
      samples.back() = static_cast<std::int16_t>(
          std::max(each.High, -each.Low) == -each.Low ? each.Low : each.High);
      Home home;
      Put(home / "a.wav", Wave(BytesOf(samples) + "x", tail));
      std::vector<std::pair<int, int>> heard;
      WaveEdits edits(home.Files, {});
      NormalizeWaveFile(
          home.Files, edits, L"C:\\a.wav",
          [&heard](int phase, int percent) { heard.emplace_back(phase, percent); }, each.Percent);
      const int peak = std::max(each.High, -each.Low);
      const std::string written = Get(home / "a.wav");
      ASSERT_GE(written.size(), 44 + 2 * count);
      const std::vector<std::int16_t> now = SamplesOf(written.substr(44, 2 * count));
      EXPECT_TRUE(written == Wave(BytesOf(now) + "x", tail));
      EXPECT_EQ(std::abs(now.back()), peak > 0 ? each.Target : 0);
      const double factor = peak > 0 ? static_cast<double>(each.Target) / peak : 1;
      double farthest = 0;
      for (std::size_t i = 0; i < count; ++i) {
        farthest = std::max(farthest, std::abs(now[i] - samples[i] * factor));
      }
      EXPECT_LE(farthest, 0.5 + 1.0 / 256);
      EXPECT_TRUE(std::is_sorted(heard.begin(), heard.end()));
      EXPECT_EQ(std::adjacent_find(heard.begin(), heard.end()), heard.end());
      EXPECT_EQ(heard.front(), std::pair(0, 0));
      EXPECT_EQ(heard.back(), std::pair(peak > 0 && peak != each.Target ? 1 : 0, 100));
    }
  }
}

TEST(Normalizer, WhatItCannotBringToFullScaleStaysAsItIs) {
  Home home;
  WaveEdits edits(home.Files, {});
  const std::string cases[] = {Wave(""), Wave("x"), Wave(std::string(5000, '\0')),
                               Wave(Noise(99), "", Format{1, 2, 44100, 8}), "no wave"};
  for (const std::string& bytes : cases) {
    Put(home / "a.wav", bytes);
    const int error = ErrorOf([&] { NormalizeWaveFile(home.Files, edits, L"C:\\a.wav", {}, 100); });
    EXPECT_EQ(error, &bytes - cases < 3 ? 0 : 57);
    EXPECT_EQ(Get(home / "a.wav"), bytes);
  }
}

}  // namespace vantora::test
