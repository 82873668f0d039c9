#include "recorder/frmAufnehmen.h"

#include <gtest/gtest.h>

#include "tests/recorder/aufnahme_stage.h"

namespace vantora {

namespace {

std::string Ton(int sekunden) {
  return test::Noise(static_cast<std::size_t>(sekunden) * 176400);
}

}  // namespace

TEST(Aufnahme, AGrowingTakeHasATrueHeaderEverySecond) {
  AufnahmeBuehne t;
  t.OeffneEinzeln();
  t.Spiele(Ton(20));
  t.Nimm(L"a.wav");
  for (int ms = 1500; ms < 9000; ms += 500) {
    t.Warte(500);
    // A program that opens the file after a kill must find a valid header.
    const auto wave = t.b.bundle.mmtools.NewWaveFile();
    wave->Open(AufnahmeBuehne::Ort(L"a.wav"));
    const std::int64_t fehlt =
        static_cast<std::int64_t>(t.b.Lies(AufnahmeBuehne::Ort(L"a.wav")).size()) - 44 -
        wave->DataBytes();
    EXPECT_LT(fehlt, 176400) << ms;
    EXPECT_GT(wave->DataBytes(), (ms - 2300) * 176) << ms;
  }
}

TEST(Aufnahme, WhatEndsATakeLeavesItWholeAndSaysWhy) {
  struct Fall {
    const char* Name;
    std::function<void(AufnahmeBuehne&)> Stoerung;
    int Text;
  };
  const Fall faelle[] = {
      {"disk full", [](AufnahmeBuehne& t) { t.platte->Room = 10'000; }, 2043},
      {"under 20 MB", [](AufnahmeBuehne& t) { t.frei = 20971519; }, 2043},
      {"device gone", [](AufnahmeBuehne& t) { t.b.platform.input.Present = false; }, 30101},
      {"as long as a wave can be", [](AufnahmeBuehne& t) { t.A().GrenzeBytes = 176400 * 4; },
       30100},
  };
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.Name);
    AufnahmeBuehne t;
    t.OeffneEinzeln();
    const std::string ton = Ton(20);
    t.Spiele(ton);
    t.Warte(100);
    t.Nimm(L"a.wav");
    t.Warte(3000);
    EXPECT_EQ(t.b.platform.inhibitor.Awake(), 1);
    fall.Stoerung(t);
    t.b.Antwortet(kNein);
    t.Warte(4000);
    EXPECT_FALSE(t.A().NimmtAuf);
    EXPECT_TRUE(t.A().imgOkay.Enabled);
    EXPECT_EQ(t.b.platform.inhibitor.Awake(), 0);
    ASSERT_EQ(t.b.Gesagt().size(), 2U);
    EXPECT_EQ(t.b.Gesagt().back(), t.b.prog.Text(fall.Text));
    const std::string klang = t.Klang(L"a.wav");
    EXPECT_GT(klang.size(), 2U * 176400);
    EXPECT_NE(ton.find(klang), std::string::npos);
    // When the fault is over, the window can be used again.
    t.platte->Room = INT64_MAX;
    t.frei = 1e12;
    t.b.platform.input.Present = true;
    t.Nimm(L"b.wav", 2500);
    EXPECT_GT(t.Klang(L"b.wav").size(), 176400U);
    t.Druecke(t.A().imgOkay);
    EXPECT_EQ(t.b.prog.Katalog.size(), 3U);
    EXPECT_TRUE(t.b.Haupt().Window.Enabled);
  }
}

TEST(Aufnahme, ADeviceThatIsGoneWheneverItIsOpenedIsReportedOnce) {
  AufnahmeBuehne t;
  t.OeffneEinzeln();
  t.Nimm(L"a.wav");
  t.Warte(1000);
  t.b.platform.input.Fleeting = true;
  for (int i = 0; i < 3; ++i) t.b.Antwortet(kNein);
  t.Warte(2000);
  EXPECT_EQ(t.b.Gesagt().size(), 2U);  // the first message asked about several takes
  EXPECT_TRUE(t.A().imgOkay.Enabled);
}

TEST(Aufnahme, AFileThatHasNoRoomForItsHeaderIsTakenAway) {
  AufnahmeBuehne t;
  t.OeffneEinzeln();
  t.platte->Room = 10;
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"a.wav")}).Antwortet(kNein);
  t.Druecke(t.A().imgAufnehmen);
  t.Warte(10);
  EXPECT_EQ(t.b.Gesagt().back(), t.b.prog.Text(2043));
  EXPECT_FALSE(t.Gibt(L"a.wav"));
  EXPECT_EQ(t.A().AufnahmeZahl, 0);
}

