// The desktop's loop and hands on a stage.
#pragma once

#include <gtest/gtest.h>

#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/loop/qt_hands.h"
#include "tests/backends/full_form.h"

#include <string>
#include <vector>

namespace vantora {

class Stage : public testing::Test {
 protected:
  Stage() {
    loop.TheUser = &person;
    loop.OnError = [this](const Laufzeitfehler& error) { errors.push_back(error.what()); };
  }

  // Shows the form and lets the person act until his story ends; what he meant to do last is done.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
    EXPECT_NO_THROW(hands.Settle());
  }

  QtEventLoop loop{"", {}, 20};  // no pictures, and time that runs 20 times as fast
  QtHands hands{loop};
  Person person;
  std::vector<std::string> errors;
};

}  // namespace vantora
