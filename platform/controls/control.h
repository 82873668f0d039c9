// The base of all controls of a window. A control holds plain values and the handlers of its
// window. A change of a value marks the control as changed. A control draws nothing; a renderer or
// a test reads the values. Positions and sizes are in twips (1/1440 inch).
#pragma once

#include "platform/controls/keys.h"
#include "platform/controls/property.h"
#include "platform/text.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantora {

class Form;

enum MouseButton : int { kLeftButton = 1, kRightButton = 2 };

enum class Lamp { None, Off, On };  // the state of a switch or of a lamp

enum class ControlKind {
  Label,
  PictureButton,
  TextBox,
  CheckBox,
  OptionButton,
  ComboBox,
  ListBox,
  ListView,
  Slider,
  Shape,
  PictureBox,
  LevelMeter,
  Timer,
};

class Control {
 public:
  // `index` is the place in a control array, or -1 for a control outside of an array.
  Control(Form& form, Text name, int index = -1);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual ControlKind Kind() const = 0;
  // Returns the value of a property as the text that a script or a screen reader asks for. Flags
  // are "True" and "False". Returns nothing for a property that the control does not have.
  virtual std::optional<Text> Read(const Text& property) const;

  // True if the control and all its containers are visible.
  bool InSight() const { return Visible && (Container == nullptr || Container->InSight()); }
  // True if the control and all its containers are enabled.
  bool InUse() const { return Enabled && (Container == nullptr || Container->InUse()); }
  Form& Owner() { return form_; }
  const Form& Owner() const { return form_; }
  void MarkDirty();

  const Text Name;
  const int Index;

  Property<int> Left{*this, 0}, Top{*this, 0}, Width{*this, 0}, Height{*this, 0};
  Property<bool> Visible{*this, true}, Enabled{*this, true};
  Property<Text> ToolTipText{*this, Text()};
  Property<Text> AccessibleName{*this, Text()};  // blank: the caption or the tooltip is used
  // For screen readers: a sentence that says what a drawing shows now.
  Property<Text> AccessibleValue{*this, Text()};
  Property<Color> ForeColor{*this, Rgb(235, 238, 245)}, BackColor{*this, kTransparent};
  Property<int> FontSize{*this, 9};  // points
  Property<bool> FontBold{*this, false}, FontItalic{*this, false};
  Property<Text> FontName{*this, Text()};  // for labels and text boxes; blank: the program's font
  Text Tag;
  int TabIndex = 0;  // place in the order of the Tab key; unused if the control takes no focus
  // The control that this control lies in, if there is one. The container must have been made
  // earlier. Left and Top then count from the corner of the container. The edges of the container
  // cut the control off. The control is hidden and dimmed together with the container. The value
  // does not change once the window is shown.
  Control* Container = nullptr;
  bool Dirty = true;  // the control has changed; the renderer clears the flag

  // The place of the mouse on a label or a picture box, in twips from the upper left corner. The
  // place is valid while a mouse handler runs. It can lie beyond the edges while a button is held.
  int MouseX = 0, MouseY = 0;
  // Labels and picture boxes: whether Shift and Ctrl are held. Valid while KeyDown or a mouse
  // handler runs.
  bool ShiftHeld = false, ControlHeld = false;

  std::function<void()> Click, DblClick, GotFocus, LostFocus;
  std::function<void(int button)> MouseDown, MouseUp;
  std::function<void(int button)> MouseMove;  // for labels and picture boxes; 0: no button
  std::function<void(int key)> KeyDown, KeyUp;
  // Returns false to refuse a typed character. `character` is its code, or a control code such as
  // 8.
  std::function<bool(int character)> KeyPress;

 private:
  Form& form_;
};

// N controls of one kind and one name. Their indexes begin at 0.
template <typename C, int N>
class ControlArray {
 public:
  ControlArray(Form& form, const Text& name) {
    for (int i = 0; i < N; ++i) items_.push_back(std::make_unique<C>(form, name, i));
  }
  ControlArray(Form& form, const Text& name, int group) {
    for (int i = 0; i < N; ++i) items_.push_back(std::make_unique<C>(form, name, i, group));
  }
  C& operator()(int index) { return *items_.at(static_cast<std::size_t>(index)); }
  const C& operator()(int index) const { return *items_.at(static_cast<std::size_t>(index)); }
  static constexpr int Count() { return N; }

 private:
  std::vector<std::unique_ptr<C>> items_;
};

}  // namespace vantora
