// A drawing list. It can be far wider than what is seen of it, with hundreds of thousands of
// points, so nothing but the part that is to be seen anew is painted.
#pragma once

#include "backends/qt/pictures/pictures.h"

#include "platform/controls.h"
#include "platform/device_text.h"

#include <QColor>
#include <QPolygonF>
#include <QString>
#include <QWidget>

#include <vector>

namespace vantora {

class DrawingWidget final : public QWidget {
 public:
  DrawingWidget(Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {}
  // True: its drawing is another one. Scaled down, the box has fewer pixels for as many twips.
  bool Set(const PictureBox& box, double scale = 1);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  // An item, or a piece of a long polyline, in pixels.
  struct Mark {
    DrawItem::What Kind = DrawItem::What::Line;
    QPolygonF Points;
    bool Bars = false;  // a line as the bars that it is made of, each by two of its corners
    QRect Reach;        // no pixel beyond it is touched
    QColor Ink, Fill;
    QString Words;
    Text Picture;
    int FontSize = 0;
    LogicalFont Font;      // of words in another font than the windows'; no name: in theirs
    double FontScale = 1;  // its letters have whole pixels, and are then scaled
    Bild Photo;

    bool operator==(const Mark& other) const = default;
  };
  std::vector<Mark> MarksOf(const std::vector<DrawItem>& items) const;
  void AddLine(const DrawItem& item, const Mark& plain, std::vector<Mark>& marks) const;
  void PlaceWords(const DrawItem& item, Mark& mark) const;
  void PlaceTurned(const DrawItem& item, Mark& mark) const;
  double Twips() const;  // of a pixel
  void Draw(QPainter& painter, const Mark& mark);
  static void DrawLine(QPainter& painter, const Mark& mark);
  static void DrawTurned(QPainter& painter, const Mark& mark);
  void DrawPicture(QPainter& painter, const Mark& mark);
  void TellWhetherOpaque();
  void ShowRing(bool ringed);

  Pictures& pictures_;
  Text picture_;
  QColor ground_ = Qt::transparent;
  int revision_ = 0;
  double scale_ = 1;
  bool ringed_ = false;  // has the focus, and got it by the keyboard
  std::vector<Mark> marks_;
};

}  // namespace vantora
