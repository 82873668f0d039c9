// What a window asks of the loop that shows it.
#pragma once

#include "backends/qt/pictures/pictures.h"

#include "platform/event_loop.h"

#include <QMargins>
#include <QRect>

#include <cstdint>

class QWidget;

namespace vantora {

class FormWindow;

class WindowHost {
 public:
  virtual ~WindowHost() = default;
  virtual void Handle(const std::function<void()>& handler) = 0;  // runs it as the loop runs all
  virtual void Later(std::function<void()> work) = 0;             // when the loop turns
  virtual bool Blocked(const Form& form) const = 0;               // behind a modal window, or ended
  virtual void Activated() = 0;                                   // some window got the focus
  virtual void Restored(Form& form) = 0;                          // it was minimized
  virtual void Painted() = 0;
  // The stamp of the key or mouse event that is being handled, 0 for none; returns the one before.
  virtual std::uint64_t Stamp(std::uint64_t stamp) = 0;
  virtual QRect Room(const QWidget& window) const = 0;  // that windows have on its screen
  virtual QMargins& Border() = 0;  // that the desktop puts round a window; a guess at first
  virtual Text PathOfFile(const QString& file) const = 0;  // as the program writes it
  virtual Pictures& ThePictures() = 0;
};

}  // namespace vantora
