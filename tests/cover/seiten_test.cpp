#include "cover/seiten.h"

#include <gtest/gtest.h>

namespace vantora {

using Ort = CoverZustand::Ort;

TEST(Seiten, LinesBeginWhereTheSideHasItsTextsAndNearerWithLargeFonts) {
  CoverZustand cover;
  ZeilenPosFuellen(cover, 15);
  EXPECT_EQ(cover.ZeilenPos[0][1], (Ort{600, 650}));
  EXPECT_EQ(cover.ZeilenPos[1][2], (Ort{5600, 830}));
  EXPECT_EQ(cover.ZeilenPos[4][50], (Ort{600, 650 + 180 * 49}));
  ZeilenPosFuellen(cover, 12);
  EXPECT_EQ(cover.ZeilenPos[0][1], (Ort{480, 520}));
  EXPECT_EQ(cover.ZeilenPos[1][2], (Ort{4480, 664}));
}

TEST(Seiten, AMovedTextStandsOnTheGridAndInsideTheSide) {
  const Mass text = {1000, 230};
  EXPECT_EQ(OrtInDerSeite(kLabel, 649, 674, text, Raster(15)), (Ort{600, 650}));
  EXPECT_EQ(OrtInDerSeite(kLabel, 651, 676, text, Raster(15)), (Ort{700, 700}));
  EXPECT_EQ(OrtInDerSeite(kLabel, 651, 676, text, Raster(12)), (Ort{600, 660}));
  EXPECT_EQ(OrtInDerSeite(kLabel, -300, -20, text, Raster(15)), (Ort{0, 0}));
  EXPECT_EQ(OrtInDerSeite(kLabel, 9000, 9000, text, Raster(15)), (Ort{5800, 6550}));
  EXPECT_EQ(OrtInDerSeite(kLabel, 500, 500, {7000, 7000}, Raster(15)), (Ort{0, 0})) << "no room";
}

TEST(Seiten, AnArrowMovesByAHundredUnlessTheTextWouldLeaveTheSide) {
  // The last six texts are outside the side from the beginning.
  const struct {
    int Taste;
    Ort Von, Nach;  // the same where the key moves nothing
  } faelle[] = {{kKeyRight, {600, 650}, {700, 650}},  {kKeyDown, {600, 650}, {600, 750}},
                {kKeyLeft, {480, 520}, {400, 500}},   {kKeyLeft, {40, 650}, {40, 650}},
                {kKeyUp, {600, 50}, {600, 50}},       {kKeyRight, {5800, 650}, {5800, 650}},
                {kKeyDown, {0, 6500}, {0, 6500}},     {kKeyUp, {0, 100}, {0, 0}},
                {kKeyUp, {600, 9470}, {600, 9350}},   {kKeyRight, {600, 9450}, {700, 9450}},
                {kKeyDown, {600, 9450}, {600, 9450}}, {kKeyDown, {6000, 650}, {6000, 750}},
                {kKeyLeft, {6000, 650}, {5900, 650}}, {kKeyRight, {6000, 650}, {6000, 650}}};
  for (const auto& [taste, von, nach] : faelle) {
    Ort ort = von;
    EXPECT_EQ(TastenSchritt(kLabel, taste, {1000, 230}, ort), von != nach) << taste;
    EXPECT_EQ(ort, nach);
  }
}

TEST(Seiten, ADottedLineJumpsAtEveryMultipleOfTwenty) {
  std::vector<int> punkte;
  Punktreihe(-21, 41, [&](int i) { punkte.push_back(i); });
  std::vector<int> soll = {-21};
  for (int takt : {-20, 0, 20}) {
    for (int i = takt + 10; i < takt + 20; ++i) soll.push_back(i);
  }
  soll.push_back(50);  // the dots skip 10 after 40
  EXPECT_EQ(punkte, soll);
}

}  // namespace vantora
