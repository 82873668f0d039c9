#include "tests/waveeditor/editor_stage.h"

#include <cmath>

namespace vantora {
namespace {

using test::FullDisk;

constexpr std::int64_t kDreiSekunden = std::int64_t{3} * 44100;

class Einrechnen : public ::testing::Test, protected EditorBuehne {
 protected:
  // The same file at half the volume.
  static std::string Halb(const std::string& wave) {
    std::vector<std::int16_t> werte = test::SamplesOf(test::SoundOf(wave));
    for (std::int16_t& wert : werte) wert = static_cast<std::int16_t>(std::nearbyint(wert / 2.0));
    return test::Wave(test::BytesOf(werte));
  }
  // Opens the editor from the catalog's first row, sets the volume, and leaves the editor.
  void HalbeLautstaerkeImEditor() {
    b.Waehle(1);
    b.Macht([this](Form&) {
      HalbeLautstaerke();
      E().slFlangerRate.Value = 33;
      Druecke(E().imgZurück);
    });
    Druecke(b.Haupt().imgWaveEdit);
  }
  void Stapel(const std::vector<int>& zeilen) {
    b.platform.hands.Select(b.Haupt().lvwKatalog, zeilen);
    Druecke(b.Haupt().imgAssistent);
  }
  Text Wav(const Text& name) { return L"C:\\Vantora\\Wavs\\" + name + L".wav"; }
};

TEST_F(Einrechnen, HalfTheVolumeHalvesEverySampleOfTheFileOnceItIsApplied) {
  Oeffne(kDreiSekunden);
  Ziehe(1000, 2000);
  Druecke(E().imgMute);  // leaves something to undo
  const std::string vorher = b.Lies(kDatei);
  HalbeLautstaerke();
  Ziehe(1000, 2000);                                     // the selection does not matter
  b.platform.loop.Post([this] { E().PlayWave(true); });  // nothing plays or leaves meanwhile
  Druecke(E().imgSteuerung(5));
  EXPECT_FALSE(E().Window.Enabled() || E().Spielt());
  EXPECT_ANY_THROW(Druecke(E().imgZurück));
  Vergeht(3000);
  EXPECT_TRUE(E().Window.Enabled());
  EXPECT_TRUE(b.Lies(kDatei) == Halb(vorher));
  EXPECT_TRUE(E().Edits().UndoVorhanden() && E().EffekteAktiv());
  EXPECT_EQ(E().Kette().Out().Input(), &E().Kette().mmVolume());
}

TEST_F(Einrechnen, ARenderThatFailsLeavesOnlyTheWayOutOfTheProgram) {
  Oeffne(kDreiSekunden);
  HalbeLautstaerke();
  const FullDisk disk(300'000);
  b.Antwortet(kNein);
  Druecke(E().imgSteuerung(5));
  Vergeht(2000);
  for (const int antwort : {kNein, kJa}) {  // the user stays, and then leaves
    EXPECT_FALSE(E().Window.Enabled() || b.platform.loop.Ended());
    b.Antwortet(antwort);
    b.platform.hands.Close(E());
  }
  EXPECT_TRUE(b.platform.loop.Ended());
}

// Each deed would write over a file that the user has not seen.
TEST_F(Einrechnen, AFileThatAnotherProgramHasReplacedIsShownAnewAndNotChanged) {
  Oeffne(kDreiSekunden);
  HalbeLautstaerke();
  std::int32_t frames = 90'000;
  for (PictureButton* knopf : {&E().imgMute, &E().imgSteuerung(5), &E().imgSteuerung(6)}) {
    Waehle(1000, frames);
    Druecke(E().imgFadeIn);  // leaves something to undo
    b.Wave(kDatei, frames -= 10'000);
    const std::string ihre = b.Lies(kDatei);
    b.Antwortet(kNein);
    Druecke(*knopf);
    Vergeht(3000);
    EXPECT_TRUE(b.Lies(kDatei) == ihre);
    EXPECT_TRUE(b.Gesagt().back().starts_with(L"Otro programa"));
    EXPECT_FALSE(E().Edits().UndoVorhanden());
  }
  Druecke(E().imgSteuerung(5));  // renders
  b.Wave(kDatei, 100'000);
  const std::string ihre = b.Lies(kDatei);
  b.Antwortet(kNein);
  Vergeht(3000);
  EXPECT_TRUE(b.Lies(kDatei) == ihre);
  EXPECT_TRUE(E().Window.Enabled());
}

TEST_F(Einrechnen, ABatchAppliesTheLastSettingsToTheRowsThatWereSelected) {
  b.Katalog({L"a", L"b", L"c"});
  const std::string vorher = b.Lies(Wav(L"a"));  // all three files are equal
  HalbeLautstaerkeImEditor();
  EXPECT_EQ(b.Lies(Wav(L"a")), vorher);
  b.Antwortet(kJa).Antwortet(kJa);
  Stapel({1, 3});
  Stapel({});
  EXPECT_TRUE(b.Lies(Wav(L"a")) == Halb(vorher) && b.Lies(Wav(L"c")) == Halb(vorher));
  EXPECT_TRUE(b.Lies(Wav(L"b")) == vorher);
  EXPECT_EQ(b.prog.EffektEinstellung.Lautstaerke, 8192);
  EXPECT_EQ(b.prog.EffektEinstellung.FlangerRate, 33);
}

TEST_F(Einrechnen, ABatchEndsAtAFileThatHasGoneAndWaitsAtOneThatCannotBeWritten) {
  b.Katalog({L"a", L"b", L"c"});
  const std::string vorher = b.Lies(Wav(L"b")), mono = test::Wave(vorher, "", {1, 1});
  HalbeLautstaerkeImEditor();
  const struct {
    Text Name;
    std::vector<int> Zeilen;
    std::string Neu;  // blank: it is deleted
  } faelle[] = {{L"a", {1, 2}, ""}, {L"c", {2}, mono}};
  for (const auto& fall : faelle) {
    b.Macht([&](Form& box) {
      b.platform.bundle.dateien.Kill(Wav(fall.Name));
      if (!fall.Neu.empty()) b.Datei(Wav(fall.Name), fall.Neu);
      b.platform.hands.Press(dynamic_cast<frmMBox&>(box).picMboxButton(0));
    });
    b.Antwortet(kNein);
    Stapel(fall.Zeilen);
    EXPECT_TRUE(b.Gesagt().back().find(fall.Name + L".wav: ") != Text::npos) << "with the reason";
    EXPECT_TRUE(b.Haupt().Window.Enabled());
    EXPECT_FALSE(b.prog.frmWaveEditor.Geladen());
  }
  EXPECT_EQ(b.Titel(), std::vector<Text>{L"b"});
  EXPECT_TRUE(b.Lies(Wav(L"c")) == mono);

  b.Antwortet(kJa).Antwortet(kNein).Antwortet(kJa);
  const FullDisk disk(300'000);
  bool wartet = false;
  b.platform.loop.PostAfter(5000, [&] {
    wartet = b.prog.frmWaveEditor().BatchLaeuft() && !b.Haupt().Window.Enabled();
    b.platform.hands.Close(b.Haupt());
  });
  Stapel({1});
  EXPECT_TRUE(wartet && b.platform.loop.Ended());
  EXPECT_TRUE(b.Gesagt().at(5).find(L"b.wav: ") != Text::npos);
  EXPECT_TRUE(b.Gesagt().at(5).find(L"cierre la ventana") != Text::npos) << "how to go on";
  EXPECT_TRUE(b.Lies(Wav(L"b")) == vorher);
}

}  // namespace
}  // namespace vantora
