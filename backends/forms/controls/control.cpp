#include "backends/forms/controls/property_text.h"

#include "platform/form.h"

#include <algorithm>

namespace vantora {

Control::Control(Form& form, Text name, int index)
    : Name(std::move(name)), Index(index), form_(form) {
  TabIndex = static_cast<int>(form.Controls.size());
  form.Controls.push_back(this);
  form.Dirty = true;
}

Control::~Control() {
  std::erase(form_.Controls, this);
  form_.Dirty = true;
}

void MarkDirty(Control& control) {
  control.MarkDirty();
}

void Control::MarkDirty() {
  Dirty = true;
  form_.Dirty = true;
}

std::optional<Text> Control::Read(const Text& property) const {
  if (property == L"Visible") return FlagText(Visible);
  if (property == L"Enabled") return FlagText(Enabled);
  if (property == L"ToolTipText") return ToolTipText();
  if (property == L"AccessibleName") return AccessibleName();
  if (property == L"Left") return NumberText(Left);
  if (property == L"Top") return NumberText(Top);
  if (property == L"Width") return NumberText(Width);
  if (property == L"Height") return NumberText(Height);
  if (property == L"Tag") return Tag;
  if (property == L"ForeColor") {
    const Color c = ForeColor;
    return NumberText(static_cast<int>(c >> 16U & 255U)) + L"," +
           NumberText(static_cast<int>(c >> 8U & 255U)) + L"," +
           NumberText(static_cast<int>(c & 255U));
  }
  return std::nullopt;
}

}  // namespace vantora
