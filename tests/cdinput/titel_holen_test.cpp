#include <gtest/gtest.h>

#include "app/zahlen.h"
#include "tests/cdinput/cd_stage.h"
#include "tests/cdinput/cddb_stage.h"

#include <functional>

namespace vantora {
namespace {

struct DiscFirst {
  test::FakeDisc disc;  // made before the program that asks it
};

// The player in front of a server that can know its disc of two tracks.
class TitelHolen : public ::testing::Test, protected DiscFirst, protected CdBuehne {
 protected:
  TitelHolen() : CdBuehne(&disc) {
    disc.Starts = {150, 13500};
    disc.LeadOut = 22500;
    Laufwerk().Disc = {{13350}, {9000}};
    b.prog.CDDBactive = true;
    SaveSetting(b.bundle, L"CDDB_Server", test::CddbStage::Wide(server.Address()));
  }
  Text Ini(const wchar_t* schluessel) {
    return b.platform.machine.profiles.GetPrivateProfileString(
        HexText(Val(disc.Identity)), schluessel, L"", 100, L"C:\\WINDOWS\\cdplayer.ini");
  }

  test::CddbServer server;
};

TEST_F(TitelHolen, TheTitlesOfTheServerAreShownKeptAndSaved) {
  server.Knows("rock", test::CddbStage::kId,
               "DTITLE=Varios / Qu\xB4 noche\r\nTTITLE0=L\xB4"
               "etoile\r\nTTITLE1=Ana / Luna\r\n");
  b.Antwortet(kJa);
  Oeffnen();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(5011)}));
  EXPECT_EQ(Player().TrackName, (std::vector<Text>{L"", L"L'etoile", L"Luna: Ana"}));
  EXPECT_EQ(Player().txtCDInfo.Caption(), L"Varios: Qu' noche");
  EXPECT_TRUE(Player().lstTracks.List(1).starts_with(L"Luna: Ana     02:00     "));
  EXPECT_EQ(Player().CDDaten.DiscID, L"0b012a02");
  EXPECT_EQ(Ini(L"artist"), L"Varios");
  EXPECT_EQ(Ini(L"1"), L"Ana  - Luna");
  EXPECT_FALSE(b.prog.frmSchreibFortschritt.Geladen());
  EXPECT_NE(cd->player.Tracks(), 0);
  Player().TrackName[1] = L"La estrella";
  Druecke(Player().imgDBAufnahme);
  EXPECT_EQ(Ini(L"title"), L"Qu' noche");
  EXPECT_EQ(Ini(L"0"), L"La estrella");
  EXPECT_EQ(Ini(L"1"), L"Ana  - Luna");
  Druecke(Player().imgAllesWaehlen);
  b.Antwortet(kNein);
  Druecke(Player().imgSpeichern);
  EXPECT_EQ(b.Titel(), (std::vector<Text>{L"La estrella", L"Luna: Ana"}));
  EXPECT_EQ(b.prog.Katalog[1].Interpret.Getrimmt(), L"Varios");
}

TEST_F(TitelHolen, WhatTheServerDoesNotKnowOrGarblesIsToldAndTheDiscCanBePlayed) {
  b.Antwortet(kJa).Antwortet(kNein);
  Oeffnen();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(5011), Sagt(5012)}));
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
  test::CddbServer andere;
  andere.Knows("rock", test::CddbStage::kId, "DTITLE=nada\r\nTTITLE300=x\r\n");
  SaveSetting(b.bundle, L"CDDB_Server", test::CddbStage::Wide(andere.Address()));
  b.user.Said.clear();
  b.Antwortet(kJa).Antwortet(kNein);
  b.platform.hands.Select(Player().lstDriveLetter, {1});
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(5011), Sagt(5012)}));
  EXPECT_TRUE(Player().Window.Enabled);
  Druecke(Player().imgDBAufnahme);
  EXPECT_EQ(Ini(L"numtracks"), L"") << "what was filed before must not give way to nothing";
  Druecke(Player().imgPlay);
  EXPECT_EQ(cd->player.Playing, 1);
}

TEST_F(TitelHolen, AServerThatCannotBeReachedIsToldByItsKind) {
  b.Antwortet(kJa).Antwortet(kNein);
  SaveSetting(b.bundle, L"CDDB_Server", L"127.0.0.1:1");
  Oeffnen();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(5011), Sagt(5014)}));
  b.prog.Proxy_Server = L"127.0.0.1";
  b.prog.Proxy_Port = L"1";
  b.user.Said.clear();
  b.Antwortet(kJa).Antwortet(kNein);
  b.platform.hands.Select(Player().lstDriveLetter, {1});
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(5011), Sagt(5013)}));
}

TEST_F(TitelHolen, TheCancelOfTheProgressWindowEndsTheLookUp) {
  server.Faults.Silent = true;
  // Time stands nearly still while the client waits for the network.
  const std::function<void()> abbrechen = [&] {
    if (!b.prog.frmSchreibFortschritt.Geladen()) {
      b.platform.loop.PostAfter(20, abbrechen);
      return;
    }
    Druecke(b.prog.frmSchreibFortschritt().imgAbbrechen);
  };
  b.platform.loop.PostAfter(20, abbrechen);
  b.Antwortet(kJa);
  Oeffnen();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(5011)}));
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
  EXPECT_FALSE(b.prog.frmSchreibFortschritt.Geladen());
}

TEST_F(TitelHolen, WhoCancelsBeforeTheServerIsAskedGetsNoTitlesOfAQuickOne) {
  server.Knows("rock", test::CddbStage::kId, "DTITLE=a / b\r\nTTITLE0=uno\r\n");
  const std::function<void()> abbrechen = [&] {
    if (b.prog.frmSchreibFortschritt.Geladen()) {
      Druecke(b.prog.frmSchreibFortschritt().imgAbbrechen);
    } else {
      b.platform.loop.PostAfter(20, abbrechen);
    }
  };
  b.platform.loop.PostAfter(20, abbrechen);
  b.Antwortet(kJa);
  Oeffnen();
  EXPECT_EQ(Player().txtCDInfo.Caption(), L"");
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
  EXPECT_TRUE(server.Requests().empty());
}

}  // namespace
}  // namespace vantora
