// A feedback delay network (Jot and Chaigne, "Digital delay networks for designing artificial
// reverberators", 1991) of eight lines. The outputs of the lines are damped, added to the sound,
// scaled by their feedback and mixed between the lines by an orthogonal matrix: three stages of
// rotations in pairs by one angle. At 0 degrees every line feeds only itself, at 45 degrees each
// line feeds all lines equally. Such a matrix keeps the energy and the damping never amplifies, so
// with feedback below 1 the network decays for any delays.
//
// Each ear reads a line at its own place. The ear that is farther from the echo hears it some
// milliseconds later, by a different time in each line. The ears therefore differ even for a sound
// in the middle. No echo is inverted in one ear, so the mono sum keeps all echoes. The later ear
// hears the line before this repeat's damping: the difference is inaudible and saves a filter.
//
// A line's gain g becomes g^(40/feedback). All lines decay equally in dB per second when their
// gains fit their delays, and such a room keeps that property for each value of the feedback.
// Longer decay would make the room louder, so the input is attenuated by the factor by which the
// repeats raise the level.
//
// The damping is a symmetric three-tap filter and not a recursive one, and no line reads frames
// that the same block writes: every loop runs over memory, many frames at a time. A high-pass at
// the input removes constant offsets, which feedback near 1 would accumulate.
#include "backends/sound/effects/reverb.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <numeric>
#include <string>

