#include "app/werte/zahlen.h"
#include "tests/cdinput/cd_stage.h"
#include "tests/cdinput/cddb_stage.h"

namespace vantora {
namespace {

struct DiscFirst {
  test::FakeDisc disc;  // constructed before the program that uses it
};

// The player with a server that may know its disc of two tracks.
class TitelHolen : public ::testing::Test, protected DiscFirst, protected CdBuehne {
 protected:
  TitelHolen() : CdBuehne(&disc) {
    disc.Starts = {150, 13500};
    disc.LeadOut = 22500;
    Laufwerk().Disc = {{13350}, {9000}};
    b.prog.CDDBactive = true;
    b.Setze(L"CDDB_Server", test::CddbStage::Wide(server.Address()));
  }
  // Looks the disc up with these answers. Returns the messages.
  std::vector<Text> Fragt(std::initializer_list<int> antworten) {
    Mit(antworten, [this] {
      if (b.prog.frmCDPlayer.Geladen()) {
        b.platform.hands.Select(Player().lstDriveLetter, {1});
      } else {
        Oeffnen();
      }
    });
    return b.Gesagt();
  }
  // Cancels in the progress window as soon as it is open.
  void BrichtAb() {
    b.platform.loop.PostAfter(20, [this] {
      if (!b.prog.frmSchreibFortschritt.Geladen()) return BrichtAb();
      Druecke(b.prog.frmSchreibFortschritt().imgAbbrechen);
    });
  }
  Text Ini(const wchar_t* schluessel) {
    return b.platform.machine.profiles.GetPrivateProfileString(
        HexText(Val(disc.Identity)), schluessel, L"", 100, L"C:\\WINDOWS\\cdplayer.ini");
  }

  test::CddbServer server;
};

TEST_F(TitelHolen, WhatIsNotKnownGarbledOrOutOfReachIsToldAndTheDiscCanBePlayed) {
  EXPECT_EQ(Fragt({kJa, kNein}), (std::vector<Text>{Sagt(5011), Sagt(5012)}));
  test::CddbServer andere;
  andere.Knows("rock", test::CddbStage::kId, "DTITLE=nada\r\nTTITLE300=x\r\n");
  b.Setze(L"CDDB_Server", test::CddbStage::Wide(andere.Address()));
  EXPECT_EQ(Fragt({kJa, kNein}), (std::vector<Text>{Sagt(5011), Sagt(5012)}));
  Mit({kNein}, [this] { Druecke(Player().imgDBAufnahme); });
  EXPECT_EQ(b.Gesagt(), std::vector<Text>{Sagt(30030)});
  EXPECT_EQ(Ini(L"numtracks"), L"") << "what was filed before must not give way to nothing";
  b.Setze(L"CDDB_Server", L"127.0.0.1:1");
  EXPECT_EQ(Fragt({kJa, kNein}), (std::vector<Text>{Sagt(5011), Sagt(5014)}));
  b.prog.Proxy_Server = L"127.0.0.1";
  b.prog.Proxy_Port = L"1";
  EXPECT_EQ(Fragt({kJa, kNein}), (std::vector<Text>{Sagt(5011), Sagt(5013)}));
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
  Druecke(Player().imgPlay);
  EXPECT_EQ(cd->player.Playing, 1);
}

TEST_F(TitelHolen, TheCancelOfTheProgressWindowEndsTheLookUp) {
  server.Faults.Silent = true;
  std::set<double> licht;
  const std::function<void()> schaut = [&] {
    b.platform.loop.PostAfter(20, [&] {
      if (!b.prog.frmSchreibFortschritt.Geladen()) return schaut();
      vantora::frmSchreibFortschritt& f = b.prog.frmSchreibFortschritt();
      licht.insert(f.imgKnightRider.ClipTop());
      if (licht.size() < 4) return schaut();
      EXPECT_FALSE(f.shpAktRahmen.Visible() || f.lblKopieTrackNr.Visible()) << "there is no track";
      EXPECT_TRUE(f.shpInsgRahmen.Visible());
      Druecke(f.imgAbbrechen);
    });
  };
  schaut();
  EXPECT_EQ(Fragt({kJa}), (std::vector<Text>{Sagt(5011)}));
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
  EXPECT_FALSE(b.prog.frmSchreibFortschritt.Geladen());
  EXPECT_EQ(licht.size(), 4U) << "the light runs while the program waits";
}

TEST_F(TitelHolen, WhoCancelsBeforeTheServerIsAskedGetsNoTitlesOfAQuickOne) {
  server.Knows("rock", test::CddbStage::kId, "DTITLE=a / b\r\nTTITLE0=uno\r\n");
  BrichtAb();
  Fragt({kJa});
  EXPECT_EQ(Player().txtCDInfo.Caption(), L"");
  EXPECT_TRUE(server.Requests().empty());
}

}  // namespace
}  // namespace vantora
