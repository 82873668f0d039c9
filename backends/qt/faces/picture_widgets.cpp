#include "backends/qt/faces/picture_widgets.h"

#include "backends/qt/look/look.h"

#include <QPainter>

namespace vantora {

namespace {

constexpr double kDimmed = 0.38;

void Paint(QPainter& painter, Pictures& pictures, const ShownPicture& shown, const QWidget& on) {
  const double density = on.devicePixelRatioF();
  const QRect all = on.rect();
  if (!shown.Picture.empty()) {
    painter.drawPixmap(0, 0, pictures.Get(shown.Picture, all.size(), density, shown.Part));
  }
  if (shown.Icon.empty()) return;
  QSize size = pictures.NaturalSize(shown.Icon) * shown.IconScale;
  if (size.isEmpty()) return;  // without an icon, the button's own picture stays readable
  if (size.width() > all.width() || size.height() > all.height()) {
    size.scale(all.size(), Qt::KeepAspectRatio);
  }
  QRect place(QPoint(), size);
  place.moveCenter(all.center());
  painter.drawPixmap(place.topLeft(), pictures.Get(shown.Icon, size, density));
}

}  // namespace

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(kDimmed);
  Paint(painter, pictures_, Shown, *this);
}

ButtonWidget::ButtonWidget(Pictures& pictures, QWidget* parent)
    : QPushButton(parent), pictures_(pictures) {
  setFocusPolicy(Qt::TabFocus);
}

void ButtonWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(kDimmed);
  if (Held) painter.translate(1, 1);
  if (Shown.Picture.empty() && Shown.Icon.empty()) {
    PaintPlain(painter);
  } else {
    Paint(painter, pictures_, Shown, *this);
  }
  if (Held) painter.translate(-1, -1);
  painter.setOpacity(1);
  if (isEnabled() && underMouse() && !Held) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 22));
    painter.drawRoundedRect(rect(), 4, 4);
  }
  if (hasFocus()) look::DrawFocusRing(painter, rect());
}

void ButtonWidget::PaintPlain(QPainter& painter) {
  look::DrawPanel(painter, rect(), Held);
  painter.setPen(Ink);
  const QRect inner = rect().adjusted(4, 0, -4, 0);
  painter.drawText(inner, Qt::AlignCenter,
                   painter.fontMetrics().elidedText(Words, Qt::ElideRight, inner.width()));
}

void ButtonWidget::enterEvent(QEnterEvent* /*event*/) {
  update();
}

void ButtonWidget::leaveEvent(QEvent* /*event*/) {
  update();
}

}  // namespace vantora
