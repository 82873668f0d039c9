// A test fixture with the desktop's loop, its hands and a simulated user.
#pragma once

#include <gtest/gtest.h>

#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/loop/qt_hands.h"
#include "tests/backends/full_form.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace vantora {

// Sends a mouse event of the left button to a place of a widget; `held` are the buttons that are
// down.
inline void Mouse(QWidget& widget, QEvent::Type what, const QPointF& place, Qt::MouseButtons held) {
  QMouseEvent event(what, place, widget.mapToGlobal(place),
                    what == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                    Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

class Stage : public testing::Test {
 protected:
  Stage() {
    loop.TheUser = &person;
    loop.OnError = [](const Laufzeitfehler& error) { ADD_FAILURE() << error.what(); };
  }

  // Shows the form and runs the loop until the person has performed all steps. The test fails if
  // the last action failed after its call.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
    EXPECT_NO_THROW(hands.Settle());
  }

  QtEventLoop loop{"", {}, 20};  // no pictures; time runs 20 times as fast
  QtHands hands{loop};
  Person person;
};

}  // namespace vantora
