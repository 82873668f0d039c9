// What a screen reader finds in place of the program's own widgets. A widget that says nothing,
// such as the caption of a button or the filled part of a bar, is not found at all; a silent widget
// that holds others is a group. Windows that are not shown are not found either.
#pragma once

#include "platform/controls/buttons.h"

#include <QAccessible>
#include <QString>
#include <QWidget>

#include <functional>

namespace vantora {

struct Said {
  QAccessible::Role Role = QAccessible::NoRole;  // NoRole: the widget says nothing
  int Percent = -1;                              // of a bar that has a value; -1: none
  Lamp State = Lamp::None;                       // of a switch or a lamp
  QString Value = {};  // a sentence about what it shows; its name is the accessible name

  bool operator==(const Said& other) const = default;
};

// A base of widgets, beside QWidget.
class Spoken {
 public:
  virtual ~Spoken() = default;
  Spoken() = default;
  Spoken(const Spoken&) = delete;
  Spoken& operator=(const Spoken&) = delete;

  const Said& Says() const { return said_; }
  void Say(QWidget& widget, const Said& said);               // announces what has changed
  void SayPercent(int percent) { said_.Percent = percent; }  // without an announcement

  // Does what a click does. Runs only when the loop turns again, so that the screen reader does not
  // wait for the windows that a click opens. Without it, the widget cannot be pressed.
  std::function<void()> Press;

 private:
  Said said_;
};

// Makes screen readers find the widgets as this header says. The application must exist, because
// the toolkit asks what was installed last. Repeated calls do no harm.
void LetScreenReadersIn();

}  // namespace vantora
