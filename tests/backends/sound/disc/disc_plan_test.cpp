#include "backends/sound/disc/disc_plan.h"

#include <gtest/gtest.h>

#include "platform/cd_sound.h"

namespace vantora::test {

// Checks the start sector of each track, and the bytes of silence that fill it up.
TEST(DiscPlan, OneStreamIsFilledOnlyBehindATrackThatIsTooShortAndAtTheEnd) {
  constexpr std::int64_t kSector = kSectorBytes;
  const std::vector<DiscPart> waves = {
      {L"a", 44, 9 * kSector + 8}, {L"b", 44, 2 * kSector}, {L"c", 44, 5 * kSector + 4}};
  const struct {
    DiscRules Rules;
    std::vector<std::int64_t> Starts, Silence;
  } cases[] = {{{true, 150, 1}, {0, 9, 11}, {0, 0, kSector - 12}},
               {{true, 150, 4}, {0, 9, 13}, {0, 2 * kSector - 8, kSector - 4}},
               {{false, 150, 4}, {0, 160, 314}, {kSector - 8, 2 * kSector, kSector - 4}}};
  for (const auto& each : cases) {
    const std::vector<PlannedTrack> tracks = PlanDisc(waves, each.Rules);
    ASSERT_EQ(tracks.size(), waves.size());
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      EXPECT_EQ(tracks[i].Start, each.Starts[i]);
      std::int64_t bytes = 0, silence = 0;
      for (const DiscPart& part : tracks[i].Parts) {
        bytes += part.Bytes;
        if (part.File.empty()) silence += part.Bytes;
      }
      EXPECT_EQ(bytes, tracks[i].Sectors * kSector);
      EXPECT_EQ(silence, each.Silence[i]);
    }
  }
}

}  // namespace vantora::test
