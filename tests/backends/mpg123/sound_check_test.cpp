#include "backends/mpg123/sound_check.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace vantora::test {

TEST(SoundCheck, SoundThatBecomesZeroFromOneSampleToTheNextIsNone) {
  constexpr std::size_t kFrames = 1152;
  const std::vector<std::int16_t> loud(2 * kFrames, 5000), none(2 * kFrames, 0);
  std::vector<std::int16_t> half = loud, ebbing = loud, quiet(2 * kFrames, 100);
  std::fill(half.begin() + kFrames, half.end(), std::int16_t{0});
  for (std::size_t i = 0; i < ebbing.size(); ++i) {
    ebbing[i] = static_cast<std::int16_t>(5000 - 5000 * i / ebbing.size());
  }
  const struct {
    std::vector<std::vector<std::int16_t>> Blocks;
    bool Sound;  // expected for the last block
  } cases[] = {{{none}, true},         {{loud, none}, false}, {{half}, false},
               {{ebbing, none}, true}, {{quiet, none}, true}, {{none, loud}, true}};
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    SoundCheck check;
    bool sound = false;
    for (const auto& block : each.Blocks) sound = check.Sound(block.data(), kFrames);
    EXPECT_EQ(sound, each.Sound);
  }
}

}  // namespace vantora::test
