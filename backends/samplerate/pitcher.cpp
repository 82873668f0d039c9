#include "backends/samplerate/pitcher.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <samplerate.h>
#include <string_view>

namespace vantora {

namespace {

constexpr double kUnit = 0.0016;  // change of speed per unit of pitch
constexpr double kSlowest = 0.25, kFastest = 4;
// The library changes its ratio linearly. The ratio is the inverse of the speed, which should
// change linearly. Over this many frames the difference does not matter.
constexpr std::size_t kStretch = 64;
// A little more than the number of frames that the filter reads back.
constexpr std::size_t kBack = 48;

double SpeedOf(float pitch) {
  const double speed = 1 + kUnit * static_cast<double>(pitch);
  if (!(speed > kSlowest)) return kSlowest;  // also for NaN
  return std::min(speed, kFastest);
}

void Check(int error) {
  if (error == 0) return;
  const std::string_view what = src_strerror(error);
  throw Laufzeitfehler(kFehlerEinAusgabe, Text(what.begin(), what.end()));
}

}  // namespace

void Pitcher::Delete::operator()(SRC_STATE_tag* state) const {
  src_delete(state);
}

Pitcher::Filter Pitcher::NewFilter() {
  int error = 0;
  Filter filter(src_new(SRC_SINC_MEDIUM_QUALITY, kChannels, &error));
  Check(error);
  return filter;
}

void Pitcher::Rewind() {
  state_.reset();
  start_ = Pitch;
  inAt_ = inFrames_ = 0;
  over_ = false;
  last_.Bytes = 0;
  MMPitchX::Rewind();
}

void Pitcher::Pull(MMData& data) {
  if (!state_ && start_ == 0 && Pitch == 0) {
    MMPitchX::Pull(data);
    last_ = data;
    return;
  }
  const bool first = !state_ && start_ == 0 && last_.Bytes < 4;
  if (!state_) Begin();
  std::vector<float> missing;
  if (first) {
    Fetch();
    missing = Missing();
  }
  const double speed = SpeedOf(Pitch);
  const std::size_t frames = Bend(kFrames, speed);
  speed_ = speed;
  for (std::size_t n = 0; n < missing.size(); ++n) out_[n] += missing[n];
  std::copy_n(out_.begin(), kChannels * frames, data.Samples.begin());
  data.Bytes = frames * 4;
}

// The new filter first processes the sound that has just passed, so that the change of speed begins
// without a click.
void Pitcher::Begin() {
  state_ = NewFilter();
  speed_ = SpeedOf(start_);
  if (last_.Bytes < 4) return;
  Load(last_);
  Bend(last_.Bytes / 4, speed_);
}

// Resamples while the speed slides from `speed_` to `speed`. Returns `frames`, or fewer at the end
// of the sound. The distance between two output frames follows the speed at that moment.
std::size_t Pitcher::Bend(std::size_t frames, double speed) {
  const double slope = (speed - speed_) / static_cast<double>(frames);
  const auto ratio = [&](std::size_t frame) {
    return 1 / (speed_ + slope * (static_cast<double>(frame) + 0.5));
  };
  std::size_t done = 0;
  while (done < frames) {
    const std::size_t some = std::min(kStretch, frames - done);
    SRC_DATA step{};
    step.data_in = in_.data() + kChannels * inAt_;
    step.input_frames = static_cast<long>(inFrames_);
    step.data_out = out_.data() + kChannels * done;
    step.output_frames = static_cast<long>(some);
    step.end_of_input = over_ ? 1 : 0;
    step.src_ratio = ratio(done + some);
    Check(src_set_ratio(state_.get(), ratio(done)));
    Check(src_process(state_.get(), &step));
    inAt_ += static_cast<std::size_t>(step.input_frames_used);
    inFrames_ -= static_cast<std::size_t>(step.input_frames_used);
    // With no input, the library would place the output behind the end of `in_`.
    if (inFrames_ == 0) inAt_ = 0;
    done += static_cast<std::size_t>(step.output_frames_gen);
    if (step.output_frames_gen > 0) continue;
    if (over_) break;
    if (inFrames_ == 0) Fetch();
  }
  return done;
}

// The filter assumes silence before the first frame, so a loud start would click. Missing returns
// the difference between the sound and the filter's output in the first frames at normal speed.
// Where the pitch slides from the start, it is nearly the same.
std::vector<float> Pitcher::Missing() const {
  std::vector<float> missing(kChannels * kBack);
  const Filter filter = NewFilter();
  SRC_DATA step{};
  step.data_in = in_.data();
  step.input_frames = static_cast<long>(inFrames_);
  step.data_out = missing.data();
  step.output_frames = static_cast<long>(kBack);
  step.src_ratio = 1;
  Check(src_process(filter.get(), &step));
  missing.resize(kChannels * static_cast<std::size_t>(step.output_frames_gen));
  std::transform(missing.begin(), missing.end(), in_.begin(), missing.begin(),
                 [](float heard, float sound) { return sound - heard; });
  return missing;
}

void Pitcher::Fetch() {
  MMData data;
  MMPitchX::Pull(data);
  over_ = data.Bytes < 4;
  Load(data);
}

void Pitcher::Load(const MMData& data) {
  inAt_ = 0;
  inFrames_ = data.Bytes / 4;
  std::copy_n(data.Samples.begin(), kChannels * inFrames_, in_.begin());
}

}  // namespace vantora
