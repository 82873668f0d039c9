// What a person does with controls that lie in others, with the mouse on a picture and with a
// button that stays pressed: one story for the hands of every back end.
#pragma once

#include <gtest/gtest.h>

#include "tests/backends/full_form.h"

#include "platform/hands.h"

namespace vantora {

class HandsStory {
 public:
  HandsStory(FullForm& form, EventLoop& loop, Hands& hands)
      : form_(form), loop_(loop), hands_(&hands) {
    const auto note = [this](const std::string& what) {
      return [this, what](int button) {
        said_ += what + std::to_string(button) + "@" + std::to_string(form_.picWide.MouseX) + " ";
      };
    };
    form.picWide.MouseDown = note("down");
    form.picWide.MouseMove = note("move");
    form.picWide.MouseUp = note("up");
    form.picWide.DblClick = [note] { note("twice")(0); };
    form.chkInside.GotFocus = [this] { said_ += "inside "; };
    form.imgPlain.MouseUp = [this](int) { let_ = true; };
    form.imgPlain.MouseDown = [this](int) {
      for (; !let_ && turns_ < 100'000; ++turns_) loop_.DoEvents();
      said_ += let_ ? "let" : "stuck";
    };
    form.chkInside.TabIndex = form.txtName.TabIndex;  // and made later, so the next one
    form.sldFader.Upwards = true;
    form.sldPan.Logarithmic = true;
    form.sldPan.Max = 10'000;
  }

  void Tell(Person& person) {
    TellOfPlaces(person);
    TellOfContainers(person);
    person.Then([this] { hands_->Hold(form_.imgPlain, 400); })
        .Then([this] {
          EXPECT_EQ(Said(), "let") << "the release reaches a handler that turns";
          EXPECT_GT(turns_, 1);
          EXPECT_FALSE(hands_->Holding());
          hands_->Drag(form_.sldFader, 900, 250);
        })
        .Then([this] { hands_->Key(form_, L"PageUp"); })
        .Then([this] { hands_->Key(form_, L"Down"); })
        .Then([this] {
          EXPECT_EQ(form_.sldFader.Value, 84) << "75, a tenth more, one less";
          hands_->Drag(form_.sldPan, 0, 500);
        })
        .Then([this] {
          EXPECT_EQ(form_.sldPan.Value, 100) << "the root of the greatest";
          form_.knob.Value = 100;
          form_.knob.MouseUp = [this](int) { said_ += std::to_string(form_.knob.Value()) + " "; };
          hands_->PressAt(form_.knob, 20);
        })
        .Then([this] { hands_->Drag(form_.knob, 50, 500); })
        .Then([this] {
          EXPECT_EQ(Said(), "100 49 ")
              << "a click moves nothing, and what is gripped keeps its grip";
          hands_->Drag(form_.knob, 100, 900);
        })
        .Then([this] {
          EXPECT_EQ(Said(), "5 ") << "a press beside the knob brings its middle there";
        });
  }

 private:
  void TellOfPlaces(Person& person) {
    person.Then([this] { hands_->Drag(form_.picWide, 10, 30); })
        .Then([this] {
          EXPECT_EQ(Said(), "down1@480 move1@720 move1@960 move1@1200 move1@1440 up1@1440 ");
          EXPECT_NE(Refusal([this] { hands_->PressAt(form_.picWide, 500); }), "");
          form_.picWide.Left = -24'000;
        })
        .Then([this] { hands_->DoubleClickAt(form_.picWide, 500); })
        .Then([this] {
          EXPECT_EQ(Said(), "down1@24000 up1@24000 twice0@24000 up1@24000 ");
          EXPECT_NE(Refusal([this] { hands_->Drag(form_.picWide, 0, 500); }), "");
          form_.picWide.Left = -45'000;
        })
        .Then([this] { hands_->Press(form_.picWide); })
        .Then([this] {
          EXPECT_NEAR(form_.picWide.MouseX, 46'500, 15) << "the middle of what is seen";
          Said();
        });
  }

  void TellOfContainers(Person& person) {
    person
        .Then([this] {
          loop_.SetFocus(form_.txtName);
          hands_->Key(form_, L"Tab");
        })
        .Then([this] {
          EXPECT_EQ(Said(), "inside ");
          hands_->Press(form_.chkInside);
        })
        .Then([this] {
          EXPECT_EQ(form_.chkInside.Value, 1);
          loop_.SetFocus(form_.txtName);
          form_.shpBox.Enabled = false;
          EXPECT_NE(Refused().find("disabled"), std::string::npos);
          form_.shpBox.Enabled = true;
          form_.chkInside.Left = 3000;
          EXPECT_NE(Refused().find("out of sight"), std::string::npos);
          form_.shpBox.Visible = false;
          EXPECT_NE(Refused().find("hidden"), std::string::npos);
          hands_->Key(form_, L"Tab");
        })
        .Then([this] { EXPECT_EQ(Said(), "") << "hidden with its container"; });
  }

  std::string Said() { return std::exchange(said_, {}); }
  std::string Refused() {
    return Refusal([this] { hands_->Press(form_.chkInside); });
  }
  static std::string Refusal(const std::function<void()>& act) {
    try {
      act();
    } catch (const Unreachable& refused) {
      return refused.what();
    }
    return {};
  }

  FullForm& form_;
  EventLoop& loop_;
  Hands* hands_;
  std::string said_;
  bool let_ = false;
  int turns_ = 0;
};

}  // namespace vantora
