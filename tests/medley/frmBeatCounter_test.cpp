#include "medley/frmBeatCounter.h"

#include "medley/frmMedley.h"
#include "tests/support/buehne.h"

namespace vantora {

namespace {

class BeatCounter : public testing::Test, protected Buehne {
 protected:
  BeatCounter() {
    Start();
    Katalog({L"a", L"b"});
    Waehle(1);
    Haupt().lvwKatalog.ListItems(2).SetSelected(true);
    Tu([this] { Haupt().imgTitel_MouseUp(); });
  }
  frmBeatCounter& Oeffne() {
    platform.hands.Press(prog.frmMedley().imgSpeedMeasure);
    return prog.frmBeatCounter();
  }
};

}  // namespace

TEST_F(BeatCounter, TapsCountAtTheirOwnMomentsWhileTheWindowIsBusy) {
  frmBeatCounter& z = Oeffne();
  HeadlessLoop& loop = platform.loop;
  for (int i = 0; i < 4; ++i) {
    loop.PostAfter(100 + 500 * i, [&] { platform.hands.Key(z, L"Space"); });
  }
  loop.PostAfter(350, [&loop] { loop.Sleep(900); });
  loop.Pass(3000);
  EXPECT_EQ(z.lblBeatDisplay.Caption(), L"120");
}

TEST_F(BeatCounter, AHeldKeyIsOneTapAndThePictureAnswers) {
  frmBeatCounter& z = Oeffne();
  const bool vorher = prog.Umschalter;
  for (int i = 0; i < 5; ++i) z.Form_KeyDown(kKeySpace, false);
  EXPECT_NE(prog.Umschalter, vorher);
  EXPECT_EQ(z.imgBeat.Picture(), L"BEATPIC");
  z.Form_KeyUp(kKeySpace);
  EXPECT_EQ(z.imgBeat.Picture(), L"");
  EXPECT_FALSE(z.TasteUnten);
}

TEST_F(BeatCounter, TheTempoIsHandedOverWithinItsLimitsOrNotAtAll) {
  const std::pair<Text, Text> faelle[] = {{L"0", L"50"}, {L"300", L"280"}, {L"124", L"124"}};
  for (const auto& [gezeigt, erwartet] : faelle) {
    Oeffne().lblBeatDisplay.Caption = gezeigt;
    platform.hands.Press(prog.frmBeatCounter().imgOK);
    EXPECT_EQ(prog.Medley[0].BPM, erwartet);
    Oeffne().lblBeatDisplay.Caption = L"99";
    platform.hands.Close(prog.frmBeatCounter());
    EXPECT_EQ(prog.frmMedley().txtBPM.Text(), erwartet);
    EXPECT_TRUE(prog.frmMedley().Window.Enabled());
  }
}

TEST_F(BeatCounter, ALongTrackPlaysFromItsMiddleForTwentySeconds) {
  frmBeatCounter& z = Oeffne();
  EXPECT_EQ(platform.card.From, 0);  // starts at 0: the track has three seconds
  platform.hands.Close(z);
  Wave(L"C:\\Vantora\\Wavs\\a.wav", 20 * 44100 + 1);
  frmBeatCounter& lang = Oeffne();
  EXPECT_EQ(platform.card.From, 10 * 176400);  // starts at a whole frame
  platform.loop.Pass(5000);
  EXPECT_NEAR(lang.shpZeitanzeige.Width(), lang.BalkenBreite / 4.0, lang.BalkenBreite / 100.0);
  EXPECT_TRUE(Haupt().SpielerLaeuft());
  platform.loop.Pass(16000);
  EXPECT_FALSE(Haupt().SpielerLaeuft());
  std::int32_t breite = 0;
  frmBeatCounter::BalkenAktualisieren(5, 20, 1000, 0, 0, breite);
  EXPECT_EQ(breite, 0);  // never negative
  frmBeatCounter::BalkenAktualisieren(5, 20, 1000, 1000, 0, breite);
  EXPECT_EQ(breite, 750);
}

}  // namespace vantora
