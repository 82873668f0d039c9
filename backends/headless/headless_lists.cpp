// The actions on lists of the hands without a screen.

#include "backends/forms/reach.h"
#include "backends/headless/headless_hands.h"

#include <algorithm>

namespace vantora {

// Returns the current row of a list, from 1. For a list box without a current row, returns the line
// at the middle of the box.
int HeadlessHands::PresentRow(const Control& control) const {
  if (const auto* view = dynamic_cast<const ListView*>(&control)) {
    const ListItems& items = view->ListItems;
    const auto last = current_.find(view);
    const int current = last == current_.end() || last->second > items.Count() ? 0 : last->second;
    if (current > 0 && items(current).Selected()) return current;
    for (int row = 1; row <= items.Count(); ++row) {
      if (items(row).Selected()) return row;
    }
    return current;
  }
  const auto* list = dynamic_cast<const ListBox*>(&control);
  if (list == nullptr) return 0;
  if (list->ListIndex >= 0) return list->ListIndex + 1;
  const int middle = list->TopIndex + list->Height / 2 / kListLine;
  return middle < list->ListCount() ? middle + 1 : 0;
}

// A click selects this row and deselects all others. A click with Ctrl held switches this row.
void HeadlessHands::SelectRow(Control& control, int row, bool toggles) {
  if (auto* view = dynamic_cast<ListView*>(&control)) {
    ListItems& items = view->ListItems;
    if (row > items.Count()) return;
    current_[view] = row;
    for (int other = 1; other <= items.Count() && !toggles; ++other) {
      items(other).SetSelected(other == row);
    }
    if (toggles) items(row).SetSelected(!items(row).Selected());
  } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
    if (row > list->ListCount()) return;
    current_[list] = row;
    const bool on = !toggles || !list->Selected(row - 1);
    for (int other = 0; other < list->ListCount() && !toggles && list->MultiSelect; ++other) {
      if (other != row - 1 && list->Selected(other)) list->Select(other, false);
    }
    list->Select(row - 1, on);
    if (list->MultiSelect) list->ListIndex = row - 1;
  }
}

void HeadlessHands::ClickRow(Control& control, int row, bool toggles) {
  if (!loop_.TakesInput(control)) return;
  const auto* view = dynamic_cast<const ListView*>(&control);
  const auto* list = dynamic_cast<const ListBox*>(&control);
  const int count = view != nullptr ? view->ListItems.Count() : list->ListCount();
  if (row > count) return;  // the handler of an earlier row has made the list shorter
  row_ = 0;
  Down(control, kLeftButton);
  if (!loop_.TakesInput(control)) return;
  SelectRow(control, row, toggles);
  row_ = row;
  Up(control, kLeftButton, true);
}

// Clicks the first row, and clicks every other row with Ctrl held. Without rows, clicks every
// selected row with Ctrl held.
void HeadlessHands::Select(Control& control, const std::vector<int>& rows) {
  Reach(control);
  CheckRows(control, rows);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    loop_.SetFocus(control);
    combo->ListIndex = rows.front() - 1;
    return Call(control, control.Click);
  }
  for (std::size_t i = 0; i < rows.size(); ++i) ClickRow(control, rows[i], i > 0);
  if (!rows.empty()) return;
  std::vector<int> selected;
  if (const auto* view = dynamic_cast<const ListView*>(&control)) {
    for (int row = 1; row <= view->ListItems.Count(); ++row) {
      if (view->ListItems(row).Selected()) selected.push_back(row);
    }
  } else if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    for (int row = 1; row <= list->ListCount(); ++row) {
      if (list->Selected(row - 1)) selected.push_back(row);
    }
  }
  for (const int row : selected) ClickRow(control, row, true);
}

namespace {

constexpr int kPageRows = 10;

// Returns the place between `first` and `last` to which a key moves.
int Moved(int place, int key, int first, int last) {
  switch (key) {
    case kKeyUp:
      place -= 1;
      break;
    case kKeyDown:
      place += 1;
      break;
    case kKeyPageUp:
      place -= kPageRows;
      break;
    case kKeyPageDown:
      place += kPageRows;
      break;
    case kKeyHome:
      place = first;
      break;
    case kKeyEnd:
      place = last;
      break;
    default:
      return place;
  }
  return std::clamp(place, first, last);
}

bool Walks(int key) {
  return key == kKeyUp || key == kKeyDown || key == kKeyHome || key == kKeyEnd;
}

// The place that such a key selects in a list without a selection.
int Start(int place, int key, int first, int last) {
  return key == kKeyHome || key == kKeyEnd ? Moved(place, key, first, last) : place;
}

}  // namespace

// In a list without a selection the first arrow selects the current row; Home and End select the
// first and the last row.
void HeadlessHands::MoveInList(ListControl& list, const KeyStroke& stroke) {
  if (list.ListCount() == 0) return;
  const int key = stroke.Code;
  auto* box = dynamic_cast<ListBox*>(&list);
  if (stroke.Control && key == 'A') {
    if (box == nullptr || !box->MultiSelect || box->SelCount() == box->ListCount()) return;
    const int line = box->ListIndex;
    for (int i = 0; i < box->ListCount(); ++i) box->Select(i, true);
    box->ListIndex = std::max(line, 0);
    return Call(list, list.Click);
  }
  const int present = list.ListIndex;
  const auto last = current_.find(&list);
  const bool known = last != current_.end() && last->second <= list.ListCount();
  const int standing = known ? last->second - 1 : 0;
  if (box != nullptr && key == kKeySpace) {
    const int line = present < 0 ? standing : present;
    if (box->Selected(line)) return;
    SelectRow(*box, line + 1, true);
    return Call(list, list.Click);
  }
  // In a closed combo box the keys for pages move by one line.
  int moves = key;
  if (box == nullptr && key == kKeyPageUp) moves = kKeyUp;
  if (box == nullptr && key == kKeyPageDown) moves = kKeyDown;
  const bool nothing = box != nullptr && box->SelCount() == 0;
  const int end = list.ListCount() - 1;
  const int row = nothing && Walks(key) ? Start(present < 0 ? standing : present, key, 0, end)
                                        : Moved(present, moves, 0, end);
  if (row < 0 || (row == present && !nothing)) return;
  if (nothing && !Walks(key) && row == present) return;
  if (box != nullptr) {
    SelectRow(*box, row + 1, false);
  } else {
    list.ListIndex = row;
  }
  Call(list, list.Click);
}

// A table with the focus has a current row, which is at first the first row. Keys raise ItemClick
// and no other event.
void HeadlessHands::MoveInView(ListView& list, const KeyStroke& stroke) {
  const int count = list.ListItems.Count();
  if (count == 0) return;
  const int present = std::max(PresentRow(list), 1);
  int row = present;
  if (stroke.Control && stroke.Code == 'A') {
    bool changes = false;
    for (int i = 1; i <= count; ++i) {
      changes = changes || !list.ListItems(i).Selected();
      list.ListItems(i).SetSelected(true);
    }
    if (!changes) return;
  } else {
    const bool here =
        !list.ListItems(present).Selected() && (Walks(stroke.Code) || stroke.Code == kKeySpace);
    row = (here ? Start : Moved)(present, stroke.Code, 1, count);
    if (row == present && !here) return;
    SelectRow(list, row, false);
  }
  if (const auto click = list.ItemClick; click) Call(list, [click, row] { click(row); });
}

}  // namespace vantora
