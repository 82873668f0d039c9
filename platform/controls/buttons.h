// What a person presses, and what he puts on and off.
#pragma once

#include "platform/controls/control.h"

namespace vantora {

// A button drawn from pictures; also a plain picture when no handler hangs on it.
class PictureButton : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::PictureButton; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Picture{*this, Text()};    // resource name; what is shown now
  Property<Text> Icon{*this, Text()};       // resource name of a picture on top, centred
  Property<double> ClipTop{*this, 0.0};     // shown part of the picture, in shares of its
  Property<double> ClipHeight{*this, 1.0};  // height
  Text PictureReleased, PicturePressed;     // blank: the picture does not change on a press
  bool TabStop = true;  // false: takes no focus; the mouse and the window's own keys press it
};

class CheckBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::CheckBox; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Caption{*this, Text()};
  Property<int> Value{*this, 0};  // 0 or 1
};

// Of the option buttons of one group at most one is set; setting one clears the others.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, Text name, int index, int group);
  ControlKind Kind() const override { return ControlKind::OptionButton; }
  std::optional<Text> Read(const Text& property) const override;

  bool Value() const { return value_(); }
  void SetValue(bool value);
  int Group() const { return group_; }

  Property<Text> Caption{*this, Text()};

 private:
  Property<bool> value_{*this, false};
  int group_;
};

}  // namespace vantora
