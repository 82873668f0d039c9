#include "robot/sha256.h"

#include <bit>

namespace vantora {

namespace {

constexpr std::array<std::uint32_t, 64> kRound = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

}  // namespace

void Sha256::Add(const unsigned char* bytes, std::size_t count) {
  bytes_ += count;
  for (std::size_t i = 0; i < count; ++i) {
    block_[filled_++] = bytes[i];
    if (filled_ == block_.size()) Block();
  }
}

void Sha256::Block() {
  std::array<std::uint32_t, 64> w{};
  for (std::size_t i = 0; i < 16; ++i) {
    w[i] = static_cast<std::uint32_t>(block_[4 * i]) << 24U |
           static_cast<std::uint32_t>(block_[4 * i + 1]) << 16U |
           static_cast<std::uint32_t>(block_[4 * i + 2]) << 8U | block_[4 * i + 3];
  }
  for (std::size_t i = 16; i < w.size(); ++i) {
    const std::uint32_t a = w[i - 15], b = w[i - 2];
    w[i] = w[i - 16] + w[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3U) +
           (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10U);
  }
  std::array<std::uint32_t, 8> s = state_;
  for (std::size_t i = 0; i < w.size(); ++i) {
    const std::uint32_t a = s[0], e = s[4];
    const std::uint32_t one = s[7] + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                              ((e & s[5]) ^ (~e & s[6])) + kRound[i] + w[i];
    const std::uint32_t two = (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) +
                              ((a & s[1]) ^ (a & s[2]) ^ (s[1] & s[2]));
    s = {one + two, s[0], s[1], s[2], s[3] + one, s[4], s[5], s[6]};
  }
  for (std::size_t i = 0; i < s.size(); ++i) state_[i] += s[i];
  filled_ = 0;
}

std::string Sha256::Hex() {
  const std::uint64_t bits = bytes_ * 8;
  const unsigned char one = 0x80, zero = 0;
  Add(&one, 1);
  while (filled_ != block_.size() - 8) Add(&zero, 1);
  for (unsigned shift = 64; shift > 0; shift -= 8) {
    const auto byte = static_cast<unsigned char>(bits >> (shift - 8) & 0xFFU);
    Add(&byte, 1);
  }
  std::string hex;
  for (const std::uint32_t word : state_) {
    for (unsigned shift = 32; shift > 0; shift -= 4) {
      hex += "0123456789abcdef"[word >> (shift - 4) & 0xFU];
    }
  }
  return hex;
}

}  // namespace vantora
