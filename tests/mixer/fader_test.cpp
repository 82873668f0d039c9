#include "mixer/fader.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_clock.h"
#include "backends/headless/headless_hands.h"
#include "backends/headless/headless_loop.h"

#include <string>

namespace vantora {

namespace {

class Pult : public testing::Test {
 protected:
  struct Tisch final : Form {
    explicit Tisch(EventLoop& loop) : Form(loop, L"Tisch") {}
    vantora::Fader Fader{*this, L"Fader", 3};
  };

  Pult() {
    fader.Width = 900;
    fader.Height = 3690;
    fader.Refresh();
    fader.Enabled = true;
    fader.Change = [this] { sagt += std::to_string(fader.Value()) + " "; };
    fader.MouseDown = [this](int taste) { sagt += "ab" + std::to_string(taste) + " "; };
    fader.MouseUp = [this](int taste) { sagt += "auf" + std::to_string(taste) + " "; };
    loop.Show(tisch);
  }

  HeadlessClock clock;
  HeadlessLoop loop{clock};
  HeadlessHands hands{loop};
  Tisch tisch{loop};
  Fader& fader = tisch.Fader;
  std::string sagt;
};

}  // namespace

TEST_F(Pult, TheMuteBoxAndItsCaptionActAlikeAndOnlyWhenTheyMay) {
  fader.Value = 7;
  sagt.clear();
  fader.lblMute.Click();
  EXPECT_EQ(sagt, "") << "the box cannot be used yet";
  fader.MuteEnabled = true;
  hands.Press(fader.Check1);
  EXPECT_EQ(fader.Mute(), 1);
  hands.Press(fader.lblMute);
  EXPECT_EQ(fader.Mute(), 0);
  EXPECT_EQ(fader.Check1.Value(), 0);
  EXPECT_EQ(sagt, "7 7 ");
  fader.Mute = 1;
  EXPECT_EQ(fader.Check1.Value(), 1);
}

TEST_F(Pult, PropertiesAreKeptInTheirOrderAndDefaultsAreNotWritten) {
  PropertyBag leer, voll;
  fader.UserControl_InitProperties();
  EXPECT_FALSE(fader.Enabled);
  EXPECT_EQ(fader.lblCapt.Caption(), L"Mic");
  fader.UserControl_WriteProperties(leer);
  EXPECT_TRUE(leer.Content().empty());

  const std::vector<Text> namen = {
      L"BackColor",   L"ForeColor",      L"Enabled",      L"Font",           L"BackStyle",
      L"BorderStyle", L"Description",    L"Level",        L"MaxValue",       L"Value",
      L"Mute",        L"DeviceTypeMUTE", L"DeviceIDMUTE", L"DeviceTypeMAIN", L"DeviceIDMAIN",
      L"MuteEnabled", L"Alignment",      L"Caption",      L"CaptionFader",   L"CaptionMute"};
  PropertyBag anders;
  for (const Text& name : namen) {
    const bool flag = name == L"Enabled" || name == L"MuteEnabled";
    anders.WriteProperty(name, flag ? L"True" : L"1", L"");
  }
  fader.UserControl_ReadProperties(anders);
  fader.UserControl_WriteProperties(voll);
  EXPECT_EQ(voll.Content(), anders.Content());
  EXPECT_EQ(fader.imgKnopf.Max(), 1);
  EXPECT_EQ(fader.Check1.Value(), 1);
}

}  // namespace vantora
