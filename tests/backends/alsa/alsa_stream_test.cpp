#include "backends/alsa/alsa_stream.h"

#include <gtest/gtest.h>

#include "tests/backends/alsa/listener.h"

#include <algorithm>

namespace vantora::test {

namespace {

class Streaming : public Listener {
 protected:
  // A source with this many frames.
  SoundOutput::Source Of(std::size_t frames) {
    return [left = frames](std::int16_t* target, std::size_t wanted) mutable {
      const std::size_t given = std::min(left, wanted);
      std::fill_n(target, given * 2, std::int16_t{2000});
      left -= given;
      return given;
    };
  }
  AlsaSoundOutput output{loop, volume};
};

}  // namespace

TEST_F(Streaming, ASoundIsHeardInItsTimeAndItsEndIsToldOnceOnTheInterfaceThread) {
  const double start = Now();
  const auto stream = output.Play(
      Of(44100 + 7), [this] { Note("ended"); }, kSoundAheadMs);
  Run(0.7);
  EXPECT_NEAR(static_cast<double>(stream->Heard()) / 44100, Now() - start, 0.5);
  EXPECT_LT(stream->Heard(), 44100);
  Run(4, "ended");
  EXPECT_EQ(Log, "ended");
  EXPECT_NEAR(Now() - start, 1.0, 0.4);
  EXPECT_EQ(stream->Heard(), 44100 + 7);
  Run(0.2);
  EXPECT_EQ(Log, "ended");
  EXPECT_FALSE(Elsewhere);
}

}  // namespace vantora::test
