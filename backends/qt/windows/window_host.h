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
  virtual void Handle(const std::function<void()>& handler) = 0;  // runs a handler under the loop's
                                                                  // rules
  virtual void Later(std::function<void()> work) = 0;             // runs in a later turn of the
                                                                  // loop
  virtual bool Blocked(const Form& form) const = 0;               // behind a modal window, or the
                                                                  // loop has ended
  virtual void Activated() = 0;                                   // a window of the program got the
                                                                  // focus
  virtual void Restored(Form& form) = 0;                          // it was minimised
  virtual void Painted() = 0;
  // Sets the stamp of the key or mouse event being handled, 0 for none, and returns the previous
  // one.
  virtual std::uint64_t Stamp(std::uint64_t stamp) = 0;
  virtual QRect Room(const QWidget& window) const = 0;  // area for windows on its screen
  virtual QMargins& Border() = 0;  // frame that the desktop adds to windows; a guess until the
                                   // first window is shown
  virtual Text PathOfFile(const QString& file) const = 0;  // converts to a product path
  virtual Pictures& ThePictures() = 0;
};

}  // namespace vantora
