#include "backends/sound/files/wave_layout.h"

#include <gtest/gtest.h>

#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"

namespace vantora::test {

TEST(WaveLayout, WhatLiesBehindOddDataBeginsWithItsNameFilledUpOrNot) {
  const std::string fmt = Chunk("fmt ", Format{}.Bytes()), list = Chunk("LIST", "INFOwxyz");
  const std::string odd = Noise(5), data = "data" + Number(5, 4) + odd;
  const std::string zero(1, '\0');
  const struct {
    const char* What;
    std::string Bytes;
    std::size_t Tail;  // bytes at the end of the file
  } cases[] = {
      {"filled up", Riff(fmt + data + zero + list), list.size()},
      {"filled up with a letter", Riff(fmt + data + "x" + list), list.size()},
      {"not filled up", Riff(fmt + data + list), list.size()},
      {"filled up, nothing behind", Riff(fmt + data + zero), 0},
      {"nothing behind", Riff(fmt + data), 0},
      {"odd and not filled up in front", Riff("LIST" + Number(3, 4) + "abc" + list + fmt + data),
       0},
  };
  Home home;
  for (const auto& each : cases) {
    Put(home / "a.wav", each.Bytes);
    const auto file = home.Files.Open(L"C:\\a.wav", Zugriff::Lesen);
    const WaveLayout layout = ReadWaveLayout(*file);
    EXPECT_EQ(each.Bytes.substr(static_cast<std::size_t>(layout.DataOffset), 5), odd) << each.What;
    EXPECT_EQ(layout.TailBytes, static_cast<std::int64_t>(each.Tail)) << each.What;
    EXPECT_EQ(layout.TailOffset + layout.TailBytes, std::ssize(each.Bytes)) << each.What;
  }
}

}  // namespace vantora::test
