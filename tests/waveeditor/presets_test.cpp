#include "tests/waveeditor/editor_stage.h"

#include <array>
#include <random>

namespace vantora {
namespace {

enum : int { kEqualizer = 0, kLautstaerke = 1, kRestauration = 3, kFlanger = 4 };

class Presets : public ::testing::Test, protected EditorBuehne {
 protected:
  void ZeigePresets(int panel) {
    Druecke(E().imgEffekt(panel));
    PictureButton* const knoepfe[] = {&E().imgEQPresets, &E().imgVolumePresets, nullptr,
                                      &E().imgRestPresets, &E().imgFlangerPresets};
    Druecke(*knoepfe[panel]);
  }
  void Waehle(int zeile) { b.platform.hands.Select(E().lstPresets, {zeile}); }
  void Nenne(const Text& name) {
    b.platform.hands.Type(E().txtPresName, name);
    b.platform.hands.Key(E(), L"Return");
  }
  std::vector<Text> Namen() { return E().lstPresets.Items(); }
};

TEST_F(Presets, WhatTheProgramBringsIsThereWhereItsPlaceIsFree) {
  b.Setze(L"ZFXEQU1", L"Mío;1;1;1;1;1;1;1;1;1;1;0");
  Oeffne(1000);
  ZeigePresets(kEqualizer);
  EXPECT_EQ(Namen(), (std::vector<Text>{L"Sonido plano", L"Mío", L"Sonido claro"}));
  EXPECT_EQ(b.Einstellung(L"ZFXEQU0"), L"Sonido plano;0;0;0;0;0;0;0;0;0;0;0");
  EXPECT_EQ(b.Einstellung(L"ZFXFLA1"), L"Flanger espacial;83;33;49;70");
}

TEST_F(Presets, EachKindSetsItsControlsLightsItsPanelAndIsKeptAsItWas) {
  Oeffne(1000);
  const struct {
    int Panel;
    Text Platz, Werte;  // the key of the first free place, and what it gets
    Control &A, &B, &C;
    Text Zeigt;  // the values of the controls
  } faelle[] = {{kEqualizer, L"ZFXEQU3", L";-5;-4;-3;-2;-1;0;1;2;3;4;1", E().MMSliderX1(0),
                 E().MMSliderX1(9), E().chkLoudness, L"-5/4/1"},
                {kLautstaerke, L"ZFXVOL0", L";8192;0;12;30000;1", E().slVolume, E().slGaterAttack,
                 E().chkGateraktiv, L"8192/12/1"},
                {kRestauration, L"ZFXRES0", L";1;0;2;0;3;1", E().slDeclick, E().slDenoiser,
                 E().chkDecrackleAktiv, L"1/2/1"},
                {kFlanger, L"ZFXFLA3", L";4;30;50;7", E().slFlangerMix, E().slFlangerDepth,
                 E().slFlangerRate, L"4/50/7"}};
  for (const auto& fall : faelle) {
    SCOPED_TRACE(fall.Panel);
    b.Setze(fall.Platz, L"alt" + fall.Werte);
    ZeigePresets(fall.Panel);
    Waehle(static_cast<int>(Namen().size()));
    EXPECT_EQ(E().txtPresName.Text(), L"alt");
    const auto wert = [](const Control& control) { return control.Read(L"Value").value_or(L""); };
    EXPECT_EQ(wert(fall.A) + L"/" + wert(fall.B) + L"/" + wert(fall.C), fall.Zeigt);
    Nenne(L"neu");
    Text zweiter = fall.Platz;
    ++zweiter.back();
    EXPECT_EQ(b.Einstellung(zweiter), L"neu" + fall.Werte);
    if (fall.Panel != kLautstaerke && fall.Panel != kRestauration) continue;  // no switch
    EXPECT_EQ(E().imgEffekt(fall.Panel).Picture(), L"WAVEEFFEKTON_" + std::to_wstring(fall.Panel));
  }
  EXPECT_TRUE(E().EffekteAktiv());
  EXPECT_EQ(E().txtFlangerRate.Text(), L"0.3");  // the slider's handler has run
  EXPECT_EQ(E().imgLoudness.Picture(), L"WAVE_EQBUTT_ON");
  EXPECT_EQ(E().imgGaterBypass.Picture(), L"WAVE_VOLUMEBYPASS_ON");
  EXPECT_EQ(E().imgDecrackleByPass.Picture(), L"WAVE_RESTAURATIONBYPASS_ON");
  EXPECT_EQ(E().imgDeclickByPass.Picture(), L"WAVE_RESTAURATIONBYPASS_UNPRESSED");
}

TEST_F(Presets, ANameIsTakenOnceAndThereAreTenPlaces) {
  Oeffne(1000);
  ZeigePresets(kFlanger);
  for (const wchar_t* name : {L"flanger débil", L"", L"5", L"6", L"7", L"8", L"9", L"10"}) {
    Nenne(name);
  }
  EXPECT_EQ(Namen().size(), 10U);
  EXPECT_TRUE(b.Gesagt().empty());
  b.Antwortet(kNein);
  Nenne(L"uno más");
  EXPECT_TRUE(b.Gesagt().at(0).ends_with(L"(9)"));
  EXPECT_EQ(b.Einstellung(L"ZFXFLA10"), L"-");
}

// The store keeps gaps in its numbering, the list does not. A new preset gets the number after the
// list's length, even if another preset has that number.
TEST_F(Presets, AdditionsAndDeletionsAgreeWithAStoreOfTenPlaces) {
  constexpr int kSchritte = 250;
  Oeffne(1000);
  ZeigePresets(kLautstaerke);
  std::array<Text, 10> platz;
  std::mt19937 zufall(11);
  for (int i = 0; i < kSchritte; ++i) {
    const auto anzahl = static_cast<int>(Namen().size());
    if (anzahl < 10 && (anzahl == 0 || zufall() % 5 < 3)) {
      E().slGaterAttack.Value = i % 1000;
      E().txtPresName.Text = L"n" + std::to_wstring(i);
      b.Tu([&] { E().imgEddPres_MouseUp(0); });
      platz[static_cast<std::size_t>(anzahl)] = E().txtPresName.Text;
      // When it has replaced another preset, the list still shows both until it is read again.
      b.Tu([&] { E().InitPresets(); });
    } else {
      const int zeile = static_cast<int>(zufall() % static_cast<unsigned>(anzahl));
      E().lstPresets.ListIndex = zeile;
      b.Tu([&] { E().imgEddPres_MouseUp(1); });
      platz[static_cast<std::size_t>(zeile)].clear();
    }
    std::vector<Text> namen;
    std::copy_if(platz.begin(), platz.end(), std::back_inserter(namen),
                 [](const Text& name) { return !name.empty(); });
    ASSERT_EQ(Namen(), namen) << i;
    auto geschlossen = platz;
    for (std::size_t k = 0; k < 9; ++k) {
      if (geschlossen[k].empty()) std::swap(geschlossen[k], geschlossen[k + 1]);
    }
    for (std::size_t k = 0; k < 10; ++k) {
      const Text text = (*E().Presets().Inhalt())[k];
      ASSERT_EQ(text.substr(0, text.find(L';')), geschlossen[k]) << i;
    }
  }
  EXPECT_TRUE(b.Gesagt().empty());
}

TEST_F(Presets, ABrokenPresetGivesZerosForWordsAndAnErrorForWhatIsMissing) {
  b.Setze(L"ZFXRES0", L"roto;abc;1.4;99999;0;7");
  Oeffne(1000);
  ZeigePresets(kRestauration);
  b.Antwortet(kNein);
  Waehle(1);
  EXPECT_EQ(E().slDeclick.Value, 0);
  EXPECT_EQ(E().chkDeclickAktiv.Value, 1);
  EXPECT_EQ(E().slDenoiser.Value, 99);
  EXPECT_EQ(E().slDecrackle.Value, 7);
  EXPECT_TRUE(b.Gesagt().at(0).ends_with(L"(9)"));
  EXPECT_EQ(E().chkDecrackleAktiv.Value, 0);
}

}  // namespace
}  // namespace vantora
