// A window: its controls in the order in which they were made, and the events of the window itself.
// A form draws nothing and waits for nothing; that is the event loop's work.
#pragma once

#include "platform/controls.h"

#include <algorithm>

namespace vantora {

class EventLoop;

class Form {
 public:
  Form(EventLoop& loop, Text name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const Text Name;

  std::vector<Control*> Controls;
  std::vector<Menu> Menus;

  // The window's own values live on a hidden control, so that they are properties like all others.
  class Frame : public Control {
   public:
    using Control::Control;
    ControlKind Kind() const override { return ControlKind::Shape; }
  };
  // Left, Top, Width, Height (of the inner area, twips), Enabled, BackColor. One that is shown over
  // another window stands over the middle of that, wherever it was placed before.
  Frame Window;
  Property<Text> Caption{Window, Text()};
  Property<Text> Picture{Window, Text()};  // ground, fills the inner area
  bool HasBorder = true;                   // title bar of the desktop
  bool FillsScreen = false;                // without a border, over the desktop's own bars
  bool CloseWhileDisabled = false;         // Form_Close comes also while the window is disabled
  bool EscapeWhileDisabled = false;        // so does Escape, to Form_KeyDown alone
  bool FirstFocus = true;  // false: no control has the focus before the user has given it to one

  bool Visible() const { return visible_; }  // shown by the event loop and not hidden since
  bool Dirty = true;                         // some control is dirty; cleared by the renderer

  Control* Find(const Text& name, int index = -1) const;
  Menu* FindMenu(const Text& name);

  virtual void Form_Activate() {}  // it came to the front
  virtual void Form_GotFocus() {}  // it has the focus again after another window had it
  virtual void Form_Paint() {}
  virtual bool Form_KeyDown(int /*key*/, bool /*control*/) {
    return false;
  }  // true: key is used up
  // The key is let go; once for each that was pressed, also when another window has it by then.
  virtual void Form_KeyUp(int /*key*/) {}
  virtual void Form_Close() {}  // the desktop's close button; the window decides what it means

 private:
  friend class EventLoop;
  EventLoop& loop_;
  bool visible_ = false;
};

namespace detail {

inline Text FlagText(bool flag) {
  return flag ? L"True" : L"False";
}
inline Text NumberText(int number) {
  return std::to_wstring(number);
}

}  // namespace detail

// ---- Control ----

inline Control::Control(Form& form, Text name, int index)
    : Name(std::move(name)), Index(index), form_(form) {
  TabIndex = static_cast<int>(form.Controls.size());
  form.Controls.push_back(this);
}

inline Control::~Control() {
  std::erase(form_.Controls, this);
}

inline void Control::MarkDirty() {
  Dirty = true;
  form_.Dirty = true;
}

inline std::optional<Text> Control::Read(const Text& property) const {
  if (property == L"Visible") return detail::FlagText(Visible);
  if (property == L"Enabled") return detail::FlagText(Enabled);
  if (property == L"ToolTipText") return ToolTipText();
  if (property == L"AccessibleName") return AccessibleName();
  if (property == L"Left") return detail::NumberText(Left);
  if (property == L"Top") return detail::NumberText(Top);
  if (property == L"Width") return detail::NumberText(Width);
  if (property == L"Height") return detail::NumberText(Height);
  if (property == L"Tag") return Tag;
  if (property == L"ForeColor") {
    const Color c = ForeColor;
    return detail::NumberText(static_cast<int>(c >> 16U & 255U)) + L"," +
           detail::NumberText(static_cast<int>(c >> 8U & 255U)) + L"," +
           detail::NumberText(static_cast<int>(c & 255U));
  }
  return std::nullopt;
}

inline std::optional<Text> Label::Read(const Text& property) const {
  if (property == L"Caption") return Caption();
  return Control::Read(property);
}

inline std::optional<Text> PictureButton::Read(const Text& property) const {
  if (property == L"Picture") return Picture();
  return Control::Read(property);
}

inline std::optional<vantora::Text> TextBox::Read(const vantora::Text& property) const {
  if (property == L"Text") return Text();
  return Control::Read(property);
}

inline std::optional<Text> CheckBox::Read(const Text& property) const {
  if (property == L"Caption") return Caption();
  if (property == L"Value") return detail::NumberText(Value);
  return Control::Read(property);
}

inline OptionButton::OptionButton(Form& form, Text name, int index, int group)
    : Control(form, std::move(name), index), group_(group) {}

inline void OptionButton::SetValue(bool value) {
  if (value) {
    for (Control* other : Owner().Controls) {
      auto* option = other == this ? nullptr : dynamic_cast<OptionButton*>(other);
      if (option != nullptr && option->group_ == group_) option->value_ = false;
    }
  }
  value_ = value;
}

inline std::optional<Text> OptionButton::Read(const Text& property) const {
  if (property == L"Caption") return Caption();
  if (property == L"Value") return detail::FlagText(Value());
  return Control::Read(property);
}

// ---- lists ----

inline void ListControl::Clear() {
  items_.clear();
  ListIndex = -1;
  MarkDirty();
}

inline void ListControl::AddItem(const Text& item) {
  items_.push_back(item);
  MarkDirty();
}

inline std::optional<Text> ListControl::Read(const Text& property) const {
  if (property == L"ListIndex") return detail::NumberText(ListIndex);
  if (property == L"Count" || property == L"ListCount") return detail::NumberText(ListCount());
  return Control::Read(property);
}

inline std::optional<Text> ComboBox::Read(const vantora::Text& property) const {
  if (property == L"Text") return ListIndex < 0 ? vantora::Text() : List(ListIndex);
  return ListControl::Read(property);
}

inline std::optional<Text> ListBox::Read(const Text& property) const {
  if (property == L"SelCount") return detail::NumberText(SelCount());
  if (property == L"TopIndex") return detail::NumberText(TopIndex);
  return ListControl::Read(property);
}

inline void ListBox::Clear() {
  selected_.clear();
  ListControl::Clear();
}

inline bool ListBox::Selected(int index) const {
  if (!MultiSelect) return index >= 0 && ListIndex() == index;
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < selected_.size() && selected_[place];
}

inline void ListBox::Select(int index, bool selected) {
  if (!MultiSelect) {
    if (selected) {
      ListIndex = index;
    } else if (ListIndex == index) {
      ListIndex = -1;
    }
    return;
  }
  selected_.resize(items_.size(), false);
  selected_.at(static_cast<std::size_t>(index)) = selected;
  if (selected) ListIndex = index;
  MarkDirty();
}

inline int ListBox::SelCount() const {
  int count = 0;
  for (int i = 0; i < ListCount(); ++i) count += Selected(i) ? 1 : 0;
  return count;
}

// ---- ListView ----

inline const Text& ListItem::SubItems(int column) const {
  static const Text kNone;
  const auto place = static_cast<std::size_t>(column);
  return place < texts_.size() ? texts_[place] : kNone;
}

inline void ListItem::SetSubItems(int column, const Text& content) {
  const auto place = static_cast<std::size_t>(column);
  if (place >= texts_.size()) texts_.resize(place + 1);
  if (texts_[place] == content) return;
  texts_[place] = content;
  list_.MarkDirty();
}

inline void ListItem::SetSelected(bool selected) {
  if (selected_ == selected) return;
  selected_ = selected;
  list_.MarkDirty();
}

inline ListItem& ListItems::Add() {
  items_.emplace_back(list_);
  list_.MarkDirty();
  return items_.back();
}

inline void ListItems::Clear() {
  if (items_.empty()) return;
  items_.clear();
  list_.MarkDirty();
}

inline void ListView::SetColumns(std::vector<Column> columns) {
  columns_ = std::move(columns);
  MarkDirty();
}

inline std::optional<Text> ListView::Read(const Text& property) const {
  if (property == L"Count") return detail::NumberText(ListItems.Count());
  if (property == L"SelCount") {
    int count = 0;
    for (int row = 1; row <= ListItems.Count(); ++row) count += ListItems(row).Selected() ? 1 : 0;
    return detail::NumberText(count);
  }
  return Control::Read(property);
}

// ---- the rest ----

inline void Timer::Restart() {
  Enabled = true;
  ++Starts;
  MarkDirty();
}

inline std::optional<Text> Slider::Read(const Text& property) const {
  if (property == L"Value") return detail::NumberText(Value);
  return Control::Read(property);
}

inline void PictureBox::Cls() {
  drawing_.clear();
  ++revision_;
  MarkDirty();
}

inline void PictureBox::Draw(DrawItem item) {
  drawing_.push_back(std::move(item));
  ++revision_;
  MarkDirty();
}

inline std::optional<Text> PictureBox::Read(const Text& property) const {
  if (property == L"Picture") return Picture();
  if (property == L"Drawn") return detail::NumberText(static_cast<int>(drawing_.size()));
  return Control::Read(property);
}

inline std::optional<Text> LevelMeter::Read(const Text& property) const {
  if (property == L"Active") return detail::FlagText(Active);
  if (property == L"PeakLeft") return detail::NumberText(PeakLeft);
  if (property == L"PeakRight") return detail::NumberText(PeakRight);
  if (property == L"Mark") return detail::NumberText(Mark);
  return Control::Read(property);
}

// ---- Form ----

inline Control* Form::Find(const Text& name, int index) const {
  for (Control* control : Controls) {
    if (control->Name == name && control->Index == index) return control;
  }
  return nullptr;
}

inline Menu* Form::FindMenu(const Text& name) {
  for (Menu& menu : Menus) {
    if (menu.Name == name) return &menu;
  }
  return nullptr;
}

}  // namespace vantora
