// The event loop of the desktop: real windows with real widgets for any form.
//
// A form's widgets are created when the form is first shown, and are destroyed with the form. A
// change of a property only marks the control. The loop updates the screen when it turns, so that
// thousands of changes cost one paint. Changes by the user are written to the form's controls.
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
  // Pictures are read from `pictures`/NAME.svg. Drawn pictures are kept in the file `drawn`;
  // nothing is kept when `drawn` is blank. `speed` is the number of the program's milliseconds that
  // pass in a real millisecond: at 20, Sleep, timers and PostAfter take a twentieth of their time.
  // Needs a QtApp.
  explicit QtEventLoop(const std::filesystem::path& pictures,
                       const std::filesystem::path& drawn = {}, double speed = 1);
  ~QtEventLoop() override;
  QtEventLoop(const QtEventLoop&) = delete;
  QtEventLoop& operator=(const QtEventLoop&) = delete;

  void Sleep(int ms) override;
  void MousePointer(Pointer pointer) override;
  Pointer MousePointer() const override;
  void Beep() override;

  // Converts the path of a file that is dragged over a window to a product path. Without this
  // function, the program gets the system's path.
  std::function<Text(const std::string& file)> PathOfFile;

  // Windows fit into this screen; null: into the real screen.
  Display* Stage = nullptr;

  // ---- for hands and tests ----

  double Speed() const;
  QWidget* WindowOf(const Form& form) const;  // null before the form is first shown
  QWidget* WidgetOf(const Control& control) const;
  QMenu* OpenMenu() const;      // the menu that is open, or null
  std::int64_t Paints() const;  // number of paints of all windows so far

 private:
  friend class FormWindow;
  class Core;

  Core& core_;
};

}  // namespace vantora
