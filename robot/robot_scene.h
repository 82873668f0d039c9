// Gives the commands of a script the stage, the windows and controls by their names, the files, and
// later turns.
#pragma once

#include "robot/robot_script.h"
#include "robot/robot_stage.h"
#include "robot/robot_turns.h"

#include "platform/hands.h"

#include <optional>
#include <string>

namespace vantora {

class RobotScene {
 public:
  // `folder` is the folder of the script's relative file names.
  RobotScene(RobotStage& stage, std::string folder);

  const std::string& Folder() const { return folder_; }
  RobotStage& Stage() const { return stage_; }
  Hands& TheHands() const { return stage_.TheHands(); }
  RobotTurns& Turns() { return turns_; }

  bool Running() const { return running_; }  // the program is between its start and its end
  void SetRunning(bool running) { running_ = running; }

  // These raise Unreachable for a window that is not shown, and for a missing control.
  Form& FindForm(const Text& name) const;
  Control& FindControl(const Target& target) const;

  // Converts a product path, or a path relative to the script's folder, to a path of the machine.
  std::string HostPath(const Text& name) const;
  // Converts a name to a product path. Drive Z: holds all files of the machine.
  Text ProductPath(const Text& name) const;

 private:
  RobotStage& stage_;
  const std::string folder_;
  RobotTurns turns_;
  bool running_ = false;
};

// Describes the front window for messages: "frmMBox, which says "..."", or "no window".
std::string Describe(const Form* front);
// Returns the text of a message box, or nothing for another window.
std::optional<Text> TextOfBox(const Form* front);

}  // namespace vantora
