#include "medley/frmMedley.h"

#include "tests/support/buehne.h"

namespace vantora {

namespace {

struct MedleyFenster : Buehne {
  MedleyFenster() {
    Start();
    Katalog({L"a", L"b", L"c"});
  }
  // Opens the window for all rows of the catalog. `laenge` replaces the length of each track.
  frmMedley& Oeffne(const Text& laenge = L"") {
    for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
      if (!laenge.empty()) prog.Katalog[i].Laenge = laenge;
    }
    ListItems& zeilen = Haupt().lvwKatalog.ListItems;
    for (int i = 1; i <= zeilen.Count(); ++i) zeilen(i).SetSelected(true);
    Tu([this] { Haupt().imgTitel_MouseUp(); });
    return prog.frmMedley();
  }
};

class MedleyWindow : public testing::Test, protected MedleyFenster {};

}  // namespace

TEST_F(MedleyWindow, ATickAndAConfirmedValueReachTheirRowWithoutLeavingIt) {
  frmMedley& m = Oeffne();
  platform.hands.Press(m.chkPitch);
  EXPECT_NE(prog.Medley[0].PitchKorrektur, 0);
  platform.hands.Type(m.txtBPM, L"120");
  EXPECT_EQ(prog.Medley[0].BPM, L"50") << "not confirmed";
  platform.hands.Key(m, L"Return");
  EXPECT_EQ(prog.Medley[0].BPM, L"120");
}

TEST_F(MedleyWindow, AFadeIsCutToTheShorterTrackAndHostileLengthsCutNothing) {
  const struct {
    Text Erste, Zweite, Getippt, Erwartet, Verlassen;  // with Return, and when the focus leaves
  } faelle[] = {{L"3500", L"3700", L"9", L"3.5", L"3.5"},
                {L"60000", L"4200", L"9", L"4.2", L"4.2"},
                {L"1e999", L"-5", L"9", L"9", L"9"},
                {L"", L"nada", L"9", L"9", L"9"},
                {L"60000", L"60000", L"99999999", L"60", L"10"}};
  for (const auto& fall : faelle) {
    MedleyFenster b;
    b.prog.Katalog[1].Laenge = fall.Erste;
    b.prog.Katalog[2].Laenge = fall.Zweite;
    frmMedley& m = b.Oeffne();
    b.platform.hands.Type(m.txtDauer, fall.Getippt);
    b.platform.hands.Key(m, L"Return");
    EXPECT_EQ(m.txtDauer.Text(), fall.Erwartet);
    EXPECT_LE(m.picWaveToFade(0).Left(), 1875) << "it shows at most ten seconds";
    b.platform.hands.Key(m, L"Tab");
    EXPECT_EQ(m.txtDauer.Text(), fall.Verlassen);
    EXPECT_TRUE(b.Gesagt().empty());
  }
}

TEST_F(MedleyWindow, StripsOverlapInProportionAndFollowMouseAndKeysByWholeSeconds) {
  frmMedley& m = Oeffne(L"60000");
  const auto ueberlappung = [&m] {
    return m.picWaveToFade(0).Left() + m.picWaveToFade(0).Width() - m.picWaveToFade(1).Left() -
           2 * Streifen::kRahmen;
  };
  const int eine = ueberlappung();
  EXPECT_EQ(eine, 360);
  const int breite = m.picWaveToFade(0).Width;
  const auto ziehe = [&](int twips) {
    platform.hands.Drag(m.picWaveToFade(0), 500, 500 + twips * 1000 / breite);
  };
  ziehe(180 * 4 + 60);
  EXPECT_EQ(m.txtDauer.Text(), L"5");
  EXPECT_EQ(ueberlappung(), 5 * eine);
  EXPECT_EQ(prog.Medley[0].Dauer, L"1") << "only the text box has changed";
  platform.hands.Key(m, L"End");
  platform.hands.Key(m, L"Right");
  EXPECT_EQ(m.txtDauer.Text(), L"10");
  EXPECT_EQ(ueberlappung(), 10 * eine);
  ziehe(-2500);
  EXPECT_EQ(m.txtDauer.Text(), L"1");
  EXPECT_EQ(m.picWaveToFade(0).Left(), 255);
  EXPECT_EQ(ueberlappung(), eine);
}

TEST_F(MedleyWindow, NothingReachesTheWindowWhileItJoinsTracks) {
  frmMedley& m = Oeffne();
  bool gesperrt = false;
  platform.loop.PostAfter(0, [&] {
    gesperrt = !m.Window.Enabled() && platform.loop.MousePointer() == Pointer::Hourglass;
    m.imgAbbrechen_MouseUp();
    m.imgOK_MouseUp();
  });
  Antwortet(kNein).Antwortet(kNein);  // tracks of three seconds are too short
  Tu([&m] { m.imgOK_MouseUp(); });
  EXPECT_TRUE(gesperrt);
  EXPECT_EQ(Gesagt().size(), 2U);
  EXPECT_FALSE(prog.frmMedley.Geladen());
  EXPECT_EQ(Haupt().lvwKatalog.ListItems.Count(), 3);
}

}  // namespace vantora
