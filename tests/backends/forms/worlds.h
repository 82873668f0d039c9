// Runs a test in both worlds of the model of windows and time: without a screen, and with real
// widgets on an off-screen display.
#pragma once

#include <gtest/gtest.h>

#include "backends/forms/form_loop.h"
#include "tests/backends/full_form.h"

#include "platform/hands.h"

#include <memory>

namespace vantora {

// The loop and the hands of one world.
class TestWorld {
 public:
  virtual ~TestWorld() = default;
  virtual FormLoop& Loop() = 0;
  virtual Hands& TheHands() = 0;
  virtual void Settle() {}  // throws the error of an action that failed after its call
};

// Each is in a file of its own, and the programs that can hold it run the tests in it.
std::unique_ptr<TestWorld> MakeWorldWithoutScreen();
std::unique_ptr<TestWorld> MakeWorldWithWidgets();

class Worlds : public testing::TestWithParam<std::unique_ptr<TestWorld> (*)()> {
 protected:
  Worlds() {
    loop.TheUser = &person;
    loop.OnError = [this](const Laufzeitfehler& error) { errors.push_back(error.Nummer); };
  }

  // Shows the form and runs the loop until the person has performed all steps. The test fails if
  // the last action failed after its call.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
    EXPECT_NO_THROW(world->Settle());
  }

  const std::unique_ptr<TestWorld> world = GetParam()();
  FormLoop& loop = world->Loop();
  Hands& hands = world->TheHands();
  Person person;
  std::vector<int> errors;
};

}  // namespace vantora
