// Lengths on the screen and on paper are in twips: 1440 per inch, 20 per point.
#pragma once

namespace vantora {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerMm = kTwipsPerInch / 25.4;
inline constexpr int kTwipsPerPoint = 20;

// The two possible values of `Display::TwipsPerPixelX`.
inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kLargeFontTwipsPerPixel = 12;

}  // namespace vantora
