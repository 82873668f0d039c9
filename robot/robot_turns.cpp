#include "robot/robot_turns.h"

namespace vantora {

void RobotTurns::Then(const ScriptLine& line, Step step) {
  line_ = &line;
  steps_.push_back(std::move(step));
}

RobotTurns::Step RobotTurns::Take() {
  Step step = std::move(steps_.front());
  steps_.pop_front();
  return step;
}

void RobotTurns::Rest(int ms, std::function<void()> then) {
  resting_ = true;
  stage_.Loop().PostAfter(ms, [this, then = std::move(then)] {
    resting_ = false;
    if (then) then();
  });
}

}  // namespace vantora
