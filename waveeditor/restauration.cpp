#include "waveeditor/restauration.h"

#include "klang/klang_frame.h"

#include <algorithm>

namespace vantora {

namespace {

// The library's functions for each filter.
struct Funktionen {
  void (Audiolib::*Ein)(const float& pegel);
  void (Audiolib::*Aus)();
  void (Audiolib::*Puffer)(const float& pegel, const std::int16_t& kanaele,
                           const std::int16_t* quelle, std::int16_t* ziel, int frames);
};
constexpr Funktionen kFunktionen[] = {
    {&Audiolib::func_05, &Audiolib::func_11, &Audiolib::func_08},
    {&Audiolib::func_03, &Audiolib::func_09, &Audiolib::func_06},
    {&Audiolib::func_04, &Audiolib::func_10, &Audiolib::func_07},
};

}  // namespace

float& Restauration::Level(Filter filter) {
  float* const pegel[] = {&DeclickLevel, &DecrackleLevel, &DenoiserLevel};
  return *pegel[filter];
}

void Restauration::Schalten(Filter filter, bool an) {
  an_[filter] = an;
  if (an) {
    (bibliothek_.*kFunktionen[filter].Ein)(Level(filter));
  } else {
    (bibliothek_.*kFunktionen[filter].Aus)();
  }
}

void Restauration::Auffrischen() {
  for (const Filter filter : kAlle) {
    if (!an_[filter]) continue;
    Schalten(filter, false);
    Schalten(filter, true);
  }
}

void Restauration::Anwenden(std::int16_t* klang, std::int16_t* hilfe, std::size_t bytes,
                            const PcmData& folgt) {
  const auto frames = [](std::size_t n) { return static_cast<int>(n) / kFrameBytes; };
  bibliothek_.Follows(folgt.Samples.data(), std::int16_t{kChannels}, frames(folgt.Bytes));
  for (const Filter filter : kAlle) {
    if (!an_[filter]) continue;
    (bibliothek_.*kFunktionen[filter].Puffer)(Level(filter), std::int16_t{kChannels}, klang, hilfe,
                                              frames(bytes));
    std::copy_n(hilfe, bytes / sizeof *klang, klang);
  }
}

}  // namespace vantora
