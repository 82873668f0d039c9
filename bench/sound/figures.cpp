#include "bench/sound/figures.h"

#include "backends/sound/restoration/ar_model.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantora::bench {

namespace {

constexpr double kHiss = 100;  // -50 dB, where the peer expects it
constexpr std::size_t kSettled = kRate / 2;

Sound Sum(Sound a, const Sound& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
  return Rounded(std::move(a));
}

// What lies above 3 kHz, by a filter of 257 taps that has no delay.
Sound Above3k(const Sound& sound) {
  constexpr std::ptrdiff_t kHalf = 128;
  std::vector<double> taps(kHalf + 1);
  for (std::ptrdiff_t i = 0; i <= kHalf; ++i) {
    const double x = static_cast<double>(i), edge = 2 * 3000.0 / kRate;
    const double sinc =
        i == 0 ? edge : std::sin(std::numbers::pi * edge * x) / (std::numbers::pi * x);
    taps[static_cast<std::size_t>(i)] =
        -sinc * (0.5 + 0.5 * std::cos(std::numbers::pi * x / (kHalf + 1)));
  }
  taps[0] += 1;
  Sound out(sound.size());
  for (std::size_t i = kHalf; i + kHalf < sound.size(); ++i) {
    double sum = taps[0] * sound[i];
    for (std::size_t k = 1; k <= kHalf; ++k) sum += taps[k] * (sound[i - k] + sound[i + k]);
    out[i] = sum;
  }
  return out;
}

// How much of a sound is left in another one, whatever else is in there.
double Left(const Sound& sound, const Sound& out, const std::vector<Place>& places) {
  double product = 0, power = 1e-9;
  for (const Place& place : places) {
    for (std::size_t i = place.First; i < std::min(place.First + place.Count, out.size()); ++i) {
      product += sound[i] * out[i];
      power += sound[i] * sound[i];
    }
  }
  return 20 * std::log10(std::max(product / power, 1e-6));
}

double HissChange(const Sound& out, std::size_t from, unsigned seed) {
  const Sound hiss = Noise(out.size(), kHiss, seed + 8);
  return Db(Power(out, from, out.size() - kRate / 10) / Power(hiss, from, out.size() - kRate / 10));
}

double Kurtosis(const Sound& sound, std::size_t from) {
  double second = 0, fourth = 0;
  const std::size_t end = sound.size() - kRate / 10;
  for (std::size_t i = from; i < end; ++i) {
    const double square = sound[i] * sound[i];
    second += square;
    fourth += square * square;
  }
  return fourth * static_cast<double>(end - from) / std::max(second * second, 1e-9);
}

// 10 ms from each hit on.
double AttackChange(const Sound& out, unsigned seed) {
  const Sound attacks = Attacks(out.size(), seed + 4);
  std::vector<Place> places;
  for (double at = 0.6; at * kRate + 441 < static_cast<double>(out.size()); at += 0.31) {
    places.push_back({static_cast<std::size_t>(at * kRate), 441});
  }
  return Left(Above3k(attacks), Above3k(out), places);
}

// From where the tone is as strong as the hiss until it lies 20 dB below it.
double DyingChange(const Sound& out, unsigned seed) {
  const Sound tones = DyingTones(out.size(), seed + 5);
  constexpr std::size_t kStretch = 1024;
  std::vector<Place> places;
  for (std::size_t at = 0; at + kStretch <= tones.size(); at += kStretch) {
    const double ratio = Db(Power(tones, at, at + kStretch) / (kHiss * kHiss));
    if (ratio < 0 && ratio > -20) places.push_back({at, kStretch});
  }
  return Left(tones, out, places);
}

constexpr std::size_t kLead = kRate * 3 / 10;

}  // namespace

void FillKnown(Sound& sound, const std::vector<Place>& places) {
  constexpr std::size_t kAround = 1536;
  ArModel model(64, 4096);
  for (const Place& place : places) {
    const std::size_t first = place.First - std::min(kAround, place.First);
    const std::size_t end = std::min(place.First + place.Count + kAround, sound.size());
    std::vector<float> piece(sound.begin() + static_cast<std::ptrdiff_t>(first),
                             sound.begin() + static_cast<std::ptrdiff_t>(end));
    std::fill_n(piece.begin() + static_cast<std::ptrdiff_t>(place.First - first), place.Count,
                0.0F);
    for (int round = 0; round < 4; ++round) {
      model.Fit(piece.data(), piece.size());
      for (const Place& other : places) {
        if (other.First < first + 64 || other.First + other.Count >= end) continue;
        model.Fill(piece.data(), other.First - first, other.Count, piece.size());
      }
    }
    for (std::size_t i = 0; i < place.Count; ++i) {
      sound[place.First + i] = double{piece[place.First - first + i]};
    }
  }
  sound = Rounded(std::move(sound));
}

std::vector<std::pair<std::string, Sound>> HissSounds(std::size_t length, unsigned seed) {
  const Sound hiss = Noise(length, kHiss, seed + 8), pure = Rounded(hiss);
  Sound silence = pure, fade = pure, gate = pure;
  std::fill_n(silence.begin(), kLead, 0.0);
  for (std::size_t i = 0; i < kRate; ++i) fade[i] *= static_cast<double>(i) / kRate;
  std::fill_n(gate.begin() + kRate, kRate, 0.0);
  return {{"hiss", pure},
          {"kurtosis", pure},
          {"attacks", Sum(Attacks(length, seed + 4), hiss)},
          {"dying", Sum(DyingTones(length, seed + 5), hiss)},
          {"piano", Sum(Music("piano", length, 2 * seed - 1), hiss)},
          {"silence", Rounded(silence)},
          {"fade", Rounded(fade)},
          {"gate", gate}};
}

double HissFigure(const std::string& name, const Sound& out, unsigned seed) {
  if (name == "kurtosis") return Kurtosis(out, kSettled);
  if (name == "attacks") return AttackChange(out, seed);
  if (name == "dying") return DyingChange(out, seed);
  if (name == "piano") {
    const Sound music = Music("piano", out.size(), 2 * seed - 1);
    return Db(kHiss * kHiss / Power(Difference(out, music), kSettled, out.size() - kRate / 10));
  }
  const std::size_t from = name == "silence" ? kLead
                           : name == "fade"  ? kRate
                           : name == "gate"  ? 2 * kRate
                                             : 0;
  return HissChange(out, from + kSettled, seed);
}

}  // namespace vantora::bench