TEST(Aufnahme, TheRecordButtonInATakeBeginsTheNextWithoutAGap) {
  AufnahmeBuehne t;
  t.OeffneLP();
  t.Druecke(t.A().imgAufnehmen);
  const std::string ton = Ton(12);
  t.Spiele(ton);
  t.Warte(3000);
  // The window was busy before the press. Sound that is still waiting then is not lost.
  t.b.Tu([&] { t.b.platform.loop.Sleep(1000); });
  t.b.platform.clock.Advance(400);
  t.Druecke(t.A().imgAufnehmen);
  EXPECT_TRUE(t.A().NimmtAuf);
  t.Warte(3000);
  t.Druecke(t.A().imgRecordStop);
  EXPECT_EQ(t.A().AufnahmeZahl, 2);
  const std::string erste = t.Klang(L"lp00.wav"), zweite = t.Klang(L"lp01.wav");
  EXPECT_GT(zweite.size(), 2U * 176400);
  EXPECT_NE(ton.find((erste + zweite).substr(erste.size() - 176400)), std::string::npos);
}

TEST(Aufnahme, AnInputThatRefusesLeavesAWindowThatCanBeUsed) {
  AufnahmeBuehne t;
  t.b.platform.input.Kept = true;
  t.OeffneEinzeln(1);
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"a.wav")}).Antwortet(kNein);
  t.Druecke(t.A().imgAufnehmen);
  t.Warte(10);
  ASSERT_EQ(t.b.Gesagt().size(), 3U);
  for (const std::size_t i : {1U, 2U})
    EXPECT_TRUE(t.b.Gesagt()[i].starts_with(t.b.prog.Text(30102)));
  EXPECT_EQ(t.A().AufnahmeZahl, 0);
  EXPECT_FALSE(t.Gibt(L"a.wav"));
  EXPECT_TRUE(t.A().imgOkay.Enabled);
  t.b.platform.input.Kept = false;
  t.Nimm(L"a.wav", 2500);
  EXPECT_TRUE(t.Gibt(L"a.wav"));
}

TEST(Aufnahme, ATakeOfTwoSecondsEntersTheCatalogAndAShorterOneIsNamed) {
  AufnahmeBuehne t;
  t.OeffneEinzeln();
  for (const Text name : {L"a.wav", L"b.wav", L"c.wav"}) t.Nimm(name, 300);
  t.b.Wave(AufnahmeBuehne::Ort(L"a.wav"), 88155);  // 1999 ms
  t.b.Wave(AufnahmeBuehne::Ort(L"b.wav"), 88200);
  t.b.bundle.dateien.Kill(AufnahmeBuehne::Ort(L"c.wav"));
  t.A().KatalogEintragÄndern(0);
  t.b.Antwortet(kNein);
  t.Druecke(t.A().imgOkay);
  EXPECT_EQ(t.b.Gesagt().back(),
            t.b.prog.Text(2056) + L" 1 " + t.b.prog.Text(2057) + L" a.wav " + t.b.prog.Text(2058));
  ASSERT_EQ(t.b.prog.Katalog.size(), 2U);
  EXPECT_EQ(t.b.prog.Katalog[1].Datei.Getrimmt(), AufnahmeBuehne::Ort(L"b.wav"));
  EXPECT_EQ(t.b.prog.Katalog[1].Titel.Getrimmt(), t.b.prog.Text(2046));
  EXPECT_TRUE(t.Gibt(L"a.wav"));
}

