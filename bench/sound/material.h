// Sound for the measurements of restoration: eight kinds of music and the damage of old recordings,
// made from a seed, one channel, in 16-bit units at 44.1 kHz.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace vantora::bench {

inline constexpr std::size_t kRate = 44100;
using Sound = std::vector<double>;

inline const std::array<std::string, 8> kMaterials = {"piano",   "mix",   "voice", "drums",
                                                      "trumpet", "brass", "saw",   "strings"};

// One of kMaterials, whole numbers within 16 bit.
Sound Music(const std::string& material, std::size_t length, unsigned seed);
Sound Noise(std::size_t length, double deviation, unsigned seed);

// Hits with all of their sound above 3 kHz, and tones that fade away below the hiss.
Sound Attacks(std::size_t length, unsigned seed);
Sound DyingTones(std::size_t length, unsigned seed);

struct Place {
  std::size_t First, Count;
};
enum class Damage { kShort, kLong, kCrackle, kSeams };  // kSeams: short ones where buffers meet

// Adds damage that is `db` decibels louder than the sound around it; rounds to whole numbers.
std::vector<Place> AddDamage(Sound& sound, Damage damage, double db, unsigned seed);

Sound Rounded(Sound sound);
double Power(const Sound& sound, std::size_t from, std::size_t to);
double Power(const Sound& sound);
double Db(double ratio);
Sound Difference(const Sound& a, const Sound& b);

}  // namespace vantora::bench
