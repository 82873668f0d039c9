// The face of a list view: a table with a header and multiple selection, onto which files can be
// dropped.

#include "backends/qt/faces/cells.h"
#include "backends/qt/faces/face.h"
#include "backends/qt/faces/rows_model.h"
#include "backends/qt/faces/words.h"
#include "backends/qt/look/look.h"
#include "backends/qt/loop/keys.h"
#include "backends/qt/windows/form_window.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kHeadMargin = 4;       // pixels around the words
constexpr double kLineShare = 1.15;  // height of a line relative to the letters

// The header of a table. Its height and words need no font metrics, which would be slow at a start.
class HeadWidget final : public QHeaderView {
 public:
  explicit HeadWidget(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsMovable(false);
    setMinimumSectionSize(8);
  }

  QSize sizeHint() const override {
    const double line = Full.pixelSize() * kLineShare;
    return {0, Scaled(static_cast<int>(std::lround(line)) + 2 * kHeadMargin)};
  }

  QFont Full;  // its font without scaling
  double Scale = 1;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
    const QString words = model()->headerData(section, Qt::Horizontal).toString();
    DrawWords(*painter, {words, Full, palette().color(QPalette::ButtonText),
                         rect.adjusted(Scaled(kHeadMargin), 0, -Scaled(kHeadMargin), 0),
                         Qt::AlignLeft | Qt::AlignVCenter, false, Scale});
  }

 private:
  int Scaled(long pixels) const { return static_cast<int>(static_cast<double>(pixels) * Scale); }
};

class TableWidget final : public QTreeView {
 public:
  using QTreeView::QTreeView;
  using QTreeView::viewportEvent;  // made public for mouse events
  std::function<bool(const QStringList& files)> Over;
  std::function<void(const QStringList& files)> Dropped;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override { Answer(*event); }
  void dragMoveEvent(QDragMoveEvent* event) override { Answer(*event); }
  void dropEvent(QDropEvent* event) override {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Dropped(Files(*event));
  }

 private:
  static QStringList Files(const QDropEvent& event) {
    QStringList files;
    for (const QUrl& url : event.mimeData()->urls()) {
      if (url.isLocalFile()) files << url.toLocalFile();
    }
    return files;
  }
  void Answer(QDropEvent& event) const {
    const QStringList files = Files(event);
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!files.isEmpty() && Over(files));
  }
};

class TableFace final : public Face {
 public:
  TableFace(ListView& list, FormWindow& window)
      : TableFace(list, window, new TableWidget(&window)) {}

  void MousePress(QMouseEvent& event) override {
    changed_ = false;
    row_ = table_->indexAt(event.position().toPoint()).row();
    Face::MousePress(event);
  }
  // Both buttons choose a row: the menu of the right button acts on the row under the mouse. A drag
  // over several rows chooses the last one.
  void MouseRelease(QMouseEvent& event) override {
    const int row = table_->indexAt(event.position().toPoint()).row();
    Pass(event);
    if (row_ >= 0 && (row == row_ || changed_)) FireItemClick(table_->currentIndex().row() + 1);
    ReportRelease(event);
  }
  void KeyPress(QKeyEvent& event) override {
    changed_ = false;
    if (keys::Walks(event) && !table_->selectionModel()->hasSelection() && rows_->rowCount() > 0) {
      const int row = keys::FirstRow(event, table_->currentIndex().row(), rows_->rowCount());
      table_->selectionModel()->setCurrentIndex(
          rows_->index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    } else {
      PassKey(event);
    }
    if (changed_) FireItemClick(table_->currentIndex().row() + 1);
  }

  QRect SelectedPlace() const override {
    const QModelIndexList rows = table_->selectionModel()->selectedRows();
    if (rows.isEmpty()) return {};
    const QModelIndex current = table_->currentIndex().siblingAtColumn(0);
    QRect place = table_->visualRect(rows.contains(current) ? current : rows.first());
    place.setLeft(0);
    place.setRight(table_->viewport()->width() - 1);
    return {table_->viewport()->mapToGlobal(place.topLeft()), place.size()};
  }

  QPoint MenuPlace() const override {
    const QRect row = table_->visualRect(table_->currentIndex());
    return row.isValid() ? table_->viewport()->mapToGlobal(row.bottomLeft() + QPoint(40, 0))
                         : Face::MenuPlace();
  }

 private:
  TableFace(ListView& list, FormWindow& window, TableWidget* table)
      : Face(list, window, table),
        table_(table),
        rows_(new RowsModel(table)),
        head_(new HeadWidget(table)) {
    table_->setHeader(head_);
    table_->setModel(rows_);
    SetSurface(table_->viewport());
    table_->setRootIsDecorated(false);
    table_->setItemsExpandable(false);
    table_->setUniformRowHeights(true);
    table_->setAllColumnsShowFocus(true);
    table_->setAlternatingRowColors(true);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setItemDelegate(new CellDelegate(table_));
    table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QObject::connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, table_,
                     [this](const QItemSelection& selected) {
                       if (this->window().Syncing()) return;
                       TakeSelection();
                       changed_ = true;
                       if (this->window().Touched()) return;
                       // A screen reader does not move the current row.
                       FireItemClick(1 + (selected.isEmpty() ? table_->currentIndex().row()
                                                             : selected.last().bottom()));
                     });
    table_->Over = [this](const QStringList& files) { return Over(files); };
    table_->Dropped = [this](const QStringList& files) { Dropped(files); };
  }

