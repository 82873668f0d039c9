// The program is killed in the middle of an edit in the wave editor or of a burn, and started
// again.
#include <gtest/gtest.h>

#include "tests/support/kill_switch.h"
#include "tests/waveeditor/editor_stage.h"

#include <cerrno>
#include <functional>

namespace vantora {
namespace {

class Abbruch : public ::testing::Test, protected EditorBuehne {
 protected:
  std::string Lies() { return b.Lies(kDatei); }
  bool NochNotizen() {
    return !b.platform.machine.files.List(L"C:\\WINDOWS\\edits", L"*.*").empty();
  }
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
    for (int ruf = 1, getoetet = 1; getoetet > 0; ruf += 3) {
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
      getoetet = test::RunInProcess([&] {
        test::KillSwitch::KillAt(ruf, ruf % 2 == 0);
        drueckt();
      })
                     ? 0
                     : 1;
      const MendedEdits fund = b.platform.machine.edits.Mend();
      const std::string danach = Lies();
      b.Datei(kDatei, vorher);
      if (fund.Finished.empty()) {
        // The program was killed before the edit began or after its end. In the latter case the
        // file is complete.
        if (danach != vorher) ++fertig;
      }
      drueckt();
      ASSERT_TRUE(danach == vorher || danach == Lies()) << ruf;
      fertig += fund.Finished.empty() ? 0 : 1;
      ASSERT_FALSE(NochNotizen());
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
  EXPECT_TRUE(NochNotizen());
  test::KillSwitch::Off();
  b.Haupt().KatalogShow();
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems.Count(), 1);
  EXPECT_EQ(Lies().size(), original.size() - 9'000 * 4);
  EXPECT_FALSE(NochNotizen());
}

}  // namespace

TEST(Neustart, TheUserReadsWhichTracksWereBroughtToTheirEnd) {
  Buehne b;
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

TEST(Neustart, SilenceOfABurnThatWasKilledComesOutAgain) {
  Buehne b;
  const auto inhalt = [&b] { return b.Lies(L"C:\\Vantora\\Wavs\\a.wav"); };
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
