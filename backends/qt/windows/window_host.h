// What a window asks of the desktop's loop that shows it.
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
  virtual FormLoop& Model() = 0;  // who is in front, and what is reported to whom
  virtual void Activated() = 0;   // some window got the focus
  virtual void Painted() = 0;
  // The stamp of the key or mouse event that is going to be handled, 0 for none. Returns what
  // counted before, for FormLoop::EventBegins afterwards.
  virtual std::optional<std::int64_t> Stamp(std::uint64_t stamp) = 0;
  virtual QRect Room(const QWidget& window) const = 0;  // that windows have on its screen
  virtual QMargins& Border() = 0;  // that the desktop puts round a window; a guess at first
  virtual Text PathOfFile(const QString& file) const = 0;  // as the program writes it
  virtual Pictures& ThePictures() = 0;
};

}  // namespace vantora
