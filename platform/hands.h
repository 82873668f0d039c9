// A user's hands: acts on the controls of the window in front as a mouse and a keyboard do. What a
// person could not do (a hidden or disabled control, a window behind a modal one, text into a
// label) throws Unreachable with a sentence that says why.
#pragma once

#include "platform/form.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantora {

struct Unreachable : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Hands {
 public:
  virtual ~Hands() = default;
  // When what is done next is done, by EventLoop::EventMs; nothing: at the call. For hands that
  // keep time better than a busy machine does.
  std::optional<std::int64_t> Moment;

  virtual void Press(Control& control) = 0;  // press and release, or click, as the control wants
  virtual void DoubleClick(Control& control) = 0;
  virtual void RightClick(Control& control) = 0;
  // The same at a place of a control; in thousandths of its width, half way down.
  virtual void PressAt(Control& control, int at) = 0;
  virtual void DoubleClickAt(Control& control, int at) = 0;
  // Presses at one such place and releases at another, with a few moves between them.
  virtual void Drag(Control& control, int from, int to) = 0;
  // Presses a label in its middle and lets it go so many twips further, with a few moves between.
  virtual void Pull(Control& /*control*/, int /*x*/, int /*y*/) {
    throw Unreachable("these hands cannot pull");
  }
  // A press with the Shift key held.
  virtual void ShiftPress(Control& /*control*/) {
    throw Unreachable("these hands cannot hold Shift");
  }
  // Presses a control and lets it go after so many milliseconds of the program's clock. What the
  // program does meanwhile, it does.
  virtual void Hold(Control& control, int ms) = 0;
  virtual bool Holding() const = 0;  // what was held has not been let go yet
  virtual void Type(Control& control, const Text& text) = 0;  // replaces what stands there
  // Lines of a list, rows of a list view, or the line of a combo box; from 1. No row: none.
  virtual void Select(Control& control, const std::vector<int>& rows) = 0;
  // A key to the window in front: F1 to F12, Return, Escape, Delete, Space, Tab, Up, Down, Left,
  // Right, Home, End, PageUp, PageDown, a single letter or digit; "Ctrl+" and "Shift+" in front.
  virtual void Key(Form& form, const Text& key) = 0;
  virtual void ChooseMenu(Form& form, const Text& item) = 0;  // of the menu that is popped up
  virtual void Close(Form& form) = 0;                         // the desktop's close button
  // Files dragged from another program and let go over a control.
  virtual void Drop(Control& /*control*/, const std::vector<Text>& /*files*/) {
    throw Unreachable("these hands cannot drop files");
  }
  // A picture of the window in front as a PNG file; false where there is no screen.
  virtual bool Shot(Form& form, const std::string& file) = 0;
};

}  // namespace vantora
