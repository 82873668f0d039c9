// Shows a drawing list. The drawing can be far wider than its visible part and have hundreds of
// thousands of points, so only the part that needs repainting is painted.
#pragma once

#include "backends/qt/faces/spoken.h"
#include "backends/qt/pictures/pictures.h"

#include "platform/controls.h"
#include "platform/device_text.h"

#include <QColor>
#include <QPolygonF>
#include <QString>
#include <QWidget>

#include <vector>

namespace vantora {

class DrawingWidget final : public QWidget, public Spoken {
 public:
  DrawingWidget(Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {}
  // Returns true when the drawing has changed. `scale` is that of the window: below 1, the box has
  // fewer pixels for the same twips.
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
    bool Bars = false;  // `Points` holds two corners for each bar
    QRect Reach;        // contains all pixels that the mark touches
    QColor Ink, Fill;
    QString Words;
    Text Picture;
    int FontSize = 0;
    LogicalFont Font;      // for words in a font of their own; without a name: the windows' font
    double FontScale = 1;  // applied to its whole-pixel letters
    Bild Photo;

    bool operator==(const Mark& other) const = default;
  };
  std::vector<Mark> MarksOf(const std::vector<DrawItem>& items) const;
  void AddLine(const DrawItem& item, const Mark& plain, std::vector<Mark>& marks) const;
  void PlaceWords(const DrawItem& item, Mark& mark) const;
  void PlaceTurned(const DrawItem& item, Mark& mark) const;
  double Twips() const;  // per pixel
  void Draw(QPainter& painter, const Mark& mark);
  static void DrawLine(QPainter& painter, const Mark& mark);
  static void DrawTurned(QPainter& painter, const Mark& mark);
  void DrawPicture(QPainter& painter, const Mark& mark);
  void TellWhetherOpaque();
  void RenewRing();

  Pictures& pictures_;
  Text picture_;
  QColor ground_ = Qt::transparent;
  int revision_ = 0;
  double scale_ = 1;
  QRect ring_;  // around which the focus ring was drawn last
  std::vector<Mark> marks_;
};

}  // namespace vantora
