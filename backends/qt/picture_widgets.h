// Widgets that show pictures: plain ones, buttons and drawings.
#pragma once

#include "backends/qt/pictures.h"

#include "platform/controls.h"

#include <QColor>
#include <QPushButton>
#include <QWidget>

#include <vector>

namespace vantora {

struct ShownPicture {
  Text Picture, Icon;  // blank: none
  Pictures::Part Part;
};

class PictureWidget final : public QWidget {
 public:
  PictureWidget(Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {}
  ShownPicture Shown;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Pictures& pictures_;
};

// A push button to the eye and to a screen reader. Without pictures it is a plain one with words.
class ButtonWidget final : public QPushButton {
 public:
  ButtonWidget(Pictures& pictures, QWidget* parent);

  ShownPicture Shown;
  QString Words;
  QColor Ink;
  bool Held = false;  // drawn as pressed; a button with a picture for that shows the picture

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void PaintPlain(QPainter& painter);

  Pictures& pictures_;
};

// A drawing list, kept as a picture until it changes: markers may move over it at no cost.
class DrawingWidget final : public QWidget {
 public:
  DrawingWidget(Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {}
  void Set(const Text& picture, const QColor& ground, const std::vector<DrawItem>& items);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap Drawn();
  void Draw(QPainter& painter, const DrawItem& item);

  Pictures& pictures_;
  Text picture_;
  QColor ground_;
  std::vector<DrawItem> items_;
  QPixmap drawn_;
};

}  // namespace vantora
