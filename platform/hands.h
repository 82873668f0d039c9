// Performs a user's actions on the controls of the window in front, as a mouse and a keyboard do.
// An action that a user could not perform (on a hidden or disabled control, on a window behind a
// modal one, text into a label) throws Unreachable with a sentence that states the reason.
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
  // The time of the next action, on the scale of EventLoop::EventMs; nothing: the time of the call.
  // Set by callers that need exact times on a busy machine.
  std::optional<std::int64_t> Moment;

  virtual void Press(Control& control) = 0;  // press and release, or a click
  virtual void DoubleClick(Control& control) = 0;
  virtual void RightClick(Control& control) = 0;
  // Presses at a position of a control, in thousandths of its width, at half its height.
  virtual void PressAt(Control& control, int at) = 0;
  virtual void DoubleClickAt(Control& control, int at) = 0;
  // Presses at position `from` and releases at position `to`, with a few moves between.
  virtual void Drag(Control& control, int from, int to) = 0;
  // Presses a control in its middle and releases the mouse `x` and `y` twips further, with a few
  // moves between.
  virtual void Pull(Control& /*control*/, int /*x*/, int /*y*/) {
    throw Unreachable("these hands cannot pull");
  }
  // A press with the Shift key held.
  virtual void ShiftPress(Control& /*control*/) {
    throw Unreachable("these hands cannot hold Shift");
  }
  // Presses a control and releases it after `ms` milliseconds of the program's clock. The program
  // goes on meanwhile.
  virtual void Hold(Control& control, int ms) = 0;
  virtual bool Holding() const = 0;  // a held control has not been released yet
  virtual void Type(Control& control, const Text& text) = 0;  // replaces the text of the control
  // Selects lines of a list, rows of a list view, or the line of a combo box, counted from 1. An
  // empty `rows` deselects all.
  virtual void Select(Control& control, const std::vector<int>& rows) = 0;
  // Sends a key to the window in front: F1 to F12, Return, Escape, Delete, Space, Tab, Up, Down,
  // Left, Right, Home, End, PageUp, PageDown, or a single letter or digit, optionally after
  // "Ctrl+", "Shift+" or "Alt+".
  virtual void Key(Form& form, const Text& key) = 0;
  virtual void ChooseMenu(Form& form, const Text& item) = 0;  // in the open popup menu
  virtual void Close(Form& form) = 0;                         // the desktop's close button
  // Drops files from another program onto a control.
  virtual void Drop(Control& /*control*/, const std::vector<Text>& /*files*/) {
    throw Unreachable("these hands cannot drop files");
  }
  // Saves a picture of the window in front as a PNG file. Returns false without a screen.
  virtual bool Shot(Form& form, const std::string& file) = 0;
};

}  // namespace vantora
