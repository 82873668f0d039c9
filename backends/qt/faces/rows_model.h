// A copy of the rows of a list view. The table paints this copy, because the list may already be
// gone when the table paints.
#pragma once

#include "platform/form.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

namespace vantora {

class RowsModel final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetHeads(const QStringList& heads);
  bool SetRows(const ListItems& items);  // returns true when they have changed

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList heads_;
  std::vector<std::vector<Text>> rows_;
};

}  // namespace vantora
