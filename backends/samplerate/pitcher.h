// Changes the pitch of the sound with libsamplerate. The filter needs later frames, so this
// component reads ahead; its position and length do not show that.
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
  std::size_t Bend(std::size_t frames, double speed);  // result in `out_`
  std::vector<float> Missing() const;
  void Load(const MMData& data);
  void Fetch();

  Filter state_;      // exists from the first resampled buffer on
  float start_ = 0;   // the pitch at the start of the sound
  double speed_ = 1;  // at the end of the last resampled buffer
  Floats in_{}, out_{};
  std::size_t inAt_ = 0, inFrames_ = 0;  // input that has been read and not used
  bool over_ = false;                    // the input has ended
  MMData last_;                          // passed on unchanged last
};

}  // namespace vantora
