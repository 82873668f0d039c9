#include "catalog/frmHauptForm.h"
#include "tests/waveeditor/editor_stage.h"

#include <random>
#include <set>

namespace vantora {
namespace {

constexpr const wchar_t* kFile = L"C:\\Vantora\\Wavs\\uno.wav";

// Presses, drags, holds and types on any control that it can reach, also while the program works,
// and sometimes waits. It avoids controls that would end the program.
class Impatient final : public User {
 public:
  Impatient(Buehne& b, unsigned seed, int steps, bool vandal)
      : b_(b), random_(seed), left_(steps), vandal_(vandal) {}

  bool Act(Form* front) override {
    if (front == nullptr || (left_ <= 0 && front == &b_.Haupt())) return false;
    Seen.insert(front->Name);
    if (--left_ > 0) {
      Anything(*front);
    } else {
      Leave(*front);
    }
    return left_ > -200;  // otherwise no window could be closed
  }
  bool Resting() const override { return resting_; }
  bool Done() const { return left_ > -200; }

  std::set<Text> Seen;
  std::string Log;
  bool Ended = false;  // the program was closed, since nothing else was possible

 private:
  int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

  void Anything(Form& form) {
    if (form.Name == L"frmHauptForm") return Try([&] { Press(form, L"imgWaveEdit"); });
    if (Upto(5) == 0) {
      b_.platform.loop.PostAfter(Upto(900), [this] {
        if (Form* front = b_.platform.loop.Front()) Try([&] { OneThing(*front); });
      });
    }
    if (Upto(9) == 0) return Rest(Upto(2500));
    if (vandal_ && Upto(40) == 0) return Spoil();
    Try([&] { OneThing(form); });
  }

  // Shortens or deletes the file, as another program might.
  void Spoil() {
    const auto file = b_.platform.machine.files.SystemPath(kFile);
    std::error_code none;
    if (Upto(3) == 0) std::filesystem::remove(file, none);
    const auto size = std::filesystem::file_size(file, none);
    if (!none) std::filesystem::resize_file(file, size * static_cast<unsigned>(Upto(9)) / 9, none);
  }

  void OneThing(Form& form) {
    if (form.Name == L"frmHauptForm") return;
    auto& hands = b_.platform.hands;
    Control& control =
        *form.Controls[static_cast<std::size_t>(Upto(static_cast<int>(form.Controls.size()) - 1))];
    if (Upto(7) == 0) {
      constexpr const wchar_t* kKeys[] = {
          L"Escape", L"Space",  L"Return", L"Tab",         L"Ctrl+A",    L"Ctrl+C",   L"Ctrl+X",
          L"Ctrl+V", L"Ctrl+Z", L"F1",     L"Shift+Right", L"Shift+End", L"PageDown", L"Home"};
      return hands.Key(form, kKeys[Upto(13)]);
    }
    Log +=
        std::string(control.Name.begin(), control.Name.end()) + std::to_string(control.Index) + " ";
    if (control.Name == L"imgZurück" && Upto(3) != 0) return;
    switch (control.Kind()) {
      case ControlKind::TextBox:
        return hands.Type(control, std::to_wstring(Upto(120) - 20));
      case ControlKind::Slider:
        return hands.Drag(control, Upto(1000), Upto(1000));
      case ControlKind::PictureBox:
        if (Upto(4) == 0) return hands.DoubleClick(control);
        return hands.Drag(control, Upto(1000), Upto(1000));
      case ControlKind::ComboBox:
      case ControlKind::ListBox:
        return hands.Select(control, {1 + Upto(3)});
      default:
        if (Upto(6) == 0) return hands.Hold(control, Upto(3000));
        return Upto(4) == 0 ? hands.DoubleClick(control) : hands.Press(control);
    }
  }

  // While the effects are applied to a deleted file, the editor cannot be closed. Then closing the
  // program must work.
  void Leave(Form& form) {
    Rest(50);
    if (left_ < -100 && form.CloseWhileDisabled) {
      return Try([&] {
        Ended = true;
        b_.platform.hands.Close(form);
      });
    }
    if (Ended && form.Find(L"picMboxButton", 0) != nullptr)
      return Try([&] { b_.platform.hands.Press(*form.Find(L"picMboxButton", 0)); });
    if (form.Name == L"frmWaveEditor") return Try([&] { Press(form, L"imgZurück"); });
    Try([&] { b_.platform.hands.Key(form, L"Escape"); });
    if (b_.platform.loop.Front() == &form) Try([&] { b_.platform.hands.Key(form, L"Return"); });
  }

  void Rest(int ms) {
    resting_ = true;
    b_.platform.loop.PostAfter(ms, [this] { resting_ = false; });
  }
  void Press(Form& form, const Text& name) { b_.platform.hands.Press(*form.Find(name)); }
  void Try(const std::function<void()>& deed) {
    try {
      deed();
    } catch (const Unreachable&) {
      // A user would not have tried this.
    }
  }

  Buehne& b_;
  std::mt19937 random_;
  int left_;
  const bool vandal_;
  bool resting_ = false;
};

}  // namespace

// Any actions in any order, also changes to the file: the program must not crash or hang, must stay
// usable, and the file must be a valid wave.
TEST(Impatience, IsBorneByTheEditor) {
  const char* const more = std::getenv("VANTORA_IMPATIENCE");  // number of rounds, for long runs
  const unsigned rounds = more == nullptr ? 4 : static_cast<unsigned>(std::atoi(more));
  std::set<Text> seen;
  for (unsigned seed = 1; seed <= rounds; ++seed) {
    SCOPED_TRACE(seed);
    Buehne b;
    b.Start();
    b.Katalog({L"uno"});
    b.Haupt().KatalogShow();
    b.Waehle(1);
    const bool vandal = seed % 2 == 0;
    Impatient user(b, seed, 300, vandal);
    b.platform.loop.TheUser = &user;
    try {
      b.platform.loop.Run();
    } catch (const ProgrammEnde&) {
      ASSERT_TRUE(vandal && user.Ended) << user.Log;
      b.platform.loop.TheUser = &b.user;
      continue;
    } catch (const std::exception& error) {
      FAIL() << error.what() << ": " << user.Log;
    }
    EXPECT_TRUE(user.Done()) << user.Log;
    EXPECT_TRUE(b.Haupt().Window.Enabled) << user.Log;
    seen.merge(user.Seen);
    if (!vandal) {
      const std::string wave = b.Lies(kFile);
      EXPECT_EQ(wave.substr(0, 4), "RIFF");
      EXPECT_EQ(test::Number(static_cast<std::uint32_t>(wave.size() - 8), 4), wave.substr(4, 4));
    }
    b.platform.loop.TheUser = &b.user;
  }
  EXPECT_TRUE(seen.contains(L"frmWaveEditor"));
}

}  // namespace vantora
