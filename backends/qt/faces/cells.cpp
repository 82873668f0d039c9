#include "backends/qt/faces/cells.h"

#include "backends/qt/faces/words.h"
#include "backends/qt/look/look.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

namespace vantora {

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell(option);
  initStyleOption(&cell, index);
  const QStyle& style = *cell.widget->style();
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
  const QRect room = style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget);
  cell.text = Short(cell.text, cell.fontMetrics, room.width() - 2 * margin);
  style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
}

QString CellDelegate::Short(const QString& text, const QFontMetrics& metrics, int width) const {
  return Shortened(text, metrics, width);
}

bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!index.isValid()) return false;
  const QSize needed = QStyledItemDelegate::sizeHint(option, index);
  if (needed.width() <= view->visualRect(index).width()) return false;
  QToolTip::showText(event->globalPos(), look::Tip(index.data().toString()), view);
  return true;
}

}  // namespace vantora
