#include "backends/qt/faces/rows_model.h"

#include "backends/qt/look/look.h"

#include <algorithm>

namespace vantora {

void RowsModel::SetHeads(const QStringList& heads) {
  if (heads == heads_) return;
  if (std::max<qsizetype>(1, heads.size()) == columnCount()) {
    heads_ = heads;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    return;
  }
  beginResetModel();
  heads_ = heads;
  rows_.clear();
  endResetModel();
}

bool RowsModel::SetRows(const ListItems& items) {
  const int before = rowCount(), after = items.Count(), columns = columnCount();
  if (after < before) {
    beginRemoveRows({}, after, before - 1);
    rows_.resize(static_cast<std::size_t>(after));
    endRemoveRows();
  } else if (after > before) {
    beginInsertRows({}, before, after - 1);
    rows_.resize(static_cast<std::size_t>(after),
                 std::vector<Text>(static_cast<std::size_t>(columns)));
    endInsertRows();
  }
  bool changed = before != after;
  for (int row = 0; row < after; ++row) {
    std::vector<Text>& shown = rows_[static_cast<std::size_t>(row)];
    const ListItem& item = items(row + 1);
    for (int column = 0; column < columns; ++column) {
      Text& cell = shown[static_cast<std::size_t>(column)];
      if (cell == item.SubItems(column)) continue;
      cell = item.SubItems(column);
      changed = true;
    }
  }
  if (changed && after > 0) emit dataChanged(index(0, 0), index(after - 1, columns - 1));
  return changed;
}

int RowsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : std::max(1, static_cast<int>(heads_.size()));
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  const std::vector<Text>& row = rows_.at(static_cast<std::size_t>(index.row()));
  return look::FromText(row.at(static_cast<std::size_t>(index.column())));
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= heads_.size()) {
    return {};
  }
  return heads_[section];
}

}  // namespace vantora
