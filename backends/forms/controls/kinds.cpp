// The methods of the controls that are no lists.

#include "backends/forms/controls/property_text.h"

#include "platform/form.h"

namespace vantora {

std::optional<Text> Label::Read(const Text& property) const {
  if (property == L"Caption") return Caption();
  return Control::Read(property);
}

std::optional<Text> PictureButton::Read(const Text& property) const {
  if (property == L"Picture") return Picture();
  return Control::Read(property);
}

std::optional<vantora::Text> TextBox::Read(const vantora::Text& property) const {
  if (property == L"Text") return Text();
  return Control::Read(property);
}

std::optional<Text> CheckBox::Read(const Text& property) const {
  if (property == L"Caption") return Caption();
  if (property == L"Value") return NumberText(Value);
  return Control::Read(property);
}

OptionButton::OptionButton(Form& form, Text name, int index, int group)
    : Control(form, std::move(name), index), group_(group) {}

void OptionButton::SetValue(bool value) {
  if (value) {
    for (Control* other : Owner().Controls) {
      auto* option = other == this ? nullptr : dynamic_cast<OptionButton*>(other);
      if (option != nullptr && option->group_ == group_) option->value_ = false;
    }
  }
  value_ = value;
}

std::optional<Text> OptionButton::Read(const Text& property) const {
  if (property == L"Caption") return Caption();
  if (property == L"Value") return FlagText(Value());
  return Control::Read(property);
}

Timer::Timer(Form& form, Text name, int index) : Control(form, std::move(name), index) {
  form.Timers.push_back(this);
}

Timer::~Timer() {
  std::erase(Owner().Timers, this);
}

void Timer::Restart() {
  Enabled = true;
  ++Starts;
  MarkDirty();
}

std::optional<Text> Slider::Read(const Text& property) const {
  if (property == L"Value") return NumberText(Value);
  return Control::Read(property);
}

void PictureBox::Cls() {
  drawing_.clear();
  ++revision_;
  MarkDirty();
}

void PictureBox::Draw(DrawItem item) {
  drawing_.push_back(std::move(item));
  ++revision_;
  MarkDirty();
}

std::optional<Text> PictureBox::Read(const Text& property) const {
  if (property == L"Picture") return Picture();
  if (property == L"Drawn") return NumberText(static_cast<int>(drawing_.size()));
  return Control::Read(property);
}

std::optional<Text> LevelMeter::Read(const Text& property) const {
  if (property == L"Active") return FlagText(Active);
  if (property == L"PeakLeft") return NumberText(PeakLeft);
  if (property == L"PeakRight") return NumberText(PeakRight);
  if (property == L"Mark") return NumberText(Mark);
  return Control::Read(property);
}

}  // namespace vantora
