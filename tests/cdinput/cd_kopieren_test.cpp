#include <gtest/gtest.h>

#include "app/zahlen.h"
#include "tests/cdinput/cd_stage.h"

namespace vantora {
namespace {

const Text kTemp = L"C:\\WINDOWS\\TEMP\\";

class CDKopieren : public ::testing::Test, protected CdBuehne {
 protected:
  void Kopieren() {
    b.Tu([this] { b.Haupt().imgCDKopieren_MouseUp(); });
  }
  Text Einlegen() { return Sagt(8019) + L"D:\\" + Sagt(8020) + L"\r\n" + Sagt(8021); }
  Text Misslungen() { return Sagt(8030) + L"D:\\" + Sagt(8031) + L"\r\n" + Sagt(8032); }
  frmCDBrennen& Brenner() { return b.prog.frmCDBrennen(); }
};

TEST_F(CDKopieren, AWholeDiscIsReadAndGoesOnAsABurnWithoutPauses) {
  b.Katalog({L"viejo"});
  b.prog.KatalogGeaendert = false;
  b.prog.KatalogDatei = L"C:\\viejo.vtr";
  // Before the drive has answered, nothing else can begin.
  b.platform.loop.PostAfter(1000, [this] {
    EXPECT_FALSE(b.Haupt().Window.Enabled);
    b.Haupt().imgCDKopieren_MouseUp();
  });
  b.Antwortet(kJa).Antwortet(kNein).Antwortet(kJa);  // the disc is in; read; Disc At Once
  Kopieren();
  EXPECT_EQ(b.prog.KatalogDatei, L"") << "the copy would be saved over the catalog of before";
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Einlegen(), Sagt(23008), Sagt(8086)}));
  EXPECT_EQ(b.Titel().size(), 3U);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(Ton(kTemp + L"Pista0" + ZahlText(i) + L".wav"), Soll(i));
    EXPECT_EQ(b.prog.Katalog[static_cast<std::size_t>(i)].Pause, 0);
  }
  ASSERT_TRUE(Brenner().Visible());
  EXPECT_TRUE(Brenner().optDiscAtOnce.Value());
  EXPECT_TRUE(b.prog.CDKopieAktiv);
  EXPECT_FALSE(b.prog.GrabOhneNachfrage);

  // The burn removes the temporary waves when it has entered the disc in the database.
  b.user.Said.clear();
  b.Antwortet(kNein).Antwortet(kNein).Antwortet(kNein);
  b.Tu([this] { Brenner().imgBrennen_MouseUp(); });
  EXPECT_EQ(b.Gesagt()[1], Sagt(4012));
  EXPECT_FALSE(b.prog.DateiExistiert(kTemp + L"Pista01.wav"));
  EXPECT_FALSE(b.prog.CDKopieAktiv);
  // Back to back: no silence between the tracks of the copy.
  EXPECT_EQ(b.Lies(L"C:\\Vantora\\Discos\\Disco 001.bin"), Soll(1) + Soll(2) + Soll(3));
}

TEST_F(CDKopieren, ASecondCopyAsksWhatTheFirstHasLeftBehind) {
  b.Antwortet(kJa).Antwortet(kNein).Antwortet(kNein);
  Kopieren();
  EXPECT_EQ(b.prog.Katalog[1].Pause, 2);
  EXPECT_TRUE(Brenner().optTrackAtOnce.Value());
  b.Tu([this] { Brenner().imgAbbrechen_MouseUp(); });
  b.prog.KatalogGeaendert = false;
  b.user.Said.clear();
  b.Antwortet(kNein);
  Kopieren();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(8084)}));
  EXPECT_EQ(b.Titel().size(), 3U);
  Laufwerk().Disc = {{75 * 4}};
  b.user.Said.clear();
  b.Antwortet(kJa).Antwortet(kJa).Antwortet(kNein).Antwortet(kNein);
  Kopieren();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(8084), Einlegen(), Sagt(23008), Sagt(8086)}));
  EXPECT_EQ(b.Titel().size(), 1U);

  // The person's own waves are none of a copy that has not been burnt.
  b.Tu([this] { Brenner().imgAbbrechen_MouseUp(); });
  Oeffnen();
  b.WaehltDatei({L"C:\\Vantora\\Wavs\\mia.wav"}).Antwortet(kNein);
  Druecke(Player().imgSpeichern);
  Brenner().DeleteTempWavs();
  EXPECT_TRUE(b.prog.DateiExistiert(L"C:\\Vantora\\Wavs\\mia.wav"));
}

TEST_F(CDKopieren, AnEmptyOrBrokenDriveIsAskedForAgain) {
  Laufwerk().Disc.clear();
  b.Antwortet(kJa).Antwortet(kJa);    // tried again
  b.Antwortet(kJa).Antwortet(kNein);  // enough
  Kopieren();
  const Text leer = Sagt(8026) + L"\r\n" + Sagt(8025);
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Einlegen(), leer, Einlegen(), leer}));
  Laufwerk().Shut = true;
  b.user.Said.clear();
  b.Antwortet(kJa).Antwortet(kNein);  // not to be cancelled
  b.Antwortet(kJa).Antwortet(kJa);    // cancelled
  Kopieren();
  const Text zu = Sagt(8026) + L"\r\n" + Sagt(8027);
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Einlegen(), zu, Einlegen(), zu}));
  Laufwerk().Dead = true;
  b.user.Said.clear();
  b.Antwortet(kJa).Antwortet(kJa).Antwortet(kNein);  // tried again, then no disc laid in
  Kopieren();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Einlegen(),
                                           Sagt(8022) + L"D:\\" + Sagt(8023) + L"\r\n" +
                                               Sagt(8024) + L"\r\n" + Sagt(8025),
                                           Einlegen()}));
  EXPECT_EQ(b.platform.loop.MousePointer(), Pointer::Normal);
  EXPECT_TRUE(b.Haupt().Window.Enabled);
}

TEST_F(CDKopieren, ADiscThatCannotBeReadLeavesAnEmptyCatalogAndNoBurn) {
  b.Katalog({L"viejo"});
  Laufwerk().RefuseTrack = 3;
  b.Antwortet(kJa).Antwortet(kNein).Antwortet(kNein);
  Kopieren();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Einlegen(), Sagt(23001) + L"\r\n" + Sagt(23002) + L"5",
                                           Misslungen()}));
  EXPECT_TRUE(b.Titel().empty());
  EXPECT_FALSE(Brenner().Visible());
  EXPECT_FALSE(b.prog.GrabOhneNachfrage);
  EXPECT_FALSE(b.prog.CDKopieAktiv);
  EXPECT_TRUE(b.Haupt().Window.Enabled);
}

TEST_F(CDKopieren, WithoutABurnerTheCatalogStays) {
  b.Katalog({L"viejo"});
  b.prog.BrennerBereit = false;
  b.Antwortet(kNein);
  Kopieren();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(8013) + Sagt(8014) + L"\r\n" + Sagt(8015)}));
  EXPECT_EQ(b.Titel(), (std::vector<Text>{L"viejo"}));
}

}  // namespace
}  // namespace vantora
