// A window: its controls in the order in which they were made, and the events of the window itself.
// A form draws nothing and waits for nothing; that is the event loop's work.
#pragma once

#include "platform/controls.h"

namespace vantora {

class EventLoop;

class Form {
 public:
  Form(EventLoop& loop, Text name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const Text Name;

  std::vector<Control*> Controls;
  std::vector<Timer*> Timers;  // those among the controls
  std::vector<Menu> Menus;

  // The window's own values live on a hidden control, so that they are properties like all others.
  class Frame : public Control {
   public:
    using Control::Control;
    ControlKind Kind() const override { return ControlKind::Shape; }
  };
  // Left, Top, Width, Height (of the inner area, twips), Enabled, BackColor. One that is shown over
  // another window stands over the middle of that, wherever it was placed before.
  Frame Window;
  Property<Text> Caption{Window, Text()};
  Property<Text> Picture{Window, Text()};  // ground, fills the inner area
  bool HasBorder = true;                   // title bar of the desktop
  bool FillsScreen = false;                // without a border, over the desktop's own bars
  bool CloseWhileDisabled = false;         // Form_Close comes also while the window is disabled
  bool EscapeWhileDisabled = false;        // so does Escape, to Form_KeyDown alone
  bool FirstFocus = true;  // false: no control has the focus before the user has given it to one

  bool Visible() const { return visible_; }  // shown by the event loop and not hidden since
  bool Dirty = true;                         // some control is dirty; cleared by the renderer

  Control* Find(const Text& name, int index = -1) const;
  Menu* FindMenu(const Text& name);

  virtual void Form_Activate() {}  // it came to the front
  virtual void Form_GotFocus() {}  // it has the focus again after another window had it
  virtual void Form_Paint() {}
  // True: the key is used up, and reaches no control.
  virtual bool Form_KeyDown(int /*key*/, bool /*control*/) { return false; }
  // The key is let go; once for each that was pressed, also when another window has it by then.
  virtual void Form_KeyUp(int /*key*/) {}
  virtual void Form_Close() {}  // the desktop's close button; the window decides what it means

 private:
  friend class EventLoop;
  EventLoop& loop_;
  bool visible_ = false;
};

}  // namespace vantora
