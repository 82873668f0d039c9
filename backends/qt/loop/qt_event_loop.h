// The event loop of the desktop: real windows with real widgets for any form.
//
// A form's widgets are made when it is first shown and go with the form. Properties that change are
// only marked; the loop brings them onto the screen when it turns, so that thousands of settings
// cost one paint. What the user changes goes back into the form's controls.
//
// Form_Activate runs inside Show and ShowModal. When a modal window has gone, the window that is in
// front again gets Form_GotFocus before ShowModal returns; it comes too when the person returns
// from another window or another program.
#pragma once

#include "platform/display.h"
#include "platform/event_loop.h"

#include <cstdint>
#include <filesystem>
#include <memory>

class QMenu;
class QWidget;

namespace vantora {

class FormWindow;

class QtEventLoop final : public EventLoop {
 public:
  // Pictures are `pictures`/NAME.svg; what was drawn of them is kept in the file `drawn`, or not at
  // all when it is blank. `speed` is how many milliseconds of the program pass in one
  // of the world: Sleep, timers and PostAfter are that much shorter. Needs a QtApp.
  explicit QtEventLoop(const std::filesystem::path& pictures,
                       const std::filesystem::path& drawn = {}, double speed = 1);
  ~QtEventLoop() override;
  QtEventLoop(const QtEventLoop&) = delete;
  QtEventLoop& operator=(const QtEventLoop&) = delete;

  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  void Minimize(Form& form) override;
  void SetFocus(Control& control) override;         // no effect on what cannot take the focus
  void PopupMenu(Form& form, Menu& menu) override;  // at the mouse; returns at once
  Form* Front() override;

  void Run() override;
  void Quit() override;
  void DoEvents() override;
  void Sleep(int ms) override;
  void Post(std::function<void()> work) override;
  void PostAfter(int ms, std::function<void()> work) override;

  std::int64_t EventMs() const override;

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
  bool Reachable(const Form& form) const;     // shown, not minimized, not behind a modal window
  bool Alive(const Control& control) const;   // compares places only: `control` may be gone
  QWidget* WindowOf(const Form& form) const;  // nothing before the form was shown
  QWidget* WidgetOf(const Control& control) const;
  Control* Focus(const Form& form) const;  // the control with the focus, or nothing
  QMenu* OpenMenu() const;                 // popped up and not yet answered
  // Runs `work`, and gives this stamp to the events that it sends without one.
  void ActAt(std::int64_t ms, const std::function<void()>& work);
  void Sync();                  // brings dirty controls into their widgets
  std::int64_t Paints() const;  // how often windows were painted
  // The modal window in front of which `TheUser` had nothing more to do; blank when there is none.
  const Text& LeftOpen() const;

 private:
  friend class FormWindow;
  class Core;

  void Attach(Form& form) override;
  void Detach(Form& form) override;

  std::unique_ptr<Core> core_;
};

}  // namespace vantora
