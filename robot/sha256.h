// The SHA-256 sum of a file, so that a script can tell what was burned from what was to be.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace vantora {

class Sha256 {
 public:
  void Add(const unsigned char* bytes, std::size_t count);
  std::string Hex();  // of all that was added; nothing may be added afterwards

 private:
  void Block();

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::array<unsigned char, 64> block_{};
  std::size_t filled_ = 0;
  std::uint64_t bytes_ = 0;
};

}  // namespace vantora
