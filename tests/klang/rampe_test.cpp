#include "klang/rampe.h"

#include <gtest/gtest.h>

#include "klang/klang_frame.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace vantora {

TEST(Rampe, AFadeOfAnyLengthIsRoundedToNearestWithTiesToEven) {
  std::mt19937 zufall(1);
  std::vector<KlangFrame> frames(10'000);
  for (std::int32_t laenge = 1; laenge < 1'500'000'000; laenge += laenge / 5 + 1) {
    SCOPED_TRACE(laenge);
    const auto erster = static_cast<std::int32_t>(zufall() % static_cast<unsigned>(laenge));
    const auto anzahl = static_cast<std::size_t>(std::min(laenge - erster, 10'000));
    const double s = 1.0 / laenge;
    for (const bool ein : {false, true}) {
      for (KlangFrame& frame : frames) {
        frame = {static_cast<std::int16_t>(zufall()), static_cast<std::int16_t>(zufall() % 9)};
      }
      std::vector<KlangFrame> neu = frames;
      Rampe(&neu[0].Links, anzahl, erster, ein ? 0 : 1, ein ? s : -s);
      bool gleich = true;
      for (std::size_t j = 0; j < frames.size(); ++j) {
        const double k = static_cast<double>(j) + erster;
        const double gain = j >= anzahl ? 1 : ein ? k * s : 1 - k * s;
        gleich = gleich && neu[j].Links == std::nearbyint(frames[j].Links * gain) &&
                 neu[j].Rechts == std::nearbyint(frames[j].Rechts * gain);
      }
      EXPECT_TRUE(gleich);
    }
  }
}

}  // namespace vantora
