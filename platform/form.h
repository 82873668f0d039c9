// A window: its controls in the order in which they were made, and the events of the window itself.
// A form draws nothing and waits for nothing; the event loop does both.
#pragma once

#include "platform/controls.h"

namespace vantora {

class EventLoop;

// A key that acts in a window without the focus on a button.
struct Shortcut {
  int Key = 0;                              // its code
  bool Control = false, Alt = false;        // held with the key; Shift must not be held
  const vantora::Control* Focus = nullptr;  // works only while this control has the focus
  bool Repeats = false;                     // acts again and again while the key is held
  std::function<void()> Act;
};

class Form {
 public:
  Form(EventLoop& loop, Text name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const Text Name;

  std::vector<Control*> Controls;
  std::vector<Timer*> Timers;  // the timers among the controls
  std::vector<Menu> Menus;
  std::vector<Shortcut> Shortcuts;  // for keys that Form_KeyDown has not used

  // The window's own values are properties of a hidden control, so that they behave like all other
  // properties.
  class Frame : public Control {
   public:
    using Control::Control;
    ControlKind Kind() const override { return ControlKind::Shape; }
  };
  // Left, Top, Width and Height of the inner area in twips, Enabled, and BackColor. A window that
  // is shown over another window is centred over that window, wherever it was placed before.
  Frame Window;
  Property<Text> Caption{Window, Text()};
  Property<Text> Picture{Window, Text()};  // background; fills the inner area
  bool HasBorder = true;                   // the window has the desktop's title bar
  bool FillsScreen = false;          // the window covers the desktop's own bars and has no border
  bool CloseWhileDisabled = false;   // Form_Close is called even while the window is disabled
  bool EscapeWhileDisabled = false;  // Form_KeyDown gets Escape even while the window is disabled
  bool FirstFocus = true;            // false: no control has the focus until the user chooses one

  // A list of the window behind. This window does not cover the selected row of the list, if the
  // screen has room for that.
  const Control* KeepClear = nullptr;

  bool Visible() const { return visible_; }  // the window is shown and not hidden
  bool Dirty = true;                         // a control has changed; the renderer clears the flag

  Control* Find(const Text& name, int index = -1) const;
  Menu* FindMenu(const Text& name);

  virtual void Form_Activate() {}  // the window came to the front
  virtual void Form_GotFocus() {}  // the window has the focus again after another window had it
  virtual void Form_Paint() {}
  // Returns true if the window has used the key. No control gets the key then.
  virtual bool Form_KeyDown(int /*key*/, bool /*control*/) { return false; }
  // Called once for each pressed key when the key is released, even if another window has the focus
  // by then.
  virtual void Form_KeyUp(int /*key*/) {}
  // The user has pressed the desktop's close button. The window decides how it reacts.
  virtual void Form_Close() {}

 private:
  friend class EventLoop;
  EventLoop& loop_;
  bool visible_ = false;
};

}  // namespace vantora
