// The services that a window needs from the loop that shows it.
#pragma once

#include "backends/forms/form_loop.h"
#include "backends/qt/pictures/pictures.h"

#include <QMargins>
#include <QRect>

#include <cstdint>
#include <optional>

class QWidget;

namespace vantora {

class WindowHost {
 public:
  virtual ~WindowHost() = default;
  virtual FormLoop& Model() = 0;  // the model of the windows and their events
  // Must be called when a window of the program gets the focus.
  virtual void Activated() = 0;
  virtual void Painted() = 0;
  // Begins a key or mouse event with this stamp; 0: the event has no stamp. Returns the time of the
  // previous event. The caller passes that time to FormLoop::EventBegins after this event.
  virtual std::optional<std::int64_t> Stamp(std::uint64_t stamp) = 0;
  virtual QRect Room(const QWidget& window) const = 0;  // area for windows on its screen
  // Frame that the desktop adds to windows; a guess until the first window is shown.
  virtual QMargins& Border() = 0;
  virtual Text PathOfFile(const QString& file) const = 0;  // converts to a product path
  virtual Pictures& ThePictures() = 0;
};

}  // namespace vantora
