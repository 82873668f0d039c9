// The commands that act: mouse, keyboard and answers.

#include "backends/linux/utf8.h"
#include "robot/robot.h"

namespace vantora {

namespace {

constexpr int kYes = 6, kNo = 7, kSingle = 1;
constexpr int kAbort = 3, kIgnore = 5;  // retry is between them, on a box with three buttons
constexpr int kBoxButtons = 3;

constexpr int kHeldPauseMs = 20;
constexpr int kGoodbyePauseMs = 100;
constexpr int kGoodbyePatience = 600;  // pauses

// For commands that take files, all words after the control are files.
std::vector<Text> FilesOf(const ScriptLine& line) {
  std::vector<Text> files;
  for (std::size_t i = 1; i < line.Words.size(); ++i) files.push_back(line.Words[i].Content);
  return files;
}

}  // namespace

void Robot::Press(const ScriptLine& line, Form* /*front*/) {
  Control& control = FindControl(*line.Subject);
  if (line.Value == L"shift") return stage_.TheHands().ShiftPress(control);
  if (line.Numbers.empty()) return stage_.TheHands().Press(control);
  stage_.TheHands().PressAt(control, line.Numbers[0]);
}

void Robot::DoubleClick(const ScriptLine& line, Form* /*front*/) {
  Control& control = FindControl(*line.Subject);
  if (line.Numbers.empty()) return stage_.TheHands().DoubleClick(control);
  stage_.TheHands().DoubleClickAt(control, line.Numbers[0]);
}

void Robot::RightClick(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().RightClick(FindControl(*line.Subject));
}

void Robot::Drag(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().Drag(FindControl(*line.Subject), line.Numbers[0], line.Numbers[1]);
}

void Robot::Pull(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().Pull(FindControl(*line.Subject), line.Numbers[0], line.Numbers[1]);
}

// The next step is registered before the press, because the program may ask its user during it.
void Robot::Hold(const ScriptLine& line, Form* /*front*/) {
  Control& control = FindControl(*line.Subject);
  AwaitRelease(line);
  stage_.TheHands().Hold(control, line.Numbers[0]);
}

void Robot::AwaitRelease(const ScriptLine& line) {
  Then(line, [this, &line](Form* /*front*/) {
    if (!stage_.TheHands().Holding()) return;
    AwaitRelease(line);
    Rest(kHeldPauseMs);
  });
}

void Robot::Drop(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().Drop(FindControl(*line.Subject), FilesOf(line));
}

void Robot::Type(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().Type(FindControl(*line.Subject), line.Value);
}

void Robot::Select(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().Select(FindControl(*line.Subject), line.Numbers);
}

void Robot::Key(const ScriptLine& line, Form* /*front*/) {
  stage_.TheHands().Key(FindForm(line.Subject->Form), line.Value);
}

void Robot::MenuItem(const ScriptLine& line, Form* front) {
  if (front == nullptr) throw Unreachable("a window with a menu was to be in front, there is none");
  stage_.TheHands().ChooseMenu(*front, line.Value);
}

void Robot::WindowClose(const ScriptLine& line, Form* front) {
  if (line.Subject) front = &FindForm(line.Subject->Form);
  if (front == nullptr) throw Unreachable("a window was to be in front, there is none");
  stage_.TheHands().Close(*front);
}

void Robot::Answer(const ScriptLine& line, Form* front) {
  PressAnswer(front, line.Numbers.front());
}

void Robot::PressAnswer(Form* front, int answer) {
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
  stage_.TheHands().Press(*chosen);
}

// Closing the program asks one or two questions, and then takes a moment. The next step is
// registered before the press, because the questions may be asked during it.
void Robot::Close(const ScriptLine& line, Form* /*front*/) {
  closing_ = true;
  Then(line, [this, &line](Form* front) { SayGoodbye(line, front, kGoodbyePatience); });
  stage_.TheHands().Press(FindControl(ParseTarget(stage_.ExitButton(), line.Number)));
}

void Robot::SayGoodbye(const ScriptLine& line, Form* front, int patience) {
  const std::optional<Text> question = TextOfBox(front);
  const Text exitWindow = ParseTarget(stage_.ExitButton(), line.Number).Form;
  if (patience == 0 || (!question && front != nullptr && front->Name != exitWindow)) {
    throw Unreachable("the program was to end, in front stands " + Describe(front));
  }
  Then(line, [this, &line, patience](Form* next) { SayGoodbye(line, next, patience - 1); });
  if (question) {
    PressAnswer(front, stage_.AsksToLeave(*question) ? kYes : kNo);
  } else {
    Rest(kGoodbyePauseMs);
  }
}

}  // namespace vantora
