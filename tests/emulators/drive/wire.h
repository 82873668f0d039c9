// Numbers in commands and answers: high byte first, times without BCD.
#pragma once

#include "tests/emulators/drive/disc.h"

namespace vantora::emulated {

inline int Number(const Bytes& bytes, std::size_t at, std::size_t length) {
  unsigned number = 0;
  for (std::size_t i = at; i < at + length && i < bytes.size(); ++i)
    number = number << 8 | bytes[i];
  return static_cast<int>(number);
}

inline void Put(Bytes& bytes, std::size_t at, std::size_t length, int number) {
  for (std::size_t i = 0; i < length; ++i) {
    bytes[at + i] = static_cast<unsigned char>(number >> 8 * (length - 1 - i));
  }
}

constexpr int kPregap = 150;  // sectors between time 0 and the first track

// Writes minute, second and frame into three bytes. Sectors before the pregap count up to 100
// minutes.
inline void PutTime(Bytes& bytes, std::size_t at, int sector) {
  const int frames = sector + kPregap >= 0 ? sector + kPregap : sector + kPregap + 450'000;
  Put(bytes, at, 1, frames / 4500);
  Put(bytes, at + 1, 1, frames / 75 % 60);
  Put(bytes, at + 2, 1, frames % 75);
}

inline int Time(const Bytes& bytes, std::size_t at) {
  const int frames = bytes[at] * 4500 + bytes[at + 1] * 75 + bytes[at + 2];
  return bytes[at] < 90 ? frames - kPregap : frames - kPregap - 450'000;
}

constexpr int kLeadIn = -11'634;  // its first sector on a blank disc

}  // namespace vantora::emulated
