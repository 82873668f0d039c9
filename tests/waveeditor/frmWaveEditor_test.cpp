#include "tests/waveeditor/editor_stage.h"

#include <cmath>

namespace vantora {
namespace {

constexpr std::int64_t kSekunde = 44100;

class WaveEditor : public ::testing::Test, protected EditorBuehne {
 protected:
  // The components of the chain, from the sound output back to the source.
  std::vector<const MMComponentX*> Weg() {
    std::vector<const MMComponentX*> weg;
    for (const MMComponentX* c = E().Kette().Out().Input(); c != nullptr; c = c->Input())
      weg.push_back(c);
    return weg;
  }
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
               {44.1 * 59500, L"1:59:5"},  // 59.5 rounds to the even 60
               {44.1 * 4'799'999, L"80:59:9"}};
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

TEST_F(WaveEditor, AClickIsACursorAndADragARangeInEitherDirection) {
  Oeffne(10 * kSekunde);
  EXPECT_TRUE(E().Gewaehlt().NurCursor);
  const int mitte = Breite() / 2;
  Ziehe(mitte, mitte);
  EXPECT_TRUE(E().Gewaehlt().NurCursor);
  EXPECT_NEAR(E().Gewaehlt().CursorPos, 5.0 * kSekunde, 30);
  EXPECT_EQ(E().Gewaehlt().MarkerEnde, 0);
  EXPECT_EQ(E().lblMarkerDelta.Caption(), L"0:00.0");
  Ziehe(mitte, Breite() / 4);
  EXPECT_FALSE(E().Gewaehlt().NurCursor);
  EXPECT_NEAR(E().Gewaehlt().MarkerAnfang, 2.5 * kSekunde, 30);
  EXPECT_NEAR(E().Gewaehlt().MarkerEnde, 5.0 * kSekunde, 30);
  EXPECT_EQ(E().lblMarkerDelta.Caption(), L"0:02:5");
  Ziehe(mitte, 10 * Breite());  // beyond the edge
  EXPECT_EQ(E().Gewaehlt().MarkerEnde, 10 * kSekunde);
  b.Tu([&] { E().cmdAuswahlAufheben_Click(); });
  EXPECT_FALSE(E().shpMarker.Visible());
  EXPECT_TRUE(E().Gewaehlt().NurCursor);
  EXPECT_EQ(E().Gewaehlt().CursorPos, 0);
  b.Tu([&] { E().picWave_DblClick(); });
  EXPECT_EQ(E().Gewaehlt().MarkerAnfang, 0);
  EXPECT_EQ(E().Gewaehlt().MarkerEnde, 10 * kSekunde);
}

TEST_F(WaveEditor, KeysMoveTheCursorAndDragTheRangeByPixelsAndWithinTheView) {
  Oeffne(441'000);
  b.platform.hands.Press(E().picWaveBack);
  const int breite = E().picWaveBack.Width, start = E().shpMarker.Left;
  EXPECT_NEAR(start, breite / 2, 15) << "a press hits the middle";
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
    taste(schritt.Taste, schritt.Mal);
    EXPECT_EQ(E().shpMarker.Left, schritt.Links) << schritt.Taste;
    EXPECT_EQ(E().shpMarker.Width, schritt.Breite) << schritt.Taste;
    EXPECT_EQ(E().Gewaehlt().NurCursor, schritt.Breite == 15) << schritt.Taste;
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
  const std::int32_t anfang = E().Gewaehlt().MarkerAnfang, ende = E().Gewaehlt().MarkerEnde;
  Druecke(E().imgZoom(1));  // zooms out at factor 1
  EXPECT_EQ(E().ZoomFaktor(), 1);
  for (const int faktor : {2, 4, 8, 16, 16}) {
    Druecke(E().imgZoom(0));
    EXPECT_EQ(E().ZoomFaktor(), faktor);
    EXPECT_EQ(Breite(), breite * faktor);
    EXPECT_EQ(E().Gewaehlt().MarkerAnfang, anfang);
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

TEST_F(WaveEditor, ASoundCardThatRefusesStopsThePlaying) {
  b.platform.card.Present = false;
  Oeffne(kSekunde);
  Druecke(E().imgSteuerung(0));
  Vergeht(500);
  EXPECT_FALSE(E().Spielt());
  EXPECT_TRUE(E().Window.Enabled());
  EXPECT_TRUE(b.Gesagt().empty());
}

TEST_F(WaveEditor, WindingMovesByHalfASecondAndFasterTheLongerItIsHeld) {
  b.platform.load.Present = false;  // keeps the load at its value
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
  EXPECT_EQ(E().CPULast(), 25);
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
  std::vector<bool> an(5);
  for (unsigned schritt = 1; schritt <= 64; ++schritt) {
    // In Gray code order, every combination of effects occurs by one press at a time.
    const auto welche = static_cast<std::size_t>(std::min(__builtin_ctz(schritt), 4));
    Druecke(E().imgEffekt(stufen[welche].Panel));
    Druecke(stufen[welche].Knopf);
    an[welche] = !an[welche];
    std::vector<const MMComponentX*> soll;
    for (std::size_t i = 5; i-- > 0;) {
      if (an[i]) soll.push_back(stufen[i].Stufe);
    }
    for (const MMComponentX* immer : {static_cast<MMComponentX*>(&E().Kette().DSP()),
                                      static_cast<MMComponentX*>(&E().Kette().Peak()),
                                      static_cast<MMComponentX*>(&E().Kette().MMPCMConverterX1()),
                                      static_cast<MMComponentX*>(&E().Kette().SourceFile())}) {
      soll.push_back(immer);
    }
    EXPECT_EQ(Weg(), soll);
    EXPECT_EQ(E().EffekteAktiv(), an[0] || an[2] || an[3] || an[4]);
  }
  Druecke(E().imgEffekt(5));
  EXPECT_EQ(Weg().size(), 4U);
  EXPECT_FALSE(E().EffekteAktiv());
}

TEST_F(WaveEditor, TheGateClosesWhenTheSoundHasBeenSoftForLongEnough) {
  Oeffne(kSekunde);
  // The gate reads the peaks of the chain's detector, so the sound is pulled through the chain.
  const auto puffer = [this](std::int16_t pegel) {
    struct Quelle final : MMComponentX {
      std::int16_t Pegel = 0;
      void Pull(MMData& data) override {
        data.Samples.fill(Pegel);
        data.Bytes = kBufferBytes;
      }
    } quelle;
    quelle.Pegel = pegel;
    E().Kette().MMPCMConverterX1().SetInput(&quelle);
    MMData data;
    E().Kette().DSP().Pull(data);
    E().Kette().MMPCMConverterX1().SetInput(&E().Kette().SourceFile());
    return data.Samples[0] == pegel && data.Samples[2047] == pegel;  // the gate let it pass
  };
  Setzen(E().slGaterThreshold, 1000);
  Setzen(E().slGaterAttack, 50);  // 2205 frames
  Druecke(E().imgEffekt(1));
  Druecke(E().imgGaterBypass);
  EXPECT_TRUE(puffer(999));   // starts counting
  EXPECT_TRUE(puffer(999));   // 1025 frames
  EXPECT_TRUE(puffer(999));   // 2049 frames
  EXPECT_FALSE(puffer(999));  // 3073 frames
  EXPECT_TRUE(E().LEDGaterAus.Visible());
  EXPECT_FALSE(puffer(500));
  EXPECT_TRUE(puffer(1000));  // exactly at the threshold
  EXPECT_TRUE(E().LEDGaterAn.Visible());
  Setzen(E().slGaterAttack, 0);
  EXPECT_TRUE(puffer(999));
  EXPECT_FALSE(puffer(999));
  Setzen(E().slGaterThreshold, 0);
  EXPECT_TRUE(puffer(0));
  Druecke(E().imgGaterBypass);
  EXPECT_FALSE(E().LEDGaterAn.Visible());
}

TEST_F(WaveEditor, ABoxThatIsOnlyPassedThroughLeavesItsSliderAlone) {
  Oeffne(kSekunde);
  const struct {
    int Panel;
    Slider& Schieber;
    TextBox& Feld;
    int Wert;
  } faelle[] = {{1, E().slGaterThreshold, E().txtGaterThreshold, 1000},
                {1, E().slVolume, E().txtVolume, 8192},
                {4, E().slFlangerRate, E().txtFlangerRate, 50}};
  for (const auto& fall : faelle) {
    Druecke(E().imgEffekt(fall.Panel));
    fall.Schieber.Value = fall.Wert;
    fall.Schieber.Change();
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

TEST_F(WaveEditor, AFileThatIsGoneOrNoWaveOpensEmpty) {
  for (const char* inhalt : {"", "no wave at all"}) {
    b.Datei(kDatei, inhalt);
    Oeffne();
    EXPECT_TRUE(E().Window.Enabled());
    EXPECT_EQ(E().lblMarkerEnde.Caption(), L"0:00.0");
    b.Antwortet(kNein);  // nothing to undo
    for (int i : {0, 1, 2, 6}) Druecke(E().imgSteuerung(i));
    Druecke(E().imgZoom(0));
    Vergeht(3000);
    EXPECT_FALSE(E().Spielt());
    b.prog.frmWaveEditor.Entladen();
  }
}

}  // namespace
}  // namespace vantora
