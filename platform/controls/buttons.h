// Controls that a user presses, and controls that a user switches on and off.
#pragma once

#include "platform/controls/control.h"

namespace vantora {

// A button drawn from pictures. Without a handler the control is a plain picture.
class PictureButton : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::PictureButton; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Picture{*this, Text()};  // resource name of the picture that is shown now
  Property<Text> Icon{*this, Text()};     // resource name of a picture that is centred on top
  // The top and the height of the part that is shown, as shares of the height of the picture.
  Property<double> ClipTop{*this, 0.0};
  Property<double> ClipHeight{*this, 1.0};
  // Set for switches and lamps, whose picture shows a state. A screen reader speaks the state.
  Property<Lamp> State{*this, Lamp::None};
  Text PictureReleased, PicturePressed;  // blank: the picture does not change on a press
  // False: the button takes no focus. The mouse and the window's own keys still press it.
  bool TabStop = true;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::CheckBox; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Caption{*this, Text()};
  Property<int> Value{*this, 0};  // 0 or 1
};

// At most one option button of a group is set. Setting an option button clears the others.
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
