#include "mixer/frmMixer.h"

#include "tests/recorder/aufnahme_stage.h"

namespace vantora {

namespace {

constexpr auto kAus = MixerCard::Role::Output, kEin = MixerCard::Role::Input;

// The captions of the visible faders; "-" for a hidden one.
std::string Zu(frmMixer& mixer) {
  std::string alle;
  for (int i = 0; i < frmMixer::kFader; ++i) {
    const Text& name = mixer.Fader(i).CaptionFader();
    alle += mixer.Fader(i).InSight() ? std::string(name.begin(), name.end()) : "-";
    alle += i < frmMixer::kFader - 1 ? " " : "";
  }
  return alle;
}

}  // namespace

TEST(Mixer, TheLineOfWavesStandsAtOneAndLinesThatAreNotThereAreHidden) {
  struct Fall {
    std::vector<Text> Aus, Ein;
    bool Karte;
    std::string Faders;
  };
  const Fall faelle[] = {
      {{L"Line", L"CD", L"Wave"}, {L"Mic"}, true, "Line Wave CD - - Mic - - - -"},
      {{}, {L"Mic"}, true, "- Wave - - - Mic - - - -"},
      {{L"A", L"B"}, {}, true, "A Wave B - - - - - - -"},
      {{L"A", L"B", L"C", L"D", L"E"},
       {L"f", L"g", L"h", L"i", L"j", L"k"},
       true,
       "A Wave B C D f g h i j"},
      {{}, {}, false, "- - - - - - - - - -"}};
  for (const Fall& fall : faelle) {
    Buehne b;
    for (const Text& name : fall.Aus) b.platform.mixer.Put({name, kAus});
    for (const Text& name : fall.Ein) b.platform.mixer.Put({name, kEin});
    b.platform.mixer.Present = fall.Karte;
    frmMixer& mixer = b.prog.frmMixer();
    EXPECT_EQ(Zu(mixer), fall.Faders);
    EXPECT_EQ(mixer.faderMasterOut.Visible(), fall.Karte);
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
  EXPECT_EQ(oeffnen(false), "- - - - - - - - - -");
  EXPECT_FALSE(mixer.faderMasterOut.Visible());
  EXPECT_EQ(oeffnen(true), "Line Wave CD - - Line Mic - - -");
  EXPECT_TRUE(mixer.faderMasterOut.Visible());
  EXPECT_EQ(mixer.Fader(0).Value(), 50);
  a.b.platform.mixer.Put({L"Gitarre", kEin, 1000});
  a.OeffneEinzeln();
  EXPECT_EQ(a.A().lbInputCaption(0).Caption(), L"Gitarre");
  EXPECT_FALSE(a.A().optInput(1).Visible());
}

TEST(Mixer, WithoutALineOfWavesThePreviewAsksForTheProgramsOwnVolume) {
  Buehne b;
  b.platform.mixer.Put({L"Line", kAus, 20000});
  b.Start();
  b.Katalog({L"a"});
  b.platform.volume.SetVolume(4000);
  b.platform.volume.SetOn(false);
  b.Antwortet(kJa).Antwortet(kJa);
  b.Waehle(1);
  b.Tu([&] { b.Haupt().imgAbspielen_MouseUp(); });
  ASSERT_EQ(b.Gesagt().size(), 2U);
  EXPECT_TRUE(b.platform.volume.On());
  EXPECT_EQ(b.platform.volume.Volume(), 32768);
  EXPECT_EQ(b.platform.mixer.Find(L"Line")->Volume, 20000);
}

}  // namespace vantora
