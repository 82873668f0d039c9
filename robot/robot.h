// Plays a script as the user of the program. A line that acts runs when the program waits for its
// user, one line a turn, so that the program can respond in between. A line that only checks runs
// at once.
//
// The first line that cannot be done ends the script: the program is left as it is, and the error
// reads "SCRIPT:LINE: what was expected, what was found".
#pragma once

#include "robot/robot_scene.h"
#include "robot/robot_script.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vantora {

class Robot final : public User {
 public:
  // `name` is the script's name in messages; `folder` is the folder of its relative file names.
  // `out` receives the text of `echo` and, with `trace`, every line.
  Robot(std::string name, std::string folder, RobotStage& stage, std::ostream& out, bool trace);

  // Plays the script to its end; returns false when it failed, and `Error` gives the reason.
  bool Run(std::string_view script);
  const std::string& Error() const { return error_; }

  bool Act(Form* front) override;
  bool Resting() const override { return turns_.Resting(); }

 private:
  void Execute(const ScriptLine& line, Form* front);
  void Perform(const ScriptLine& line, Form* front);
  void Guard(const ScriptLine& line, const std::function<void()>& work);
  void Fail(const ScriptLine& line, const std::string& what);
  bool AtEnd(Form* front);
  void AfterTheProgram(const ScriptLine& line);
  void Tapped(const ScriptLine& line);

  // The commands that steer the run itself.
  void Start(const ScriptLine& line, Form* front);
  void Close(const ScriptLine& line, Form* front);
  void SayGoodbye(const ScriptLine& line, Form* front, int patience);
  void Wait(const ScriptLine& line, Form* front);
  void After(const ScriptLine& line, Form* front);
  void Within(const ScriptLine& line, Form* front);
  void Poll(const ScriptLine& line, Form* front, int leftMs);
  void AnswerAll(const ScriptLine& line, Form* front);
  void AnswerRest(const ScriptLine& line, Form* front, int patience);
  void Echo(const ScriptLine& line, Form* front);

  const std::string name_;
  RobotScene scene_;
  RobotTurns& turns_;
  std::ostream& out_;
  const bool trace_;

  std::vector<ScriptLine> lines_;
  std::size_t next_ = 0;                         // the line that runs next
  std::vector<const ScriptLine*> afterPending_;  // `after` lines that have not run yet
  std::optional<std::int64_t> beat_;  // end of the last wait, while only `key` and `wait` follow
  bool closing_ = false;              // `close` has pressed the exit button
  bool scriptEnded_ = false;          // the program asked for input after the last line
  Text lastFront_;                    // the window that was in front after the last line
  bool failed_ = false;
  std::string error_;
};

}  // namespace vantora
