#include "tests/waveeditor/editor_stage.h"

#include <cmath>

namespace vantora {
namespace {

using test::FullDisk;

constexpr std::size_t kKopf = 44;  // bytes before the sound
constexpr std::int64_t kDreiSekunden = std::int64_t{3} * 44100;
constexpr const wchar_t* kTemp = L"C:\\WINDOWS\\TEMP\\";

class Einrechnen : public ::testing::Test, protected EditorBuehne {
 protected:
  // Checks that the file has the same sound at half the volume.
  void ErwarteHalb(const std::string& vorher, const Text& datei) {
    const std::string nachher = b.Lies(datei);
    ASSERT_EQ(nachher.size(), vorher.size());
    const std::vector<std::int16_t> alt = test::SamplesOf(vorher), neu = test::SamplesOf(nachher);
    for (std::size_t i = kKopf / 2; i < alt.size(); ++i) {
      ASSERT_EQ(neu[i], std::nearbyint(alt[i] / 2.0)) << i;
    }
  }
  void ErwarteNichtsImTempOrdner() {
    for (const wchar_t* name : {L"undo2.dat", L"copy.dat", L"temp001.dat", L"temp.001"}) {
      EXPECT_FALSE(b.prog.DateiExistiert(kTemp + Text(name))) << std::string(name, name + 9);
    }
  }
  // Opens the editor from the catalog's row, runs `arbeit`, and leaves the editor.
  void ImEditor(int zeile, const std::function<void()>& arbeit) {
    b.Waehle(zeile);
    b.Macht([this, arbeit](Form&) {
      arbeit();
      Druecke(E().imgZurück);
    });
    Druecke(b.Haupt().imgWaveEdit);
    ASSERT_FALSE(b.prog.frmWaveEditor.Geladen());
    ASSERT_TRUE(b.Haupt().Window.Enabled());
  }
  void Waehle(const std::vector<int>& zeilen) {
    b.platform.hands.Select(b.Haupt().lvwKatalog, zeilen);
  }
  Text Wav(const Text& name) { return L"C:\\Vantora\\Wavs\\" + name + L".wav"; }
};

TEST_F(Einrechnen, HalfTheVolumeHalvesEverySampleOfTheFileOnceItIsApplied) {
  Oeffne(kDreiSekunden);
  Ziehe(1000, 2000);
  Druecke(E().imgMute);  // leaves something to undo
  const std::string vorher = b.Lies(kDatei);
  const Text zeit = b.platform.bundle.dateien.FileDateTime(kDatei);
  Druecke(E().imgSteuerung(5));  // no effect is on
  Vergeht(2000);
  EXPECT_EQ(b.platform.bundle.dateien.FileDateTime(kDatei), zeit);
  HalbeLautstaerke();
  Ziehe(1000, 2000);  // the selection does not matter
  Druecke(E().imgSteuerung(5));
  EXPECT_FALSE(E().Window.Enabled());
  Vergeht(3000);
  EXPECT_TRUE(E().Window.Enabled());
  EXPECT_FALSE(E().EinrechnenLaeuft());
  ErwarteHalb(vorher, kDatei);
  EXPECT_TRUE(E().Edits().UndoVorhanden() && E().EffekteAktiv());
  EXPECT_EQ(E().Kette().Out().Input(), &E().Kette().mmVolume());
  b.Tu([&] { E().CloseMe(); });
  ErwarteNichtsImTempOrdner();
}

TEST_F(Einrechnen, ARenderThatFailsLeavesTheFileAndOnlyTheWayOutOfTheProgram) {
  Oeffne(kDreiSekunden);
  const std::string vorher = b.Lies(kDatei);
  HalbeLautstaerke();
  b.Antwortet(kNein);
  {
    const FullDisk disk(300'000);
    Druecke(E().imgSteuerung(5));
    Vergeht(2000);
  }
  ASSERT_EQ(b.Gesagt().size(), 1U);
  EXPECT_TRUE(b.Gesagt()[0].ends_with(L"(61)"));
  EXPECT_FALSE(E().Window.Enabled());
  EXPECT_EQ(b.Lies(kDatei), vorher);
  b.Antwortet(kNein);  // the user declines and stays
  b.platform.hands.Close(E());
  EXPECT_FALSE(b.platform.loop.Ended());
  b.Antwortet(kJa);
  b.platform.hands.Close(E());
  EXPECT_TRUE(b.platform.loop.Ended());
}

TEST_F(Einrechnen, AResultThatCannotBeCopiedIsToldAndTheEditorGoesOnWithTheFileAsItWas) {
  Oeffne(kDreiSekunden);
  const std::string vorher = b.Lies(kDatei);
  HalbeLautstaerke();
  Druecke(E().imgSteuerung(5));
  E().Kette().DestFile().Wave.SetFileName(L"C:\\no\\hay.dat");
  b.Antwortet(kNein);
  b.platform.loop.Post([&] { E().Trigger_OnStop(); });  // the sound ends and the file is gone
  Vergeht(1000);
  ASSERT_EQ(b.Gesagt().size(), 1U);
  EXPECT_EQ(b.Lies(kDatei), vorher);
  EXPECT_TRUE(E().Window.Enabled());
  Druecke(E().imgSteuerung(0));
  EXPECT_TRUE(E().Spielt());
  Druecke(E().imgSteuerung(1));
  b.Tu([&] { E().Form_Close(); });
  EXPECT_FALSE(b.prog.frmWaveEditor.Geladen());
}

TEST_F(Einrechnen, ABatchAppliesTheLastSettingsToTheRowsThatWereSelected) {
  const auto stapel = [this] { Druecke(b.Haupt().imgAssistent); };
  b.Katalog({L"a", L"b", L"c"});
  const std::string vorher = b.Lies(Wav(L"a"));  // all three files are equal
  ImEditor(1, [this] {
    HalbeLautstaerke();
    E().slFlangerRate.Value = 33;
  });
  EXPECT_EQ(b.Lies(Wav(L"a")), vorher);
  Waehle({1, 3});
  b.Antwortet(kJa);
  stapel();
  ErwarteHalb(vorher, Wav(L"a"));
  ErwarteHalb(vorher, Wav(L"c"));
  EXPECT_EQ(b.Lies(Wav(L"b")), vorher);
  EXPECT_EQ(b.prog.EffektEinstellung.Lautstaerke, 8192);
  EXPECT_EQ(b.prog.EffektEinstellung.FlangerRate, 33);
  ErwarteNichtsImTempOrdner();
  Waehle({});
  b.Antwortet(kJa);
  stapel();
  EXPECT_EQ(b.Lies(Wav(L"b")), vorher);
}

TEST_F(Einrechnen, ABatchEndsAtAFileThatHasGoneAndWaitsAtOneThatCannotBeWritten) {
  b.Katalog({L"a", L"b"});
  const std::string vorher = b.Lies(Wav(L"b"));
  ImEditor(1, [this] { HalbeLautstaerke(); });
  Waehle({1, 2});
  b.Macht([this](Form& box) {
    b.platform.bundle.dateien.Kill(Wav(L"a"));
    b.platform.hands.Press(dynamic_cast<frmMBox&>(box).picMboxButton(0));
  });
  b.Antwortet(kNein);
  Druecke(b.Haupt().imgAssistent);
  ASSERT_EQ(b.Gesagt().size(), 2U);
  EXPECT_TRUE(b.Gesagt()[1].ends_with(L"(53)"));
  EXPECT_TRUE(b.Haupt().Window.Enabled());
  EXPECT_FALSE(b.prog.frmWaveEditor.Geladen());
  EXPECT_EQ(b.Titel(), std::vector<Text>{L"b"});

  Waehle({1});
  b.Antwortet(kJa).Antwortet(kNein).Antwortet(kJa);
  const FullDisk disk(300'000);
  bool wartet = false;
  b.platform.loop.PostAfter(5000, [&] {
    wartet = b.prog.frmWaveEditor().BatchLaeuft() && !b.Haupt().Window.Enabled();
    b.platform.hands.Close(b.Haupt());
  });
  Druecke(b.Haupt().imgAssistent);
  EXPECT_TRUE(wartet);
  EXPECT_TRUE(b.Gesagt()[3].ends_with(L"(61)"));
  EXPECT_TRUE(b.platform.loop.Ended());
  EXPECT_EQ(b.Lies(Wav(L"b")), vorher);
}

}  // namespace
}  // namespace vantora
