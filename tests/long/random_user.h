// A user who does anything that can be done: uses a random control of the window in front in a
// random way, answers every question at random, also while the program works, changes discs, and
// now and then does nothing. After its deeds it goes back to the main window and leaves the
// program.
#pragma once

#include "robot/robot_stage.h"
#include "tests/long/dice.h"

#include <functional>
#include <map>
#include <ostream>
#include <string>

namespace vantora::test {

class RandomUser final : public User {
 public:
  // Each deed is a line of `diary`, written before it is done.
  RandomUser(RobotStage& stage, std::ostream& diary) : stage_(stage), diary_(diary) {}

  // Comes before each start of the program. `fond` is the button of the main window whose window
  // the user opens again and again and does not close, or blank.
  void Begin(Dice& dice, int deeds, const Text& fond);
  bool Act(Form* front) override;
  bool Resting() const override { return resting_; }

  // Called between two deeds.
  std::function<void()> OnDeed = [] {};

  int Deeds() const { return done_; }                                   // since the beginning
  const std::map<Text, int>& Windows() const { return seen_; }          // deeds in each window
  const std::map<std::string, int>& Errors() const { return errors_; }  // of the program's handlers
  const std::string& Failure() const { return failure_; }  // blank, or why the program stayed open
  std::int64_t ProgramMs() const { return programMs_; }    // of the program's clock, of all starts

 private:
  void Listen();
  void Rest(int ms);
  void Do(const std::string& what, const std::function<void(Hands&)>& deed);

  void AnyDeed(Form& front);
  void Use(Form& form);
  void UseControl(Control& control);
  void Press(Control& control, int ways);
  void Select(Control& control, int rows);
  void UseList(Control& control, int rows);
  void UseCatalog(Form& form);
  void Strike(Form& form);
  void Answer(Form& box);
  void ChooseFile(Form& dialog);
  void ChooseMenu(Form& form);
  void LaterToo();
  void Machine();
  void ChangeDisc();
  void Spoil();
  void ChangeWriter();
  void LookElsewhere();
  void GoHome(Form* front);

  RobotStage& stage_;
  std::ostream& diary_;
  Dice* dice_ = nullptr;
  Text fond_;
  int left_ = 0, done_ = 0, patience_ = 0;
  bool resting_ = false, fresh_ = false;
  bool menuNext_ = false;  // a click has probably opened a menu
  std::int64_t lastMs_ = 0, programMs_ = 0;
  std::map<Text, int> seen_;
  std::map<std::string, int> errors_;
  std::string failure_;
};

}  // namespace vantora::test
