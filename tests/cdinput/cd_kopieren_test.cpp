#include "tests/cdinput/cd_stage.h"

namespace vantora {
namespace {

const Text kTemp = L"C:\\WINDOWS\\TEMP\\";

class CDKopieren : public ::testing::Test, protected CdBuehne {
 protected:
  // Copies a disc with these answers. Returns the messages.
  std::vector<Text> Kopiert(std::initializer_list<int> antworten) {
    return Mit(antworten, [this] { b.Tu([this] { b.Haupt().imgCDKopieren_MouseUp(); }); });
  }
  std::vector<Text> Brennt(std::initializer_list<int> antworten) {
    return Mit(antworten, [this] { b.Tu([this] { Brenner().imgBrennen_MouseUp(); }); });
  }
  Text Einlegen() { return Sagt(8019) + L"D:\\" + Sagt(8020) + L"\r\n" + Sagt(8021); }
  frmCDBrennen& Brenner() { return b.prog.frmCDBrennen(); }
};

TEST_F(CDKopieren, AWholeDiscIsReadAndGoesOnAsABurnWithoutPauses) {
  b.Katalog({L"viejo"});
  b.prog.KatalogGeaendert = false;
  b.prog.KatalogDatei = L"C:\\viejo.vtr";
  // Until the drive answers, nothing else can be started.
  b.platform.loop.PostAfter(1000, [this] {
    EXPECT_FALSE(b.Haupt().Window.Enabled);
    b.Haupt().imgCDKopieren_MouseUp();
  });
  // While tracks are read, keys must not cancel.
  b.platform.loop.PostAfter(4000, [this] {
    for (const wchar_t* taste : {L"Return", L"Space"}) {
      b.platform.hands.Key(b.prog.frmSchreibFortschritt(), taste);
    }
  });
  // Answers: the disc is in the drive; read it; use Disc At Once.
  EXPECT_EQ(Kopiert({kJa, kNein, kJa}), (std::vector<Text>{Einlegen(), Sagt(23008), Sagt(8086)}));
  EXPECT_EQ(b.prog.KatalogDatei, L"") << "the copy would be saved over the catalog of before";
  EXPECT_EQ(b.Titel().size(), 3U);
  EXPECT_EQ(Ton(kTemp + L"Pista03.wav"), Soll(3));
  EXPECT_EQ(b.prog.Katalog[2].Pause, 0);
}

TEST_F(CDKopieren, TheWavesOfACopyServeAnotherSetAndGoBehindTheLast) {
  Laufwerk().Disc = {{75 * 4}};
  b.prog.ZeigeTAOHinweis = false;
  const Text noch = Sagt(4018) + L"\r\n" + Sagt(4019);
  Kopiert({kJa, kNein, kNein});
  EXPECT_EQ(Brennt({kNein, kNein, kJa, kNein, kNein, kNein}),
            (std::vector<Text>{Sagt(4006), Sagt(4012), noch, Sagt(4006), Sagt(4012), noch}));
  EXPECT_FALSE(b.prog.DateiExistiert(kTemp + L"Pista01.wav"));
  // When the disc does not enter the database, the temporary waves stay.
  b.prog.Auto_Database = 0;
  Kopiert({kNein, kJa, kNein, kNein});
  EXPECT_EQ(Brennt({kNein, kNein, kNein, kNein}),
            (std::vector<Text>{Sagt(4006), Sagt(5000), Sagt(4012), noch}));
  EXPECT_TRUE(b.prog.DateiExistiert(kTemp + L"Pista01.wav"));
}

TEST_F(CDKopieren, ThePersonsOwnWavesAreNoneOfACopyThatHasNotBeenBurnt) {
  Laufwerk().Disc = {{75 * 4}};
  Kopiert({kJa, kNein, kNein});
  b.Tu([this] { Brenner().imgAbbrechen_MouseUp(); });
  Oeffnen();
  b.WaehltDatei({L"C:\\Vantora\\Wavs\\mia.wav"}).Antwortet(kNein);
  Druecke(Player().imgSpeichern);
  Brenner().DeleteTempWavs();
  EXPECT_FALSE(b.prog.DateiExistiert(kTemp + L"Pista01.wav"));
  EXPECT_TRUE(b.prog.DateiExistiert(L"C:\\Vantora\\Wavs\\mia.wav"));
}

TEST_F(CDKopieren, AnEmptyOrBrokenDriveIsAskedForAgain) {
  Laufwerk().Disc.clear();
  const Text leer = Sagt(8026) + L"\r\n" + Sagt(8025), zu = Sagt(8026) + L"\r\n" + Sagt(8027);
  EXPECT_EQ(Kopiert({kJa, kJa, kJa, kNein}),  // one retry, then "no"
            (std::vector<Text>{Einlegen(), leer, Einlegen(), leer}));
  Laufwerk().Disc = {{75 * 4}};
  Laufwerk().TakenOutAfter = 1;
  EXPECT_EQ(Kopiert({kJa, kNein, kJa, kNein}),  // disc removed between two checks; no cancel
            (std::vector<Text>{Einlegen(), zu, Einlegen(), leer}));
  Laufwerk().Shut = true;  // the mode of the drive is not "ready without a disc"
  EXPECT_EQ(Kopiert({kJa, kNein}), (std::vector<Text>{Einlegen(), Einlegen()}));
  Laufwerk().Dead = true;
  const Text tot = Sagt(8022) + L"D:\\" + Sagt(8023) + L"\r\n" + Sagt(8024) + L"\r\n" + Sagt(8025);
  EXPECT_EQ(Kopiert({kJa, kJa, kNein}), (std::vector<Text>{Einlegen(), tot, Einlegen()}));
}

TEST_F(CDKopieren, ADiscThatCannotBeReadLeavesAnEmptyListAndNoBurn) {
  b.Katalog({L"viejo"});
  Laufwerk().RefuseTrack = 3;
  const Text misslungen = Sagt(8030) + L"D:\\" + Sagt(8031) + L"\r\n" + Sagt(8032);
  EXPECT_EQ(
      Kopiert({kJa, kNein, kNein}),
      (std::vector<Text>{Einlegen(), Sagt(23001) + L"\r\n" + Sagt(23002) + L"5", misslungen}));
  EXPECT_TRUE(b.Titel().empty());
  EXPECT_EQ(UBound(b.prog.Katalog), 2) << "the list alone is cleared, not what was read";
  EXPECT_FALSE(Brenner().Visible());
  EXPECT_FALSE(b.prog.CDKopieAktiv);
  EXPECT_TRUE(b.Haupt().Window.Enabled);
}

TEST_F(CDKopieren, ATargetThatCannotBeReplacedIsReported) {
  b.platform.machine.files.MkDir(kTemp + L"Pista01.wav");
  const std::vector<Text> gesagt = Kopiert({kJa, kNein});
  ASSERT_EQ(gesagt.size(), 2U);
  EXPECT_TRUE(gesagt.back().starts_with(Sagt(4009))) << "an error, and no silence";
  EXPECT_TRUE(b.Haupt().Window.Enabled);
}

TEST_F(CDKopieren, WithoutABurnerTheCatalogStaysAndWithoutRoomForNamesNothingIsRead) {
  b.Katalog({L"viejo"});
  b.prog.BrennerBereit = false;
  EXPECT_EQ(Kopiert({kNein}), (std::vector<Text>{Sagt(8013) + Sagt(8014) + L"\r\n" + Sagt(8015)}));
  EXPECT_EQ(b.Titel(), (std::vector<Text>{L"viejo"}));
  b.prog.BrennerBereit = true;
  b.prog.KatalogGeaendert = false;
  b.prog.Temporary_Directory = L"C:\\" + Text(90, L't');  // too long for the catalog
  EXPECT_EQ(Kopiert({kJa, kNein}), (std::vector<Text>{Einlegen(), Sagt(8085)}));
  EXPECT_EQ(b.platform.loop.MousePointer(), Pointer::Normal);
}

}  // namespace
}  // namespace vantora
