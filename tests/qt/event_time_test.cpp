#include "tests/qt/stage.h"

#include <QKeyEvent>
#include <QWindow>

#include <chrono>
#include <thread>

namespace vantora {
namespace {

struct TapForm final : TestForm {
  explicit TapForm(EventLoop& loop) : TestForm(loop, L"frmTap"), Loop(loop) {}
  bool Form_KeyDown(int /*key*/, bool /*control*/) override {
    Times.push_back(Loop.EventMs());
    return true;
  }
  void Form_KeyUp(int /*key*/) override { ++Ups; }

  EventLoop& Loop;
  std::vector<std::int64_t> Times;
  int Ups = 0;
};

void Send(QObject* window, QEvent::Type type, std::uint64_t stamp, bool repeats = false) {
  QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, " ", repeats);
  event.setTimestamp(stamp);
  QApplication::sendEvent(window, &event);
}

TEST_F(Stage, AKeyBearsItsOwnTimeAndIsLetGoOnceWhereverThatHappens) {
  TapForm form(loop);
  person.Then([&] {
    QWidget* window = loop.WindowOf(form);
    Send(window, QEvent::KeyPress, 70000);
    EXPECT_GT(loop.EventMs(), 0);                                // without a handler: the time now
    std::this_thread::sleep_for(std::chrono::milliseconds(30));  // the window is busy
    Send(window, QEvent::KeyRelease, 70100, true);
    Send(window, QEvent::KeyPress, 70100, true);
    EXPECT_EQ(form.Ups, 0);
    Send(window, QEvent::KeyRelease, 70200);
    EXPECT_EQ(form.Ups, 1);
    Send(window, QEvent::KeyPress, 70480);
    ASSERT_EQ(form.Times.size(), 3U);
    EXPECT_EQ(form.Times[2] - form.Times[0], 480);
    QEvent leaves(QEvent::WindowDeactivate);
    QApplication::sendEvent(window, &leaves);
    EXPECT_EQ(form.Ups, 2);
    Send(window, QEvent::KeyRelease, 70500);
    EXPECT_EQ(form.Ups, 2);
    // An event without a stamp gets a time near the times of events with stamps.
    Send(window, QEvent::KeyPress, 0);
    EXPECT_LT(std::abs(form.Times.back() - 70480), 20000);
  });
  Play(form);
}

// After a window has closed, X11 sends the press of a repetition without its release, and now and
// then the toolkit takes the two halves of a repetition for a release and a new press.
TEST_F(Stage, AHeldKeyThatLooksLikeANewPressDoesNothingInAnotherWindow) {
  TapForm back(loop), front(loop);
  person.Then([&] { loop.Show(front); }).Then([&] {
    constexpr auto kPress = QEvent::KeyPress, kRelease = QEvent::KeyRelease;
    const struct {
      const Form& Target;
      QEvent::Type Type;
      std::uint64_t Stamp;
      std::size_t Taps;  // that the window in the back has got
    } steps[] = {{front, kPress, 70000, 0},  {back, kPress, 70660, 0},   {back, kRelease, 70690, 0},
                 {back, kPress, 70690, 0},   {back, kRelease, 70710, 0}, {back, kPress, 70800, 1},
                 {back, kRelease, 71460, 1}, {back, kPress, 71460, 2},  // pressed here
                 {front, kPress, 73000, 2}};                            // the release was lost
    for (const auto& step : steps) {
      Send(loop.WindowOf(step.Target)->windowHandle(), step.Type, step.Stamp);
      EXPECT_EQ(back.Times.size(), step.Taps) << step.Stamp;
    }
    EXPECT_EQ(front.Times.size(), 2U);
  });
  Play(back);
}

TEST_F(Stage, APictureThatFollowsTheMouseIsNeverBehindIt) {
  FullForm form(loop);
  PictureBox& box = form.picWave;
  const int left = box.Left;
  int grip = 0;
  box.MouseDown = [&](int) { grip = box.MouseX; };
  box.MouseMove = [&](int button) {
    if (button == kLeftButton) box.Left = box.Left + box.MouseX - grip;
  };
  person
      .Then([&] {
        QWidget& widget = *loop.WidgetOf(box);
        Mouse(widget, QEvent::MouseButtonPress, {10, 5}, Qt::LeftButton);
        // The second move comes before the window has followed the first move.
        for (const qreal x : {20, 30}) Mouse(widget, QEvent::MouseMove, {x, 5}, Qt::LeftButton);
        EXPECT_EQ(box.Left, left + 20 * 15);
        Mouse(widget, QEvent::MouseButtonRelease, {10, 5}, Qt::NoButton);
      })
      .Then([&] { hands.Drag(box, 500, 600); })
      .Then([&] { EXPECT_NEAR(box.Left, left + 20 * 15 + box.Width / 10.0, 30); });
  Play(form);
}

}  // namespace
}  // namespace vantora
