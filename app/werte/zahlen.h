// Numbers and texts of numbers, by one set of rules for the whole program: rounding to nearest with
// ties to even, whole-number division towards zero, and conversions that raise Laufzeitfehler 6
// instead of wrapping. The decimal sign is a point in every locale.
#pragma once

#include "platform/text.h"

#include <bit>
#include <cstdint>

namespace vantora {

inline constexpr std::int64_t kMB = std::int64_t{1024} * 1024;

// Reads the number at the start of a text. Blanks are skipped; a text without a number gives 0.
double Val(const Text& text);

double Runden(double wert);

// Round to whole numbers of a width; raise error 6 outside its range and for NaN.
std::int16_t Ganz16(double wert);
std::int32_t Ganz32(double wert);
std::int64_t Ganz64(double wert);

// Rounds to a whole number without a check, for loops over sound; |wert| must be below 2 to the
// 51st. Adding the constant makes the sum so large that no bits remain for a fraction: the whole
// number stands in the lowest bits. This is faster than every conversion instruction of the
// processor.
inline std::int64_t GanzSchnell(double wert) {
  constexpr double kOhneStellen = 6755399441055744.0;
  return std::bit_cast<std::int64_t>(wert + kOhneStellen) -
         std::bit_cast<std::int64_t>(kOhneStellen);
}

// The part before the decimal point.
std::int64_t Abgeschnitten(double wert);

// Raise error 11 when the divisor is 0.
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
// "##0,0" (at least two digits, commas between thousands), "00:00" (four digits with a colon in the
// middle), "0.00", "000.00", "0.00%", "#,##0.00". Any other pattern raises error 5.
Text Format(double wert, const Text& muster);

}  // namespace vantora
