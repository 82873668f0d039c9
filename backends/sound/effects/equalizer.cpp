// The bands are state-variable filters in series, in double precision: the lowest bands are so
// narrow that single precision would add noise. A state-variable filter stays stable while its
// coefficients change. New coefficients are designed at short intervals, and the coefficients glide
// frame by frame from one design to the next. Left and right are the two halves of a vector. Two
// filters are computed at a time, so that the processor has work while each filter waits for its
// previous result.
#include "backends/sound/effects/equalizer.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr std::size_t kDesignFrames = 32;  // between two designs during a glide
constexpr double kMostGain = 24;           // dB
constexpr double kHush = 1e-12;            // in samples

}  // namespace

void Equalizer::Band::SetGain(double gain) {
  const double inside = gain == gain ? std::clamp(gain, -kMostGain, kMostGain) : 0;
  owner_.changed_ = owner_.changed_ || inside != gain_;
  gain_ = inside;
}

void Equalizer::Add(double frequencyFrom, double frequencyTo, double gain) {
  bands_.emplace_back(*this, BandEdges{frequencyFrom, frequencyTo}).SetGain(gain);
  changed_ = true;
}

MMEqualizerX::Filter& Equalizer::Item(int index) {
  const auto place = static_cast<std::size_t>(index);
  if (index >= 0 && place < bands_.size()) return bands_[place];
  throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
}

void Equalizer::Clear() {
  for (Section& section : sections_) section.S = section.T = Frame{};
  std::fill(turned_.begin(), turned_.end(), 0);
  left_ = kGlideFrames;
}

void Equalizer::Solve() {
  std::vector<double> gains;
  for (const Band& band : bands_) gains.push_back(band.Gain());
  if (sections_.size() != bands_.size()) {
    std::vector<BandEdges> edges;
    for (const Band& band : bands_) edges.push_back(band.Edges);
    curve_ = BandCurve(edges, SampleRate);
    sections_.assign(bands_.size(), Section{});
    turned_.assign(bands_.size(), 0);
    target_ = turned_;
    Glide(0);
  }
  target_ = curve_.Solve(gains);
  left_ = kGlideFrames;
  changed_ = false;
}

void Equalizer::Settle() {
  if (changed_) Solve();
  left_ = 0;
  turned_ = target_;
  Glide(0);
}

// Sets the coefficients of this moment and, unless `frames` is 0, their steps to the values of
// `frames` frames later.
void Equalizer::Glide(std::size_t frames) {
  const double share = left_ > 0 ? static_cast<double>(frames) / left_ : 0;
  left_ -= static_cast<int>(frames);
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    const FilterCoefficients now = curve_.Design(i, turned_[i]);
    turned_[i] += share * (target_[i] - turned_[i]);
    sections_[i].Now = now;
    if (frames == 0) continue;
    const FilterCoefficients then = curve_.Design(i, turned_[i]);
    const auto step = [frames](double from, double to) {
      return (to - from) / static_cast<double>(frames);
    };
    sections_[i].Step = {step(now.P, then.P), step(now.Q, then.Q), step(now.R, then.R),
                         step(now.Band, then.Band), step(now.Low, then.Low)};
  }
}

template <std::size_t kSections, bool kGliding>
void Equalizer::Run(Section* sections, Frame* frames, std::size_t count) {
  std::array<Section, kSections> local;
  std::copy_n(sections, kSections, local.begin());
  for (std::size_t n = 0; n < count; ++n) {
    Frame x = frames[n];
    for (Section& section : local) {
      FilterCoefficients& now = section.Now;
      if constexpr (kGliding) {
        now.P += section.Step.P;
        now.Q += section.Step.Q;
        now.R += section.Step.R;
        now.Band += section.Step.Band;
        now.Low += section.Step.Low;
      }
      const Frame u = x - section.T;
      const Frame p = now.P * section.S + now.Q * u;
      const Frame t = section.T + (now.Q * section.S + now.R * u);
      x += now.Band * p + now.Low * (section.T + t);
      section.S = p - section.S;
      section.T = t;
    }
    frames[n] = x;
  }
  std::copy_n(local.begin(), kSections, sections);
}

template <bool kGliding>
void Equalizer::RunAll(Frame* frames, std::size_t count) {
  std::size_t i = 0;
  for (; i + 2 <= sections_.size(); i += 2) Run<2, kGliding>(&sections_[i], frames, count);
  if (i < sections_.size()) Run<1, kGliding>(&sections_[i], frames, count);
}

// Sets very small states to 0. In silence the states decay exponentially to numbers that are slow
// to compute.
void Equalizer::Hush() {
  const auto hush = [](Frame& state) {
    for (int ear = 0; ear < 2; ++ear) {
      if (std::abs(state[ear]) < kHush) state[ear] = 0;
    }
  };
  for (Section& section : sections_) {
    hush(section.S);
    hush(section.T);
  }
}

void Equalizer::Process(float* samples, std::size_t frames) {
  if (changed_) Solve();
  const bool flat = std::all_of(turned_.begin(), turned_.end(), [](double db) { return db == 0; });
  if (left_ == 0 && flat) return;
  for (std::size_t n = 0; n < frames; ++n) {
    work_[n] = Frame{static_cast<double>(samples[2 * n]), static_cast<double>(samples[2 * n + 1])};
  }
  std::size_t done = 0;
  while (left_ > 0 && done < frames) {
    const std::size_t some =
        std::min({kDesignFrames, frames - done, static_cast<std::size_t>(left_)});
    Glide(some);
    RunAll<true>(work_.data() + done, some);
    done += some;
    if (left_ == 0) Settle();
  }
  RunAll<false>(work_.data() + done, frames - done);
  Hush();
  for (std::size_t n = 0; n < frames; ++n) {
    samples[2 * n] = static_cast<float>(work_[n][0]);
    samples[2 * n + 1] = static_cast<float>(work_[n][1]);
  }
}

}  // namespace vantora
