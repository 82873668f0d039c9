#include "tests/cdinput/cd_stage.h"
#include "tests/cdinput/cddb_stage.h"
#include "tests/emulators/cddb_server.h"

#include <set>

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
    const std::string adresse = server.Address();
    b.Setze(L"CDDB_Server", Text(adresse.begin(), adresse.end()));
  }
  // Looks the disc up with these answers. Returns the messages.
  std::vector<Text> Fragt(std::initializer_list<int> antworten) {
    return Mit(antworten, [this] {
      if (!b.prog.frmCDPlayer.Geladen()) return Oeffnen();
      b.platform.hands.Select(Player().lstDriveLetter, {1});
    });
  }
  // Cancels in the progress window as soon as it is open and `jetzt` agrees.
  void BrichtAb(const std::function<bool(frmSchreibFortschritt&)>& jetzt) {
    b.platform.loop.PostAfter(20, [this, jetzt] {
      if (!b.prog.frmSchreibFortschritt.Geladen() || !jetzt(b.prog.frmSchreibFortschritt())) {
        return BrichtAb(jetzt);
      }
      Druecke(b.prog.frmSchreibFortschritt().imgAbbrechen);
    });
  }

  test::CddbServer server;
};

TEST_F(TitelHolen, AGarbledAnswerIsNotStoredAndAProxyOutOfReachIsToldAsSuch) {
  server.Knows("rock", test::CddbStage::kId, "DTITLE=nada\r\nTTITLE300=x\r\n");
  EXPECT_EQ(Fragt({kJa, kNein}), (std::vector<Text>{Sagt(5011), Sagt(5012)}));
  EXPECT_EQ(Mit({kNein}, [this] { Druecke(Player().imgDBAufnahme); }), std::vector{Sagt(30030)});
  EXPECT_FALSE(b.prog.DateiExistiert(L"C:\\WINDOWS\\cdplayer.ini"));
  b.prog.Proxy_Server = L"127.0.0.1";
  b.prog.Proxy_Port = L"1";
  EXPECT_EQ(Fragt({kJa, kNein}), (std::vector<Text>{Sagt(5011), Sagt(5013)}));
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
}

TEST_F(TitelHolen, TheCancelOfTheProgressWindowEndsTheLookUp) {
  server.Faults.Silent = true;
  std::set<double> licht;
  BrichtAb([&](vantora::frmSchreibFortschritt& f) {
    EXPECT_FALSE(f.shpAktRahmen.Visible() || f.lblKopieTrackNr.Visible()) << "there is no track";
    EXPECT_TRUE(f.shpInsgRahmen.Visible());
    licht.insert(f.imgKnightRider.ClipTop());
    return licht.size() == 4;
  });
  EXPECT_EQ(Fragt({kJa}), (std::vector<Text>{Sagt(5011)}));
  EXPECT_EQ(Player().lstTracks.ListCount(), 2);
  EXPECT_FALSE(b.prog.frmSchreibFortschritt.Geladen());
  EXPECT_EQ(licht.size(), 4U) << "the light runs while the program waits";
}

TEST_F(TitelHolen, WhoCancelsBeforeTheServerIsAskedGetsNoTitlesOfAQuickOne) {
  server.Knows("rock", test::CddbStage::kId, "DTITLE=a / b\r\nTTITLE0=uno\r\n");
  BrichtAb([](auto&) { return true; });
  Fragt({kJa});
  EXPECT_EQ(Player().txtCDInfo.Caption(), L"");
  EXPECT_EQ(server.Requests(), 0);
}

}  // namespace
}  // namespace vantora
