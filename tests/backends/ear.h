// A sound card that can be listened to.
#pragma once

#include "backends/headless/headless_output.h"

namespace vantora::test {

// A sound output that stores the sound of all its streams.
class Ear final : public SoundOutput {
 public:
  explicit Ear(SoundOutput& card) : card_(card) {}
  std::unique_ptr<SoundStream> Play(Source source, std::function<void()> ended,
                                    int aheadMs) override {
    ++Streams;
    const auto listen = [this, source = std::move(source)](std::int16_t* target,
                                                           std::size_t frames) {
      const std::size_t given = source(target, frames);
      for (std::size_t i = 0; i < given; ++i) Left.push_back(target[2 * i]);
      Sound.append(reinterpret_cast<const char*>(target), given * 4);
      return given;
    };
    return card_.Play(listen, std::move(ended), aheadMs);
  }
  std::vector<std::int16_t> Left;
  std::string Sound;  // of both channels
  int Streams = 0;

 private:
  SoundOutput& card_;
};

}  // namespace vantora::test
