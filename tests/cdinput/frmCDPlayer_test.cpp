#include "app/werte/zahlen.h"
#include "tests/cdinput/cd_stage.h"

#include <utility>

namespace vantora {
namespace {

using Worte = std::vector<Text>;

const Text kWavs = L"C:\\Vantora\\Wavs\\";

class CDPlayer : public ::testing::Test, protected CdBuehne {
 protected:
  void Waehlt(const std::vector<int>& zeilen) {
    b.platform.hands.Select(Player().lstTracks, zeilen);
  }
  std::vector<Text> Zeilen() { return Player().lstTracks.Items(); }
  // Saves the selected tracks with these answers. Returns the messages.
  std::vector<Text> Sichert(std::initializer_list<int> antworten) {
    return Mit(antworten, [this] { Druecke(Player().imgSpeichern); });
  }
  // Selects the drive again, after changes to it.
  std::vector<Text> WaehltLaufwerk(std::initializer_list<int> antworten) {
    return Mit(antworten, [this] { b.platform.hands.Select(Player().lstDriveLetter, {1}); });
  }
  // Types a name for a line as a user does.
  void Nennt(int zeile, const Text& name) {
    Waehlt({zeile});
    b.platform.hands.DoubleClick(Player().lstTracks);
    ASSERT_TRUE(Player().txtSongname.Visible());
    b.platform.hands.Type(Player().txtSongname, name);
    b.platform.hands.Key(Player(), L"Return");
  }
};

TEST_F(CDPlayer, AnEmptyDriveIsTriedAgainUntilTheUserHasEnough) {
  Laufwerk().Disc.clear();
  const Text leer = Sagt(5008) + L"\r\n" + Sagt(5009);
  EXPECT_EQ(Mit({kJa, kNein}, [this] { Oeffnen(); }), (Worte{leer, leer}));
  EXPECT_FALSE(Player().lstTracks.Enabled);
  EXPECT_TRUE(Player().Window.Enabled);
  // Selecting the drive again shows a disc inserted meanwhile, and also a broken drive.
  Laufwerk().Disc = {{75 * 3}};
  WaehltLaufwerk({});
  EXPECT_EQ(Zeilen().size(), 1U);
  EXPECT_TRUE(Player().imgSpeichern.Enabled);
  Laufwerk().Shut = true;
  cd->player.Opened = 0;
  EXPECT_EQ(WaehltLaufwerk({kNein}), Worte{leer});
  EXPECT_EQ(cd->player.Opened, 5);  // a drive may need time to spin up, so Open is repeated
  Laufwerk().Dead = true;
  const Text tot = Sagt(5005) + L"D" + Sagt(5006) + L"\r\n" + Sagt(5007) + L"\r\n" + Sagt(5009);
  EXPECT_EQ(WaehltLaufwerk({kNein}), Worte{tot});
}

using CDPlayerAndTray = MitProgramm;

TEST_F(CDPlayerAndTray, AnImageThatIsNoDiscIsReportedByItsLineAndNotAsAnEmptyDrive) {
  b.Datei(L"C:\\Vantora\\Bandeja\\a.bin", std::string(2352, 'x'));
  const Text wo = L"mía.cue" + Sagt(30071), nochmal = L"\r\n" + Sagt(5009);
  const std::pair<std::string, Worte> blaetter[] = {
      {"FILE \"a.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00\n",
       {Sagt(30070) + wo + L"3." + nochmal}},
      {"FILE \"b.bin\" BINARY\n", {Sagt(30072) + L"b.bin (" + wo + L"1)." + nochmal}},
      {"FILE \"a.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n", {}}};
  for (const auto& [blatt, worte] : blaetter) {
    b.Datei(L"C:\\Vantora\\Bandeja\\mía.cue", blatt);
    b.user.Said.clear();
    if (!worte.empty()) b.Antwortet(kNein);
    b.Tu([&] { b.Haupt().imgCDAuslesen_MouseUp(); });
    b.Tu([&] { b.prog.frmCDPlayer().imgSchliessen_MouseUp(); });
    EXPECT_EQ(b.Gesagt(), worte);
  }
}

TEST_F(CDPlayer, PlayingFollowsTheSelectionWithinTheList) {
  Oeffnen();
  const auto spielt = [this](Control& knopf) {
    Druecke(knopf);
    return cd->player.Playing;
  };
  EXPECT_EQ(spielt(Player().cmdLetztesLied), 0);
  EXPECT_EQ(spielt(Player().imgPlay), 1);
  for (const int track : {2, 3, 3, 3}) EXPECT_EQ(spielt(Player().cmdNextSong), track);
  EXPECT_EQ(spielt(Player().imgPause), -3);
  EXPECT_EQ(spielt(Player().imgPause), 3);
  Waehlt({2});
  EXPECT_EQ(cd->player.Playing, 2);
  EXPECT_EQ(spielt(Player().imgStop), 0);
  Waehlt({1});
  EXPECT_EQ(cd->player.Playing, 0);
  Druecke(Player().imgPlay);
  cd->player.Ended = true;
  b.platform.loop.Pass(1000);
  cd->player.Playing = 0;
  Waehlt({2});
  EXPECT_EQ(cd->player.Playing, 0) << "the disc has played to its end, and nobody has begun anew";
  Laufwerk().Disc.clear();
  EXPECT_EQ(Mit({kNein}, [this] { Druecke(Player().imgPlay); }), Worte{Sagt(5001)});
  EXPECT_EQ(Mit({kNein}, [this] { Waehlt({1}); }), Worte{Sagt(5001)});
  EXPECT_TRUE(Zeilen().empty());
}

TEST_F(CDPlayer, ANameIsTypedOverItsLineAndKeptHoweverThePersonGoesOn) {
  Laufwerk().Disc.assign(40, {75 * 3});
  Oeffnen();
  frmCDPlayer& f = Player();
  const auto tippt = [&](int zeile, const Text& name) {
    Waehlt({zeile});
    b.platform.hands.DoubleClick(f.lstTracks);
    EXPECT_EQ(f.txtSongname.Top(),
              f.lstTracks.Top + (zeile - 1 - f.lstTracks.TopIndex) * kListLine);
    EXPECT_LE(f.txtSongname.Top + f.txtSongname.Height, f.lstTracks.Top + f.lstTracks.Height);
    b.platform.hands.Type(f.txtSongname, name);
  };
  const std::pair<int, std::function<void()>> wege[] = {
      {1, [&] { Waehlt({2}); }},
      {30, [&] { f.lstTracks.Scroll(); }},
      {40, [&] { Druecke(f.cmdLetztesLied); }},
      {3, [&] { Mit({kNein}, [&] { Druecke(f.imgDBAufnahme); }); }},
      {20, [&] { b.platform.hands.Key(f, L"Return"); }},
  };
  for (const auto& [zeile, weiter] : wege) {
    tippt(zeile, L"Canto");
    weiter();
    EXPECT_TRUE(Zeilen()[static_cast<std::size_t>(zeile) - 1].starts_with(L"Canto  ")) << zeile;
    EXPECT_FALSE(f.txtSongname.Visible()) << zeile;
  }
  tippt(7, L"Nada");
  b.platform.hands.Key(f, L"Escape");
  EXPECT_EQ(f.TrackName[7], L"Pista07");
  f.TrackName[8] = L"L'amour";
  tippt(8, L"L'amour");
  Waehlt({9});
  EXPECT_EQ(f.TrackName[8], L"L'amour") << "nobody has typed another";
}

TEST_F(CDPlayer, NoTwoTracksAreWrittenOverEachOther) {
  const std::pair<Worte, Worte> faelle[] = {
      {{L"pista02"}, {L"Pista01", L"Pista02", L"Pista03"}},
      {{L"Mi tema: \"azul\"/2"}, {L"Mi_tema___azul__2", L"Pista02", L"Pista03"}},
      {{L"La luz", L"La_luz", L"LA LUZ"}, {L"La_luz", L"Pista02", L"Pista03"}},
      {{L"Pista03", L"x", L"PISTA03"}, {L"Pista03", L"x", L"Pista03_2"}},
  };
  Oeffnen();
  for (const auto& [namen, dateien] : faelle) {
    for (std::size_t i = 0; i < namen.size(); ++i) Nennt(static_cast<int>(i) + 1, namen[i]);
    Druecke(Player().imgAllesWaehlen);
    Sichert({kNein});
    for (int i = 0; i < 3; ++i) {
      const Text& name = dateien[static_cast<std::size_t>(i)];
      EXPECT_TRUE(Ton(kWavs + name + L".wav") == Soll(i + 1)) << "track " << i + 1;
      b.platform.machine.files.Kill(kWavs + name + L".wav");
    }
  }
}

TEST_F(CDPlayer, AnotherDiscThanTheOneShownIsListedBeforeAnythingOfItIsSaved) {
  Oeffnen();
  Nennt(1, L"De la primera");
  Druecke(Player().imgAllesWaehlen);
  Laufwerk().Disc = {{75 * 10}, {75 * 21}, {75 * 4}};
  Sichert({});
  EXPECT_TRUE(b.Titel().empty());
  EXPECT_EQ(Player().lstTracks.SelCount(), 1) << "the first track, and not those chosen before";
  EXPECT_EQ(Zeilen()[0], L"Pista01     00:10     2 Mb  ");
  EXPECT_EQ(Zeilen()[1], L"Pista02     00:21     4 Mb  ");
}

TEST_F(CDPlayer, ACancelBeforeTheFirstTrackKeepsTheFileAndAClosedPlayerLeavesTheDriveFree) {
  Oeffnen();
  b.Datei(kWavs + L"Pista01.wav", "x");
  Druecke(Player().imgAllesWaehlen);
  b.platform.loop.PostAfter(300, [this] { Druecke(b.prog.frmSchreibFortschritt().imgAbbrechen); });
  b.platform.loop.PostAfter(900, [this] { Player().imgSchliessen_MouseUp(); });
  EXPECT_EQ(Sichert({kJa, kNein}).back(), Sagt(23007) + L"\r\n");
  EXPECT_EQ(b.Lies(kWavs + L"Pista01.wav"), "x");
  EXPECT_FALSE(b.prog.frmCDPlayer.Geladen());
  EXPECT_EQ(cd->player.Tracks(), 0);
}

TEST_F(CDPlayer, OneTrackIsAskedForItsFile) {
  Oeffnen();
  b.Datei(L"C:\\Otros\\hay.wav", "x");
  Waehlt({3});
  b.WaehltDatei({L"C:\\Otros\\a?b.wav"}).Antwortet(kNein);      // invalid name
  b.WaehltDatei({L"C:\\Otros\\hay.wav"}).Antwortet(kNein);      // not replaced
  b.WaehltDatei({L"C:\\Otros\\otro nombre"}).Antwortet(kNein);  // saved
  EXPECT_EQ(Sichert({}), (Worte{Sagt(5229) + Sagt(5230), Sagt(5003) + L"hay.wav\r\n" + Sagt(5004),
                                Sagt(23008)}));
  EXPECT_EQ(Ton(L"C:\\Otros\\otro_nombre.wav"), Soll(3));
  EXPECT_EQ(b.Lies(L"C:\\Otros\\hay.wav"), "x");
  EXPECT_EQ(b.prog.Wave_Export_Dir, L"C:\\Otros\\");
}

TEST_F(CDPlayer, WithoutRoomAndWithPathsThatTheCatalogCannotHoldNothingIsRead) {
  const Text ordner = L"C:\\" + Text(85, L'w');  // "\Pista01.wav" adds 12 characters
  for (const Text& pfad : {ordner, ordner + L"w"}) b.platform.machine.files.MkDir(pfad);
  Oeffnen();
  Waehlt({1, 2});
  b.prog.Wave_Export_Dir = ordner + L"w";
  EXPECT_EQ(Sichert({kNein}), Worte{Sagt(8085)});
  b.prog.Wave_Export_Dir = ordner;
  const auto mb = std::exchange(Player().CDDaten.TrackMB[1], 1'000'000'000);
  EXPECT_EQ(Sichert({kNein}), Worte{Sagt(5002)});
  EXPECT_EQ(cd->reader.Selected, 0);
  Player().CDDaten.TrackMB[1] = mb;
  EXPECT_EQ(Sichert({kNein}), Worte{Sagt(23008)});
  EXPECT_EQ(b.Titel().size(), 2U);
}

TEST_F(CDPlayer, WhatEndsAGrabLeavesTheTracksBeforeItInTheCatalogAndAPlayerReadyForTheNext) {
  Laufwerk().Disc[1].Audio = false;
  Oeffnen();
  Druecke(Player().imgAllesWaehlen);
  EXPECT_EQ(Sichert({kNein}), Worte{Sagt(23004) + L"\r\n" + Sagt(23005) + L"2\r\n" + Sagt(23006)});
  EXPECT_EQ(b.Titel(), Worte{L"Pista01"});
  Laufwerk().RefuseTrack = 1;
  EXPECT_EQ(Sichert({kJa, kNein}).back(), Sagt(23001) + L"\r\n" + Sagt(23002) + L"5");
  Laufwerk() = {.Disc = {{75 * 10}, {75 * 20}}, .BreakTrack = 2};
  Waehlt({1, 2});
  Sichert({kJa, kNein});
  EXPECT_EQ(cd->reader.Selected, 0);
  EXPECT_NE(cd->player.Tracks(), 0);
  EXPECT_TRUE(Player().tmrCDAudio.Enabled);
  EXPECT_TRUE(Player().Window.Enabled);
}

TEST_F(CDPlayer, TheDrivesOwnOffsetIsSetAndPreemphasisStandsInTheLog) {
  b.Setze(L"Read_Offset_VANTORA IMAGE", L"-667");
  b.Setze(L"Read_Offset_OTRA", L"6");
  Laufwerk().Disc[1].Preemphasis = true;
  b.prog.LogAktiv = true;
  Oeffnen();
  Waehlt({1, 2});
  Sichert({kNein});
  EXPECT_EQ(cd->reader.Offset, -667);
  const std::string spur = b.Lies(L"C:\\Vantora\\vantora.APL");
  EXPECT_NE(spur.find("SongToGrab 2 has pre-emphasis"), std::string::npos);
  EXPECT_EQ(spur.find("SongToGrab 1 has pre-emphasis"), std::string::npos);
}

TEST_F(CDPlayer, ACancelStopsTheReaderAndKeepsWhatWasFinished) {
  Laufwerk().ReadMs = 10000;
  Laufwerk().Disc.assign(4, {75 * 10});
  Oeffnen();
  Druecke(Player().imgAllesWaehlen);
  b.platform.loop.PostAfter(28000, [this] {
    vantora::frmSchreibFortschritt& f = b.prog.frmSchreibFortschritt();
    EXPECT_EQ(f.lblKopieNr.Caption() + f.lblKopieInsgAnz.Caption(), L"3 / 4");
    EXPECT_EQ(f.lblSonstiges.Caption(), Sagt(23601) + L"3");
    EXPECT_GT(Val(f.lblInsgKopiePro.Caption), 50) << "two of four are done";
    EXPECT_NE(f.lblAktKopiePro.Caption(), L"--");
    EXPECT_LE(f.lblAktKopieSpeed.Caption(), L"X8");
    Druecke(f.imgAbbrechen);
  });
  EXPECT_EQ(Sichert({kNein}), Worte{Sagt(23007) + L"\r\n"});
  EXPECT_EQ(b.Titel(), (Worte{L"Pista01", L"Pista02"}));
  EXPECT_FALSE(cd->reader.Reading());
  EXPECT_TRUE(Player().Window.Enabled);
}

TEST_F(CDPlayer, AScratchIsReadOnALaterTryAndABadTrackEndsTheGrab) {
  Oeffnen();
  Laufwerk().ReadErrors = 10;
  Waehlt({1, 2});
  EXPECT_EQ(Sichert({kNein}), Worte{Sagt(23008)});
  EXPECT_EQ(cd->reader.Retries, 10);
  EXPECT_EQ(Ton(kWavs + L"Pista01.wav"), Soll(1));
  Laufwerk().ReadErrors = 1000;  // replace both files; the track cannot be read
  EXPECT_EQ(Sichert({kJa, kJa, kNein}).back(), Sagt(9000) + L"1" + Sagt(9001));
  EXPECT_EQ(cd->reader.Retries, 20);
  EXPECT_TRUE(Player().Window.Enabled);
  Laufwerk().ErrorCode = kFehlerPlattenVoll;
  EXPECT_EQ(Sichert({kJa, kNein}).back(), Sagt(5002));
  EXPECT_EQ(cd->reader.Retries, 20) << "a full disk does not empty itself";
  Laufwerk().ErrorText = L"Otra cosa";  // no error of reading: nothing happens until the cancel
  b.platform.loop.PostAfter(20000,
                            [this] { Druecke(b.prog.frmSchreibFortschritt().imgAbbrechen); });
  EXPECT_EQ(Sichert({kJa, kNein}).back(), Sagt(23007) + L"\r\n");
  EXPECT_EQ(cd->reader.Retries, 20);
}

}  // namespace
}  // namespace vantora
