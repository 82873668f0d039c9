#include "app/werte/zahlen.h"
#include "cdwriting/fortschritt.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"

#include <filesystem>

namespace vantora {
namespace {

class Brennen : public MitProgramm {
 protected:
  // Opens the burner window for a catalog.
  void Oeffnen(const std::vector<Text>& titel) {
    b.Katalog(titel);
    b.Tu([&] { b.Haupt().imgBrennen_MouseUp(); });
    ASSERT_TRUE(Fenster().Visible());
  }
  frmCDBrennen& Fenster() { return b.prog.frmCDBrennen(); }
  // Burns with these answers. Returns the messages.
  std::vector<Text> Brennt(std::initializer_list<int> antworten) {
    b.user.Said.clear();
    for (const int antwort : antworten) b.Antwortet(antwort);
    b.Tu([&] { Fenster().imgBrennen_MouseUp(); });
    return b.Gesagt();
  }
  void OhneHinweis() { b.prog.ZeigeTAOHinweis = false; }
  std::string Protokoll() { return b.Lies(L"C:\\Vantora\\VTRBurn.log"); }
  std::string Bin(int n) {
    return b.Lies(L"C:\\Vantora\\Discos\\Disco 00" + ZahlText(n) + L".bin");
  }
};

std::string Ton(Buehne& b, const Text& name) {
  return test::SoundOf(b.Lies(L"C:\\Vantora\\Wavs\\" + name + L".wav"));
}

constexpr std::size_t kSektor = 2352, kLuecke = 150 * kSektor;

std::size_t InSektoren(std::size_t bytes) {
  return (bytes + kSektor - 1) / kSektor * kSektor;
}

TEST_F(Brennen, ATrackAtOnceDiscHoldsTheWavesAndTwoSecondsBetweenThem) {
  Oeffnen({L"a", L"b"});
  EXPECT_EQ(Fenster().lstCDRecorder.Note(0), Sagt(30066)) << "this device makes files";
  OhneHinweis();
  int wach = 0;
  for (int ms = 0; ms < 3000; ms += 10) {
    b.platform.loop.PostAfter(ms, [&] { wach = std::max(wach, b.platform.inhibitor.Awake()); });
  }
  // Messages: insert a disc; written; another copy?
  EXPECT_EQ(Brennt({kNein, kNein, kNein}),
            (std::vector<Text>{Sagt(4006), Sagt(4012), Sagt(4018) + L"\r\n" + Sagt(4019)}));
  const std::string a = Ton(b, L"a"), bin = Bin(1);
  const std::size_t aSektoren = InSektoren(a.size());
  ASSERT_EQ(bin.size(), 2 * aSektoren + kLuecke);
  EXPECT_EQ(bin.substr(0, a.size()), a);
  EXPECT_EQ(bin.substr(aSektoren, kLuecke), std::string(kLuecke, '\0'));
  EXPECT_EQ(bin.substr(aSektoren + kLuecke, a.size()), Ton(b, L"b"));
  EXPECT_EQ(b.prog.Number_Burned_CD, 1);
  EXPECT_FALSE(b.prog.frmCDBrennen.Geladen());
  EXPECT_TRUE(b.Haupt().Window.Enabled);
  EXPECT_EQ(wach, 1) << "the machine may sleep in a burn";
  EXPECT_EQ(b.platform.inhibitor.Awake(), 0);
  const std::string text = Protokoll();
  EXPECT_NE(text.find("\r\n\r\n\r\n01. C:\\Vantora\\Wavs\\a.wav\r\n02. C:\\Vantora\\Wavs\\b.wav\r\n"
                      "\r\n\r\nModo de grabado (DAO/TAO) TAO\r\nN\xFAmero de copias: 1\r\n"
                      "Resultado: Operaci\xF3n realizada con \xE9xito\r\n"),
            std::string::npos);
  // The database has the disc under its own key.
  const std::string discos = b.Lies(L"C:\\WINDOWS\\qmaudio.ini");
  EXPECT_EQ(discos.substr(discos.find(']') + 1),
            "\r\nartist=Grupo\r\ntitle=Disco\r\nnumtracks=2\r\n0=Voz;a;5\r\n"
            "1=Voz;b;3\r\ntotaltime=8\r\n");
}

TEST_F(Brennen, AnImageStandsInTheDatabaseAsItselfWhateverLiesInTheTray) {
  const auto brenne = [this] {
    b.Tu([this] { b.Haupt().imgBrennen_MouseUp(); });
    OhneHinweis();
    Brennt({kNein, kNein, kNein});
    return b.platform.machine.profiles.GetPrivateProfileSectionNames(L"qmaudio.ini", 5000);
  };
  b.Katalog({L"a", L"b"});
  const std::vector<Text> ohneDisc = brenne();
  b.Datei(L"C:\\Vantora\\Bandeja\\otro.bin", std::string(300 * kSektor, 'x'));
  b.Datei(L"C:\\Vantora\\Bandeja\\otro.cue",
          "FILE \"otro.bin\" BINARY\n TRACK 01 AUDIO\n  INDEX 01 00:00:00\n");
  ASSERT_NE(b.platform.machine.mci.MediaIdentity(L"D:\\"), L"");
  EXPECT_EQ(brenne(), ohneDisc);
}

TEST_F(Brennen, ADiscThatCannotBeIdentifiedIsReportedAsMissingInTheDatabase) {
  Oeffnen({L"a"});
  OhneHinweis();
  b.prog.Auto_Database = 0;
  b.user.Said.clear();
  b.Antwortet(kNein).Macht([this](Form&) {
    std::filesystem::remove(b.home.Path() / "Vantora/Discos/Disco 001.cue");
    b.prog.frmMBox().picMboxButton_MouseUp(0);
  });
  for (int i = 0; i < 3; ++i) b.Antwortet(kNein);
  b.Tu([&] { Fenster().imgBrennen_MouseUp(); });
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{Sagt(4006), Sagt(5000), Sagt(30139), Sagt(4012),
                                           Sagt(4018) + L"\r\n" + Sagt(4019)}));
}

