// Bends the sound with libsamplerate, in float until it is rounded once, ties to even. Its filter
// needs to see ahead, so it reads ahead; place and length of the sound show nothing of that.
#pragma once

#include "platform/mmchain.h"

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

struct SRC_STATE_tag;

namespace vantora {

class Pitcher final : public MMPitchX {
 public:
  void Rewind() override;
  void Pull(MMData& data) override;

 private:
  static constexpr std::size_t kFrames = kBufferBytes / 4;
  using Floats = std::array<float, 2 * kFrames>;
  struct Delete {
    void operator()(SRC_STATE_tag* state) const;
  };

  using Filter = std::unique_ptr<SRC_STATE_tag, Delete>;

  static Filter NewFilter();
  void Begin();
  std::size_t Bend(std::size_t frames, double speed);  // into `out_`
  std::vector<float> Missing() const;
  void Load(const MMData& data);
  void Fetch();

  Filter state_;      // from the first bent buffer on
  float start_ = 0;   // the pitch that the sound begins with
  double speed_ = 1;  // at the end of the last bent buffer
  Floats in_{}, out_{};
  std::size_t inAt_ = 0, inFrames_ = 0;  // of what was read and not yet used
  bool over_ = false;                    // nothing more comes in
  MMData last_;                          // that has passed as it was
};

}  // namespace vantora
