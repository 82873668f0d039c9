#include "tests/waveeditor/editor_stage.h"

#include <cmath>

namespace vantora {
namespace {

constexpr std::int64_t kSekunde = 44100;

class WaveEditor : public ::testing::Test, protected EditorBuehne {
 protected:
  int Breite() { return E().picWaveBack.Width; }
};

TEST_F(WaveEditor, TimesHaveAColonButForNoneAndRoundedMinutes) {
  const struct {
    double Frames;
    const wchar_t* Text;
  } cases[] = {{0, L"0:00.0"},
               {1, L"0:00:0"},
               {44100, L"0:01:0"},
               {44.1 * 59400, L"0:59:4"},
               {44.1 * 59600, L"1:59:6"},
               {44.1 * 61250, L"1:01:2"},
               {44.1 * 59500, L"1:59:5"},
               {44.1 * 4'799'999, L"80:59:9"}};
  // The minutes count from rounded seconds, of which 59.5 are the even 60.
  for (const auto& each : cases) EXPECT_EQ(frmWaveEditor::SmpToTime(each.Frames), each.Text);
}

TEST_F(WaveEditor, TheTraceIsAtTheLevelOfTheSoundWhereverItIsReadFrom) {
  // Longer than a block, so that it is read in two parts; the level rises each second.
  const std::int64_t frames = 8 * kSekunde;
  const auto pegel = [](std::int64_t i) { return static_cast<std::int16_t>(i / kSekunde * 4000); };
  Schreibe(frames, [&](std::int64_t i) {
    return KlangFrame{pegel(i), static_cast<std::int16_t>(-32768)};
  });
  Oeffne();
  const double viertel = std::nearbyint(E().picWave.Height / 4.0);
  ASSERT_EQ(E().WellenPunkte().size(), static_cast<std::size_t>(E().picWave.Width) * 16 + 1);
  for (std::size_t i = 0; i + 1 < E().WellenPunkte().size(); i += 997) {
    const double step = std::nearbyint(frames / 16.0) / E().picWave.Width;
    const auto frame = static_cast<std::int64_t>(std::nearbyint(static_cast<double>(i) * step));
    SCOPED_TRACE(frame);
    EXPECT_NEAR(E().WellenPunkte()[i].Links, viertel - viertel * 0.9 * pegel(frame) / 32768, 1);
    EXPECT_NEAR(E().WellenPunkte()[i].Rechts, 3 * viertel + viertel * 0.9, 1);
  }
  EXPECT_GT(E().picWaveBack.Drawing().size(), 30U);
  EXPECT_EQ(E().picZeitFront.Drawing().size(), 2U * 19);
}

TEST_F(WaveEditor, KeysMoveTheCursorAndDragTheRangeByPixelsAndWithinTheView) {
  Oeffne(441'000);
  b.platform.hands.Press(E().picWaveBack);
  const int breite = E().picWaveBack.Width, start = E().shpMarker.Left;
  const auto taste = [&](const wchar_t* name, int mal = 1) {
    while (mal-- > 0) b.platform.hands.Key(E(), name);
  };
  const struct {
    const wchar_t* Taste;
    int Mal, Links, Breite;
  } kSchritte[] = {{L"Right", 3, start + 45, 15},
                   {L"Shift+Right", 1, start + 45, 15},
                   {L"Shift+Right", 4, start + 45, 75},
                   {L"Shift+Left", 5, start + 45, 15},
                   {L"Shift+Left", 4, start - 15, 60},
                   {L"Shift+Home", 1, 0, start + 45},
                   {L"Left", 1, 0, 15},
                   {L"Shift+End", 1, 0, breite},
                   {L"PageUp", 1, breite - breite / 10, 15}};
  for (const auto& schritt : kSchritte) {
    SCOPED_TRACE(&schritt - kSchritte);
    taste(schritt.Taste, schritt.Mal);
    EXPECT_EQ(E().shpMarker.Left, schritt.Links);
    EXPECT_EQ(E().shpMarker.Width, schritt.Breite);
    EXPECT_EQ(E().Gewaehlt().NurCursor, schritt.Breite == 15);
  }
  Druecke(E().imgZoom(0));
  taste(L"End");
  EXPECT_EQ(E().sliderWave.Value, E().sliderWave.Max);
  taste(L"Home");
  EXPECT_EQ(E().sliderWave.Value, 0);
  taste(L"Space");
  EXPECT_TRUE(E().Spielt());
  taste(L"Space");
  EXPECT_FALSE(E().Spielt());
}

TEST_F(WaveEditor, ZoomingKeepsTheSelectionAndScrollsToIt) {
  Oeffne(10 * kSekunde);
  const int breite = Breite();
  Ziehe(breite / 2, breite * 3 / 4);
  const std::int32_t ende = E().Gewaehlt().MarkerEnde;
  Druecke(E().imgZoom(1));  // zooms out at factor 1
  EXPECT_EQ(E().ZoomFaktor(), 1);
  for (const int faktor : {2, 4, 8, 16, 16}) {
    Druecke(E().imgZoom(0));
    EXPECT_EQ(E().ZoomFaktor(), faktor);
    EXPECT_EQ(Breite(), breite * faktor);
    EXPECT_EQ(E().Gewaehlt().MarkerEnde, ende);
    EXPECT_NEAR(E().shpMarker.Left, breite * faktor / 2.0, 2);
    EXPECT_NEAR(E().shpMarker.Width, breite * faktor / 4.0, 2);
    EXPECT_EQ(E().sliderWave.Max, (faktor - 1) * breite);
    EXPECT_EQ(E().picWaveBack.Left, -E().sliderWave.Value());
    EXPECT_NEAR(E().sliderWave.Value, std::min(breite * faktor / 2, E().sliderWave.Max()), 2);
    EXPECT_EQ(E().lblZoomFaktor.Caption(), std::to_wstring(faktor) + L"x Zoom");
  }
  b.Tu([&] { E().cmdAllesAuswaehlen_Click(); });
  EXPECT_EQ(E().Gewaehlt().MarkerEnde, ende);
  Druecke(E().imgZoom(2));
  EXPECT_EQ(Breite(), breite);
  EXPECT_FALSE(E().sliderWave.Visible());
  EXPECT_EQ(E().picWaveBack.Left, 0);
}

TEST_F(WaveEditor, PlayingRunsToTheEndOfTheRangeAndGoesBackToItsStart) {
  Oeffne(10 * kSekunde);
  Ziehe(Breite() / 2, Breite() * 3 / 4);
  Druecke(E().imgSteuerung(0));
  EXPECT_TRUE(E().Spielt());
  EXPECT_FALSE(E().imgNormalize.Enabled());
  Vergeht(1000);
  EXPECT_NEAR(E().linPosition.Left, Breite() * 0.6, Breite() * 0.02);
  Druecke(E().imgSteuerung(2));
  const int stelle = E().linPosition.Left;
  Vergeht(3000);
  EXPECT_TRUE(E().Pausiert());
  EXPECT_EQ(E().linPosition.Left, stelle);
  Druecke(E().imgSteuerung(0));  // resumes
  Vergeht(1000);
  EXPECT_NEAR(E().linPosition.Left, Breite() * 0.7, Breite() * 0.03);
  Vergeht(1500);
  EXPECT_FALSE(E().Spielt());
  EXPECT_EQ(E().linPosition.Left, E().shpMarker.Left);
  EXPECT_TRUE(E().imgNormalize.Enabled());
  EXPECT_EQ(E().Kette().Out().State(), MMWaveOutX::Closed);
  const Text ungedrueckt = E().imgSteuerung(2).Picture();
  Druecke(E().imgSteuerung(0));
  Druecke(E().imgSteuerung(2));
  EXPECT_NE(E().imgSteuerung(2).Picture(), ungedrueckt);
  Druecke(E().imgSteuerung(1));  // stops during a pause
  EXPECT_EQ(E().imgSteuerung(2).Picture(), ungedrueckt);
  EXPECT_FALSE(E().Pausiert());
}

TEST_F(WaveEditor, PlayPressedWhilePlayingStartsAnewWithWhatIsSelectedNow) {
  Oeffne(10 * kSekunde);
  Druecke(E().imgSteuerung(0));
  Vergeht(1000);
  Ziehe(Breite() / 2, Breite() * 3 / 4);
  Druecke(E().imgSteuerung(0));
  Vergeht(1000);
  EXPECT_TRUE(E().Spielt());
  EXPECT_NEAR(E().linPosition.Left, Breite() * 0.6, Breite() * 0.02);
  b.Tu([this] {
    b.platform.loop.Post([this] { E().imgSteuerung_MouseUp(1); });  // while the sound ends
    E().imgSteuerung_MouseUp(0);
  });
  EXPECT_FALSE(E().Spielt());
  Druecke(E().imgLoop);
  Druecke(E().imgSteuerung(0));  // played once, not again
  Vergeht(3000);
  EXPECT_FALSE(E().Spielt());
}

TEST_F(WaveEditor, WindingMovesByHalfASecondAndFasterTheLongerItIsHeld) {
  Oeffne(60 * kSekunde);
  const auto halten = [this](int index, int ms) {
    b.Tu([&] {
      b.platform.loop.PostAfter(ms, [&] { E().imgSteuerung_MouseUp(index); });
      E().imgSteuerung_MouseDown(index);
    });
  };
  halten(3, 499);
  EXPECT_EQ(E().Gewaehlt().CursorPos, 22050);
  EXPECT_TRUE(E().Gewaehlt().NurCursor);
  halten(3, 560);
  EXPECT_EQ(E().Gewaehlt().CursorPos, 3 * 22050);
  halten(4, 20000);
  EXPECT_EQ(E().Gewaehlt().CursorPos, 0);
  Druecke(E().imgSteuerung(0));
  Vergeht(2000);
  halten(3, 100);  // while playing, it continues from there
  EXPECT_TRUE(E().Spielt());
  EXPECT_NEAR(E().Kette().SourceFile().Wave.PlayStart, 2.5 * kSekunde, 0.2 * kSekunde);
  b.Tu([&] { E().PlayWave(false); });
  b.Tu([&] { E().imgSteuerung_DblClick(3); });
  EXPECT_EQ(E().Gewaehlt().CursorPos, 60 * kSekunde);
}

TEST_F(WaveEditor, TheSoundPassesTheEffectsThatAreOnAndNoOthers) {
  Oeffne(kSekunde);
  const struct {
    PictureButton& Knopf;
    const MMComponentX* Stufe;
    int Panel;
  } stufen[] = {{E().imgByPass, &E().Kette().Equalizer(), 0},
                {E().imgLoudness, &E().Kette().Loudness(), 0},
                {E().imgHallByPass, &E().Kette().Reverb(), 2},
                {E().imgFlangerBypass, &E().Kette().Flanger(), 4},
                {E().imgVolumeByPass, &E().Kette().mmVolume(), 1}};
  constexpr std::size_t kImmer = 4;  // DSP, peak detector, converter and file
  std::vector<bool> an(5);
  for (unsigned schritt = 1; schritt <= 64; ++schritt) {
    // In Gray code order, every combination of effects occurs by one press at a time.
    const auto welche = static_cast<std::size_t>(std::min(__builtin_ctz(schritt), 4));
    Druecke(E().imgEffekt(stufen[welche].Panel));
    Druecke(stufen[welche].Knopf);
    an[welche] = !an[welche];
    std::vector<const MMComponentX*> soll, weg;  // from the sound output back to the source
    for (auto* c = E().Kette().Out().Input(); c != nullptr; c = c->Input()) weg.push_back(c);
    for (std::size_t i = 5; i-- > 0;) {
      if (an[i]) soll.push_back(stufen[i].Stufe);
    }
    EXPECT_EQ(weg.back(), &E().Kette().SourceFile());
    ASSERT_EQ(weg.size(), soll.size() + kImmer);
    weg.resize(soll.size());
    EXPECT_EQ(weg, soll);
    EXPECT_EQ(E().EffekteAktiv(), an[0] || an[2] || an[3] || an[4]);
  }
  Druecke(E().imgEffekt(5));
  EXPECT_EQ(E().Kette().Out().Input(), &E().Kette().DSP());
  EXPECT_FALSE(E().EffekteAktiv());
}

TEST_F(WaveEditor, TheGateClosesWhenTheSoundHasBeenSoftForLongEnough) {
  Oeffne(kSekunde);
  struct Quelle final : MMComponentX {
    std::int16_t Pegel = 0;
    void Pull(MMData& data) override {
      data.Samples.fill(Pegel);
      data.Bytes = kBufferBytes;
    }
  } quelle;
  E().Kette().MMPCMConverterX1().SetInput(&quelle);
  Druecke(E().imgEffekt(1));
  Druecke(E().imgGaterBypass);
  // 50 ms are 2205 frames. A buffer of 1024 frames that is softer than the threshold starts to
  // count, and each one after it adds its frames.
  const struct {
    int Schwelle, HalteMs;
    std::int16_t Pegel;
    bool Offen;
  } puffer[] = {{1000, 50, 999, true},  {1000, 50, 999, true},  {1000, 50, 999, true},
                {1000, 50, 999, false}, {1000, 50, 500, false}, {1000, 50, 1000, true},
                {1000, 0, 999, true},   {1000, 0, 999, false},  {0, 0, 0, true}};
  for (const auto& einer : puffer) {
    SCOPED_TRACE(&einer - puffer);
    Setzen(E().slGaterThreshold, einer.Schwelle);
    Setzen(E().slGaterAttack, einer.HalteMs);
    quelle.Pegel = einer.Pegel;
    MMData data;
    E().Kette().DSP().Pull(data);
    for (const auto i : {0U, 2047U}) EXPECT_EQ(data.Samples[i], einer.Offen ? einer.Pegel : 0);
    EXPECT_EQ(E().LEDGaterAus.Visible(), !einer.Offen);
  }
  EXPECT_TRUE(E().LEDGaterAn.Visible());
  Druecke(E().imgGaterBypass);
  EXPECT_FALSE(E().LEDGaterAn.Visible());
  E().Kette().MMPCMConverterX1().SetInput(&E().Kette().SourceFile());
}

TEST_F(WaveEditor, ABoxThatIsOnlyPassedThroughLeavesItsSliderAlone) {
  Oeffne(kSekunde);
  const struct {
    int Panel;
    Slider& Schieber;
    TextBox& Feld;
    int Wert;
  } faelle[] = {{1, E().slGaterThreshold, E().txtGaterThreshold, 1000},
                {4, E().slFlangerRate, E().txtFlangerRate, 50}};
  for (const auto& fall : faelle) {
    Druecke(E().imgEffekt(fall.Panel));
    Setzen(fall.Schieber, fall.Wert);
    const Text gezeigt = fall.Feld.Text;
    b.Tu([&] { b.platform.loop.SetFocus(fall.Feld); });
    b.platform.hands.Key(E(), L"Tab");
    EXPECT_EQ(fall.Schieber.Value, fall.Wert);
    // A value that Return has accepted is not converted a second time.
    b.platform.hands.Type(fall.Feld, L"3.5");
    b.platform.hands.Key(E(), L"Return");
    const int genommen = fall.Schieber.Value;
    b.platform.hands.Key(E(), L"Tab");
    EXPECT_EQ(fall.Schieber.Value, genommen);
  }
  EXPECT_EQ(E().slFlangerRate.Value, 70);
  for (const wchar_t* zuviel : {L"999999", L"150"}) {  // the slider stays, and the box shows it
    b.platform.hands.Type(E().txtFlangerDepth, zuviel);
    b.platform.hands.Key(E(), L"Return");
    EXPECT_EQ(E().slFlangerDepth.Value, 99);
    EXPECT_EQ(E().txtFlangerDepth.Text(), L"99");
  }
}

TEST_F(WaveEditor, WithoutAWaveOrACardNothingPlaysAndTheWindowStaysUsable) {
  const std::string wave = test::Wave(test::Noise(176400));
  for (const std::string& inhalt : {std::string(), std::string("no wave at all"), wave}) {
    b.platform.card.Present = inhalt != wave;
    b.Datei(kDatei, inhalt);
    Oeffne();
    EXPECT_EQ(E().lblMarkerEnde.Caption(), L"0:00.0");
    b.Antwortet(kNein);  // nothing to undo
    for (int i : {6, 1, 2, 0}) Druecke(E().imgSteuerung(i));
    Vergeht(3000);
    EXPECT_FALSE(E().Spielt());
    EXPECT_TRUE(E().Window.Enabled());
    b.prog.frmWaveEditor.Entladen();
  }
}

}  // namespace
}  // namespace vantora
