#include "bench/sound/material.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <functional>
#include <numbers>
#include <random>

namespace vantora::bench {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kLoudness = 2500;  // of every material, root of its mean square
constexpr std::size_t kSeam = 1024;

using Random = std::mt19937;
using Level = std::function<double(double seconds)>;

double Between(Random& random, double low, double high) {
  return low + (high - low) * static_cast<double>(random() >> 8U) / 16777216.0;
}

std::size_t Frames(double seconds) {
  return static_cast<std::size_t>(seconds * double{kRate});
}

double Pitch(int note) {  // 0 is a low A
  return 55 * std::exp2(note / 12.0);
}

struct Voice {
  double Hertz = 440;
  double Vibrato = 0, VibratoHertz = 5.5;  // depth as a share of the pitch
  double Inharmonic = 0;
  int Harmonics = 20;
  bool Pulses = false;  // all harmonics begin together, so that a period has an edge
  std::function<double(int harmonic)> Strength = [](int h) { return 1.0 / h; };
  std::function<double(int harmonic, double seconds)> Shape = [](int, double) { return 1.0; };
};

// Adds a note from `at` on for `seconds`. Shape is looked at 500 times a second.
void Play(Sound& sound, Random& random, double at, double seconds, double loudness,
          const Voice& voice) {
  const std::size_t first = Frames(at), end = std::min(sound.size(), Frames(at + seconds));
  const double sway = Between(random, 0, kTurn);
  const double start = Between(random, 0, kTurn);
  constexpr std::size_t kStep = kRate / 500;
  for (int h = 1; h <= voice.Harmonics; ++h) {
    const double hertz = voice.Hertz * h * std::sqrt(1 + voice.Inharmonic * h * h);
    if (hertz > 19000) break;
    std::complex<double> now = std::polar(1.0, voice.Pulses ? start : Between(random, 0, kTurn));
    const double strength = loudness * voice.Strength(h);
    for (std::size_t i = first; i < end; i += kStep) {
      const double t = static_cast<double>(i - first) / kRate;
      const double bend = 1 + voice.Vibrato * std::sin(kTurn * voice.VibratoHertz * t + sway);
      const auto turn = std::polar(1.0, kTurn * hertz * bend / kRate);
      double shape = strength * voice.Shape(h, t);
      const double next = strength * voice.Shape(h, t + double{kStep} / kRate);
      const double slope = (next - shape) / kStep;
      for (std::size_t j = i; j < std::min(end, i + kStep); ++j, now *= turn, shape += slope) {
        sound[j] += shape * now.imag();
      }
    }
  }
}

// A short noise, low or high, that dies away.
void Hit(Sound& sound, Random& random, double at, double loudness, double decay, double smooth,
         bool high) {
  std::normal_distribution<double> value;
  double low = 0;
  const std::size_t first = Frames(at), end = std::min(sound.size(), first + Frames(7 / decay));
  for (std::size_t i = first; i < end; ++i) {
    const double t = static_cast<double>(i - first) / kRate, noise = value(random);
    low += smooth * (noise - low);
    sound[i] +=
        loudness * std::exp(-decay * t) * std::min(1.0, t / 0.0004) * (high ? noise - low : low);
  }
}

void Scaled(Sound& sound, double loudness) {
  const double scale = loudness / std::sqrt(Power(sound));
  for (double& sample : sound) sample *= scale;
}

void Add(Sound& sound, const Sound& other, double share) {
  for (std::size_t i = 0; i < sound.size(); ++i) sound[i] += share * other[i];
}

double Fade(double t, double in, double length, double out) {
  return std::clamp(std::min(t / in, (length - t) / out), 0.0, 1.0);
}

Sound Piano(std::size_t length, Random& random) {
  Sound sound(length);
  const std::array chord = {0, 3, 7, 10, 12, 15, 19};
  for (double at = 0.02; Frames(at) < length; at += Between(random, 0.22, 0.5)) {
    for (int note = 0; note < 3; ++note) {
      Voice voice;
      voice.Hertz =
          Pitch(chord[random() % chord.size()] + 12 * (1 + static_cast<int>(random() % 2)));
      voice.Inharmonic = 0.0003;
      voice.Harmonics = 24;
      voice.Strength = [](int h) { return std::abs(std::sin(h * 0.39)) / std::pow(h, 1.2); };
      voice.Shape = [hertz = voice.Hertz](int h, double t) {
        return std::min(1.0, t / 0.003) * std::exp(-t * (0.8 + 0.35 * h + hertz / 500));
      };
      Play(sound, random, at, 2, Between(random, 0.5, 1), voice);
    }
    Hit(sound, random, at, 0.25, 250, 0.15, false);
  }
  return sound;
}

Sound Drums(std::size_t length, Random& random) {
  Sound sound(length);
  int beat = 0;
  for (double at = 0.01; Frames(at) < length; at += 0.17 + Between(random, -0.005, 0.005), ++beat) {
    Hit(sound, random, at, 0.25, beat % 4 == 2 ? 12 : 60, 0.5, true);
    if (beat % 4 == 0) {
      for (std::size_t i = Frames(at); i < std::min(length, Frames(at + 0.4)); ++i) {
        const double t = static_cast<double>(i) / kRate - at;
        sound[i] += 2 * std::min(1.0, t / 0.002) * std::exp(-10 * t) *
                    std::sin(kTurn * (48 * t + 3 * (1 - std::exp(-t * 35))));
      }
      Hit(sound, random, at, 0.6, 400, 0.4, false);
    }
    if (beat % 4 == 2) Hit(sound, random, at, 1.2, 22, 0.6, false);
  }
  return sound;
}

Sound Speech(std::size_t length, Random& random) {
  Sound sound(length);
  std::normal_distribution<double> value;
  double phase = 0, hiss = 0, loud = 0;
  const std::array<std::array<double, 3>, 4> vowels = {
      {{700, 1150, 2500}, {320, 2200, 2900}, {480, 900, 2400}, {500, 1700, 2500}}};
  std::array<std::array<double, 2>, 3> past{};
  for (std::size_t i = 0; i < length; ++i) {
    const double t = static_cast<double>(i) / kRate, syllable = std::fmod(t, 0.45);
    const auto& vowel = vowels[static_cast<std::size_t>(t / 0.45) % vowels.size()];
    const double hertz = 125 * (1 + 0.12 * std::sin(kTurn * 0.6 * t) + 0.01 * std::sin(31 * t));
    phase += hertz / kRate;
    const double open = syllable < 0.28 ? 1 : 0;
    loud += 0.002 * (open - loud);
    phase -= std::floor(phase);
    // The flow of the glottis, of which the closing is sudden; derived.
    double x = phase < 0.6 ? std::sin(kTurn * phase / 1.2) * phase * 4
                           : -2.2 * std::exp(-(phase - 0.6) * 40);
    x = loud * (x + 0.03 * value(random));
    for (std::size_t f = 0; f < vowel.size(); ++f) {
      const double r = std::exp(-std::numbers::pi * (60 + 40.0 * static_cast<double>(f)) / kRate);
      const double c = 2 * r * std::cos(kTurn * vowel[f] / kRate);
      const double y = (1 - c + r * r) * x + c * past[f][0] - r * r * past[f][1];
      past[f] = {y, past[f][0]};
      x = y + 0.05 * x;
    }
    const double rub = syllable > 0.3 && syllable < 0.4 ? Fade(syllable - 0.3, 0.02, 0.1, 0.03) : 0;
    const double noise = value(random);
    hiss += 0.5 * (noise - hiss);
    sound[i] = x + 0.12 * rub * (noise - hiss);
  }
  return sound;
}

Voice Reed(const std::string& material) {
  Voice voice;
  voice.Harmonics = 200;
  voice.Pulses = true;
  if (material == "trumpet") {
    voice.Vibrato = 0.004;
    voice.Strength = [](int h) { return h < 4 ? 0.4 + 0.2 * h : std::exp(-0.22 * (h - 4)); };
  } else if (material == "brass") {
    voice.Vibrato = 0.002;
    voice.Strength = [](int h) { return 1 / (1 + 0.15 * h) / (1 + 0.002 * h * h); };
  } else if (material == "strings") {
    voice.Vibrato = 0.006;
    voice.Strength = [](int h) { return 1.0 / h / (1 + 0.01 * h * h); };
  }
  return voice;
}

Sound Held(const std::string& material, std::size_t length, Random& random) {
  Sound sound(length);
  const bool strings = material == "strings", brass = material == "brass", saw = material == "saw";
  const double each = strings ? 1.6 : saw ? 0.6 : 0.42;
  const double in = strings ? 0.15 : saw ? 0.004 : 0.025;
  const std::array scale = {0, 2, 4, 7, 9, 12, 14};
  for (double at = 0; Frames(at) < length; at += each) {
    const int root = scale[random() % scale.size()] + (strings || brass ? 12 : 24);
    const int voices = strings ? 5 : brass ? 3 : saw ? 2 : 1;
    for (int v = 0; v < voices; ++v) {
      Voice voice = Reed(material);
      voice.Hertz = Pitch(root + std::array{0, 7, 4, 12, 16}[static_cast<std::size_t>(v)]) *
                    Between(random, 0.997, 1.003);
      voice.VibratoHertz = Between(random, 4.8, 6);
      const double bright = material == "trumpet" || brass ? 0.02 : 0;
      voice.Shape = [=](int h, double t) {
        return Fade(t, in, each - 0.02, strings ? 0.2 : 0.03) *
               std::exp(-bright * h * (t < 0.1 ? 1 - t / 0.1 : 0));
      };
      Play(sound, random, at, each, 1, voice);
    }
  }
  if (strings) {
    const double hiss = 0.003 * std::sqrt(Power(sound));
    Add(sound, Noise(length, hiss, static_cast<unsigned>(random())), 1);
  }
  return sound;
}

Sound Raw(const std::string& material, std::size_t length, Random& random) {
  if (material == "piano") return Piano(length, random);
  if (material == "drums") return Drums(length, random);
  if (material == "voice") return Speech(length, random);
  if (material != "mix") return Held(material, length, random);
  Sound sound = Piano(length, random);
  Scaled(sound, 0.6);
  for (const auto& [name, share] : {std::pair{"drums", 0.7}, {"strings", 0.4}, {"voice", 0.5}}) {
    Sound other = Raw(name, length, random);
    Scaled(other, share);
    Add(sound, other, 1);
  }
  return sound;
}

double Shape(Damage damage, std::size_t i, std::size_t length, double hertz, Random& random) {
  std::normal_distribution<double> value;
  const double t = static_cast<double>(i), n = static_cast<double>(length);
  if (damage != Damage::kLong) return (i == 0 ? 1 : value(random)) * std::exp(-1.5 * t / n);
  return std::exp(-2 * t / n) * (std::cos(kTurn * hertz * t / kRate) + 0.2 * value(random));
}

}  // namespace

