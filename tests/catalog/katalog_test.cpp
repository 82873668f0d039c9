#include "tests/support/buehne.h"

namespace vantora {
namespace {

using Liste = std::vector<Text>;

class Katalog : public MitProgramm {
 protected:
  Text Spalte(int zeile, int spalte) {
    return b.Haupt().lvwKatalog.ListItems(zeile).SubItems(spalte);
  }
};

TEST_F(Katalog, ABlockOfCrossfadedTracksIsJumpedAsAWhole) {
  b.Katalog({L"a", L"b*", L"c*", L"d"});
  const Liste danach = {L"d", L"b", L"c", L"a"};
  // Moves down; the last track stays; a crossfaded track cannot be moved.
  for (const auto& [zeile, richtung] : {std::pair{1, 1}, std::pair{4, 1}, std::pair{2, 0}}) {
    b.Waehle(zeile);
    b.Haupt().imgMove_MouseUp(richtung);
    EXPECT_EQ(b.Titel(), danach);
  }
  b.Waehle(4);
  b.Haupt().imgMove_MouseUp(0);  // and up
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b", L"c", L"d"}));
}

TEST_F(Katalog, LostAndInvalidFilesLeaveTheListWithoutAWord) {
  b.Katalog({L"a", L"b", L"c", L"d"});
  std::filesystem::remove(b.home.Path() / "Vantora/Wavs/a.wav");
  b.Datei(L"C:\\Vantora\\Wavs\\b.wav", "RIFF");
  b.Wave(L"C:\\Vantora\\Wavs\\c.wav", 80000);  // shorter than two seconds
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  EXPECT_EQ(b.Titel(), (Liste{L"d"}));
  EXPECT_TRUE(b.Gesagt().empty());
  b.Wave(L"C:\\Vantora\\Wavs\\d.wav", 441000 + 5);
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  EXPECT_EQ(b.prog.Katalog[1].Laenge.Ganz(), L"10000.1133");
  EXPECT_EQ(Spalte(1, 4) + Spalte(1, 8), L"00:10Sí");
}

TEST_F(Katalog, PausesOfACrossfadeAreFixedButForItsLastTrack) {
  b.Katalog({L"a*", L"b*", L"c*", L"d"});
  const wchar_t* const pausen[] = {L"0 seg.", L"0 seg.", L"2 seg.", L"0 seg."};
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(Spalte(i, 6), pausen[i - 1]);
  EXPECT_EQ(b.prog.Katalog[4].Pause, 2);
  EXPECT_EQ(b.prog.Katalog[3].PauseSperre.Getrimmt(), L"");
  EXPECT_EQ(b.prog.Katalog[4].PauseSperre.Getrimmt(), L"0");
}

TEST_F(Katalog, TheTotalCountsTheLastDigitsOfAFullLengthOnceMore) {
  b.prog.Katalog.resize(3);
  b.prog.Katalog[1].Laenge = L"215873.0158";  // cut off at ten characters: "15" counts once more
  b.prog.Katalog[1].DateiBytes = 2;           // in seconds
  b.prog.Katalog[2].Laenge = L"60000";
  b.prog.Katalog[2].DateiBytes = 9;  // the last track's pause does not count
  Text text;
  EXPECT_EQ(b.Haupt().KatalogLaengeBerechnen(text), 215873 + 15 + 2000 + 60000);
  EXPECT_EQ(text, L"00:04:37");
}

TEST_F(Katalog, TheTwoTestsOfTheLengthDifferOnPurpose) {
  b.Haupt().ObInZeitGrenzen(74 * 60000 + 59999);
  EXPECT_FALSE(b.prog.KatalogUeberLaenge);
  b.Haupt().ObInZeitGrenzen(80 * 60000 + 59999);
  EXPECT_TRUE(b.prog.KatalogUeberLaenge);
  EXPECT_TRUE(b.Gesagt().empty());
  b.Antwortet(kNein);
  b.Tu([&] { b.Haupt().ObInZeitGrenzen(81 * 60000); });
  EXPECT_TRUE(b.Gesagt().at(0).starts_with(L"Su catálogo dura 81minutos. La duración del CD"));
}

TEST_F(Katalog, WhatTheUserMeantIsFoundAgainWhenOtherRowsVanishUnderTheBox) {
  b.Katalog({L"a", L"b", L"c", L"d"});
  const auto verliert = [&](const char* name) {
    return std::filesystem::remove(b.home.Path() / "Vantora/Wavs" / name);
  };
  b.Waehle(3);
  b.Macht([&](Form& front) {
    EXPECT_TRUE(verliert("a.wav"));
    b.platform.hands.Press(*front.Find(L"picMboxButton", 0));
  });
  b.Tu([&] { b.Haupt().imgDelTitel_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"b", L"d"}));
  b.Waehle(2);
  b.Macht([&](Form& front) {
    EXPECT_TRUE(verliert("b.wav"));
    b.platform.hands.Type(dynamic_cast<frmNeuerInterpret&>(front).txtTitel, L"nuevo");
    b.platform.hands.Key(front, L"Return");
  });
  b.Tu([&] { b.Haupt().imgTitelBearb_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"nuevo"}));
  b.Katalog({L"x", L"y"});
  b.Waehle(3);
  EXPECT_TRUE(verliert("x.wav"));
  b.Tu([&] { b.Haupt().imgMove_MouseUp(0); });
  EXPECT_EQ(b.Titel().size(), 2U);
  EXPECT_EQ(b.user.Left(), 0U);
}

