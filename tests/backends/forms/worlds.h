// The two worlds in which the model of windows and time stands, for tests that hold in both: a
// program without a screen, and real widgets on a screen that nobody sees.
#pragma once

#include <gtest/gtest.h>

#include "backends/forms/form_loop.h"
#include "tests/backends/full_form.h"

#include "platform/hands.h"

#include <memory>
#include <string>
#include <vector>

namespace vantora {

// The loop of a world, and hands in it.
class TestWorld {
 public:
  virtual ~TestWorld() = default;
  virtual FormLoop& Loop() = 0;
  virtual Hands& TheHands() = 0;
  virtual void Settle() {}  // throws what hands found when they acted later

  static std::unique_ptr<TestWorld> Make(const std::string& name);
};

class Worlds : public testing::TestWithParam<const char*> {
 protected:
  Worlds() {
    loop.TheUser = &person;
    loop.OnError = [this](const Laufzeitfehler& error) { errors.push_back(error.Nummer); };
  }

  // Shows the form and lets the person act until his story ends; what he meant to do last is done.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
    EXPECT_NO_THROW(world->Settle());
  }
  // What the hands say when they cannot do it; blank when they can.
  static std::string Refusal(const std::function<void()>& act) {
    try {
      act();
    } catch (const Unreachable& refused) {
      return refused.what();
    }
    return {};
  }

  const std::unique_ptr<TestWorld> world = TestWorld::Make(GetParam());
  FormLoop& loop = world->Loop();
  Hands& hands = world->TheHands();
  Person person;
  std::vector<int> errors;
};

}  // namespace vantora
