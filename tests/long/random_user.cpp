#include "tests/long/random_user.h"

#include "backends/discimage/writer_faults.h"
#include "backends/forms/form_loop.h"
#include "backends/forms/reach.h"
#include "backends/linux/utf8.h"

#include "platform/laufzeitfehler.h"
#include "platform/printer.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vantora::test {

namespace {

constexpr const wchar_t* kWords[] = {
    L"verano",
    L"Las olas",
    L"",
    L"0",
    L"-1",
    L"7",
    L"45,5",
    L"99999999999999",
    L"01:30",
    L"..",
    L"C:\\Música",
    L"Z:\\",
    L"C:\\no\\hay\\tal",
    L"a/b:c*d?\"<>|",
    L"ñandú €",
    L"\t",
    L"Una canción con un nombre que no termina nunca, porque quien la escribió no sabía parar, y "
    L"aún sigue, y sigue, y no se acaba, y todavía no, ni ahora, ni después, ni nunca jamás de los "
    L"jamases, que es mucho decir para una canción sola, aunque sea tan larga como esta, o más"};
constexpr const wchar_t* kKeys[] = {
    L"Tab",    L"Shift+Tab", L"Return", L"Escape", L"Space",    L"Delete", L"Backspace", L"Up",
    L"Down",   L"Left",      L"Right",  L"Home",   L"End",      L"PageUp", L"PageDown",  L"Alt+Up",
    L"Ctrl+A", L"Ctrl+S",    L"Ctrl+Z", L"Ctrl+N", L"Ctrl+O",   L"Ctrl+I", L"Ctrl+B",    L"Ctrl+C",
    L"Ctrl+X", L"Ctrl+V",    L"F1",     L"F2",     L"Alt+Down", L"F5",     L"a",         L"7"};
constexpr const wchar_t* kDisc = L"C:\\Vantora\\Discos";
constexpr const wchar_t* kMainWindow = L"frmHauptForm";
constexpr const wchar_t* kAboutRows[] = {L"imgTitel",      L"imgBrennen",          L"imgWaveEdit",
                                         L"imgPrintCover", L"imgKatalogSpeichern", L"imgTitel"};
// Pressed more often than others, so that sound is recorded, filtered while it plays, mixed and
// burnt.
constexpr const wchar_t* kHabits[] = {L"imgEffekt",          L"imgDeclickByPass",
                                      L"imgDecrackleByPass", L"imgDenoiserByPass",
                                      L"imgSteuerung",       L"pic3D",
                                      L"imgBrennen",         L"imgTitel",
                                      L"imgPreview",         L"imgAufnehmen"};
constexpr int kHabitWeight = 4;
constexpr int kOftenPatience = 20'000;  // steps on the way out of the program
constexpr int kStepMs = 100;

bool IsBox(const Form& form) {
  return form.Find(L"lblMbMeldung") != nullptr;
}

bool Answers(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::Timer:
    case ControlKind::Shape:
    case ControlKind::LevelMeter:
      return false;
    case ControlKind::Label:
    case ControlKind::PictureButton:
    case ControlKind::PictureBox:
      return control.Click || control.DblClick || control.MouseDown || control.MouseUp ||
             control.MouseMove || control.KeyDown;
    default:
      return true;
  }
}

std::vector<Control*> Usable(const Form& form) {
  std::vector<Control*> usable;
  for (Control* control : form.Controls) {
    if (!Answers(*control) || !control->InSight() || !control->InUse()) continue;
    const bool habit = std::ranges::find(kHabits, control->Name) != std::end(kHabits);
    usable.insert(usable.end(), habit ? kHabitWeight : 1, control);
  }
  return usable;
}

std::vector<Control*> ButtonsOf(const Form& box) {
  std::vector<Control*> buttons;
  for (int i = 0; Control* button = box.Find(L"picMboxButton", i); ++i) {
    if (button->Visible) buttons.push_back(button);
  }
  return buttons;
}

}  // namespace

void RandomUser::Begin(Dice& dice, int deeds, const Text& fond) {
  dice_ = &dice;
  fond_ = fond;
  left_ = deeds;
  patience_ = kOftenPatience;
  resting_ = false;
  fresh_ = true;
}

