#include <gtest/gtest.h>

#include "app/zahlen.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

using Liste = std::vector<Text>;

TEST(Katalog, ABlockOfCrossfadedTracksIsJumpedAsAWhole) {
  Buehne b;
  b.Start();
  b.Katalog({L"a", L"b*", L"c*", L"d"});
  b.Waehle(1);
  b.Haupt().imgMove_MouseUp(1);
  EXPECT_EQ(b.Titel(), (Liste{L"d", L"b", L"c", L"a"}));
  EXPECT_EQ(b.Haupt().AktuellerTitel, 4);
  b.Haupt().imgMove_MouseUp(1);  // the last one stays
  EXPECT_EQ(b.Titel(), (Liste{L"d", L"b", L"c", L"a"}));
  b.Waehle(2);
  b.Haupt().imgMove_MouseUp(0);  // a crossfaded one can't be moved
  EXPECT_EQ(b.Titel(), (Liste{L"d", L"b", L"c", L"a"}));
}

TEST(Katalog, UndoBringsBackWhatWasDeletedAndHasOneStep) {
  Buehne b;
  b.Start();
  b.Katalog({L"a", L"b", L"c"});
  b.Waehle(2);
  b.Antwortet(kNein).Antwortet(kJa);
  b.Tu([&] { b.Haupt().imgDelTitel_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b", L"c"}));
  b.Tu([&] { b.Haupt().imgDelTitel_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"c"}));
  ASSERT_EQ(b.Gesagt().size(), 2U);
  EXPECT_EQ(b.Gesagt()[0], L"¿Desea eliminar el título N°2\r\n b del catálogo?");
  b.Tu([&] { b.Haupt().imgDeleteTitel_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b", L"c"}));
  b.Tu([&] { b.Haupt().imgDeleteTitel_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b", L"c"}));
  EXPECT_TRUE(b.prog.KatalogGeaendert);
}

TEST(Katalog, LostAndInvalidFilesLeaveTheListWithoutAWord) {
  Buehne b;
  b.Start();
  b.Katalog({L"a", L"b", L"c", L"d"});
  std::filesystem::remove(b.home.Path() / "Vantora/Wavs/a.wav");
  b.Datei(L"C:\\Vantora\\Wavs\\b.wav", "RIFF");
  b.Wave(L"C:\\Vantora\\Wavs\\c.wav", 80000);  // under two seconds
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  EXPECT_EQ(b.Titel(), (Liste{L"d"}));
  EXPECT_TRUE(b.Gesagt().empty());
  b.Wave(L"C:\\Vantora\\Wavs\\d.wav", 441000 + 5);
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  EXPECT_EQ(b.prog.Katalog[1].Laenge.Ganz(), L"10000.1133");
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems(1).SubItems(4), L"00:10");
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems(1).SubItems(8), L"Sí");
}

TEST(Katalog, PausesOfACrossfadeAreFixedButForItsLastTrack) {
  Buehne b;
  b.Start();
  b.Katalog({L"a*", L"b*", L"c*", L"d"});
  const auto pause = [&](int i) { return b.Haupt().lvwKatalog.ListItems(i).SubItems(6); };
  EXPECT_EQ(pause(1), L"0 seg.");
  EXPECT_EQ(pause(2), L"0 seg.");
  EXPECT_EQ(pause(3), L"2 seg.");
  EXPECT_EQ(pause(4), L"0 seg.");
  EXPECT_EQ(b.prog.Katalog[4].Pause, 2);
  EXPECT_EQ(b.prog.Katalog[3].PauseSperre.Getrimmt(), L"");
  EXPECT_EQ(b.prog.Katalog[4].PauseSperre.Getrimmt(), L"0");
}

TEST(Katalog, TheTotalCountsTheLastDigitsOfAFullLengthOnceMore) {
  Buehne b;
  b.Start();
  b.prog.Katalog.resize(3);
  b.prog.Katalog[1].Laenge = L"215873.0158";  // cut at ten characters: "15" counts again
  b.prog.Katalog[1].DateiBytes = 2;           // seconds here
  b.prog.Katalog[2].Laenge = L"60000";
  b.prog.Katalog[2].DateiBytes = 9;  // the last one's does not count
  Text text;
  EXPECT_EQ(b.Haupt().KatalogLaengeBerechnen(text), 215873 + 15 + 2000 + 60000);
  EXPECT_EQ(text, L"00:04:37");
}

TEST(Katalog, TheTwoTestsOfTheLengthDifferOnPurpose) {
  Buehne b;
  b.Start();
  b.Haupt().ObInZeitGrenzen(74 * 60000 + 59999);
  EXPECT_FALSE(b.prog.KatalogUeberLaenge);
  b.Haupt().ObInZeitGrenzen(80 * 60000 + 59999);
  EXPECT_TRUE(b.prog.KatalogUeberLaenge);
  EXPECT_TRUE(b.Gesagt().empty());
  b.Antwortet(kNein);
  b.Tu([&] { b.Haupt().ObInZeitGrenzen(81 * 60000); });
  ASSERT_EQ(b.Gesagt().size(), 1U);
  EXPECT_EQ(b.Gesagt()[0],
            L"Su catálogo dura 81minutos. La duración del CD que indicó en el menú Herramientas es "
            L"insuficiente.");
}

TEST(Katalog, WhatTheUserMeantIsFoundAgainWhenOtherRowsVanishUnderTheBox) {
  Buehne b;
  b.Start();
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

TEST(Katalog, ALengthThatIsNoNumberIsReadAnew) {
  Buehne b;
  b.Start();
  b.Katalog({L"a", L"b"});
  b.prog.Katalog[1].Laenge = L"9e999";
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b"}));
  EXPECT_EQ(b.prog.Katalog[1].Laenge.Getrimmt(), L"3000");
  EXPECT_EQ(b.Haupt().lblKatalogLaenge.Caption(), L"00:00:06");
}

TEST(Katalog, ARefusedNameIsNotTheCatalogs) {
  Buehne b;
  b.Start();
  b.Katalog({L"a"});
  b.prog.KatalogDatei = b.prog.LetzterKatalog = L"C:\\mio.vtr";
  b.Datei(L"C:\\otro.vtr", "no es mío");
  b.prog.KatalogGeaendert = true;
  b.WaehltDatei({L"C:\\falta.vtr"}).Antwortet(kNein);  // to open: it is missing
  b.Tu([&] { b.Haupt().imgKatalogÖffnen_MouseUp(); });
  b.WaehltDatei({L"C:\\otro.vtr"}).Antwortet(kNein);  // to save: not over that one
  b.Tu([&] { b.Haupt().imgKatalogSpeichern_MouseUp(); });
  EXPECT_EQ(b.Gesagt(), (Liste{b.prog.Text(8035), b.prog.Text(8005)}));
  EXPECT_EQ(b.prog.LetzterKatalog, L"C:\\mio.vtr");
  EXPECT_EQ(b.Haupt().lblKatalogDatei.Caption(), L"C:\\mio.vtr");
  EXPECT_EQ(b.Lies(L"C:\\otro.vtr"), "no es mío");
}

TEST(Katalog, SavedAndOpenedAgainItIsTheSameCatalog) {
  Buehne b;
  b.Start();
  b.Antwortet(kNein);
  b.Tu([&] { b.Haupt().imgKatalogSpeichern_MouseUp(); });
  EXPECT_EQ(b.Gesagt(), (Liste{b.prog.Text(8037)}));
  b.Katalog({L"a", L"b"});
  b.prog.KatalogGeaendert = true;
  b.WaehltDatei({L"C:\\Vantora\\Catálogo\\mi disco"});
  b.Tu([&] { b.Haupt().imgKatalogSpeichern_MouseUp(); });
  EXPECT_FALSE(b.prog.KatalogGeaendert);
  const std::string bytes = b.Lies(L"C:\\Vantora\\Catálogo\\mi disco.vtr");
  EXPECT_GT(bytes.size(), 2U * 822U);
  b.Tu([&] { b.Haupt().imgNeuerKatalog_MouseUp(); });
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems.Count(), 0);
  b.WaehltDatei({L"C:\\Vantora\\Catálogo\\mi disco.vtr"});
  b.Tu([&] { b.Haupt().imgKatalogÖffnen_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"b"}));
  EXPECT_EQ(b.Haupt().lblKatalogTitel.Caption(), L"Disco");
  EXPECT_EQ(b.Haupt().lblKatalogDatei.Caption(), L"C:\\Vantora\\Catálogo\\mi disco.vtr");
  // A refused overwrite leaves file and flag as they are.
  b.prog.KatalogGeaendert = true;
  b.WaehltDatei({L"C:\\Vantora\\Catálogo\\mi disco.vtr"}).Antwortet(kNein);
  b.Tu([&] { b.Haupt().imgKatalogSpeichern_MouseUp(); });
  EXPECT_TRUE(b.prog.KatalogGeaendert);
  EXPECT_EQ(b.Lies(L"C:\\Vantora\\Catálogo\\mi disco.vtr"), bytes);
}

TEST(Katalog, ABrokenFileIsToldAndTheProgramGoesOn) {
  Buehne b;
  b.Start();
  b.Katalog({L"a"});
  b.Datei(L"C:\\roto.vtr", "no es un catálogo");
  b.WaehltDatei({L"C:\\roto.vtr"}).Antwortet(kNein);
  b.Tu([&] { b.Haupt().imgKatalogÖffnen_MouseUp(); });
  ASSERT_EQ(b.Gesagt().size(), 1U);
  EXPECT_TRUE(b.Gesagt()[0].ends_with(L"(62)"))
      << std::string(b.Gesagt()[0].begin(), b.Gesagt()[0].end());
  EXPECT_EQ(b.platform.loop.MousePointer(), Pointer::Normal);
  b.Tu([&] { b.Haupt().Form_GotFocus(); });
  b.WaehltDatei({});
  b.Tu([&] { b.Haupt().imgKatalogÖffnen_MouseUp(); });
  EXPECT_EQ(b.user.Left(), 0U);
}

TEST(Katalog, AppendedTracksTakeTheTitleOfTheCatalogTheyJoin) {
  Buehne b;
  b.Start();
  b.Katalog({L"a"});
  b.Haupt().KatalogSpeichern(L"C:\\uno.vtr");
  b.prog.Katalog[0].KatalogTitel = L"Mía";
  b.WaehltDatei({L"C:\\uno.vtr"});
  b.Tu([&] { b.Haupt().imgKatalogAnhaengen_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"a"}));
  EXPECT_EQ(b.prog.Katalog[2].KatalogTitel.Getrimmt(), L"Mía");
  EXPECT_EQ(b.Haupt().lblKatalogTitel.Caption(), L"Mía");
}

TEST(Katalog, ChosenTracksComeFromAnotherCatalog) {
  Buehne b;
  b.Start();
  b.Katalog({L"a", L"b", L"c"});
  b.Haupt().KatalogSpeichern(L"C:\\fuente.vtr");
  b.Tu([&] { b.Haupt().imgNeuerKatalog_MouseUp(); });
  b.WaehltDatei({L"C:\\fuente.vtr"}).Macht([&](Form& front) {
    auto& fenster = dynamic_cast<frmLiedAusKatalog&>(front);
    EXPECT_EQ(fenster.lstLiedAusKatalog.List(1), L"2. b Voz 00:03 C:\\Vantora\\Wavs\\b.wav");
    b.platform.hands.Select(fenster.lstLiedAusKatalog, {1, 3});
    b.platform.hands.Press(fenster.imgControl(0));
  });
  b.Tu([&] { b.Haupt().imgLiedKatalog_MouseUp(); });
  EXPECT_EQ(b.Titel(), (Liste{L"a", L"c"}));
  EXPECT_EQ(b.Haupt().lblKatalogDatei.Caption(), L"");
}

TEST(Katalog, TrackPropertiesKeepWhatIsLeftBlank) {
  Buehne b;
  b.Start();
  b.Katalog({L"a", L"b"});
  b.Waehle(1);
  b.Macht([&](Form& front) {
    auto& fenster = dynamic_cast<frmNeuerInterpret&>(front);
    EXPECT_EQ(fenster.cmbPause.ListIndex(), 2);
    b.platform.hands.Type(fenster.txtTitel, L"");
    b.platform.hands.Type(fenster.txtInterpret, L"Otra voz");
    b.platform.hands.Select(fenster.cmbPause, {6});
    b.platform.hands.Key(fenster, L"Return");
  });
  b.Tu([&] { b.Haupt().imgTitelBearb_MouseUp(); });
  EXPECT_EQ(b.prog.Katalog[1].Titel.Getrimmt(), L"a");
  EXPECT_EQ(b.prog.Katalog[1].Interpret.Getrimmt(), L"Otra voz");
  EXPECT_EQ(b.prog.Katalog[1].Pause, 5);
}

}  // namespace
}  // namespace vantora
