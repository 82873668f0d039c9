// The program is killed in the middle of an edit in the wave editor or of a burn, and started
// again.
#include "tests/support/kill_switch.h"
#include "tests/waveeditor/editor_stage.h"

#include <cerrno>
namespace vantora {
namespace {

class Abbruch : public ::testing::Test, protected EditorBuehne {
 protected:
  std::string Lies() { return b.Lies(kDatei); }
};

const std::string kAnhang = test::Chunk("LIST", test::Noise(300'001, 2));

TEST_F(Abbruch, EveryEditOfTheEditorIsWholeAfterAKill) {
  constexpr std::int32_t kFrames = 300'000;
  const std::string original = test::Wave(test::Noise(kFrames * 4), kAnhang);
  const struct {
    const char* Name;
    PictureButton frmWaveEditor::*Knopf;  // null: undoes a cut
  } faelle[] = {{"cut", &frmWaveEditor::imgCut},
                {"paste", &frmWaveEditor::imgPaste},
                {"mute", &frmWaveEditor::imgMute},
                {"fade in", &frmWaveEditor::imgFadeIn},
                {"fade out", &frmWaveEditor::imgFadeOut},
                {"normalize", &frmWaveEditor::imgNormalize},
                {"undo", nullptr}};
  for (const auto& fall : faelle) {
    SCOPED_TRACE(fall.Name);
    const bool undo = fall.Knopf == nullptr;
    const auto drueckt = [&] { Druecke(undo ? E().imgSteuerung(6) : E().*fall.Knopf); };
    int fertig = 0;
    bool ganz = false;
    for (int ruf = 1; !ganz; ruf += 3) {
      b.Datei(kDatei, original);
      Oeffne();
      Waehle(200'000, 290'000);
      Druecke(E().imgCopy);
      Waehle(1000, 100'000);
      if (undo) {
        Druecke(E().imgCut);
        Waehle(1000, 100'000);
      }
      const std::string vorher = Lies();
      ganz = test::RunInProcess([&] {
        test::KillSwitch::KillAt(ruf, ruf % 2 == 0);
        drueckt();
      });
      const MendedEdits fund = b.platform.machine.edits.Mend();
      const std::string danach = Lies();
      b.Datei(kDatei, vorher);
      // A program that was killed after the end of its edit leaves nothing to finish.
      fertig += danach != vorher || !fund.Finished.empty() ? 1 : 0;
      drueckt();
      ASSERT_TRUE(danach == vorher || danach == Lies()) << ruf;
      ASSERT_FALSE(b.NochNotizen());
      b.prog.frmWaveEditor.Entladen();
    }
    EXPECT_GT(fertig, 2);
  }
}

// The call before which the editor's cut would move the sound behind the range.
constexpr int kMitten = 14;

TEST_F(Abbruch, ATrackWhoseEditWaitsForItsDiskKeepsItsRow) {
  b.Katalog({L"a"});
  b.Datei(kDatei, test::Wave(test::Noise(3 * 176'400), kAnhang));
  b.prog.Undo = false;
  const std::string original = Lies();
  Oeffne();
  Waehle(1000, 10'000);
  b.Antwortet(kNein);
  test::KillSwitch::FailAt(kMitten, EIO, true);
  Druecke(E().imgCut);
  EXPECT_TRUE(b.Gesagt().back().ends_with(L"(57)"));
  b.Tu([&] { E().CloseMe(); });
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems.Count(), 1);
  EXPECT_TRUE(b.NochNotizen());
  test::KillSwitch::Off();
  b.Haupt().KatalogShow();
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems.Count(), 1);
  EXPECT_EQ(Lies().size(), original.size() - 9'000 * 4);
  EXPECT_FALSE(b.NochNotizen());
}

using Neustart = VorDemStart;

}  // namespace

TEST_F(Neustart, TheUserReadsWhichTracksWereBroughtToTheirEnd) {
  const Text datei = L"C:\\Vantora\\Wavs\\a.wav";
  b.Wave(datei, 200'000);
  EXPECT_FALSE(test::RunInProcess([&] {
    test::KillSwitch::KillAt(8, false);
    b.platform.machine.cutter.Cut(datei, 1000, 50'000);
  }));
  b.Antwortet(kNein);
  b.Start();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{b.prog.Text(30092) + L"\r\n" + datei}));
  EXPECT_EQ(b.Lies(datei).size(), 44U + 151'000 * 4);
  EXPECT_FALSE(b.prog.frmStartUp.Geladen());
}

TEST_F(Neustart, SilenceOfABurnThatWasKilledComesOutAgain) {
  const auto inhalt = [this] { return b.Lies(L"C:\\Vantora\\Wavs\\a.wav"); };
  std::string vorher;
  EXPECT_FALSE(test::RunInProcess([&] {
    b.Start();
    b.Katalog({L"a", L"b"});
    b.Tu([&] { b.Haupt().imgBrennen_MouseUp(); });
    b.prog.frmCDBrennen().optDiscAtOnce.SetValue(true);
    b.Macht([](Form&) { test::KillSwitch::KillAt(1, false); });  // before the request for a disc
    b.Antwortet(kNein);
    b.Tu([&] { b.prog.frmCDBrennen().imgBrennen_MouseUp(); });
  }));
  constexpr std::size_t kPause = 2 * 176'400, kWave = 44 + 3 * 176'400;
  EXPECT_EQ(inhalt().size(), kWave + kPause);
  b.Antwortet(kNein);
  b.Start();
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{b.prog.Text(30093) + L"\r\nC:\\Vantora\\Wavs\\a.wav"}));
  EXPECT_EQ(inhalt().size(), kWave);
}

}  // namespace vantora