TEST(Aufnahme, NamesAreAskedUntilOneServesAndNoFileIsLost) {
  AufnahmeBuehne t;
  const Text lang = AufnahmeBuehne::Ort(Text(90, L'x'));
  t.b.Datei(AufnahmeBuehne::Ort(L"alt.wav"), "old");
  t.b.Datei(AufnahmeBuehne::Ort(L"lp01.wav"), "older");
  t.OeffneEinzeln();
  // The first name is too long; the second file exists and must be kept.
  t.b.WaehltDatei({lang}).Antwortet(kNein).WaehltDatei({AufnahmeBuehne::Ort(L"alt")});
  t.b.Antwortet(kNein);
  t.Druecke(t.A().imgAufnehmen);
  EXPECT_EQ(t.b.Gesagt()[1], t.b.prog.Text(8085));
  EXPECT_EQ(t.b.Lies(AufnahmeBuehne::Ort(L"alt.wav")), "old");
  EXPECT_FALSE(t.A().NimmtAuf);
  t.Nimm(L"neu.wav", 500);
  // The first name is already in the list; then the dialog is cancelled.
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"NEU.wav")}).Antwortet(kNein).WaehltDatei({});
  t.Druecke(t.A().imgNeueAufnahme);
  EXPECT_TRUE(t.b.Gesagt().back().starts_with(t.b.prog.Text(2039)));
  EXPECT_EQ(t.A().AufnahmeZahl, 1);
  // Several takes skip a file that the user has not agreed to replace.
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"lp.wav")});
  t.Druecke(t.A().cbxMultiTrack);
  EXPECT_EQ(t.A().AufnahmeZahl, 0);
  for (int take = 0; take < 2; ++take) {
    t.Druecke(t.A().imgAufnehmen);
    t.Warte(700);
    t.Druecke(t.A().imgRecordStop);
  }
  EXPECT_EQ(t.b.Lies(AufnahmeBuehne::Ort(L"lp01.wav")), "older");
  EXPECT_TRUE(t.Gibt(L"lp00.wav"));
  const std::string zweite = t.Klang(L"lp02.wav");
  EXPECT_FALSE(zweite.empty());
  // A take in the list is not replaced, although it has the next number.
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"lp.wav")}).Antwortet(kJa);
  t.Druecke(t.A().imgNeueAufnahme);
  t.Druecke(t.A().imgAufnehmen);
  t.Warte(1500);
  t.Druecke(t.A().imgRecordStop);
  EXPECT_TRUE(t.Klang(L"lp02.wav") == zweite);
  EXPECT_TRUE(t.Gibt(L"lp03.wav"));
}

TEST(Aufnahme, TakesThatBeginWhileANameIsAskedForKeepTheOneBefore) {
  AufnahmeBuehne t;
  t.b.Datei(AufnahmeBuehne::Ort(L"lp00.wav"), "old");
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"lp.wav")}).Antwortet(kNein);
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"cd.wav")});
  t.b.Tu([&] { t.b.Haupt().imgLPKopieren_MouseUp(); });
  t.b.WaehltDatei({AufnahmeBuehne::Ort(L"lp.wav")}).Antwortet(kJa);
  t.Druecke(t.A().imgNeueAufnahme);
  t.b.Datei(AufnahmeBuehne::Ort(L"lp00.wav"), "old");
  t.Druecke(t.A().imgAufnehmen);
  const auto pause = [&] {
    t.Warte(7000);
    EXPECT_TRUE(t.A().Wartet);
  };
  pause();
  for (const bool gewaehlt : {false, true}) {
    t.b.Macht([&](Form& dialog) {
      t.Spiele(Ton(3));
      t.b.platform.loop.Sleep(7000);
      auto& fenster = dynamic_cast<frmLoadSave&>(dialog);
      if (gewaehlt) t.b.platform.hands.Type(fenster.txtDateiName, L"lp");
      t.b.platform.hands.Press(fenster.pbButton(gewaehlt ? 1 : 2));
    });
    t.Druecke(t.A().imgNeueAufnahme);
  }
  t.Spiele(Ton(3));
  pause();
  for (int i = 0; i < 4; ++i) {
    EXPECT_GT(t.Klang(L"lp0" + std::to_wstring(i) + L".wav").size(), 176400U) << i;
  }
  EXPECT_EQ(t.A().AufnahmeZahl, 4);
  // Without several takes the recorder waits for nothing, so the machine may sleep.
  t.Druecke(t.A().cbxMultiTrack);
  EXPECT_FALSE(t.A().Sitzung);
  EXPECT_EQ(t.b.platform.inhibitor.Awake(), 0);
}

