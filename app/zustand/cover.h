// The cover as the user has laid it out, shared by its two windows: texts, font, colours, and the
// position of each text, in twips of the printed side.
#pragma once

#include "platform/controls.h"

#include <array>
#include <cstdint>

namespace vantora {

inline constexpr int kCoverZeilen = 50;
inline constexpr int kCoverSeiten = 5;

struct CoverZustand {
  vantora::Text CoverTitel;                                 // on the spines
  vantora::Text CoverInterpret;                             // performer
  std::array<vantora::Text, kCoverZeilen + 1> CoverZeilen;  // from 1; 0 is unused
  vantora::Text CoverFont = L"Arial";
  std::int16_t CoverFontSize = 10;  // points
  std::int16_t CoverFontBold = 0, CoverFontItalic = 0;
  Color CoverTextFarbe = Rgb(0, 0, 0);
  Color CoverHintergrund = Rgb(255, 255, 255);

  using Ort = std::array<std::int32_t, 2>;               // X, Y
  using Zeilenorte = std::array<Ort, kCoverZeilen + 1>;  // by line from 1; 0 is unused
  std::array<Zeilenorte, kCoverSeiten> ZeilenPos{};      // by side
  std::array<Ort, kCoverSeiten> TitelPos{}, InterpretPos{};
};

}  // namespace vantora
