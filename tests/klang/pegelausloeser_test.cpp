#include "klang/pegelausloeser.h"

#include <gtest/gtest.h>

namespace vantora {

TEST(Pegelausloeser, APauseEndsATakeInTheVeryMillisecondThatItIsLong) {
  Pegelausloeser p{.Pegelschwelle = 2000, .Pausenlaenge = 1000, .NimmtAuf = true};
  p.Puffer(2001, 500);
  EXPECT_EQ(p.Puffer(0, 1499).Was, Pegelausloeser::Schritt::Laeuft);
  EXPECT_EQ(p.Puffer(0, 1500).Was, Pegelausloeser::Schritt::Ende);
}

TEST(Pegelautomatik, EveryEleventhLevelTurnsDownWhatIsNearFullScale) {
  Pegelautomatik a;
  for (int i = 1; i <= 33; ++i) EXPECT_EQ(a.Messen(65410), i % 11 == 0) << i;
  EXPECT_EQ(a.Neu(60000), 60000 - 10 * 90);
  EXPECT_EQ(a.Neu(800), 0);
}

}  // namespace vantora
