#include "waveeditor/frmSpektrum.h"

#include "tests/waveeditor/editor_stage.h"

namespace vantora {
namespace {

constexpr int kFrames = 100000;

std::int16_t Links(std::int64_t frame) {
  return static_cast<std::int16_t>(frame * frame % 20011 - 10000);
}

// A drawing, point by point.
std::vector<std::vector<int>> Gezeichnet(const PictureBox& bild) {
  std::vector<std::vector<int>> punkte;
  for (const DrawItem& teil : bild.Drawing()) punkte.push_back(teil.Points);
  return punkte;
}

class Spektrum : public EditorBuehne, public testing::Test {
 protected:
  Spektrum() {
    b.prog.Show3DAnalysis = true;
    Schreibe(kFrames, [](std::int64_t frame) {
      return KlangFrame{Links(frame), static_cast<std::int16_t>(frame)};
    });
    Oeffne();
    E().pic3D.Width = 3000;
    E().pic3D.Height = 2000;
  }
  void Waehle(std::int32_t von, std::int32_t bis) {
    E().Waehlen({von, bis, von == bis, von});
    b.Tu([this] { E().picWave_MouseUp(); });
  }
  // The library's drawing for these blocks of the left channel.
  std::vector<std::vector<int>> Erwartet(std::int32_t von, std::int32_t frames, int bloecke,
                                         const PictureBox& groesse) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(frames) + 1024);
    for (std::int32_t i = 0; i < frames && von + i < kFrames; ++i) {
      samples[static_cast<std::size_t>(i)] = Links(von + i);
    }
    Form fenster(b.platform.loop, L"erwartet");
    PictureBox bild(fenster, L"bild");
    Audiolib& lib = b.prog.plattform.audiolib;
    lib.func_15(70);
    lib.func_17(samples.data(), bloecke, 1024, 1);
    lib.func_18(bild, groesse.Height, groesse.Width, b.prog.Text(21600), b.prog.Text(21601));
    lib.func_16();
    return Gezeichnet(bild);
  }
};

TEST_F(Spektrum, IsThatOfTheSelectionInWholeBlocksAndTheSameOnTheWholeScreen) {
  const struct {
    std::int32_t von, bis, frames;
    int bloecke;
  } faelle[] = {
      {20000, 20000, 71680, 70},  // a cursor without a range
      {99000, 99000, 71680, 70},  // the sound ends within the range
      {500, 600, 4096, 4},        // reads on after the end of the selection
      {7, 4615, 4608, 4},         // 4.5 blocks
      {7, 5639, 5632, 6},         // 5.5 blocks: half of the last one is silence
      {0, 100000, 71680, 70},
  };
  for (const auto& fall : faelle) {
    SCOPED_TRACE(fall.bis);
    Waehle(0, 44100);
    Vergeht(1500);
    Waehle(fall.von, fall.bis);
    E().pic3D.Cls();
    Vergeht(1500);
    EXPECT_TRUE(E().pic3D.Drawing().empty()) << "drawn while the hand is still at work";
    Vergeht(1000);
    const auto klein = Erwartet(fall.von, fall.frames, fall.bloecke, E().pic3D);
    EXPECT_TRUE(!klein.empty() && Gezeichnet(E().pic3D) == klein);
    b.Macht([&](Form& vorn) {
      auto& gross = dynamic_cast<vantora::frmSpektrum&>(vorn);
      const auto erwartet = Erwartet(fall.von, fall.frames, fall.bloecke, gross.picSpektrum);
      EXPECT_TRUE(erwartet != klein && Gezeichnet(gross.picSpektrum) == erwartet);
      b.platform.hands.Press(gross.cmdOK);
    });
    b.Tu([this] { E().pic3D_DblClick(); });
    EXPECT_EQ(b.user.Left(), 0U);
  }
}

TEST_F(Spektrum, IsNotDrawnWhileTheEditorWorksOrTheSettingIsOff) {
  const auto nichts = [this](bool waehrend) {
    ASSERT_TRUE(waehrend);
    E().Spektrum3D();
    EXPECT_TRUE(E().pic3D.Drawing().empty());
  };
  b.Tu([&] {
    b.platform.loop.Post([&] { nichts(E().ScanLaeuft()); });
    E().ScanWave(E().picWave);
  });
  b.Tu([this] { E().PlayWave(true); });
  Waehle(0, 50000);
  Vergeht(2100);  // the sound lasts a little longer
  nichts(E().Spielt());
  b.prog.frmWaveEditor.Entladen();
  b.Tu([&] { nichts(E().imgZurück.Enabled == false); });  // the editor is being opened
  b.prog.frmWaveEditor.Entladen();
  Oeffne();
  b.prog.Show3DAnalysis = false;
  Waehle(0, 50000);
  Vergeht(2500);
  b.Tu([this] { E().pic3D_DblClick(); });
  EXPECT_FALSE(b.prog.frmSpektrum.Geladen());

  // The editor begins to close between two steps of the analysis.
  b.prog.Show3DAnalysis = true;
  b.Tu([this] {
    const std::shared_ptr<frmWaveEditor> editor = b.prog.frmWaveEditor.Laden();
    b.platform.loop.Post([&] { editor->CloseMe(); });
    editor->Spektrum3D();
    EXPECT_TRUE(editor->pic3D.Drawing().empty());
  });
  EXPECT_FALSE(b.prog.SpektrumBereit);
}

}  // namespace
}  // namespace vantora
