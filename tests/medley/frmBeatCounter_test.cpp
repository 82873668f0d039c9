#include "medley/frmBeatCounter.h"

#include <gtest/gtest.h>

#include "medley/frmMedley.h"
#include "tests/support/buehne.h"

namespace vantora {

namespace {

class Zaehler : public Buehne {
 public:
  Zaehler() {
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
  void Tippe(const std::vector<int>& abstaende) {
    for (const int ms : abstaende) {
      platform.hands.Key(prog.frmBeatCounter(), L"Space");
      platform.loop.Pass(ms);
    }
  }
};

}  // namespace

TEST(BeatCounter, TapsCountAtTheirOwnMomentsWhileTheWindowIsBusy) {
  Zaehler b;
  frmBeatCounter& z = b.Oeffne();
  HeadlessLoop& loop = b.platform.loop;
  for (int i = 0; i < 4; ++i) {
    loop.PostAfter(100 + 500 * i, [&] { b.platform.hands.Key(z, L"Space"); });
  }
  loop.PostAfter(350, [&loop] { loop.Sleep(900); });
  loop.Pass(3000);
  EXPECT_EQ(z.lblBeatDisplay.Caption(), L"120");
}

TEST(BeatCounter, AHeldKeyIsOneTapAndThePictureAnswers) {
  Zaehler b;
  frmBeatCounter& z = b.Oeffne();
  const bool vorher = b.prog.Umschalter;
  for (int i = 0; i < 5; ++i) z.Form_KeyDown(kKeySpace, false);
  EXPECT_NE(b.prog.Umschalter, vorher);
  EXPECT_EQ(z.imgBeat.Picture(), L"BEATPIC");
  z.Form_KeyUp(kKeySpace);
  EXPECT_EQ(z.imgBeat.Picture(), L"");
  EXPECT_FALSE(z.TasteUnten);
}

TEST(BeatCounter, TheTempoIsHandedOverWithinItsLimitsOrNotAtAll) {
  for (const auto& [gezeigt, erwartet] :
       std::vector<std::pair<Text, Text>>{{L"0", L"50"}, {L"300", L"280"}, {L"124", L"124"}}) {
    Zaehler b;
    b.Oeffne().lblBeatDisplay.Caption = gezeigt;
    EXPECT_FALSE(b.prog.frmMedley().Window.Enabled());
    b.platform.hands.Press(b.prog.frmBeatCounter().imgOK);
    frmMedley& m = b.prog.frmMedley();
    EXPECT_TRUE(m.Window.Enabled());
    EXPECT_EQ(m.txtBPM.Text(), erwartet);
    EXPECT_EQ(b.prog.Medley[0].BPM, erwartet);
    b.Oeffne().lblBeatDisplay.Caption = L"99";
    b.platform.hands.Close(b.prog.frmBeatCounter());
    EXPECT_EQ(m.txtBPM.Text(), erwartet);
    EXPECT_TRUE(m.Window.Enabled());
  }
}

TEST(BeatCounter, ALongTrackPlaysFromItsMiddleForTwentySeconds) {
  Zaehler b;
  frmBeatCounter& z = b.Oeffne();
  EXPECT_EQ(b.platform.card.From, 0);  // starts at 0: the track has three seconds
  b.platform.hands.Close(z);
  b.Wave(L"C:\\Vantora\\Wavs\\a.wav", 20 * 44100 + 1);
  frmBeatCounter& lang = b.Oeffne();
  EXPECT_EQ(b.platform.card.From, 10 * 176400);  // starts at a whole frame
  b.platform.loop.Pass(5000);
  EXPECT_NEAR(lang.shpZeitanzeige.Width(), lang.BalkenBreite / 4.0, lang.BalkenBreite / 100.0);
  EXPECT_TRUE(b.Haupt().SpielerLaeuft());
  b.platform.loop.Pass(16000);
  EXPECT_FALSE(b.Haupt().SpielerLaeuft());
  std::int32_t breite = 0;
  frmBeatCounter::BalkenAktualisieren(5, 20, 1000, 0, 0, breite);
  EXPECT_EQ(breite, 0);  // never negative
  frmBeatCounter::BalkenAktualisieren(5, 20, 1000, 1000, 0, breite);
  EXPECT_EQ(breite, 750);
}

}  // namespace vantora