TEST_F(Brennen, AStrayKeySpoilsNoDiscAndOnlyARunOfTracksShowsThem) {
  Oeffnen({L"a", L"b"});
  OhneHinweis();
  b.platform.machine.writer.Faults.Pace = 1;
  for (const bool dao : {true, false}) {
    bool gesehen = false;
    Fenster().optDiscAtOnce.SetValue(dao);
    Fenster().optTrackAtOnce.SetValue(!dao);
    b.platform.loop.PostAfter(10000, [&] {
      frmSchreibFortschritt& f = b.prog.frmSchreibFortschritt();
      for (const wchar_t* taste : {L"Return", L"Space"}) b.platform.hands.Key(f, taste);
      EXPECT_TRUE(f.imgAbbrechen.Enabled());
      for (const Control* teil : std::initializer_list<Control*>{
               &f.shpAktRahmen, &f.lblKopieTrackNr, &f.lblAktKopiePro, &f.lblKopieInsgAnz}) {
        EXPECT_EQ(teil->Visible(), !dao);
      }
      if (!dao) {
        EXPECT_EQ(f.lblInsgKopiePro.Caption(), L"62%") << "3 s and a pause of 2, of 8 s";
      }
      b.platform.hands.Key(f, L"Tab");
      b.platform.hands.Key(f, L"Return");
      EXPECT_FALSE(f.imgAbbrechen.Enabled());
      gesehen = true;
    });
    Brennt({kNein, kNein});
    EXPECT_TRUE(gesehen);
  }
}

TEST_F(Brennen, ACancelledDiscAtOnceRunLeavesTheSilenceInTheFiles) {
  Oeffnen({L"a", L"b"});
  const std::size_t a = Ton(b, L"a").size(), letzter = Ton(b, L"b").size();
  Fenster().optDiscAtOnce.SetValue(true);
  b.platform.machine.writer.Faults.Pace = 1;
  b.platform.loop.PostAfter(4000, [&] { b.prog.frmSchreibFortschritt().imgAbbrechen_MouseUp(); });
  EXPECT_EQ(Brennt({kNein, kNein}), (std::vector<Text>{Sagt(4006), Sagt(4017) + L"\r\n"}));
  EXPECT_EQ(Ton(b, L"a").size(), a + 352800);
  EXPECT_EQ(Ton(b, L"b").size(), letzter);
  EXPECT_FALSE(b.prog.DateiExistiert(L"C:\\Vantora\\Discos\\Disco 001.bin"));
  EXPECT_TRUE(Fenster().Visible());
  EXPECT_TRUE(Fenster().Window.Enabled);
  EXPECT_NE(Protokoll().find("Operaci\xF3n fracasada"), std::string::npos);
  EXPECT_EQ(b.prog.Number_Burned_CD, 0);
}

