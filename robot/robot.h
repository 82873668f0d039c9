// Plays a script in front of the program. A line that acts runs when the program waits for its
// user, one line a turn, so that the program can respond in between. A line that only looks runs at
// once.
//
// The first line that cannot be done ends the script: the program is left as it is, and the error
// reads "SCRIPT:LINE: what was expected, what was found".
#pragma once

#include "robot/robot_script.h"
#include "robot/robot_stage.h"

#include <deque>
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
  bool Resting() const override { return resting_; }

 private:
  using Step = std::function<void(Form* front)>;
  using Command = void (Robot::*)(const ScriptLine&, Form*);

  static Command Find(const Text& verb);
  void Execute(const ScriptLine& line, Form* front);
  void Guard(const ScriptLine& line, const std::function<void()>& work);
  void Fail(const ScriptLine& line, const std::string& what);
  bool AtEnd(Form* front);
  void AfterTheProgram(const ScriptLine& line);
  void Rest(int ms);
  void Tapped(const ScriptLine& line);
  void Then(const ScriptLine& line, Step step);

  Form& FindForm(const Text& name) const;
  Control& FindControl(const Target& target) const;
  Text ReadTarget(const Target& target) const;
  std::string HostPath(const Text& name) const;
  Text ProductPath(const Text& name) const;

  void WalkTo(const ScriptLine& line, Form* front);
  void ChooseFiles(const ScriptLine& line, Form* front);
  void PressAnswer(Form* front, int answer);
  void AwaitRelease(const ScriptLine& line);
  void SayGoodbye(const ScriptLine& line, Form* front, int patience);
  void Poll(const ScriptLine& line, Form* front, int leftMs);

  // One procedure for each command, in the order of docs/robot.md.
  void Home(const ScriptLine& line, Form* front);
  void Screen(const ScriptLine& line, Form* front);
  void Colours(const ScriptLine& line, Form* front);
  void Sound(const ScriptLine& line, Form* front);
  void ClockAt(const ScriptLine& line, Form* front);
  void Setting(const ScriptLine& line, Form* front);
  void Copy(const ScriptLine& line, Form* front);
  void MakeWave(const ScriptLine& line, Form* front);
  void MakePicture(const ScriptLine& line, Form* front);
  void MakeMp3(const ScriptLine& line, Form* front);
  void WriteFile(const ScriptLine& line, Form* front);
  void Delete(const ScriptLine& line, Form* front);
  void Start(const ScriptLine& line, Form* front);
  void Press(const ScriptLine& line, Form* front);
  void DoubleClick(const ScriptLine& line, Form* front);
  void RightClick(const ScriptLine& line, Form* front);
  void Drag(const ScriptLine& line, Form* front);
  void Pull(const ScriptLine& line, Form* front);
  void Hold(const ScriptLine& line, Form* front);
  void Drop(const ScriptLine& line, Form* front);
  void Type(const ScriptLine& line, Form* front);
  void Select(const ScriptLine& line, Form* front);
  void Key(const ScriptLine& line, Form* front);
  void MenuItem(const ScriptLine& line, Form* front);
  void Choose(const ScriptLine& line, Form* front);
  void Answer(const ScriptLine& line, Form* front);
  void WindowClose(const ScriptLine& line, Form* front);
  void Close(const ScriptLine& line, Form* front);
  void Expect(const ScriptLine& line, Form* front);
  void ExpectBox(const ScriptLine& line, Form* front);
  void ExpectWindow(const ScriptLine& line, Form* front);
  void ExpectFile(const ScriptLine& line, Form* front);
  void Wait(const ScriptLine& line, Form* front);
  void After(const ScriptLine& line, Form* front);
  void Within(const ScriptLine& line, Form* front);
  void Disc(const ScriptLine& line, Form* front);
  void Writer(const ScriptLine& line, Form* front);
  void Bottle(const ScriptLine& line, Form* front);
  void Load(const ScriptLine& line, Form* front);
  void LineIn(const ScriptLine& line, Form* front);
  void Mixer(const ScriptLine& line, Form* front);
  void Printer(const ScriptLine& line, Form* front);
  void Print(const ScriptLine& line, Form* front);
  void Font(const ScriptLine& line, Form* front);
  void Colour(const ScriptLine& line, Form* front);
  void ExpectMixer(const ScriptLine& line, Form* front);
  void Shot(const ScriptLine& line, Form* front);
  void Echo(const ScriptLine& line, Form* front);

  const std::string name_, folder_;
  RobotStage& stage_;
  std::ostream& out_;
  const bool trace_;

  std::vector<ScriptLine> lines_;
  std::size_t next_ = 0;    // the line that runs next
  std::deque<Step> steps_;  // remaining steps of the running line, one a turn
  const ScriptLine* stepsOf_ = nullptr;
  std::vector<const ScriptLine*> afterPending_;  // `after` lines that have not run yet
  bool running_ = false;                         // the program is between its start and its end
  std::optional<std::int64_t> beat_;  // end of the last wait, while only `key` and `wait` follow
  bool resting_ = false;
  bool closing_ = false;      // `close` has pressed the exit button
  bool scriptEnded_ = false;  // the program asked for input after the last line
  Text lastFront_;            // the window that was in front after the last line
  bool failed_ = false;
  std::string error_;
};

// Describes the front window for messages: "frmMBox, which says "..."", or "no window".
std::string Describe(const Form* front);
// Returns the text of a message box, or nothing for another window.
std::optional<Text> TextOfBox(const Form* front);

}  // namespace vantora
