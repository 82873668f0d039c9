// The commands that act: mouse, keyboard and answers.

#include "backends/linux/utf8.h"
#include "robot/robot_commands.h"

namespace vantora {

namespace {

constexpr int kYes = 6, kNo = 7, kSingle = 1;
constexpr int kAbort = 3, kIgnore = 5;  // 4 is retry; a box with three buttons has all of them
constexpr int kBoxButtons = 3;

constexpr int kHeldPauseMs = 20;

// For commands that take files, all words after the control are files.
std::vector<Text> FilesOf(const ScriptLine& line) {
  std::vector<Text> files;
  for (std::size_t i = 1; i < line.Words.size(); ++i) files.push_back(line.Words[i].Content);
  return files;
}

void Press(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  Control& control = scene.FindControl(*line.Subject);
  if (line.Value == L"shift") return scene.TheHands().ShiftPress(control);
  if (line.Numbers.empty()) return scene.TheHands().Press(control);
  scene.TheHands().PressAt(control, line.Numbers[0]);
}

void DoubleClick(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  Control& control = scene.FindControl(*line.Subject);
  if (line.Numbers.empty()) return scene.TheHands().DoubleClick(control);
  scene.TheHands().DoubleClickAt(control, line.Numbers[0]);
}

void RightClick(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().RightClick(scene.FindControl(*line.Subject));
}

void Drag(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().Drag(scene.FindControl(*line.Subject), line.Numbers[0], line.Numbers[1]);
}

void Pull(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().Pull(scene.FindControl(*line.Subject), line.Numbers[0], line.Numbers[1]);
}

void AwaitRelease(RobotScene& scene, const ScriptLine& line) {
  scene.Turns().Then(line, [&scene, &line](Form* /*front*/) {
    if (!scene.TheHands().Holding()) return;
    AwaitRelease(scene, line);
    scene.Turns().Rest(kHeldPauseMs);
  });
}

// The next step is registered before the press, because the program may ask its user during it.
void Hold(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  Control& control = scene.FindControl(*line.Subject);
  AwaitRelease(scene, line);
  scene.TheHands().Hold(control, line.Numbers[0]);
}

void Drop(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().Drop(scene.FindControl(*line.Subject), FilesOf(line));
}

void Type(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().Type(scene.FindControl(*line.Subject), line.Value);
}

void Select(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().Select(scene.FindControl(*line.Subject), line.Numbers);
}

void PressKey(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.TheHands().Key(scene.FindForm(line.Subject->Form), line.Value);
}

void ChooseMenu(RobotScene& scene, const ScriptLine& line, Form* front) {
  if (front == nullptr) throw Unreachable("a window with a menu was to be in front, there is none");
  scene.TheHands().ChooseMenu(*front, line.Value);
}

void WindowClose(RobotScene& scene, const ScriptLine& line, Form* front) {
  if (line.Subject) front = &scene.FindForm(line.Subject->Form);
  if (front == nullptr) throw Unreachable("a window was to be in front, there is none");
  scene.TheHands().Close(*front);
}

void Answer(RobotScene& scene, const ScriptLine& line, Form* front) {
  PressAnswer(scene, front, line.Numbers.front());
}

void Shot(RobotScene& scene, const ScriptLine& line, Form* front) {
  if (line.Subject) front = &scene.FindForm(line.Subject->Form);
  if (front == nullptr) throw Unreachable("a window was to be in front, there is none");
  // Without a screen, Shot returns false and writes no picture.
  scene.TheHands().Shot(*front, scene.HostPath(line.Value));
}

}  // namespace

void PressAnswer(RobotScene& scene, Form* front, int answer) {
  if (!TextOfBox(front)) {
    throw Unreachable("a message box was to be in front, it is " + Describe(front));
  }
  std::vector<Control*> buttons;
  for (int i = 0; i < kBoxButtons; ++i) {
    Control* button = front->Find(L"picMboxButton", i);
    if (button != nullptr && button->Visible) buttons.push_back(button);
  }
  Control* chosen = nullptr;
  if (buttons.size() == 1 && (answer == kNo || answer == kSingle)) chosen = buttons.front();
  if (buttons.size() == 2 && answer == kYes) chosen = buttons.front();
  if (buttons.size() == 2 && answer == kNo) chosen = buttons.back();
  if (buttons.size() == 3 && answer >= kAbort && answer <= kIgnore) {
    chosen = buttons[static_cast<std::size_t>(answer - kAbort)];
  }
  if (chosen == nullptr) {
    throw Unreachable("the box was to offer the answer " + std::to_string(answer) + ", it has " +
                      std::to_string(buttons.size()) + " button(s)");
  }
  scene.TheHands().Press(*chosen);
}

CommandTable HandCommands() {
  return {
      {L"press", Press},
      {L"doubleclick", DoubleClick},
      {L"rightclick", RightClick},
      {L"drag", Drag},
      {L"pull", Pull},
      {L"hold", Hold},
      {L"drop", Drop},
      {L"type", Type},
      {L"select", Select},
      {L"key", PressKey},
      {L"menu", ChooseMenu},
      {L"window", WindowClose},
      {L"answer", Answer},
      {L"shot", Shot},
  };
}

}  // namespace vantora