namespace vantora {

namespace {

constexpr double kFramesPerMs = 44.1;
constexpr double kShortest = 2, kLongest = 2000;  // ms
constexpr float kConstants = 0.9972F;             // high-pass at 20 Hz
constexpr std::size_t kMostSections = 32'000;     // characters
constexpr std::size_t kMostText = 200;            // characters of a value
constexpr std::size_t kSpare = 4096;              // spare frames of a line, to move it rarely

// Removes the first number from a comma-separated line and returns it; 0 when it is not a number.
double TakeNumber(std::string& line) {
  const std::size_t comma = std::min(line.find(','), line.size());
  const std::size_t start = std::min(line.find_first_not_of(" \t"), comma);
  double number = 0;
  std::from_chars(line.data() + start, line.data() + comma, number);
  line.erase(0, comma + 1);
  return std::isfinite(number) ? number : 0;
}

std::string Narrow(const Text& text) {
  std::string narrow;
  for (const wchar_t c : text) narrow += c > 0 && c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

// Frames between the ears, longer for late echoes and different in each line.
std::size_t BetweenEars(std::size_t index, std::size_t delay) {
  constexpr std::array<double, 8> kMs{9.1, 11.9, 7.3, 13.7, 10.3, 15.1, 8.5, 12.7};
  const double most = kMs[index] * kFramesPerMs;
  return static_cast<std::size_t>(std::lrint(std::min(most, static_cast<double>(delay) * 0.7)));
}

// The gain of a repeat.
float Repeat(float ofFile, float feedback) {
  constexpr float kAsInFile = 0.4F;
  if (ofFile == 0 || feedback == 0) return 0;
  const float size = std::pow(std::abs(ofFile), kAsInFile / std::abs(feedback));
  return (ofFile < 0) == (feedback < 0) ? size : -size;
}

float Percent(double percent) {
  return static_cast<float>(percent / 100);
}

}  // namespace

Reverb::Reverb(Profile& profiles) : profiles_(profiles) {
  std::iota(count_.begin(), count_.end(), 1.0F);
}

void Reverb::SetFeedback(int percent) {
  feedback_.To(Percent(std::clamp(percent, -99, 99)));
}

void Reverb::SetOutputGain(int percent) {
  level_.To(Percent(std::clamp(percent, 0, 99)));
}

void Reverb::LoadFromIni(const Text& iniFile, const Text& section) {
  for (const Text& name : profiles_.GetPrivateProfileSectionNames(iniFile, kMostSections)) {
    if (name != section && name.substr(name.find(L'.') + 1) != section) continue;
    next_ = Read(iniFile, name);
    exit_.To(0);
    return;
  }
}

Reverb::Room Reverb::Read(const Text& iniFile, const Text& section) {
  const auto value = [&](const Text& key) {
    return Narrow(profiles_.GetPrivateProfileString(section, key, L"", kMostText, iniFile));
  };
  Room room;
  std::string diffusion = value(L"Difusion");
  room.Diffusion = std::clamp(TakeNumber(diffusion), 0.0, 100.0);
  for (std::size_t i = 0; i < kEchoes; ++i) {
    std::string line = value(L"Eco" + std::to_wstring(i + 1));
    TMMEcho& echo = room.Echoes[i];
    echo.Delay = std::clamp(TakeNumber(line), kShortest, kLongest);
    echo.Gain = std::clamp(TakeNumber(line), -100.0, 100.0);
    echo.Feedback = std::clamp(TakeNumber(line), -99.0, 99.0);
    echo.Damping = std::clamp(TakeNumber(line), 0.0, 100.0);
    echo.Pan = std::clamp(TakeNumber(line), -100.0, 100.0);
  }
  return room;
}

void Reverb::MoveIn() {
  const Room& room = *next_;
  const double angle = room.Diffusion / 100 * std::numbers::pi / 4;
  turnedCos_ = static_cast<float>(std::cos(angle));
  turnedSin_ = static_cast<float>(std::sin(angle));
  silent_ = true;
  block_ = kBlock;
  for (std::size_t i = 0; i < kEchoes; ++i) {
    const TMMEcho& echo = room.Echoes[i];
    Line& line = lines_[i];
    line.Delay = static_cast<std::size_t>(std::lrint(echo.Delay * kFramesPerMs));
    line.Apart = BetweenEars(i, line.Delay);
    line.Memory.resize(2 * (line.Delay + line.Apart) + kSpare);
    line.Beside = Percent(echo.Damping) / 4;
    line.Straight = 1 - 2 * line.Beside;
    line.Feedback = Percent(echo.Feedback);
    const double place = (echo.Pan + 100) / 200 * std::numbers::pi / 2;
    line.FromLeft = static_cast<float>(std::cos(place));
    line.FromRight = static_cast<float>(std::sin(place));
    line.LeftIsNear = echo.Pan <= 0;
    line.ToNear = Percent(echo.Gain) * std::max(line.FromLeft, line.FromRight);
    line.ToFar = Percent(echo.Gain) * std::min(line.FromLeft, line.FromRight);
    silent_ = silent_ && echo.Gain == 0;
    block_ = std::min(block_, line.Delay - 1);
  }
  next_.reset();
  exit_.To(1);
  exit_.Settle();
  Aim(feedback_.After(0));
  Empty();
}

void Reverb::Aim(float feedback) {
  aimed_ = feedback;
  float kept = 0;  // mean share of the energy that a repeat keeps
  for (Line& line : lines_) {
    line.Again = Repeat(line.Feedback, feedback);
    kept += line.Again * line.Again / static_cast<float>(int{kEchoes});
  }
  strength_ = std::sqrt(1 - kept);
}

void Reverb::Empty() {
  for (Line& line : lines_) {
    std::fill(line.Memory.begin(), line.Memory.end(), 0.0F);
    line.Head = line.Delay + line.Apart + 1;
  }
  lastIn_ = lastOut_ = {};
  entrance_.From(0);
}

void Reverb::Clear() {
  if (next_) MoveIn();
  Empty();
}

void Reverb::Settle() {
  if (next_) MoveIn();
  for (Glide* glide : {&feedback_, &level_, &entrance_}) glide->Settle();
  Aim(feedback_.After(0));
}

// The input without constant offsets, scaled by the entrance glide.
void Reverb::Enter(const float* samples, std::size_t frames) {
  entrance_.Fill(door_.data(), frames);
  const float step = (strength_ - strengthBefore_) / static_cast<float>(static_cast<int>(frames));
  for (std::size_t n = 0; n < frames; ++n) {
    const float left = samples[2 * n], right = samples[2 * n + 1];
    lastOut_[0] = Hushed(left - lastIn_[0] + kConstants * lastOut_[0]);
    lastOut_[1] = Hushed(right - lastIn_[1] + kConstants * lastOut_[1]);
    lastIn_ = {left, right};
    const float door = door_[n] * (strengthBefore_ + step * count_[n]);
    left_[n] = door * lastOut_[0];
    right_[n] = door * lastOut_[1];
  }
}

void Reverb::Listen(const Line& line, Block& echo, std::size_t frames) {
  const float* at = &line.Memory[line.Head - line.Delay];
  const float* late = at - line.Apart;
  float* __restrict near = line.LeftIsNear ? wetLeft_.data() : wetRight_.data();
  float* __restrict far = line.LeftIsNear ? wetRight_.data() : wetLeft_.data();
  const float straight = line.Straight, beside = line.Beside, before = line.Before;
  const float step = (line.Again - before) / static_cast<float>(static_cast<int>(frames));
  const float gain = step == 0 ? before : 1;
  const float toNear = line.ToNear, toFar = line.ToFar;
  for (std::size_t n = 0; n < frames; ++n) {
    const float heard = straight * at[n] + beside * (at[n + 1] + *(at + n - 1));
    near[n] += toNear * heard;
    far[n] += toFar * late[n];
    echo[n] = gain * heard;
  }
  if (step == 0) return;
  // The gain changes along the block.
  for (std::size_t n = 0; n < frames; ++n) echo[n] *= before + step * count_[n];
}

void Reverb::Exchange(std::size_t frames) {
  if (turnedSin_ == 0) return;
  const float cosine = turnedCos_, sine = turnedSin_;
  for (std::size_t apart = 1; apart < kEchoes; apart *= 2) {
    for (std::size_t i = 0; i < kEchoes; ++i) {
      if ((i & apart) != 0) continue;
      float* __restrict one = echoes_[i].data();
      float* __restrict other = echoes_[i + apart].data();
      for (std::size_t n = 0; n < frames; ++n) {
        const float was = one[n];
        one[n] = cosine * was + sine * other[n];
        other[n] = cosine * other[n] - sine * was;
      }
    }
  }
}

void Reverb::Feed(Line& line, const Block& echo, std::size_t frames) const {
  if (line.Head + frames > line.Memory.size()) {
    const auto keep = static_cast<std::ptrdiff_t>(line.Delay + line.Apart + 1);
    const auto head = line.Memory.begin() + static_cast<std::ptrdiff_t>(line.Head);
    std::copy(head - keep, head, line.Memory.begin());
    line.Head = line.Delay + line.Apart + 1;
  }
  float* __restrict to = &line.Memory[line.Head];
  const float fromLeft = line.FromLeft, fromRight = line.FromRight;
  for (std::size_t n = 0; n < frames; ++n) {
    to[n] = Hushed(fromLeft * left_[n] + fromRight * right_[n] + echo[n]);
  }
  line.Head += frames;
}

void Reverb::Work(float* samples, std::size_t frames) {
  strengthBefore_ = strength_;
  for (Line& line : lines_) line.Before = line.Again;
  const float feedback = feedback_.After(frames);
  if (feedback != aimed_) Aim(feedback);
  Enter(samples, frames);
  level_.Fill(loud_.data(), frames);
  exit_.Fill(door_.data(), frames);
  std::fill_n(wetLeft_.begin(), frames, 0.0F);
  std::fill_n(wetRight_.begin(), frames, 0.0F);
  for (std::size_t i = 0; i < kEchoes; ++i) Listen(lines_[i], echoes_[i], frames);
  Exchange(frames);
  for (std::size_t i = 0; i < kEchoes; ++i) Feed(lines_[i], echoes_[i], frames);
  for (std::size_t n = 0; n < frames; ++n) {
    const float loud = loud_[n] * door_[n];
    samples[2 * n] += loud * wetLeft_[n];
    samples[2 * n + 1] += loud * wetRight_[n];
  }
}

void Reverb::Process(float* samples, std::size_t frames) {
  for (std::size_t done = 0; done < frames;) {
    if (next_ && (silent_ || exit_.RestsAt(0))) MoveIn();
    if (silent_) return;
    const std::size_t some = std::min(block_, frames - done);
    Work(samples + 2 * done, some);
    done += some;
  }
}

}  // namespace vantora
