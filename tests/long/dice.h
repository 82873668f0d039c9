// Chance that can be repeated: the same seed gives the same throws with every library.
#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace vantora::test {

class Dice {
 public:
  explicit Dice(std::uint32_t seed) : numbers_(seed) {}
  // A number from `low` to `high`. The distributions of the standard library may differ from
  // machine to machine.
  int From(int low, int high) {
    return low + static_cast<int>(numbers_() % static_cast<std::uint32_t>(high - low + 1));
  }
  bool OneIn(int n) { return From(1, n) == 1; }
  template <typename List>
  auto& Of(List& list) {
    return list[static_cast<std::size_t>(From(0, static_cast<int>(std::size(list)) - 1))];
  }

 private:
  std::mt19937 numbers_;
};

}  // namespace vantora::test