Sound Music(const std::string& material, std::size_t length, unsigned seed) {
  Random random(seed);
  Sound sound = Raw(material, length, random);
  Scaled(sound, kLoudness);
  Add(sound, Noise(length, kLoudness * 2e-4, seed + 1), 1);  // no room is quite silent
  return Rounded(std::move(sound));
}

Sound Noise(std::size_t length, double deviation, unsigned seed) {
  Random random(seed);
  std::normal_distribution<double> value(0, deviation);
  Sound sound(length);
  for (double& sample : sound) sample = value(random);
  return sound;
}

Sound Attacks(std::size_t length, unsigned seed) {
  Random random(seed);
  Sound sound(length);
  for (double at = 0.6; Frames(at) < length; at += 0.31) {
    Hit(sound, random, at, 700, 45, 0.5, true);
    for (const double hertz : {3600.0, 5300.0, 8100.0}) {
      Voice voice;
      voice.Hertz = hertz;
      voice.Harmonics = 1;
      voice.Shape = [](int, double t) { return std::exp(-30 * t); };
      Play(sound, random, at, 0.25, 150, voice);
    }
  }
  return Rounded(std::move(sound));
}

Sound DyingTones(std::size_t length, unsigned seed) {
  Random random(seed);
  Sound sound(length);
  int note = 0;
  for (double at = 0.6; Frames(at + 2) < length; at += 2, note += 5) {
    Voice voice;
    voice.Hertz = Pitch(24 + note % 24);
    voice.Harmonics = 6;
    voice.Shape = [](int h, double t) {
      return std::min(1.0, t / 0.003) * std::exp(-t * (2.2 + 0.3 * h));
    };
    Play(sound, random, at, 1.95, 2500, voice);
  }
  return Rounded(std::move(sound));
}

