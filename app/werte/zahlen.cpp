#include "app/werte/zahlen.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace vantora {

namespace {

bool Ziffer(wchar_t zeichen) {
  return zeichen >= L'0' && zeichen <= L'9';
}

Text Breit(const std::string& text) {
  return {text.begin(), text.end()};
}

template <typename T>
T Ganz(double wert) {
  const double rund = Runden(wert);
  // The largest 64-bit integer is no double, so the upper bound is 2 to the 63rd, which is
  // excluded.
  const auto oben = std::ldexp(1.0, std::numeric_limits<T>::digits);
  if (!(rund >= -oben && rund < oben)) throw Laufzeitfehler(kFehlerUeberlauf, L"Desbordamiento");
  return static_cast<T>(rund);
}

// Digits of a rounded value with `stellen` decimals, without sign.
// With no decimals or two.
std::string Dezimal(double wert, int stellen) {
  const double zehner = stellen == 2 ? 100 : 1;
  const auto ganze = Ganz<std::int64_t>(std::fabs(wert) * zehner);
  std::string ziffern = std::to_string(ganze);
  const auto laenge = static_cast<std::size_t>(stellen);
  if (ziffern.size() <= laenge) ziffern.insert(0, laenge + 1 - ziffern.size(), '0');
  if (stellen > 0) ziffern.insert(ziffern.size() - laenge, ".");
  return ziffern;
}

void MitNullen(std::string& ziffern, std::size_t mindestens) {
  if (ziffern.size() < mindestens) ziffern.insert(0, mindestens - ziffern.size(), '0');
}

void Tausender(std::string& ziffern) {
  for (std::size_t stelle = std::min(ziffern.find('.'), ziffern.size()); stelle > 3; stelle -= 3)
    ziffern.insert(stelle - 3, 1, ',');
}

bool NurNull(const std::string& ziffern) {
  return ziffern.find_first_of("123456789") == std::string::npos;
}

Text MitVorzeichen(double wert, const std::string& ziffern) {
  return Breit((wert < 0 && !NurNull(ziffern) ? "-" : "") + ziffern);
}

}  // namespace

double Val(const Text& text) {
  std::string zahl;
  Text rest;
  std::copy_if(text.begin(), text.end(), std::back_inserter(rest),
               [](wchar_t z) { return z != L' ' && z != L'\t' && z != L'\n' && z != L'\r'; });
  std::size_t i = 0;
  const auto nimm = [&] { zahl += static_cast<char>(rest[i++]); };
  const auto ziffern = [&] {
    while (i < rest.size() && Ziffer(rest[i])) nimm();
  };
  if (i < rest.size() && (rest[i] == L'-' || rest[i] == L'+')) {
    if (rest[i] == L'-') zahl = "-";
    ++i;
  }
  ziffern();
  if (i < rest.size() && rest[i] == L'.') nimm();
  ziffern();
  if (i < rest.size() && (rest[i] == L'E' || rest[i] == L'e')) {
    std::size_t j = i + 1;
    if (j < rest.size() && (rest[j] == L'-' || rest[j] == L'+')) ++j;
    if (j < rest.size() && Ziffer(rest[j])) {
      zahl += 'e';
      ++i;
      if (rest[i] == L'-') zahl += '-';
      if (!Ziffer(rest[i])) ++i;
      ziffern();
    }
  }
  double wert = 0;
  const auto ergebnis = std::from_chars(zahl.data(), zahl.data() + zahl.size(), wert);
  if (ergebnis.ec == std::errc::result_out_of_range && zahl.find("e-") == std::string::npos) {
    throw Laufzeitfehler(kFehlerUeberlauf, L"Desbordamiento");
  }
  return ergebnis.ec == std::errc() ? wert : 0;
}

double Runden(double wert) {
  const double unten = std::floor(wert);
  const double rest = wert - unten;
  if (rest < 0.5) return unten;
  if (rest > 0.5) return unten + 1;
  return std::fmod(unten, 2.0) == 0 ? unten : unten + 1;
}

std::int16_t Ganz16(double wert) {
  return Ganz<std::int16_t>(wert);
}
std::int32_t Ganz32(double wert) {
  return Ganz<std::int32_t>(wert);
}
std::int64_t Ganz64(double wert) {
  return Ganz<std::int64_t>(wert);
}

std::int64_t Abgeschnitten(double wert) {
  return Ganz64(std::trunc(wert));
}

std::int64_t GanzDiv(std::int64_t wert, std::int64_t teiler) {
  if (teiler == 0) throw Laufzeitfehler(kFehlerDivision, L"División por cero");
  return wert / teiler;
}

double Quotient(double wert, double teiler) {
  if (teiler == 0) throw Laufzeitfehler(kFehlerDivision, L"División por cero");
  return wert / teiler;
}

Text ZahlText(double wert) {
  char puffer[40];
  const auto ende =
      std::to_chars(puffer, puffer + sizeof puffer, wert, std::chars_format::general, 15).ptr;
  return Breit(std::string(puffer, ende));
}

Text ZahlText(std::int64_t wert) {
  return std::to_wstring(wert);
}

Text HexText(double wert) {
  char puffer[20];
  const auto ganz = static_cast<std::uint64_t>(Ganz64(wert));
  const auto ende = std::to_chars(puffer, puffer + sizeof puffer, ganz, 16).ptr;
  std::string ziffern(puffer, ende);
  for (char& z : ziffern) z = z >= 'a' ? static_cast<char>(z - 'a' + 'A') : z;
  return Breit(ziffern);
}

Text Format(double wert, const Text& muster) {
  const bool tausender = muster == L"#,##00" || muster == L"##0,0";
  if (tausender || muster == L"##00" || muster == L"#0" ||
      (!muster.empty() && muster.size() <= 4 && muster == Text(muster.size(), L'0'))) {
    std::string ziffern = Dezimal(wert, 0);
    const auto nullen = static_cast<std::size_t>(std::count(muster.begin(), muster.end(), L'0'));
    MitNullen(ziffern, nullen);
    if (tausender) Tausender(ziffern);
    return MitVorzeichen(wert, ziffern);
  }
  if (muster == L"00:00") {
    std::string ziffern = Dezimal(wert, 0);
    MitNullen(ziffern, 4);
    ziffern.insert(ziffern.size() - 2, 1, ':');
    return MitVorzeichen(wert, ziffern);
  }
  if (muster == L"0.00") return MitVorzeichen(wert, Dezimal(wert, 2));
  if (muster == L"000.00") {
    std::string ziffern = Dezimal(wert, 2);
    MitNullen(ziffern, 6);
    return MitVorzeichen(wert, ziffern);
  }
  if (muster == L"0.00%") return MitVorzeichen(wert, Dezimal(wert * 100, 2)) + L"%";
  if (muster == L"#,##0.00") {
    std::string ziffern = Dezimal(wert, 2);
    Tausender(ziffern);
    return MitVorzeichen(wert, ziffern);
  }
  throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"Formato desconocido");
}

}  // namespace vantora
