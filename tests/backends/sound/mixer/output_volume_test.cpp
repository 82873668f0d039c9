#include "backends/sound/mixer/output_volume.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace vantora::test {

TEST(OutputVolume, FullLeavesEveryBitHalfIsAnEighthAndAChangeDoesNotClick) {
  OutputVolume volume;
  VolumeOnStream stream(volume);
  const std::vector<std::int16_t> loud = {32767, -32768, 1, -1, 801, 12};
  std::vector<std::int16_t> block = loud;
  stream.Apply(block.data(), 3);
  EXPECT_EQ(block, loud);

  volume.SetVolume(kFullVolume / 2);
  std::vector<std::int16_t> ramp(2 * 2000, 32767);
  stream.Apply(ramp.data(), 2000);
  for (std::size_t i = 2; i < ramp.size(); ++i) EXPECT_LE(std::abs(ramp[i] - ramp[i - 2]), 15);
  block = loud;
  stream.Apply(block.data(), 3);
  EXPECT_EQ(block, (std::vector<std::int16_t>{4096, -4096, 0, 0, 100, 2}));

  volume.SetOn(false);
  stream.Apply(ramp.data(), 2000);
  block = loud;
  stream.Apply(block.data(), 3);
  EXPECT_EQ(block, std::vector<std::int16_t>(6, 0));
}

}  // namespace vantora::test
