#include "backends/sound/edits/cutter.h"

#include "backends/sound/edits/wave_edits.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"

namespace vantora::test {

TEST(Cutter, ItTakesOutTheRangeAndNothingElse) {
  constexpr std::int64_t kFrames = 900'000;  // several blocks
  const std::string data = Noise(kFrames * 4), tail = Chunk("LIST", Noise(501, 2));
  const struct {
    std::int64_t First, Last;
  } cases[] = {{0, 1},
               {100, 50'100},
               {1, 600'001},
               {kFrames - 1, kFrames},
               {0, kFrames},
               {kFrames - 5, kFrames + 95},
               {kFrames, kFrames + 10},
               {5, 5},
               {5, 2},
               {-10, 20},
               {-10, 0},
               {700'000, INT64_MAX},
               {INT64_MIN, INT64_MAX}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.First);
    Home home;
    Put(home / "a.wav", Wave(data, tail));
    WaveEdits edits(home.Files, {});
    Cutter(home.Files, edits).Cut(L"C:\\a.wav", each.First, each.Last);
    std::string expected;
    for (std::int64_t frame = 0; frame < kFrames; ++frame) {
      const bool cut = frame >= each.First && frame < each.Last;
      if (!cut) expected.append(data, static_cast<std::size_t>(frame) * 4, 4);
    }
    EXPECT_TRUE(Get(home / "a.wav") == Wave(expected, tail));
  }
}

TEST(Cutter, ABlankFileOnlyAsksWhetherItIsThere) {
  Home home;
  WaveEdits edits(home.Files, {});
  Cutter cutter(home.Files, edits);
  EXPECT_EQ(ErrorOf([&] { cutter.Cut(L"", 0, 10); }), 0);
  EXPECT_EQ(ErrorOf([&] { cutter.Cut(L"C:\\none.wav", 0, 10); }), 53);
  Put(home / "b.txt", "no wave");
  EXPECT_EQ(ErrorOf([&] { cutter.Cut(L"C:\\b.txt", 0, 10); }), 57);
  EXPECT_EQ(Get(home / "b.txt"), "no wave");
}

}  // namespace vantora::test