TEST_F(Brennen, FailuresBeforeTheWriteEndInTheOpenWindow) {
  WriterFaults& fehler = b.platform.machine.writer.Faults;
  Oeffnen({L"a", L"b", L"c"});
  OhneHinweis();
  const Text misslungen = Sagt(4017) + L"\r\n";
  fehler.RefuseTrack = 2;
  EXPECT_EQ(Brennt({kNein, kNein}),
            (std::vector<Text>{Sagt(4005) + L"\r\nC:\\Vantora\\Wavs\\b.wav", misslungen}));
  EXPECT_NE(Protokoll().find("03. C:\\Vantora\\Wavs\\c.wav"), std::string::npos);

  fehler = WriterFaults{};
  fehler.NotReady = 4;  // two attempts with two calls each
  fehler.WriteTao = 5;
  const Text nichtBereit = Sagt(4007) + L"\r\n" + Sagt(4008);
  EXPECT_EQ(Brennt({kNein, kNein, kNein, kNein, kNein, kNein, kNein}),
            (std::vector<Text>{Sagt(4006), nichtBereit, Sagt(4006), nichtBereit, Sagt(4006),
                               Sagt(4006), misslungen}));

  fehler = WriterFaults{};
  fehler.WriteDao = -1;
  Fenster().optDiscAtOnce.SetValue(true);
  EXPECT_EQ(Brennt({kNein, kNein, kNein}),
            (std::vector<Text>{Sagt(4006), Sagt(4006) + Sagt(4010), misslungen}));
}

TEST_F(Brennen, PausesThatCannotBeAppendedEverywhereAreAppendedNowhere) {
  Oeffnen({L"a", L"b", L"c"});
  b.prog.Katalog[1].Pause = b.prog.Katalog[2].Pause = 2;
  const std::string vorher = b.Lies(L"C:\\Vantora\\Wavs\\a.wav");
  std::filesystem::remove(b.home.Path() / "Vantora/Wavs/b.wav");
  Fenster().optDiscAtOnce.SetValue(true);
  EXPECT_TRUE(Brennt({kNein}).at(0).ends_with(L"(53)"));
  EXPECT_EQ(b.Lies(L"C:\\Vantora\\Wavs\\a.wav"), vorher);
  EXPECT_TRUE(Fenster().Visible());
  EXPECT_FALSE(b.Haupt().Window.Enabled);  // the main window is disabled behind the burner window
}

TEST_F(Brennen, PausesAreTakenBackFromEveryFileThatCanGiveThem) {
  Oeffnen({L"a", L"b", L"c"});
  const std::string b0 = Ton(b, L"b");
  Fenster().optDiscAtOnce.SetValue(true);
  b.Antwortet(kNein).Antwortet(kNein);
  b.Macht([this](Form&) {  // at the last question, a file disappears and rows leave the list
    std::filesystem::remove(b.home.Path() / "Vantora/Wavs/a.wav");
    b.prog.Katalog.resize(2);
  });
  Brennt({kNein, kNein});
  EXPECT_EQ(Ton(b, L"b"), b0);
  EXPECT_EQ(Bin(1).substr(b0.size(), 352800), std::string(352800, '\0'));
  EXPECT_NE(b.Lies(L"C:\\Vantora\\Discos\\Disco 001.cue").find("TITLE \"Disco\""),
            std::string::npos);
  EXPECT_NE(Protokoll().find(") DAO\r\n"), std::string::npos);
  EXPECT_EQ(b.Gesagt().back(), Sagt(30091) + L"\r\nC:\\Vantora\\Wavs\\a.wav");
}

TEST_F(Brennen, ARunThatFallsBackToTrackAtOnceGivesThePausesBackFirst) {
  Oeffnen({L"a", L"b"});
  const std::string a = Ton(b, L"a");
  Fenster().optDiscAtOnce.SetValue(true);
  b.platform.machine.writer.Faults.CanDao = false;
  Brennt({kNein, kNein, kNein});
  EXPECT_EQ(Ton(b, L"a"), a);
  EXPECT_EQ(Bin(1).size(), 2 * InSektoren(a.size()) + kLuecke);
}

