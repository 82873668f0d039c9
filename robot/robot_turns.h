// Holds the work that the lines of a script leave to later turns of the program: the remaining
// steps of the running line, and pauses in which the robot does nothing.
#pragma once

#include "robot/robot_script.h"
#include "robot/robot_stage.h"

#include <deque>
#include <functional>

namespace vantora {

class RobotTurns {
 public:
  using Step = std::function<void(Form* front)>;

  explicit RobotTurns(RobotStage& stage) : stage_(stage) {}

  // Appends a step of this line, which lives as long as the script. Steps run one a turn, before
  // the next line.
  void Then(const ScriptLine& line, Step step);
  bool Pending() const { return !steps_.empty(); }
  const ScriptLine& Line() const { return *line_; }  // the line of the pending steps
  Step Take();  // removes the next step; it may append others while it runs
  void Clear() { steps_.clear(); }

  // The robot does nothing for so many ms of the program's clock. `then` runs at the end of the
  // pause.
  void Rest(int ms, std::function<void()> then = {});
  void RestOver() { resting_ = false; }
  bool Resting() const { return resting_; }

 private:
  RobotStage& stage_;
  std::deque<Step> steps_;
  const ScriptLine* line_ = nullptr;
  bool resting_ = false;
};

}  // namespace vantora