TEST(Aufnahme, TheOtherSideIsAskedForOnlyWhenARecordIsCopied) {
  AufnahmeBuehne t;
  t.b.Antwortet(kJa).WaehltDatei({AufnahmeBuehne::Ort(L"lp.wav")});
  t.b.Tu([&] { t.b.Haupt().imgLPAufnehmen_MouseUp(); });
  const std::size_t vorher = t.b.Gesagt().size();
  t.Druecke(t.A().imgAufnehmen);
  for (int take = 0; take < 2; ++take) {
    t.Spiele(Ton(3));
    t.Warte(25'000);
  }
  EXPECT_EQ(t.b.Gesagt().size(), vorher);
  EXPECT_EQ(t.A().AufnahmeZahl, 2);
  EXPECT_TRUE(t.A().Wartet);
}

TEST(Aufnahme, TheDesktopsCloseButtonEndsTheTakeWhole) {
  AufnahmeBuehne t;
  t.OeffneEinzeln();
  t.Spiele(Ton(5));
  t.Nimm(L"a.wav");
  t.Warte(2000);
  t.b.Tu([&] { t.A().Form_Close(); });
  EXPECT_FALSE(t.b.prog.frmAufnehmen.Geladen());
  EXPECT_TRUE(t.b.Haupt().Window.Enabled);
  EXPECT_GT(t.Klang(L"a.wav").size(), 176400U);
  EXPECT_EQ(t.b.prog.Katalog.size(), 1U);
  EXPECT_EQ(t.b.platform.inhibitor.Awake(), 0);
}

TEST(Aufnahme, AThresholdBoxThatIsPassedThroughChangesNothing) {
  AufnahmeBuehne t;
  t.OeffneLP();
  const std::int32_t anfangs = t.A().Pegelschwelle;
  t.A().txtMaxVolume_LostFocus();
  EXPECT_EQ(t.A().Pegelschwelle, anfangs);
  t.A().txtMaxVolume.Text = L"50";
  t.A().txtMaxVolume_LostFocus();
  EXPECT_EQ(t.A().Pegelschwelle, 16384);
}

TEST(Aufnahme, AnInputLineIsChosenAndItsLevelOnlyEverTurnedDown) {
  AufnahmeBuehne t;
  HeadlessMixer& mixer = t.b.platform.mixer;
  t.OeffneEinzeln();
  t.Druecke(t.A().optInput(1));
  EXPECT_FALSE(mixer.Find(L"Line", true)->On);
  t.A().imgSliderKnopf(0).Value = 80;
  t.A().imgSliderKnopf_Change(0);
  EXPECT_NEAR(mixer.Find(L"Mic", true)->Volume, 65536 * 80 / 100, 1);
  // With both channels at full scale, every eleventh check turns the level down. In silence it
  // stays.
  t.Druecke(t.A().optAuto);
  t.Warte(3000);
  EXPECT_NEAR(mixer.Find(L"Mic", true)->Volume, 65536 * 80 / 100, 1);
  std::vector<std::int16_t> voll(12 * 44100, 32767);
  for (std::size_t i = 0; i < voll.size(); ++i) {
    if (i % 4 > 1) voll[i] = -32767;
  }
  t.Spiele(test::BytesOf(voll));
  t.Warte(8000);
  const int leiser = mixer.Find(L"Mic", true)->Volume;
  EXPECT_LT(leiser, 52429);
  EXPECT_EQ((52429 - leiser) % (134 * 90), 0) << leiser;
}

}  // namespace vantora
