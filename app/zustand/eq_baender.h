// The ten bands of the equalizer.
#pragma once

#include <array>

namespace vantora {

inline constexpr int kEqBaender = 10;

struct Band {
  int Von, Bis;         // Hz
  const wchar_t* Name;  // the upper limit in Hz, as a caption
};

inline constexpr std::array<Band, kEqBaender> kBaender = {{{0, 60, L"60"},
                                                           {60, 170, L"170"},
                                                           {170, 310, L"310"},
                                                           {310, 600, L"600"},
                                                           {600, 1000, L"1k"},
                                                           {1000, 3000, L"3k"},
                                                           {3000, 6000, L"6k"},
                                                           {6000, 12000, L"12k"},
                                                           {12000, 14000, L"14k"},
                                                           {14000, 16000, L"16k"}}};

}  // namespace vantora
