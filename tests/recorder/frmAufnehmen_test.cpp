#include "recorder/frmAufnehmen.h"

#include "tests/recorder/aufnahme_stage.h"

namespace vantora {

namespace {

std::string Ton(int sekunden) {
  return test::Noise(static_cast<std::size_t>(sekunden) * 176400);
}

}  // namespace

class Aufnahme : public testing::Test, protected AufnahmeBuehne {};

TEST_F(Aufnahme, WhatEndsATakeLeavesItWholeAndSaysWhy) {
  const struct {
    const char* Name;
    std::function<void(AufnahmeBuehne&)> Stoerung;
    int Text;
  } faelle[] = {
      {"disk full", [](AufnahmeBuehne& t) { t.platte->Room = 10'000; }, 2043},
      {"under 20 MB", [](AufnahmeBuehne& t) { t.frei = 20971519; }, 2043},
      {"device gone", [](AufnahmeBuehne& t) { t.b.platform.input.Present = false; }, 30101},
      {"device gone whenever it is opened",
       [](AufnahmeBuehne& t) { t.b.platform.input.Fleeting = true; }, 30101},
      {"as long as a wave can be", [](AufnahmeBuehne& t) { t.A().GrenzeBytes = 176400 * 4; },
       30100},
      {"closed by the desktop", [](AufnahmeBuehne& t) { t.A().Form_Close(); }, 0},
  };
  for (const auto& fall : faelle) {
    SCOPED_TRACE(fall.Name);
    AufnahmeBuehne t;
    t.OeffneEinzeln();
    const std::string ton = Ton(20);
    t.Spiele(ton);
    t.Warte(100);
    t.Nimm(L"a.wav");
    t.Warte(3000);
    EXPECT_EQ(t.b.platform.inhibitor.Awake(), 1);
    // The file is a complete wave already, up to the last second.
    EXPECT_GT(t.Klang(L"a.wav").size(), 2U * 176400);
    t.b.Tu([&] { fall.Stoerung(t); });
    if (fall.Text != 0) t.b.Antwortet(kNein);
    t.Warte(4000);
    EXPECT_EQ(t.b.platform.inhibitor.Awake(), 0);
    const std::string klang = t.Klang(L"a.wav");
    EXPECT_GT(klang.size(), 2U * 176400);
    EXPECT_NE(ton.find(klang), std::string::npos);
    if (!t.b.prog.frmAufnehmen.Geladen()) continue;
    EXPECT_FALSE(t.A().NimmtAuf);
    EXPECT_TRUE(t.A().imgOkay.Enabled);
    EXPECT_EQ(t.A().Level1.PeakLeft == 0, !t.A().WaveIn->IsOpen());
    ASSERT_EQ(t.b.Gesagt().size(), 2U);
    EXPECT_EQ(t.b.Gesagt().back(), t.b.prog.Text(fall.Text));
    // When the fault is over, the window can be used again.
    t.platte->Room = INT64_MAX;
    t.frei = 1e12;
    t.b.platform.input.Present = true;
    t.b.platform.input.Fleeting = false;
    t.Nimm(L"b.wav", 2500);
    EXPECT_GT(t.Klang(L"b.wav").size(), 176400U);
    t.Druecke(t.A().imgOkay);
    EXPECT_EQ(t.b.prog.Katalog.size(), 3U);
    EXPECT_TRUE(t.b.Haupt().Window.Enabled);
  }
}

TEST_F(Aufnahme, TheRecordButtonInATakeBeginsTheNextWithoutAGap) {
  OeffneLP();
  Druecke(A().imgAufnehmen);
  const std::string ton = Ton(12);
  Spiele(ton);
  Warte(3000);
  // The window was busy before the press. Sound that is still waiting then is not lost.
  b.Tu([&] { b.platform.loop.Sleep(1000); });
  b.platform.clock.Advance(400);
  Druecke(A().imgAufnehmen);
  EXPECT_TRUE(A().NimmtAuf);
  Warte(3000);
  b.Tu([&] {
    b.platform.loop.Sleep(4000);
    A().imgRecordStop_MouseUp();
  });
  EXPECT_EQ(A().AufnahmeZahl, 2);
  const std::string erste = Klang(L"lp00.wav"), zweite = Klang(L"lp01.wav");
  EXPECT_GT(zweite.size(), 6U * 176400);
  EXPECT_NE(ton.find((erste + zweite).substr(erste.size() - 176400)), std::string::npos);
}

TEST_F(Aufnahme, AnInputOrADiskThatRefusesLeavesAWindowThatCanBeUsed) {
  for (const bool disk : {false, true}) {
    AufnahmeBuehne t;
    t.b.platform.input.Kept = !disk;
    t.OeffneEinzeln(disk ? 0 : 1);
    if (disk) t.platte->Room = 10;  // the header has no room
    t.b.WaehltDatei({Ort(L"a.wav")}).Antwortet(kNein);
    t.Druecke(t.A().imgAufnehmen);
    t.Warte(10);
    EXPECT_EQ(t.b.Gesagt().size(), disk ? 2U : 3U);
    for (std::size_t i = 1; i < t.b.Gesagt().size(); ++i) {
      EXPECT_TRUE(t.b.Gesagt()[i].starts_with(t.b.prog.Text(disk ? 2043 : 30102)));
    }
    EXPECT_EQ(t.A().AufnahmeZahl, 0);
    EXPECT_FALSE(t.Gibt(L"a.wav"));
    EXPECT_TRUE(t.A().imgOkay.Enabled);
    t.b.platform.input.Kept = false;
    t.platte->Room = INT64_MAX;
    t.Nimm(L"a.wav", 2500);
    EXPECT_TRUE(t.Gibt(L"a.wav"));
  }
}

TEST_F(Aufnahme, ATakeOfTwoSecondsEntersTheCatalogAndAShorterOneIsNamed) {
  OeffneEinzeln();
  for (const Text name : {L"a.wav", L"b.wav", L"c.wav"}) Nimm(name, 300);
  b.Wave(Ort(L"a.wav"), 88155);  // 1999 ms
  b.Wave(Ort(L"b.wav"), 88200);
  b.bundle.dateien.Kill(Ort(L"c.wav"));
  A().KatalogEintragÄndern(0);
  b.Antwortet(kNein);
  Druecke(A().imgOkay);
  EXPECT_EQ(b.Gesagt().back(),
            b.prog.Text(2056) + L" 1 " + b.prog.Text(2057) + L" a.wav " + b.prog.Text(2058));
  ASSERT_EQ(b.prog.Katalog.size(), 2U);
  EXPECT_EQ(b.prog.Katalog[1].Datei.Getrimmt(), Ort(L"b.wav"));
  EXPECT_EQ(b.prog.Katalog[1].Titel.Getrimmt(), b.prog.Text(2046));
  EXPECT_TRUE(Gibt(L"a.wav"));
}

TEST_F(Aufnahme, NamesAreAskedUntilOneServesAndNoFileIsLost) {
  const Text lang = Ort(Text(90, L'x'));
  b.Datei(Ort(L"alt.wav"), "old");
  b.Datei(Ort(L"lp01.wav"), "older");
  OeffneEinzeln();
  // The first name is too long; the second file exists and must be kept.
  b.WaehltDatei({lang}).Antwortet(kNein).WaehltDatei({Ort(L"alt")});
  b.Antwortet(kNein);
  Druecke(A().imgAufnehmen);
  EXPECT_EQ(b.Gesagt()[1], b.prog.Text(8085));
  EXPECT_EQ(b.Lies(Ort(L"alt.wav")), "old");
  Nimm(L"neu.wav", 500);
  // The first name is already in the list; then the dialog is cancelled.
  b.WaehltDatei({Ort(L"NEU.wav")}).Antwortet(kNein).WaehltDatei({});
  Druecke(A().imgNeueAufnahme);
  EXPECT_TRUE(b.Gesagt().back().starts_with(b.prog.Text(2039)));
  EXPECT_EQ(A().AufnahmeZahl, 1);
  // Several takes skip a file that the user has not agreed to replace.
  b.WaehltDatei({Ort(L"lp.wav")});
  Druecke(A().cbxMultiTrack);
  EXPECT_EQ(A().AufnahmeZahl, 0);
  for (int take = 0; take < 2; ++take) {
    Druecke(A().imgAufnehmen);
    Warte(700);
    Druecke(A().imgRecordStop);
  }
  EXPECT_EQ(b.Lies(Ort(L"lp01.wav")), "older");
  EXPECT_TRUE(Gibt(L"lp00.wav"));
  const std::string zweite = Klang(L"lp02.wav");
  EXPECT_FALSE(zweite.empty());
  // A take in the list is not replaced, although it has the next number.
  b.WaehltDatei({Ort(L"lp.wav")}).Antwortet(kJa);
  Druecke(A().imgNeueAufnahme);
  Druecke(A().imgAufnehmen);
  Warte(1500);
  EXPECT_TRUE(Klang(L"lp02.wav") == zweite);
  EXPECT_TRUE(Gibt(L"lp03.wav"));
}

TEST_F(Aufnahme, TakesThatBeginWhileANameIsAskedForKeepTheOneBefore) {
  b.Datei(Ort(L"lp00.wav"), "old");
  b.WaehltDatei({Ort(L"lp.wav")}).Antwortet(kNein);
  b.WaehltDatei({Ort(L"cd.wav")});
  b.Tu([&] { b.Haupt().imgLPKopieren_MouseUp(); });
  b.WaehltDatei({Ort(L"lp.wav")}).Antwortet(kJa);
  Druecke(A().imgNeueAufnahme);
  b.Datei(Ort(L"lp00.wav"), "old");
  Druecke(A().imgAufnehmen);
  const auto pause = [&] {
    Warte(7000);
    EXPECT_TRUE(A().Wartet);
  };
  pause();
  for (const bool gewaehlt : {false, true}) {
    b.Macht([&](Form& dialog) {
      Spiele(Ton(3));
      b.platform.loop.Sleep(7000);
      auto& fenster = dynamic_cast<frmLoadSave&>(dialog);
      if (gewaehlt) b.platform.hands.Type(fenster.txtDateiName, L"lp");
      b.platform.hands.Press(fenster.pbButton(gewaehlt ? 1 : 2));
    });
    Druecke(A().imgNeueAufnahme);
  }
  Spiele(Ton(3));
  pause();
  for (int i = 0; i < 4; ++i) {
    EXPECT_GT(Klang(L"lp0" + std::to_wstring(i) + L".wav").size(), 176400U) << i;
  }
  EXPECT_EQ(A().AufnahmeZahl, 4);
  // Without several takes the recorder waits for nothing, so the machine may sleep.
  Druecke(A().cbxMultiTrack);
  EXPECT_FALSE(A().Sitzung);
  EXPECT_EQ(b.platform.inhibitor.Awake(), 0);
}

TEST_F(Aufnahme, NeitherLostSoundNorABusyWindowCountsAsAPause) {
  OeffneLP();
  Druecke(A().imgAufnehmen);
  Spiele(Ton(3));
  Warte(3500);
  b.platform.input.Lose(5000);
  Warte(6000);
  EXPECT_TRUE(A().NimmtAuf);
  Warte(9000);
  EXPECT_TRUE(A().Wartet);
  // The next sound comes in time, and is handled later than the other side would be asked for.
  b.Tu([&] {
    Spiele(Ton(20));
    b.platform.loop.Sleep(10'000);
  });
  Warte(100);
  EXPECT_TRUE(b.Gesagt().empty());
  EXPECT_EQ(A().AufnahmeZahl, 2);
  // Sound that was lost without an error shows in the time.
  A().AufnahmeStart -= 5000;
  b.Antwortet(kNein);
  Druecke(A().imgRecordStop);
  EXPECT_TRUE(b.Gesagt().back().starts_with(b.prog.Text(30103) + L"2 / "));
}

TEST_F(Aufnahme, AThresholdBoxThatIsPassedThroughChangesNothing) {
  OeffneLP();
  const std::int32_t anfangs = A().Pegelschwelle;
  A().txtMaxVolume_LostFocus();
  EXPECT_EQ(A().Pegelschwelle, anfangs);
  A().txtMaxVolume.Text = L"50";
  A().txtMaxVolume_LostFocus();
  EXPECT_EQ(A().Pegelschwelle, 16384);
}

TEST_F(Aufnahme, AnInputLineIsChosenAndItsLevelOnlyEverTurnedDown) {
  HeadlessMixer& mixer = b.platform.mixer;
  OeffneEinzeln();
  Druecke(A().optInput(1));
  A().imgSliderKnopf(0).Value = 80;
  A().imgSliderKnopf_Change(0);
  EXPECT_NEAR(mixer.Find(L"Mic", true)->Volume, 65536 * 80 / 100, 1);
  // With both channels at full scale, every eleventh check turns the level down. In silence it
  // stays.
  Druecke(A().optAuto);
  Warte(3000);
  EXPECT_NEAR(mixer.Find(L"Mic", true)->Volume, 65536 * 80 / 100, 1);
  std::string voll(24 * 44100, '\0');
  for (std::size_t i = 0; i < voll.size(); ++i) voll[i] = "\xFF\x7F\xFF\x7F\x01\x80\x01\x80"[i % 8];
  Spiele(voll);
  Warte(8000);
  const int leiser = mixer.Find(L"Mic", true)->Volume;
  EXPECT_LT(leiser, 52429);
  EXPECT_EQ((52429 - leiser) % (134 * 90), 0) << leiser;
}

}  // namespace vantora
