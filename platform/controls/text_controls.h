// Labels, and boxes into which the user types text.
#pragma once

#include "platform/controls/control.h"

namespace vantora {

class Label : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::Label; }
  std::optional<Text> Read(const Text& property) const override;

  Property<Text> Caption{*this, Text()};  // "&" marks no shortcut, line ends break the line
  Property<Alignment> Align{*this, Alignment::Left};
  Property<bool> WordWrap{*this, false};
  Property<int> BorderStyle{*this, 0};  // 1: a thin frame
  // The scale at which words in a font of their own (FontName) are shown. The words keep the width
  // that they have on paper. Words that stand side by side on paper therefore do so on the screen
  // too.
  Property<double> FontScale{*this, 1.0};
  // True: the label takes the focus, and Return and the space bar then act like a click.
  bool TabStop = false;
  // The button to which this label is the caption. The label is dimmed together with the button.
  const Control* Of = nullptr;
};

class TextBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::TextBox; }
  std::optional<vantora::Text> Read(const vantora::Text& property) const override;

  Property<vantora::Text> Text{*this, vantora::Text()};
  Property<int> MaxLength{*this, 0};  // characters, 0 for no limit
  bool SelectOnFocus = true;
  // Return begins a new line, and lines end in "\r\n". The flag does not change once the box is
  // shown.
  bool MultiLine = false;
  std::function<void()> Change;
};

}  // namespace vantora
