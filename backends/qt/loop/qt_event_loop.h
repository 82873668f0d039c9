// The event loop of the desktop: real windows with real widgets for any form.
//
// A form's widgets are made when it is first shown and go with the form. Properties that change are
// only marked; the loop brings them onto the screen when it turns, so that thousands of settings
// cost one paint. What the user changes goes back into the form's controls.
#pragma once

#include "backends/forms/form_loop.h"

#include "platform/display.h"

#include <cstdint>
#include <filesystem>
#include <memory>

class QMenu;
class QWidget;

namespace vantora {

class FormWindow;

class QtEventLoop final : public FormLoop {
 public:
  // Pictures are `pictures`/NAME.svg; what was drawn of them is kept in the file `drawn`, or not at
  // all when it is blank. `speed` is how many milliseconds of the program pass in one
  // of the world: Sleep, timers and PostAfter are that much shorter. Needs a QtApp.
  explicit QtEventLoop(const std::filesystem::path& pictures,
                       const std::filesystem::path& drawn = {}, double speed = 1);
  ~QtEventLoop() override;
  QtEventLoop(const QtEventLoop&) = delete;
  QtEventLoop& operator=(const QtEventLoop&) = delete;

  void Sleep(int ms) override;
  void MousePointer(Pointer pointer) override;
  Pointer MousePointer() const override;
  void Beep() override;

  // How the program writes the path of a file that is dragged over a window; when nothing is set,
  // as the system does.
  std::function<Text(const std::string& file)> PathOfFile;

  // The screen whose size the windows fit into instead of the real one's.
  Display* Stage = nullptr;

  // ---- for hands and tests ----

  double Speed() const;
  QWidget* WindowOf(const Form& form) const;  // nothing before the form was shown
  QWidget* WidgetOf(const Control& control) const;
  QMenu* OpenMenu() const;      // popped up and not yet answered
  std::int64_t Paints() const;  // how often windows were painted

 private:
  friend class FormWindow;
  class Core;

  Core& core_;
};

}  // namespace vantora
