#include "mixer/fader.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_clock.h"
#include "backends/headless/headless_hands.h"
#include "backends/headless/headless_loop.h"

namespace vantora {

namespace {

class Pult : public testing::Test {
 protected:
  HeadlessClock clock;
  HeadlessLoop loop{clock};
  Form tisch{loop, L"Tisch"};
  Fader fader{tisch, L"Fader", 3};
};

}  // namespace

TEST_F(Pult, TheMuteBoxAndItsCaptionActAlikeAndOnlyWhenTheyMay) {
  HeadlessHands hands(loop);
  std::vector<int> gesagt;
  fader.Width = 900;
  fader.Height = 3690;
  fader.Enabled = true;
  fader.Change = [&] { gesagt.push_back(fader.Mute()); };
  fader.Refresh();
  loop.Show(tisch);
  fader.lblMute.Click();  // the box cannot be used yet
  fader.MuteEnabled = true;
  hands.Press(fader.Check1);
  hands.Press(fader.lblMute);
  EXPECT_EQ(gesagt, (std::vector<int>{1, 0}));
  EXPECT_EQ(fader.Check1.Value(), 0);
  fader.Mute = 1;
  EXPECT_EQ(fader.Check1.Value(), 1);
}

TEST_F(Pult, PropertiesAreKeptInTheirOrderAndDefaultsAreNotWritten) {
  PropertyBag leer, anders, voll;
  fader.UserControl_InitProperties();
  EXPECT_EQ(fader.lblCapt.Caption(), L"Mic");
  fader.UserControl_WriteProperties(leer);
  EXPECT_TRUE(leer.Content().empty());
  for (const wchar_t* name :
       {L"BackColor",   L"ForeColor",      L"Enabled",      L"Font",           L"BackStyle",
        L"BorderStyle", L"Description",    L"Level",        L"MaxValue",       L"Value",
        L"Mute",        L"DeviceTypeMUTE", L"DeviceIDMUTE", L"DeviceTypeMAIN", L"DeviceIDMAIN",
        L"MuteEnabled", L"Alignment",      L"Caption",      L"CaptionFader",   L"CaptionMute"}) {
    anders.WriteProperty(name, Text(name).ends_with(L"Enabled") ? L"True" : L"1", L"");
  }
  fader.UserControl_ReadProperties(anders);
  fader.UserControl_WriteProperties(voll);
  EXPECT_EQ(voll.Content(), anders.Content());
  EXPECT_EQ(fader.imgKnopf.Max(), 1);
  EXPECT_EQ(fader.Check1.Value(), 1);
}

}  // namespace vantora