TEST_F(Katalog, ALengthThatIsNoNumberAndADateThatIsNoneAreReadAnew) {
  b.Katalog({L"a", L"b"});
  KatalogEintrag& a = b.prog.Katalog[1];
  a.Laenge = L"9e999";
  a.DateiDatum = L"ayer";
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  EXPECT_EQ(b.prog.Katalog[1].DateiDatum,
            b.platform.bundle.dateien.FileDateTime(b.prog.Katalog[1].Datei.Getrimmt()));
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b"}));
  EXPECT_EQ(b.prog.Katalog[1].Laenge.Getrimmt(), L"3000");
  EXPECT_EQ(b.Haupt().lblKatalogLaenge.Caption(), L"00:00:06");
}

TEST_F(Katalog, ARefusalOrAnErrorCostsNeitherTheNameNorTheTracks) {
  b.Datei(L"C:\\roto.vtr", "no es un catálogo");
  const struct {
    void (frmHauptForm::*Knopf)();
    Text Datei, Meldung;  // the file and the end of the message
  } faelle[] = {{&frmHauptForm::imgKatalogÖffnen_MouseUp, L"C:\\falta.vtr", Sagt(8035)},
                {&frmHauptForm::imgKatalogSpeichern_MouseUp, L"C:\\roto.vtr", Sagt(8005)},
                {&frmHauptForm::imgKatalogÖffnen_MouseUp, L"C:\\roto.vtr", L"(62)"},
                {&frmHauptForm::imgKatalogAnhaengen_MouseUp, L"C:\\roto.vtr", L"(62)"},
                {&frmHauptForm::imgKatalogSpeichern_MouseUp, L"C:\\falta\\a.vtr", L"(76)"}};
  for (const auto& fall : faelle) {
    b.prog.Katalog.resize(1);
    b.Katalog({L"a"});
    b.prog.KatalogDatei = b.prog.LetzterKatalog = L"C:\\mio.vtr";
    b.prog.KatalogGeaendert = false;
    b.WaehltDatei({fall.Datei}).Antwortet(kNein);
    b.Tu([&] { (b.Haupt().*fall.Knopf)(); });
    EXPECT_TRUE(b.Gesagt().back().ends_with(fall.Meldung));
    EXPECT_EQ(b.prog.LetzterKatalog, L"C:\\mio.vtr");
    EXPECT_EQ(b.Haupt().lblKatalogDatei.Caption(), L"C:\\mio.vtr");
    EXPECT_EQ(b.Titel(), Liste{L"a"});
  }
  EXPECT_EQ(b.Lies(L"C:\\roto.vtr"), "no es un catálogo");
}

}  // namespace
}  // namespace vantora
