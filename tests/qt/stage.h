// The desktop's loop and hands on a stage.
#pragma once

#include <gtest/gtest.h>

#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/loop/qt_hands.h"
#include "tests/backends/full_form.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <string>
#include <vector>

namespace vantora {

// What the left button does at a place of a widget; `held` are the buttons that are down.
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
    loop.OnError = [this](const Laufzeitfehler& error) { errors.push_back(error.what()); };
  }

  // Shows the form and lets the person act until his story ends; what he meant to do last is done.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
    EXPECT_NO_THROW(hands.Settle());
  }

  QtEventLoop loop{"", {}, 20};  // no pictures, and time that runs 20 times as fast
  QtHands hands{loop};
  Person person;
  std::vector<std::string> errors;
};

}  // namespace vantora
