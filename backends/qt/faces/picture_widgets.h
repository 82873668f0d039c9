// Widgets that show pictures: plain ones and buttons.
#pragma once

#include "backends/qt/faces/spoken.h"
#include "backends/qt/pictures/pictures.h"

#include "platform/text.h"

#include <QColor>
#include <QPushButton>
#include <QWidget>

namespace vantora {

struct ShownPicture {
  Text Picture, Icon;  // blank: none
  Pictures::Part Part;
  double IconScale = 1;
};

class PictureWidget final : public QWidget, public Spoken {
 public:
  PictureWidget(Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures) {}
  ShownPicture Shown;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Pictures& pictures_;
};

// A push button. Without pictures it shows words.
class ButtonWidget final : public QPushButton, public Spoken {
 public:
  ButtonWidget(Pictures& pictures, QWidget* parent);

  ShownPicture Shown;
  QString Words;
  QColor Ink;
  bool Held = false;  // drawn as pressed, unless the button has a picture for that state

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void PaintPlain(QPainter& painter);

  Pictures& pictures_;
};

}  // namespace vantora
