#include "mixer/frmMixer.h"

#include "tests/recorder/aufnahme_stage.h"

namespace vantora {

namespace {

constexpr auto kAus = MixerCard::Role::Output, kEin = MixerCard::Role::Input;

// The captions of the visible faders, each with a blank before it; "-" for a hidden one.
Text Zu(frmMixer& mixer) {
  Text alle;
  for (int i = 0; i < frmMixer::kFader; ++i) {
    alle += L" " + (mixer.Fader(i).InSight() ? mixer.Fader(i).CaptionFader() : L"-");
  }
  return alle;
}

}  // namespace

TEST(Mixer, TheLineOfWavesStandsAtOneAndLinesThatAreNotThereAreHidden) {
  const struct {
    std::vector<Text> Aus, Ein;
    Text Faders;
  } faelle[] = {{{L"Line", L"CD", L"Wave"}, {L"Mic"}, L" Line Wave CD - - Mic - - - -"},
                {{}, {L"Mic"}, L" - Wave - - - Mic - - - -"},
                {{L"A", L"B", L"C", L"D", L"E"},
                 {L"f", L"g", L"h", L"i", L"j", L"k"},
                 L" A Wave B C D f g h i j"}};
  for (const auto& fall : faelle) {
    Buehne b;
    for (const Text& name : fall.Aus) b.platform.mixer.Put({name, kAus});
    for (const Text& name : fall.Ein) b.platform.mixer.Put({name, kEin});
    EXPECT_EQ(Zu(b.prog.frmMixer()), fall.Faders);
  }
}

TEST(Mixer, ACardThatComesOrGoesIsFoundWhenTheMixerOrTheRecorderOpens) {
  AufnahmeBuehne a;
  frmMixer& mixer = a.b.prog.frmMixer();
  const auto oeffnen = [&](bool karte) {
    mixer.imgCloseMixer_MouseUp();
    a.b.platform.mixer.Present = karte;
    mixer.Form_Activate();
    return Zu(mixer);
  };
  EXPECT_EQ(oeffnen(false), L" - - - - - - - - - -");
  EXPECT_FALSE(mixer.faderMasterOut.Visible());
  EXPECT_EQ(oeffnen(true), L" Line Wave CD - - Line Mic - - -");
  EXPECT_TRUE(mixer.faderMasterOut.Visible());
  EXPECT_EQ(mixer.Fader(0).Value(), 50);
  a.b.platform.mixer.Put({L"Gitarre", kEin, 1000});
  a.OeffneEinzeln();
  EXPECT_EQ(a.A().lbInputCaption(0).Caption(), L"Gitarre");
  EXPECT_FALSE(a.A().optInput(1).Visible());
}

}  // namespace vantora
