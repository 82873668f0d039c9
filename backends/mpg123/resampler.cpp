#include "backends/mpg123/resampler.h"

#include "platform/laufzeitfehler.h"

#include <samplerate.h>
#include <string_view>

namespace vantora {

namespace {

constexpr long kTarget = 44100;
constexpr int kChannels = 2;
constexpr std::size_t kPart = 4096;  // frames

void Check(int error) {
  if (error == 0) return;
  const std::string_view what = src_strerror(error);
  throw Laufzeitfehler(kFehlerEinAusgabe, Text(what.begin(), what.end()));
}

}  // namespace

void Resampler::Delete::operator()(SRC_STATE_tag* state) const {
  src_delete(state);
}

Resampler::Resampler(long rate) : rate_(rate), part_(kPart * kChannels) {
  int error = 0;
  state_.reset(src_new(SRC_SINC_MEDIUM_QUALITY, kChannels, &error));
  Check(error);
}

void Resampler::Push(const float* stereo, std::size_t frames, std::vector<std::int16_t>& out) {
  in_ += static_cast<std::int64_t>(frames);
  Run(stereo, frames, false, out);
}

// The library rounds the length to the nearest frame. A missing frame is filled with silence.
void Resampler::Flush(std::vector<std::int16_t>& out) {
  const std::size_t before = out.size();
  const std::int64_t due = (in_ * kTarget + rate_ - 1) / rate_ - made_;
  Run(nullptr, 0, true, out);
  out.resize(before + kChannels * static_cast<std::size_t>(due));
}

void Resampler::Run(const float* stereo, std::size_t frames, bool end,
                    std::vector<std::int16_t>& out) {
  SRC_DATA step{};
  step.data_in = stereo;
  step.input_frames = static_cast<long>(frames);
  step.data_out = part_.data();
  step.output_frames = static_cast<long>(kPart);
  step.end_of_input = end ? 1 : 0;
  step.src_ratio = static_cast<double>(kTarget) / static_cast<double>(rate_);
  do {
    Check(src_process(state_.get(), &step));
    step.data_in += kChannels * step.input_frames_used;
    step.input_frames -= step.input_frames_used;
    made_ += step.output_frames_gen;
    const auto samples = kChannels * static_cast<std::size_t>(step.output_frames_gen);
    out.resize(out.size() + samples);
    src_float_to_short_array(part_.data(), out.data() + out.size() - samples,
                             static_cast<int>(samples));
  } while (step.input_frames > 0 || step.output_frames_gen > 0);
}

}  // namespace vantora