std::vector<Place> AddDamage(Sound& sound, Damage damage, double db, unsigned seed) {
  Random random(seed);
  const Sound clean = sound;
  const double apart = damage == Damage::kCrackle ? 300 : damage == Damage::kLong ? 12000 : 5000;
  std::vector<Place> places;
  std::size_t at = 3000;
  while (at + 3000 < sound.size()) {
    const std::size_t length = damage == Damage::kCrackle ? 1 + random() % 3
                               : damage == Damage::kLong  ? 60 + random() % 70
                                                          : 1 + random() % 12;
    if (damage == Damage::kSeams) at = (at + kSeam - 1) / kSeam * kSeam - random() % 13;
    const double around = std::max(std::sqrt(Power(clean, at - 500, at + 500)), 20.0);
    const double hertz = Between(random, 300, 2500), sign = random() % 2 ? 1 : -1;
    Sound shape(length);
    for (std::size_t i = 0; i < length; ++i) shape[i] = Shape(damage, i, length, hertz, random);
    const double spread = damage == Damage::kCrackle ? Between(random, -6, 6) : 0;
    Scaled(shape, around * std::pow(10, (db + spread) / 20));
    for (std::size_t i = 0; i < length; ++i) sound[at + i] += sign * shape[i];
    places.push_back({at, length});
    at += length + static_cast<std::size_t>(apart * Between(random, 0.4, 1.6));
  }
  sound = Rounded(std::move(sound));
  return places;
}

Sound Rounded(Sound sound) {
  for (double& sample : sound) sample = std::nearbyint(std::clamp(sample, -32768.0, 32767.0));
  return sound;
}

double Power(const Sound& sound, std::size_t from, std::size_t to) {
  double sum = 0;
  for (std::size_t i = from; i < to; ++i) sum += sound[i] * sound[i];
  return sum / static_cast<double>(to - from);
}

double Power(const Sound& sound) {
  return Power(sound, 0, sound.size());
}

double Db(double ratio) {
  return 10 * std::log10(std::max(ratio, 1e-12));
}

Sound Difference(const Sound& a, const Sound& b) {
  Sound difference(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) difference[i] = a[i] - b[i];
  return difference;
}

}  // namespace vantora::bench
