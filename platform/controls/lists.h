// Lists from which a user chooses lines or rows.
#pragma once

#include "platform/controls/control.h"

#include <deque>

namespace vantora {

// The base of combo box and list box: lines of text, one of which is chosen. Lines count from 0. A
// ListIndex of -1 means that no line is chosen.
class ListControl : public Control {
 public:
  using Control::Control;
  std::optional<Text> Read(const Text& property) const override;

  virtual void Clear();
  void AddItem(const Text& item);
  int ListCount() const { return static_cast<int>(items_.size()); }
  const Text& List(int index) const { return items_.at(static_cast<std::size_t>(index)); }
  const std::vector<Text>& Items() const { return items_; }
  Property<int> ListIndex{*this, -1};

 protected:
  std::vector<Text> items_;
};

class ComboBox : public ListControl {
 public:
  using ListControl::ListControl;
  ControlKind Kind() const override { return ControlKind::ComboBox; }
  std::optional<Text> Read(const Text& property) const override;
};

constexpr int kListLine = 240;  // height of a line of a list box, in twips

class ListBox : public ListControl {
 public:
  using ListControl::ListControl;
  ControlKind Kind() const override { return ControlKind::ListBox; }
  std::optional<Text> Read(const Text& property) const override;

  bool MultiSelect = false;
  void Clear() override;  // removes the lines and the selection
  bool Selected(int index) const;
  void Select(int index, bool selected);  // without MultiSelect, deselects the other lines
  // Left edges of columns, in twips. A tab character in a line leads to the next column.
  std::vector<int> TabStops;
  // Words in the column behind the last one of a line. They are no part of the line's text.
  void SetNote(int index, const Text& words);
  const Text& Note(int index) const;
  int SelCount() const;
  Property<int> TopIndex{*this, 0};  // the first visible line; the renderer updates it
  std::function<void()> Scroll;      // the user has scrolled the list

 private:
  std::vector<bool> selected_;
  std::vector<Text> notes_;
};

class ListView;

class ListItem {
 public:
  explicit ListItem(ListView& list) : list_(list) {}
  const Text& SubItems(int column) const;  // column 0 is the first text of the row
  void SetSubItems(int column, const Text& content);
  bool Selected() const { return selected_; }
  void SetSelected(bool selected);

 private:
  ListView& list_;
  std::vector<Text> texts_;
  bool selected_ = false;
};

class ListItems {
 public:
  explicit ListItems(ListView& list) : list_(list) {}
  ListItem& Add();
  void Clear();
  int Count() const { return static_cast<int>(items_.size()); }
  bool empty() const { return items_.empty(); }
  ListItem& operator()(int index) { return items_[Place(index)]; }  // raises 9 for a missing row
  const ListItem& operator()(int index) const { return items_[Place(index)]; }

 private:
  std::size_t Place(int index) const;

  ListView& list_;
  std::deque<ListItem> items_;
};

// A table with column headers. Rows count from 1. Several rows can be selected.
class ListView : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::ListView; }
  std::optional<Text> Read(const Text& property) const override;

  struct Column {
    Text Header;
    int Width;  // twips; the widest column also takes the rest of the table
  };
  void SetColumns(std::vector<Column> columns);
  const std::vector<Column>& Columns() const { return columns_; }

  vantora::ListItems ListItems{*this};
  std::function<void(int row)> ItemClick;
  std::function<bool(const std::vector<Text>& files)> OLEDragOver;  // false: the drop is refused
  std::function<void(const std::vector<Text>& files)> OLEDragDrop;

 private:
  std::vector<Column> columns_;
};

}  // namespace vantora