  void Pass(QMouseEvent& event) override {
    if (control() != nullptr) table_->viewportEvent(&event);
  }

  void FireItemClick(int row) {
    Fire([&](Control& told) {
      auto& list = static_cast<ListView&>(told);
      if (row < 1 || row > list.ListItems.Count()) return;
      if (const auto click = list.ItemClick) click(row);
    });
  }

  void TakeSelection() {
    Take([&](Control& taken) {
      auto& items = static_cast<ListView&>(taken).ListItems;
      const int rows = std::min(items.Count(), rows_->rowCount());
      for (int row = 0; row < rows; ++row) {
        items(row + 1).SetSelected(table_->selectionModel()->isRowSelected(row));
      }
    });
  }

  std::vector<Text> Paths(const QStringList& files) const {
    std::vector<Text> paths;
    for (const QString& file : files) paths.push_back(window().host().PathOfFile(file));
    return paths;
  }
  bool Over(const QStringList& files) {
    bool welcome = false;
    Fire([&](Control& told) {
      const auto over = static_cast<ListView&>(told).OLEDragOver;
      welcome = !over || over(Paths(files));
    });
    return welcome;
  }
  void Dropped(const QStringList& files) {
    Fire([&](Control& told) {
      if (const auto drop = static_cast<ListView&>(told).OLEDragDrop) drop(Paths(files));
    });
  }

  void Apply(Control& control) override {
    auto& list = static_cast<ListView&>(control);
    look::InkField(*table_, list);
    head_->Full = look::FontOf(list.FontSize, list.FontBold);
    head_->Scale = window().Scale();
    table_->setAcceptDrops(list.OLEDragOver || list.OLEDragDrop);
    ApplyColumns(list);
    if (rows_->SetRows(list.ListItems)) table_->viewport()->update();
    ApplySelection(list.ListItems);
  }

  void ApplyColumns(const ListView& list) {
    QStringList heads;
    std::vector<int> widths;
    for (const ListView::Column& column : list.Columns()) {
      heads << look::FromText(column.Header);
      widths.push_back(look::Pixels(column.Width, window().Scale()));
    }
    table_->setHeaderHidden(heads.isEmpty());
    rows_->SetHeads(heads);
    if (widths == widths_) return;
    widths_ = widths;
    if (widths.empty()) return;
    const auto widest = std::max_element(widths.begin(), widths.end()) - widths.begin();
    for (int i = 0; i < static_cast<int>(widths.size()); ++i) {
      head_->setSectionResizeMode(i, i == widest ? QHeaderView::Stretch : QHeaderView::Interactive);
      head_->resizeSection(i, widths[static_cast<std::size_t>(i)]);
    }
  }

  void ApplySelection(const ListItems& items) {
    QItemSelection wanted;
    int first = -1;
    bool differs = false;
    for (int row = 0; row < items.Count(); ++row) {
      const bool on = items(row + 1).Selected();
      differs = differs || on != table_->selectionModel()->isRowSelected(row);
      if (!on) continue;
      wanted.select(rows_->index(row, 0), rows_->index(row, rows_->columnCount() - 1));
      if (first < 0) first = row;
    }
    if (!differs) return;
    if (first >= 0) {
      table_->selectionModel()->setCurrentIndex(rows_->index(first, 0),
                                                QItemSelectionModel::NoUpdate);
      table_->scrollTo(rows_->index(first, 0));
    }
    table_->selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect);
  }

  TableWidget* table_;
  RowsModel* rows_;
  HeadWidget* head_;
  std::vector<int> widths_;
  int row_ = -1;  // where the mouse was pressed
  bool changed_ = false;
};

}  // namespace

std::unique_ptr<Face> MakeTableFace(ListView& list, FormWindow& window) {
  return std::make_unique<TableFace>(list, window);
}

}  // namespace vantora
