// The program is killed or its disk fails in the middle of an edit in the wave editor or of a burn,
// and it is started again.
#include "tests/support/kill_switch.h"
#include "tests/waveeditor/editor_stage.h"

#include <cerrno>
namespace vantora {
namespace {

class Abbruch : public ::testing::Test, protected EditorBuehne {};

// The call before which the editor's cut would move the sound behind the range.
constexpr int kMitten = 14;

TEST_F(Abbruch, ATrackWhoseEditWaitsForItsDiskKeepsItsRow) {
  b.Katalog({L"a"});
  b.prog.Undo = false;
  const std::size_t vorher = b.Lies(kDatei).size();
  Oeffne();
  Waehle(1000, 10'000);
  b.Antwortet(kNein);
  test::KillSwitch::FailAt(kMitten, EIO, true);
  Druecke(E().imgCut);
  EXPECT_TRUE(b.Gesagt().back().ends_with(L"(57)"));
  b.Tu([&] { E().CloseMe(); });
  EXPECT_TRUE(b.NochNotizen());
  test::KillSwitch::Off();
  b.Haupt().KatalogShow();
  EXPECT_EQ(b.Haupt().lvwKatalog.ListItems.Count(), 1);
  EXPECT_EQ(b.Lies(kDatei).size(), vorher - 9'000 * 4);
  EXPECT_FALSE(b.NochNotizen());
}

using Neustart = VorDemStart;

}  // namespace

TEST_F(Neustart, TheUserReadsWhichTracksWereBroughtToTheirEnd) {
  const Text datei = EditorBuehne::kDatei;
  b.Wave(datei, 200'000);
  EXPECT_FALSE(test::RunInProcess([&] {
    test::KillSwitch::KillAt(8, false);
    b.platform.machine.cutter.Cut(datei, 1000, 50'000);
  }));
  b.Antwortet(kNein);
  b.Start();
  EXPECT_EQ(b.Gesagt(), std::vector<Text>{Sagt(30092) + L"\r\n" + datei});
  EXPECT_EQ(b.Lies(datei).size(), 44U + 151'000 * 4);
  EXPECT_FALSE(b.prog.frmStartUp.Geladen());
}

TEST_F(Neustart, SilenceOfABurnThatWasKilledComesOutAgain) {
  const auto bytes = [this] { return b.Lies(EditorBuehne::kDatei).size(); };
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
  EXPECT_EQ(bytes(), kWave + kPause);
  b.Antwortet(kNein);
  b.Start();
  EXPECT_EQ(b.Gesagt(), std::vector<Text>{Sagt(30093) + L"\r\n" + EditorBuehne::kDatei});
  EXPECT_EQ(bytes(), kWave);
}

}  // namespace vantora
