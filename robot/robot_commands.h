// The commands of the robot, by their verbs. docs/robot.md lists them. The commands that steer the
// run itself (`start`, `close`, `wait`, `after`, `within`, `answer-all`, `echo`) belong to Robot.
#pragma once

#include "robot/robot_scene.h"

#include <map>

namespace vantora {

// Does what a line says; raises an exception when it cannot be done, or is not as expected. `front`
// is the window in front, or null.
using Command = void (*)(RobotScene& scene, const ScriptLine& line, Form* front);
using CommandTable = std::map<Text, Command>;

CommandTable MachineCommands();     // prepare the machine, its files and its devices
CommandTable HandCommands();        // mouse, keyboard, answers and pictures
CommandTable FileDialogCommands();  // the program's file dialog
CommandTable PrintCommands();       // printers, and the dialogs for fonts, colours and printing
CommandTable Expectations();        // windows, message boxes, files and the mixer

// Presses the button of the message box in front that gives this answer.
void PressAnswer(RobotScene& scene, Form* front, int answer);

}  // namespace vantora
