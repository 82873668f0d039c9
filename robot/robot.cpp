#include "robot/robot.h"

#include "backends/linux/utf8.h"

#include "platform/laufzeitfehler.h"

#include <map>

namespace vantora {

namespace {

constexpr int kAfterPauseMs = 50;  // between two checks whether the last `after` has run

}  // namespace

Robot::Robot(std::string name, std::string folder, RobotStage& stage, std::ostream& out, bool trace)
    : name_(std::move(name)), folder_(std::move(folder)), stage_(stage), out_(out), trace_(trace) {}

bool Robot::Run(std::string_view script) {
  try {
    lines_ = ParseScript(script);
  } catch (const ScriptError& error) {
    error_ = name_ + ":" + std::to_string(error.Line) + ": " + error.what();
    return false;
  }
  while (!failed_ && next_ < lines_.size()) Execute(lines_[next_++], nullptr);
  return !failed_;
}

Robot::Command Robot::Find(const Text& verb) {
  static const std::map<Text, Command> kCommands = {
      {L"home", &Robot::Home},
      {L"screen", &Robot::Screen},
      {L"colours", &Robot::Colours},
      {L"sound", &Robot::Sound},
      {L"clock", &Robot::ClockAt},
      {L"setting", &Robot::Setting},
      {L"copy", &Robot::Copy},
      {L"makewave", &Robot::MakeWave},
      {L"makepicture", &Robot::MakePicture},
      {L"makemp3", &Robot::MakeMp3},
      {L"writefile", &Robot::WriteFile},
      {L"delete", &Robot::Delete},
      {L"start", &Robot::Start},
      {L"press", &Robot::Press},
      {L"doubleclick", &Robot::DoubleClick},
      {L"rightclick", &Robot::RightClick},
      {L"drag", &Robot::Drag},
      {L"pull", &Robot::Pull},
      {L"hold", &Robot::Hold},
      {L"drop", &Robot::Drop},
      {L"type", &Robot::Type},
      {L"select", &Robot::Select},
      {L"key", &Robot::Key},
      {L"menu", &Robot::MenuItem},
      {L"choose", &Robot::Choose},
      {L"answer", &Robot::Answer},
      {L"window", &Robot::WindowClose},
      {L"close", &Robot::Close},
      {L"expect", &Robot::Expect},
      {L"expect-box", &Robot::ExpectBox},
      {L"expect-window", &Robot::ExpectWindow},
      {L"expect-file", &Robot::ExpectFile},
      {L"wait", &Robot::Wait},
      {L"after", &Robot::After},
      {L"within", &Robot::Within},
      {L"disc", &Robot::Disc},
      {L"writer", &Robot::Writer},
      {L"bottle", &Robot::Bottle},
      {L"load", &Robot::Load},
      {L"linein", &Robot::LineIn},
      {L"mixer", &Robot::Mixer},
      {L"printer", &Robot::Printer},
      {L"print", &Robot::Print},
      {L"font", &Robot::Font},
      {L"colour", &Robot::Colour},
      {L"expect-mixer", &Robot::ExpectMixer},
      {L"shot", &Robot::Shot},
      {L"echo", &Robot::Echo},
  };
  return kCommands.at(verb);
}

// ---- turns ----

// A line may open a window and return only when the window is closed; the next lines then run
// inside this call. So a line or a step is removed from the list before it runs.
bool Robot::Act(Form* front) {
  while (!failed_) {
    if (!steps_.empty()) {
      const Step step = std::move(steps_.front());
      steps_.pop_front();
      Guard(*stepsOf_, [&] { step(front); });
      return !failed_;
    }
    if (next_ == lines_.size()) return AtEnd(front);
    const ScriptLine& line = lines_[next_++];
    Execute(line, front);
    if (ActsOnProgram(line)) return !failed_;
  }
  return false;
}

bool Robot::AtEnd(Form* front) {
  if (!afterPending_.empty()) {
    Rest(kAfterPauseMs);
    return true;
  }
  scriptEnded_ = true;
  lastFront_ = front == nullptr ? Text() : front->Name;
  return false;
}

void Robot::Execute(const ScriptLine& line, Form* front) {
  if (trace_) out_ << name_ << ":" << line.Number << ": " << ToUtf8(line.Source) << std::endl;
  if (running_ && PreparesStart(line)) {
    Fail(line, "can only be done while the program does not run; it runs");
  } else if (!running_ && NeedsProgram(line)) {
    Fail(line, "the program was to run, it has not been started or has ended");
  } else {
    if (running_) Tapped(line);
    Guard(line, [&] { (this->*Find(line.Verb))(line, front); });
  }
}

void Robot::Guard(const ScriptLine& line, const std::function<void()>& work) {
  try {
    work();
  } catch (const Laufzeitfehler& error) {
    Fail(line, ToUtf8(error.Beschreibung));
  } catch (const std::exception& error) {
    Fail(line, error.what());
  }
}

void Robot::Fail(const ScriptLine& line, const std::string& what) {
  if (failed_) return;
  failed_ = true;
  error_ = name_ + ":" + std::to_string(line.Number) + ": " + what;
  const Form* front = running_ ? stage_.Loop().Front() : nullptr;
  if (TextOfBox(front)) error_ += "; in front stands " + Describe(front);
}

void Robot::Rest(int ms) {
  resting_ = true;
  stage_.Loop().PostAfter(ms, [this] { resting_ = false; });
}

// While a script taps a beat, time counts from tap to tap, not from the program's answer to the
// last tap.
void Robot::Tapped(const ScriptLine& line) {
  const bool goesOn = !ActsOnProgram(line) || line.Verb == L"key" || line.Verb == L"wait";
  if (!goesOn) beat_.reset();
  stage_.TheHands().Moment = beat_;
}

void Robot::Then(const ScriptLine& line, Step step) {
  stepsOf_ = &line;
  steps_.push_back(std::move(step));
}

// ---- start and end of the program ----

void Robot::Start(const ScriptLine& line, Form* /*front*/) {
  running_ = true;
  resting_ = closing_ = scriptEnded_ = false;
  Guard(line, [this] { stage_.Start(*this); });
  running_ = false;
  AfterTheProgram(line);
  steps_.clear();
  afterPending_.clear();
}

// Checks that the program has ended where the script allows it.
void Robot::AfterTheProgram(const ScriptLine& line) {
  if (!steps_.empty() && !closing_) Fail(*stepsOf_, "was not done when the program ended");
  for (const ScriptLine* after : afterPending_) {
    Fail(*after, "was to be done later, but the program ended before");
  }
  if (!scriptEnded_ || !stage_.Loop().Ended()) return;
  const ScriptLine& last = lines_.empty() ? line : lines_.back();
  Fail(last, "the script was to end with no window waiting for an answer, " + ToUtf8(lastFront_) +
                 " stands open");
}

// ---- windows and controls ----

// A window may have been unloaded and loaded again, so only the visible form is used.
Form& Robot::FindForm(const Text& name) const {
  for (Form* form : stage_.Loop().Forms()) {
    if (form->Name == name && form->Visible()) return *form;
  }
  throw Unreachable(ToUtf8(name) + " was to be shown, in front stands " +
                    Describe(stage_.Loop().Front()));
}

Control& Robot::FindControl(const Target& target) const {
  const Form& form = FindForm(target.Form);
  Control* element =
      target.Index.size() == 1 ? form.Find(target.Control, target.Index.front()) : nullptr;
  if (element != nullptr) return *element;
  Control* control = form.Find(target.Control);
  if (control == nullptr) {
    std::string name = ToUtf8(target.Control);
    if (target.Index.size() == 1) name += "(" + std::to_string(target.Index.front()) + ")";
    throw Unreachable(ToUtf8(target.Form) + " was to have the control " + name + ", it has none");
  }
  return *control;
}

std::optional<Text> TextOfBox(const Form* front) {
  const Control* message = front == nullptr ? nullptr : front->Find(L"lblMbMeldung");
  return message == nullptr ? std::nullopt : message->Read(L"Caption");
}

std::string Describe(const Form* front) {
  if (front == nullptr) return "no window";
  const std::optional<Text> said = TextOfBox(front);
  return ToUtf8(front->Name) + (said ? ", which says \"" + ToUtf8(*said) + "\"" : "");
}

}  // namespace vantora
