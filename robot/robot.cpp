#include "robot/robot.h"

#include "backends/linux/utf8.h"
#include "robot/robot_commands.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <map>
#include <vector>

namespace vantora {

namespace {

constexpr int kAfterPauseMs = 50;  // between two checks whether the last `after` has run
constexpr int kBehindMs = 1000;    // delay between two taps that a busy machine may cause
constexpr int kPollMs = 20;
constexpr int kYes = 6, kNo = 7;  // answers of a message box
constexpr int kMostBoxes = 50;    // in a row
constexpr int kGoodbyePauseMs = 100;
constexpr int kGoodbyePatience = 600;  // pauses

// The answer that fits the box: `wished` when it has two buttons, to go on when it has three.
int Fitting(Form& box, int wished) {
  constexpr int kButtons = 3, kSingle = 1, kIgnore = 5;
  int shown = 0;
  for (int i = 0; i < kButtons; ++i) {
    const Control* button = box.Find(L"picMboxButton", i);
    if (button != nullptr && button->Visible) ++shown;
  }
  return shown == 2 ? wished : shown == kButtons ? kIgnore : kSingle;
}

// The commands of all tables.
const CommandTable& Commands() {
  static const CommandTable kCommands = [] {
    CommandTable all;
    for (CommandTable part : {MachineCommands(), HandCommands(), FileDialogCommands(),
                              PrintCommands(), Expectations()}) {
      all.merge(part);
    }
    return all;
  }();
  return kCommands;
}

}  // namespace

Robot::Robot(std::string name, std::string folder, RobotStage& stage, std::ostream& out, bool trace)
    : name_(std::move(name)),
      scene_(stage, std::move(folder)),
      turns_(scene_.Turns()),
      out_(out),
      trace_(trace) {}

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

void Robot::Perform(const ScriptLine& line, Form* front) {
  static const std::map<Text, void (Robot::*)(const ScriptLine&, Form*)> kOwn = {
      {L"start", &Robot::Start},          {L"close", &Robot::Close},   {L"wait", &Robot::Wait},
      {L"after", &Robot::After},          {L"within", &Robot::Within}, {L"echo", &Robot::Echo},
      {L"answer-all", &Robot::AnswerAll},
  };
  const auto own = kOwn.find(line.Verb);
  if (own != kOwn.end()) return (this->*own->second)(line, front);
  Commands().at(line.Verb)(scene_, line, front);
}

// ---- turns ----

// A line may open a window and return only when the window is closed; the next lines then run
// inside this call. So a line or a step is removed from the list before it runs.
bool Robot::Act(Form* front) {
  while (!failed_) {
    if (turns_.Pending()) {
      const ScriptLine& line = turns_.Line();
      const RobotTurns::Step step = turns_.Take();
      Guard(line, [&] { step(front); });
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
    turns_.Rest(kAfterPauseMs);
    return true;
  }
  scriptEnded_ = true;
  lastFront_ = front == nullptr ? Text() : front->Name;
  return false;
}

void Robot::Execute(const ScriptLine& line, Form* front) {
  if (trace_) out_ << name_ << ":" << line.Number << ": " << ToUtf8(line.Source) << std::endl;
  if (scene_.Running() && PreparesStart(line)) {
    Fail(line, "can only be done while the program does not run; it runs");
  } else if (!scene_.Running() && NeedsProgram(line)) {
    Fail(line, "the program was to run, it has not been started or has ended");
  } else {
    if (scene_.Running()) Tapped(line);
    Guard(line, [&] { Perform(line, front); });
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
  const Form* front = scene_.Running() ? scene_.Stage().Loop().Front() : nullptr;
  if (TextOfBox(front)) error_ += "; in front stands " + Describe(front);
}

// While a script taps a beat, time counts from tap to tap, not from the program's answer to the
// last tap.
void Robot::Tapped(const ScriptLine& line) {
  const bool goesOn = !ActsOnProgram(line) || line.Verb == L"key" || line.Verb == L"wait";
  if (!goesOn) beat_.reset();
  scene_.TheHands().Moment = beat_;
}

// ---- start and end of the program ----

void Robot::Start(const ScriptLine& line, Form* /*front*/) {
  scene_.SetRunning(true);
  turns_.RestOver();
  closing_ = scriptEnded_ = false;
  Guard(line, [this] { scene_.Stage().Start(*this); });
  scene_.SetRunning(false);
  AfterTheProgram(line);
  turns_.Clear();
  afterPending_.clear();
}

// Checks that the program has ended where the script allows it.
void Robot::AfterTheProgram(const ScriptLine& line) {
  if (turns_.Pending() && !closing_) Fail(turns_.Line(), "was not done when the program ended");
  for (const ScriptLine* after : afterPending_) {
    Fail(*after, "was to be done later, but the program ended before");
  }
  if (!scriptEnded_ || !scene_.Stage().Loop().Ended()) return;
  const ScriptLine& last = lines_.empty() ? line : lines_.back();
  Fail(last, "the script was to end with no window waiting for an answer, " + ToUtf8(lastFront_) +
                 " stands open");
}

// Closing the program asks one or two questions, and then takes a moment. The next step is
// registered before the press, because the questions may be asked during it.
void Robot::Close(const ScriptLine& line, Form* /*front*/) {
  closing_ = true;
  turns_.Then(line, [this, &line](Form* front) { SayGoodbye(line, front, kGoodbyePatience); });
  scene_.TheHands().Press(
      scene_.FindControl(ParseTarget(scene_.Stage().ExitButton(), line.Number)));
}

void Robot::SayGoodbye(const ScriptLine& line, Form* front, int patience) {
  const std::optional<Text> question = TextOfBox(front);
  const Text exitWindow = ParseTarget(scene_.Stage().ExitButton(), line.Number).Form;
  if (patience == 0 || (!question && front != nullptr && front->Name != exitWindow)) {
    throw Unreachable("the program was to end, in front stands " + Describe(front));
  }
  turns_.Then(line, [this, &line, patience](Form* next) { SayGoodbye(line, next, patience - 1); });
  if (question) {
    PressAnswer(scene_, front, scene_.Stage().AsksToLeave(*question) ? kYes : kNo);
  } else {
    turns_.Rest(kGoodbyePauseMs);
  }
}

// ---- boxes that a script cannot foresee ----

void Robot::AnswerAll(const ScriptLine& line, Form* front) {
  AnswerRest(line, front, kMostBoxes);
}

// The next step is registered before the press, because the next box may open during it.
void Robot::AnswerRest(const ScriptLine& line, Form* front, int patience) {
  std::optional<Text> said = TextOfBox(front);
  if (!said) return;
  if (patience == 0) throw Unreachable("the questions were to end, in front is " + Describe(front));
  std::replace(said->begin(), said->end(), L'\n', L' ');
  out_ << "box: " << ToUtf8(*said) << std::endl;
  turns_.Then(line, [this, &line, patience](Form* next) { AnswerRest(line, next, patience - 1); });
  PressAnswer(scene_, front, Fitting(*front, line.Numbers.front()));
}

// ---- time ----

void Robot::Wait(const ScriptLine& line, Form* /*front*/) {
  const std::int64_t now = scene_.Stage().Loop().EventMs();
  const bool late = !beat_ || now - *beat_ > kBehindMs;
  const std::int64_t due = (late ? now : *beat_) + line.Numbers.front();
  turns_.Rest(static_cast<int>(std::max<std::int64_t>(due - now, 0)), [this, due] { beat_ = due; });
}

// The inner line runs outside of a turn, where a failure would not be noticed soon. A failure
// therefore ends the program.
void Robot::After(const ScriptLine& line, Form* /*front*/) {
  afterPending_.push_back(&line);
  scene_.Stage().Loop().PostAfter(line.Numbers.front(), [this, &line] {
    std::erase(afterPending_, &line);
    beat_.reset();
    if (!failed_) Execute(*line.Inner, scene_.Stage().Loop().Front());
    if (failed_) throw ProgrammEnde{};
  });
}

void Robot::Within(const ScriptLine& line, Form* front) {
  Poll(line, front, line.Numbers.front());
}

void Robot::Poll(const ScriptLine& line, Form* front, int leftMs) {
  try {
    Perform(*line.Inner, front);
  } catch (const Unreachable&) {
    if (leftMs <= 0) throw;
    const int pauseMs = std::min(leftMs, kPollMs);
    turns_.Then(line, [=, this, &line](Form* next) { Poll(line, next, leftMs - pauseMs); });
    turns_.Rest(pauseMs);
  }
}

void Robot::Echo(const ScriptLine& line, Form* /*front*/) {
  out_ << ToUtf8(line.Value) << std::endl;
}

}  // namespace vantora
