// Draws the texts of lists and tables in the room that they have.
#pragma once

#include <QStyledItemDelegate>

namespace vantora {

// Shortens a text that is too long for its cell. A tooltip then shows the whole text.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  virtual QString Short(const QString& text, const QFontMetrics& metrics, int width) const;
};

}  // namespace vantora
