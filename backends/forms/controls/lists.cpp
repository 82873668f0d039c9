#include "platform/controls/lists.h"

#include "backends/forms/controls/property_text.h"

#include "platform/laufzeitfehler.h"

namespace vantora {

void ListControl::Clear() {
  items_.clear();
  ListIndex = -1;
  MarkDirty();
}

void ListControl::AddItem(const Text& item) {
  items_.push_back(item);
  MarkDirty();
}

std::optional<Text> ListControl::Read(const Text& property) const {
  if (property == L"ListIndex") return NumberText(ListIndex);
  if (property == L"Count" || property == L"ListCount") return NumberText(ListCount());
  return Control::Read(property);
}

std::optional<Text> ComboBox::Read(const vantora::Text& property) const {
  if (property == L"Text") return ListIndex < 0 ? vantora::Text() : List(ListIndex);
  return ListControl::Read(property);
}

std::optional<Text> ListBox::Read(const Text& property) const {
  if (property == L"SelCount") return NumberText(SelCount());
  if (property == L"TopIndex") return NumberText(TopIndex);
  return ListControl::Read(property);
}

void ListBox::Clear() {
  selected_.clear();
  notes_.clear();
  ListControl::Clear();
}

bool ListBox::Selected(int index) const {
  if (!MultiSelect) return index >= 0 && ListIndex() == index;
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < selected_.size() && selected_[place];
}

void ListBox::Select(int index, bool selected) {
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

void ListBox::SetNote(int index, const Text& words) {
  const auto place = static_cast<std::size_t>(index);
  if (notes_.size() <= place) notes_.resize(place + 1);
  notes_[place] = words;
  MarkDirty();
}

const Text& ListBox::Note(int index) const {
  static const Text kNone;
  const auto place = static_cast<std::size_t>(index);
  return place < notes_.size() ? notes_[place] : kNone;
}

int ListBox::SelCount() const {
  int count = 0;
  for (int i = 0; i < ListCount(); ++i) count += Selected(i) ? 1 : 0;
  return count;
}

// ---- the table ----

const Text& ListItem::SubItems(int column) const {
  static const Text kNone;
  const auto place = static_cast<std::size_t>(column);
  return place < texts_.size() ? texts_[place] : kNone;
}

void ListItem::SetSubItems(int column, const Text& content) {
  const auto place = static_cast<std::size_t>(column);
  if (place >= texts_.size()) texts_.resize(place + 1);
  if (texts_[place] == content) return;
  texts_[place] = content;
  list_.MarkDirty();
}

void ListItem::SetSelected(bool selected) {
  if (selected_ == selected) return;
  selected_ = selected;
  list_.MarkDirty();
}

ListItem& ListItems::Add() {
  items_.emplace_back(list_);
  list_.MarkDirty();
  return items_.back();
}

void ListItems::Clear() {
  if (items_.empty()) return;
  items_.clear();
  list_.MarkDirty();
}

std::size_t ListItems::Place(int index) const {
  if (index >= 1 && index <= Count()) return static_cast<std::size_t>(index - 1);
  throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
}

void ListView::SetColumns(std::vector<Column> columns) {
  columns_ = std::move(columns);
  MarkDirty();
}

std::optional<Text> ListView::Read(const Text& property) const {
  if (property == L"Count") return NumberText(ListItems.Count());
  if (property == L"SelCount") {
    int count = 0;
    for (int row = 1; row <= ListItems.Count(); ++row) count += ListItems(row).Selected() ? 1 : 0;
    return NumberText(count);
  }
  return Control::Read(property);
}

}  // namespace vantora