// Hears of the errors that no handler of the program has caught.
void RandomUser::Listen() {
  fresh_ = false;
  EventLoop& loop = stage_.Loop();
  lastMs_ = loop.EventMs();
  loop.OnError = [this, inner = loop.OnError](const Laufzeitfehler& error) {
    const std::string what = std::to_string(error.Nummer) + " " + ToUtf8(error.Beschreibung) +
                             (error.Grund.empty() ? "" : ": " + ToUtf8(error.Grund));
    ++errors_[what];
    Do("ERROR " + what, [](Hands&) {});
    if (inner) inner(error);
  };
}

bool RandomUser::Act(Form* front) {
  if (fresh_) Listen();
  OnDeed();
  const std::int64_t now = stage_.Loop().EventMs();
  programMs_ += now - lastMs_;
  lastMs_ = now;
  if (left_ == 0) {
    GoHome(front);
    return failure_.empty();
  }
  --left_;
  ++done_;
  if (front == nullptr) {
    LookElsewhere();
    Rest(kStepMs);
    return true;
  }
  ++seen_[front->Name];
  // The pause is set before the deed, which may last until a window is closed.
  Rest(dice_->OneIn(12) ? dice_->From(1000, 15'000) : dice_->From(1, 700));
  AnyDeed(*front);
  return true;
}

void RandomUser::Rest(int ms) {
  resting_ = true;
  stage_.Loop().PostAfter(ms, [this] { resting_ = false; });
}

void RandomUser::Do(const std::string& what, const std::function<void(Hands&)>& deed) {
  diary_ << done_ << " @" << programMs_ / 1000 << "s " << what << std::endl;
  try {
    deed(stage_.TheHands());
  } catch (const Unreachable& why) {
    diary_ << "    refused: " << why.what() << std::endl;
  } catch (const Laufzeitfehler& error) {
    diary_ << "    not possible: " << ToUtf8(error.Beschreibung) << std::endl;
  }
}

// ---- deeds ----

void RandomUser::AnyDeed(Form& front) {
  if (dice_->OneIn(15)) LaterToo();
  if (dice_->OneIn(30)) return Machine();
  if (IsBox(front) && !dice_->OneIn(10)) return Answer(front);
  if (dice_->OneIn(40)) return LookElsewhere();
  if (std::exchange(menuNext_, false) && !dice_->OneIn(5)) return ChooseMenu(front);
  if (front.Find(L"lstDatei") != nullptr && dice_->OneIn(2)) return ChooseFile(front);
  if (front.Name == kMainWindow && (!fond_.empty() || dice_->OneIn(2))) return UseCatalog(front);
  Use(front);
}

void RandomUser::Use(Form& form) {
  const int what = dice_->From(1, 100);
  if (what <= 14) return Strike(form);
  if (what <= 18 && !form.Menus.empty()) return ChooseMenu(form);
  if (what <= 20 && fond_.empty()) {
    return Do("close " + ToUtf8(form.Name), [&](Hands& hands) { hands.Close(form); });
  }
  const std::vector<Control*> usable = Usable(form);
  if (usable.empty()) return Strike(form);
  UseControl(*dice_->Of(usable));
}

void RandomUser::UseControl(Control& control) {
  switch (control.Kind()) {
    case ControlKind::TextBox: {
      // More copies of a disc would fill the whole run.
      // A hundred copies take long. At a threshold of 0 each buffer of silence is a take.
      const bool few = control.Name == L"txtKopienAnzahl" || control.Name == L"txtMaxVolume";
      const Text words = few ? L"2" : dice_->Of(kWords);
      return Do("type " + NameOf(control) + " \"" + ToUtf8(words) + "\"",
                [&](Hands& hands) { hands.Type(control, words); });
    }
    case ControlKind::ComboBox:
    case ControlKind::ListBox:
      return UseList(control, static_cast<const ListControl&>(control).ListCount());
    case ControlKind::ListView:
      return UseList(control, static_cast<const ListView&>(control).ListItems.Count());
    case ControlKind::Slider:
    case ControlKind::PictureBox:
    case ControlKind::Label:
      return Press(control, 8);
    default:
      return Press(control, 30);
  }
}

// Uses the mouse in one of `ways` ways. From the eighth way on, the control is just pressed.
void RandomUser::Press(Control& control, int ways) {
  const int way = dice_->From(1, ways), a = dice_->From(0, 999), b = dice_->From(-100, 1100);
  const std::string words = std::to_string(way) + " " + NameOf(control) + " " + std::to_string(a);
  Do("press " + words + " " + std::to_string(b), [&](Hands& hands) {
    switch (way) {
      case 1:
        return hands.DoubleClick(control);
      case 2:
        return hands.RightClick(control);
      case 3:
        return hands.PressAt(control, a);
      case 4:
        return hands.DoubleClickAt(control, a);
      case 5:
        return hands.Drag(control, a, b);
      case 6:
        // Hands can release a button that winds the sound only after a time.
        return control.Kind() == ControlKind::Label && a < 500 ? hands.Pull(control, 4 * a, 3 * b)
                                                               : hands.ShiftPress(control);
      case 7:
        return hands.Holding() ? hands.Press(control) : hands.Hold(control, 2 * a + 1);
      default:
        return hands.Press(control);
    }
  });
}

void RandomUser::UseList(Control& control, int rows) {
  const bool combo = control.Kind() == ControlKind::ComboBox;
  const int what = combo ? 9 : dice_->From(1, 10);
  if (rows == 0 || what <= 4) {
    menuNext_ = what <= 2;
    return Do("list " + std::to_string(what) + " " + NameOf(control),
              [&](Hands& h) { what <= 2 ? h.RightClick(control) : h.DoubleClick(control); });
  }
  Select(control, rows);
}

void RandomUser::Select(Control& control, int rows) {
  std::vector<int> chosen{dice_->From(1, rows)};
  const auto* box = dynamic_cast<const ListBox*>(&control);
  const bool several =
      control.Kind() == ControlKind::ListView || (box != nullptr && box->MultiSelect);
  while (several && dice_->OneIn(2) && chosen.back() < rows) chosen.push_back(chosen.back() + 1);
  Do("select " + NameOf(control) + " " + std::to_string(chosen.front()),
     [&](Hands& hands) { hands.Select(control, chosen); });
}

// Fills the list of the main window, or works on its rows: most windows are about them.
void RandomUser::UseCatalog(Form& form) {
  auto& list = dynamic_cast<ListView&>(*form.Find(L"lvwKatalog"));
  if (list.ListItems.Count() > 1 && !dice_->OneIn(4)) {
    if (dice_->OneIn(2)) return UseList(list, list.ListItems.Count());
    return Press(*form.Find(fond_.empty() ? dice_->Of(kAboutRows) : fond_), 30);
  }
  Press(*form.Find(L"imgLiedImport"), 30);
}

void RandomUser::Strike(Form& form) {
  const Text key = dice_->Of(kKeys);
  Do("key " + ToUtf8(form.Name) + " " + ToUtf8(key), [&](Hands& hands) { hands.Key(form, key); });
}

void RandomUser::Answer(Form& box) {
  const std::vector<Control*> buttons = ButtonsOf(box);
  if (buttons.empty()) return Use(box);
  Control& said = *box.Find(L"lblMbMeldung");
  const Text words = said.Read(L"Caption").value_or(L"");
  // The user seldom leaves the program, which would start again.
  Control* button = dice_->Of(buttons);
  if (stage_.AsksToLeave(words) && !dice_->OneIn(8)) button = buttons.back();
  std::string line = ToUtf8(words);
  for (char& c : line) c = c == '\n' || c == '\r' ? ' ' : c;
  Do("box \"" + line + "\" " + NameOf(*button), [&](Hands& hands) { hands.Press(*button); });
}

// Marks a file and presses Return, as users of a file dialog mostly do, or gives up.
void RandomUser::ChooseFile(Form& dialog) {
  auto& files = dynamic_cast<ListControl&>(*dialog.Find(L"lstDatei"));
  const bool none = files.ListCount() == 0;
  if (none && !dice_->OneIn(3)) return Use(dialog);
  if (!none) Select(files, files.ListCount());
  const Text key = none ? L"Escape" : L"Return";
  Do("file dialog " + ToUtf8(key), [&](Hands& hands) { hands.Key(dialog, key); });
}

void RandomUser::ChooseMenu(Form& form) {
  if (form.Menus.empty()) return Strike(form);
  const Menu& menu = dice_->Of(form.Menus);
  if (menu.Items.empty()) return;
  const Text item = dice_->Of(menu.Items).Name;
  Do("menu " + ToUtf8(item), [&](Hands& hands) { hands.ChooseMenu(form, item); });
}

// Does something in a moment, even if the program is at work then.
void RandomUser::LaterToo() {
  stage_.Loop().PostAfter(dice_->From(1, 3000), [this] {
    Form* front = stage_.Loop().Front();
    if (front == nullptr || left_ == 0) return;
    diary_ << "  meanwhile:" << std::endl;
    IsBox(*front) ? Answer(*front) : Use(*front);
  });
}

// Uses a window that is not in front, or brings one back.
void RandomUser::LookElsewhere() {
  auto& loop = dynamic_cast<FormLoop&>(stage_.Loop());
  std::vector<Form*> shown;
  for (Form* form : loop.Forms()) {
    if (form->Visible() && form != loop.Front()) shown.push_back(form);
  }
  if (shown.empty()) return;
  Form& form = *dice_->Of(shown);
  Do("elsewhere " + ToUtf8(form.Name), [](Hands&) {});
  if (loop.Minimized(form)) return loop.Restored(form);
  if (loop.Reachable(form)) Use(form);
}

// ---- the machine ----

void RandomUser::Machine() {
  const int what = dice_->From(1, 7), number = dice_->From(0, 100);
  Do("machine " + std::to_string(what) + " " + std::to_string(number), [&](Hands&) {
    if (what <= 2) return ChangeDisc();
    if (what == 3) return ChangeWriter();
    if (what == 4) return stage_.Load(number);
    if (what == 5) return Spoil();
    if (what == 6) return stage_.LineIn(L"C:\\Música\\faro.wav");
    stage_.LineInOverrun(number);
  });
}

void RandomUser::ChangeDisc() {
  stage_.EjectDisc();
  const std::vector<Text> discs = stage_.Files().List(kDisc, L"*.cue");
  if (discs.empty() || dice_->OneIn(4)) return;
  stage_.InsertDisc(kDisc + (L"\\" + dice_->Of(discs)));
}

// Another program deletes or shortens a wave that may be open.
void RandomUser::Spoil() {
  const std::vector<Text> waves = stage_.Files().List(L"C:\\Música", L"*.wav");
  if (waves.empty()) return;
  const auto file = stage_.Files().SystemPath(L"C:\\Música\\" + dice_->Of(waves));
  if (dice_->OneIn(3)) {
    std::filesystem::remove(file);
  } else {
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / dice_->From(1, 9));
  }
}

void RandomUser::ChangeWriter() {
  WriterFaults& writer = stage_.Writer();
  writer = {};
  writer.Pace = dice_->From(0, 3) * 4;
  const int fault = dice_->From(1, 8), number = dice_->From(1, 99);
  if (fault == 1) writer.RefuseTrack = 1 + number % 3;
  if (fault == 2) writer.FailAtPercent = number;
  if (fault == 3) writer.NotReady = 1 + number % 3;
  if (fault == 4) writer.WriteDao = -1;
}

// ---- the way out ----

// One step a turn. Windows that do not close at once get other ways to close, because a user would
// try them as well.
void RandomUser::GoHome(Form* front) {
  if (--patience_ == 0) {
    failure_ = "the program could not be left; in front is " +
               (front == nullptr ? "no window" : ToUtf8(front->Name));
    return;
  }
  Rest(kStepMs);
  if (front == nullptr) return LookElsewhere();
  if (IsBox(*front)) {
    const auto buttons = ButtonsOf(*front);
    const Text words = front->Find(L"lblMbMeldung")->Read(L"Caption").value_or(L"");
    if (buttons.empty() || !stage_.AsksToLeave(words)) return Answer(*front);
    return Do("leaves", [&](Hands& hands) { hands.Press(*buttons.front()); });
  }
  if (front->Name == kMainWindow) {
    Text button = stage_.ExitButton();
    button.erase(0, button.find(L'.') + 1);
    return Do("exit", [&](Hands& hands) { hands.Press(*front->Find(button)); });
  }
  const int way = dice_->From(1, 5);
  if (way == 5) return Use(*front);
  Do("out of " + ToUtf8(front->Name) + " by way " + std::to_string(way),
     [&](Hands& hands) { way <= 2 ? hands.Close(*front) : hands.Key(*front, L"Escape"); });
}

}  // namespace vantora::test
