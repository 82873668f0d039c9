// The rows of a list view as its table shows them: a copy, since the table paints by itself and the
// list may have gone by then.
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
  bool SetRows(const ListItems& items);  // true when something is different

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList heads_;
  std::vector<std::vector<Text>> rows_;
};

}  // namespace vantora
