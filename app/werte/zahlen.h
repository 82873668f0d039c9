// Numbers and texts of numbers, by one set of rules for the whole program: rounding to nearest with
// ties to even, whole-number division towards zero, and conversions that raise Laufzeitfehler 6
// instead of wrapping. The decimal sign is a point wherever the program runs.
#pragma once

#include "platform/text.h"

#include <bit>
#include <cstdint>

namespace vantora {

inline constexpr std::int64_t kMB = 1024 * 1024;

// The number that a text begins with; blanks count for nothing, and no number gives 0.
double Val(const Text& text);

double Runden(double wert);

// Whole numbers of a width, rounded; error 6 outside it, also for what is no number at all.
std::int16_t Ganz16(double wert);
std::int32_t Ganz32(double wert);
std::int64_t Ganz64(double wert);

// The same unchecked, for loops over sound: below 2 to the 51st. Added to a number, the constant
// leaves no room for digits behind the point, and the whole number stands in the lowest bits; no
// conversion of the processor's is as fast.
inline std::int64_t GanzSchnell(double wert) {
  constexpr double kOhneStellen = 6755399441055744.0;
  return std::bit_cast<std::int64_t>(wert + kOhneStellen) -
         std::bit_cast<std::int64_t>(kOhneStellen);
}

// The part before the decimal point.
std::int64_t Abgeschnitten(double wert);

// Error 11 for a divisor of 0.
std::int64_t GanzDiv(std::int64_t wert, std::int64_t teiler);
double Quotient(double wert, double teiler);

// Shortest usual form with up to 15 digits: "215873.015873016", "40", "-0.5".
Text ZahlText(double wert);
Text ZahlText(std::int64_t wert);
inline Text ZahlText(int wert) {
  return ZahlText(static_cast<std::int64_t>(wert));
}

// Capital hexadecimal digits of a whole number, without leading zeros.
Text HexText(double wert);

// The patterns in use: "0", "#0", "00", "0000", "##00" (digits with leading zeros), "#,##00" and
// "##0,0" (two digits at least, thousands apart by commas), "00:00" (four digits with a colon
// between), "0.00", "000.00", "0.00%", "#,##0.00". Any other pattern raises error 5.
Text Format(double wert, const Text& muster);

}  // namespace vantora