TEST_F(Brennen, ADifferenceIsToldWithTheNameOfItsTrackAndACancelEndsOnlyTheComparison) {
  Oeffnen({L"a", L"b"});
  OhneHinweis();
  McdEvents& ereignisse = b.platform.machine.writer.Events;
  const McdEvents sonst = ereignisse;
  const std::size_t aSektoren = InSektoren(Ton(b, L"a").size());
  b.platform.machine.writer.Faults.WrongAtPercent = 80;
  const Text spur = AddBackslash(b.bundle.system.Path()) + b.bundle.system.ExeName() + L".APL";
  ereignisse.MCD_Fixating = [&] {  // from here on the trace cannot be written
    sonst.MCD_Fixating();
    b.bundle.dateien.MkDir(spur);
    b.prog.LogAktiv = true;
  };
  EXPECT_EQ(Brennt({kNein, kNein, kNein}), (std::vector<Text>{Sagt(4006), Sagt(30130) + L"\r\n2. b",
                                                              Sagt(4018) + L"\r\n" + Sagt(4019)}));
  EXPECT_EQ(b.prog.Number_Burned_CD, 1) << "the disc stays";
  EXPECT_EQ(Bin(1).size(), 2 * aSektoren + kLuecke);
  b.prog.LogAktiv = false;
  b.platform.machine.writer.Faults = {};
  ereignisse = sonst;
  ereignisse.MCD_Verify = [&](int track, int befund) {
    sonst.MCD_Verify(track, befund);
    EXPECT_EQ(track, 1) << "compared after the cancel";
    ereignisse.MCD_TrackPercent(45);
    EXPECT_EQ(b.prog.frmSchreibFortschritt().lblSonstiges.Caption(), Sagt(30129) + L"1 (45%)");
    b.prog.frmSchreibFortschritt().imgAbbrechen_MouseUp();
  };
  b.Tu([&] { b.Haupt().imgBrennen_MouseUp(); });
  EXPECT_EQ(Brennt({kNein, kNein, kNein})[1], Sagt(4012));
  EXPECT_EQ(Bin(2).size(), Bin(1).size()) << "complete";
  ereignisse = sonst;
}

TEST_F(Brennen, ADiscOfWhichNothingCouldBeComparedIsNotCalledDifferent) {
  Oeffnen({L"a", L"b"});
  OhneHinweis();
  McdEvents& ereignisse = b.platform.machine.writer.Events;
  const auto sonst = ereignisse.MCD_Fixating;
  ereignisse.MCD_Fixating = [&] {
    sonst();
    for (const char* name : {"a.wav", "b.wav"}) {
      std::filesystem::remove(b.home.Path() / "Vantora/Wavs" / name);
    }
  };
  EXPECT_EQ(Brennt({kNein, kNein, kNein})[1], Sagt(30131));
  ereignisse.MCD_Fixating = sonst;
}

TEST_F(Brennen, ACancelAfterTheEndComesTooLate) {
  Oeffnen({L"a"});
  b.prog.FortschrittModus = 2;
  b.prog.Zeigen(b.prog.frmSchreibFortschritt());
  b.prog.frmSchreibFortschritt().imgAbbrechen_MouseUp();
  EXPECT_FALSE(b.prog.frmKomponenten().Abgebrochen);
}

TEST_F(Brennen, ACrossfadeChoosesDiscAtOnceWhereTheDriveCan) {
  Oeffnen({L"a", L"b*", L"c*"});
  EXPECT_TRUE(Fenster().optDiscAtOnce.Value());
  b.Tu([&] { Fenster().imgAbbrechen_MouseUp(); });
  b.platform.machine.writer.Faults.CanDao = false;
  Fenster().Init_Brenner();
  EXPECT_FALSE(Fenster().optDiscAtOnce.Enabled());
  b.Tu([&] { b.Haupt().imgBrennen_MouseUp(); });
  EXPECT_TRUE(Fenster().optTrackAtOnce.Value());
}

using Fortschritt = MitProgramm;

TEST_F(Fortschritt, TimeUsedIsNeverNegativeAndPassesMidnight) {
  EXPECT_DOUBLE_EQ(Verstrichen(86390, 10), 20);
  EXPECT_DOUBLE_EQ(Verstrichen(75600.0078125, 75600.005), 0);  // the start time was rounded up
  EXPECT_DOUBLE_EQ(Verstrichen(100, 160.5), 60.5);
}

TEST_F(Fortschritt, BarsMoveInStepsThatShowAndSpeedsHaveALimit) {
  Shape& balken = b.prog.frmSchreibFortschritt().shpAktKopie;
  BalkenVerlaengern(balken, 0.008, 15);  // 18 twips: less than is worth painting
  EXPECT_EQ(balken.Width(), 1);
  BalkenVerlaengern(balken, 0.5, 15);
  EXPECT_EQ(balken.Width(), 1185);
  BalkenVerlaengern(balken, 1.0, 13);
  EXPECT_EQ(balken.Width(), 1185);
  EXPECT_EQ(BalkenLaenge(1.0, 12), 1896);
  EXPECT_EQ(TempoText(1e9), L"X8");
}

}  // namespace
}  // namespace vantora
