// Words that a window shows, and words that a person enters.
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
  // How large words in a font of their own (FontName) are shown. They keep the breadth that they
  // have on paper, so what stands beside each other there does so here.
  Property<double> FontScale{*this, 1.0};
  bool TabStop = false;         // takes the focus; Return and the space bar then act as its click
  const Control* Of = nullptr;  // the button that it is the caption of: with that it goes dim
};

class TextBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::TextBox; }
  std::optional<vantora::Text> Read(const vantora::Text& property) const override;

  Property<vantora::Text> Text{*this, vantora::Text()};
  Property<int> MaxLength{*this, 0};  // characters, 0 for no limit
  bool SelectOnFocus = true;
  bool MultiLine = false;  // Return begins a line; lines end in "\r\n". Fixed once it is shown.
  std::function<void()> Change;
};

}  // namespace vantora
