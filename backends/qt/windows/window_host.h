// The services that a window needs from the loop that shows it.
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
  // Runs a handler under the loop's rules.
  virtual void Handle(const std::function<void()>& handler) = 0;
  // Runs `work` in a later turn of the loop.
  virtual void Later(std::function<void()> work) = 0;
  // True for a form behind a modal window, or after the loop's end.
  virtual bool Blocked(const Form& form) const = 0;
  // Must be called when a window of the program gets the focus.
  virtual void Activated() = 0;
  virtual void Restored(Form& form) = 0;  // it was minimised
  virtual void Painted() = 0;
  // Sets the stamp of the key or mouse event being handled, 0 for none, and returns the previous
  // one.
  virtual std::uint64_t Stamp(std::uint64_t stamp) = 0;
  virtual QRect Room(const QWidget& window) const = 0;  // area for windows on its screen
  // Frame that the desktop adds to windows; a guess until the first window is shown.
  virtual QMargins& Border() = 0;
  virtual Text PathOfFile(const QString& file) const = 0;  // converts to a product path
  virtual Pictures& ThePictures() = 0;
};

}  // namespace vantora
