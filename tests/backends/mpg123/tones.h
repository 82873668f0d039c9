// Sine tones, and measurements of a tone in a sound.
#pragma once

#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

namespace vantora::test {

// One channel of interleaved 16-bit stereo, as -1 to 1.
inline std::vector<double> ChannelOf(const std::vector<std::int16_t>& stereo, std::size_t channel) {
  std::vector<double> sound(stereo.size() / 2);
  for (std::size_t i = 0; i < sound.size(); ++i) sound[i] = stereo[2 * i + channel] / 32768.0;
  return sound;
}

// Amplitude and phase of the tone `hertz` in frames `from` to `to`. The phase is relative to a sine
// that starts at frame 0. Tones at least 100 Hz away contribute less than -120 dB.
inline std::complex<double> ToneIn(const std::vector<double>& sound, double hertz, double rate,
                                   std::size_t from, std::size_t to) {
  // The four-term Blackman-Harris window: its side lobes are below all other errors of these tests.
  constexpr double kWindow[] = {0.35875, 0.48829, 0.14128, 0.01168};
  std::complex<double> sum = 0;
  double weight = 0;
  const double length = static_cast<double>(to - from);
  for (std::size_t i = from; i < to; ++i) {
    const double turn = 2 * std::numbers::pi * (static_cast<double>(i - from) + 0.5) / length;
    const double w = kWindow[0] - kWindow[1] * std::cos(turn) + kWindow[2] * std::cos(2 * turn) -
                     kWindow[3] * std::cos(3 * turn);
    const double angle = 2 * std::numbers::pi * hertz / rate * static_cast<double>(i);
    sum += w * sound[i] * std::polar(1.0, -angle);
    weight += w;
  }
  return sum * std::complex<double>(0, 2) / weight;
}

inline double Decibels(double amplitude) {
  return 20 * std::log10(std::max(amplitude, 1e-12));
}

// The data of a 16-bit wave file in which channel c has the tone `hertz[c]`.
inline std::string ToneBytes(const std::vector<double>& hertz, double amplitude, double rate,
                             std::size_t frames) {
  std::string bytes;
  bytes.reserve(frames * hertz.size() * 2);
  for (std::size_t i = 0; i < frames; ++i) {
    for (const double tone : hertz) {
      const double angle = 2 * std::numbers::pi * tone / rate * static_cast<double>(i);
      const auto sample =
          static_cast<std::int16_t>(std::lrint(amplitude * 32768 * std::sin(angle)));
      bytes += static_cast<char>(sample & 0xFF);
      bytes += static_cast<char>((sample >> 8) & 0xFF);
    }
  }
  return bytes;
}

}  // namespace vantora::test
