// What all controls of a window have in common: plain values that know when they changed, and the
// handlers that the window hangs on them. Nothing here draws; a renderer or a test looks at the
// values. Geometry is in twips (1/1440 inch).
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
  // `index` is the place in a control array, -1 for a control of its own.
  Control(Form& form, Text name, int index = -1);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual ControlKind Kind() const = 0;
  // The value of a property as text, as a script or a screen reader would ask for it; flags are
  // "True" and "False". Nothing for a property that the control does not have.
  virtual std::optional<Text> Read(const Text& property) const;

  // Visible with all that it lies in.
  bool InSight() const { return Visible && (Container == nullptr || Container->InSight()); }
  // Enabled with all that it lies in.
  bool InUse() const { return Enabled && (Container == nullptr || Container->InUse()); }
  Form& Owner() { return form_; }
  const Form& Owner() const { return form_; }
  void MarkDirty();

  const Text Name;
  const int Index;

  Property<int> Left{*this, 0}, Top{*this, 0}, Width{*this, 0}, Height{*this, 0};
  Property<bool> Visible{*this, true}, Enabled{*this, true};
  Property<Text> ToolTipText{*this, Text()};
  Property<Text> AccessibleName{*this, Text()};  // blank: the caption or the tooltip serves
  Property<Color> ForeColor{*this, Rgb(235, 238, 245)}, BackColor{*this, kTransparent};
  Property<int> FontSize{*this, 9};  // points
  Property<bool> FontBold{*this, false}, FontItalic{*this, false};
  Property<Text> FontName{*this, Text()};  // of labels and text boxes; blank: the program's own
  Text Tag;
  int TabIndex = 0;  // order of the focus; controls that take none ignore it
  // The control that it lies in, one that was made earlier: its place then counts from there, and
  // it is cut off at the edges, hidden and dimmed with it. Fixed once the window is shown.
  Control* Container = nullptr;
  bool Dirty = true;  // cleared by the renderer

  // Of labels and picture boxes: where the mouse is, in twips from the upper left corner; true
  // while a mouse handler runs. It goes beyond the edges while a button is held.
  int MouseX = 0, MouseY = 0;
  // Of labels and picture boxes: true while KeyDown or a mouse handler runs.
  bool ShiftHeld = false, ControlHeld = false;

  std::function<void()> Click, DblClick, GotFocus, LostFocus;
  std::function<void(int button)> MouseDown, MouseUp;
  std::function<void(int button)> MouseMove;  // labels and picture boxes; 0 for no button
  std::function<void(int key)> KeyDown, KeyUp;
  // Returns false to refuse a typed character (its code, or a control code such as 8).
  std::function<bool(int character)> KeyPress;

 private:
  Form& form_;
};

// N controls of one kind under one name, from index 0.
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
