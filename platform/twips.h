// Lengths on the screen and on paper are in twips: 1440 an inch, 20 a point.
#pragma once

namespace vantora {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerMm = kTwipsPerInch / 25.4;
inline constexpr int kTwipsPerPoint = 20;

// A display says how many twips one of its pixels has (`Display::TwipsPerPixelX`): one of these.
inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kLargeFontTwipsPerPixel = 12;

}  // namespace vantora
