// The part of FormWindow for the size, the place and the background of a window.

#include "backends/qt/look/look.h"
#include "backends/qt/windows/form_window.h"

#include <QCoreApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace vantora {

void FormWindow::ApplyFrame() {
  Form::Frame& frame = form_->Window;
  const QString title = look::FromText(form_->Caption);
  setWindowTitle(title.isEmpty() ? QCoreApplication::applicationName() : title);
  const QRect place = look::Pixels(frame);
  if (!FillScreen(place)) {
    if (place.topLeft() != place_) {
      Stand(MiddleOf(place));
    } else if (room_.isNull()) {
      Stand(MiddleOf(host_.Room(*this)));  // the form has not set a place
    } else if (place.size() != natural_ || host_.Room(*this) != room_) {
      Stand(MiddleOf(geometry().marginsAdded(border_)));
    }
  }
  frame.Dirty = false;
  ApplyGround(frame.BackColor == kTransparent ? look::kGround : frame.BackColor());
}

void FormWindow::ApplyGround(Color back) {
  const QPixmap picture = form_->Picture().empty() ? QPixmap()
                                                   : host_.ThePictures().Get(form_->Picture, size(),
                                                                             devicePixelRatioF());
  const QColor colour = look::Of(back);
  if (picture.cacheKey() == ground_.cacheKey() && colour == palette().color(QPalette::Window)) {
    return;
  }
  ground_ = picture;
  QPalette colours = palette();
  colours.setColor(QPalette::Window, colour);
  setPalette(colours);
  update();
}

// A window manager would move an ordinary window of the screen's size off its bars, so such a
// window is shown full screen.
bool FormWindow::FillScreen(const QRect& place) {
  const bool fills = form_->FillsScreen && place == screen()->geometry();
  if (fills != isFullScreen()) setWindowState(windowState() ^ Qt::WindowFullScreen);
  if (!fills) return false;
  Resize({1, place});
  place_ = place.topLeft();
  return true;
}

// Fits the window into the available area, as near to `middle` as possible.
void FormWindow::Stand(const QPoint& middle) {
  constexpr double kLeastScale = 0.6;  // relative to the real pixels of the screen
  const bool first = room_.isNull();
  natural_ = look::Pixels(form_->Window).size();
  room_ = host_.Room(*this);
  middle_ = middle;
  const Fit fit = FitInto(room_, border_, natural_, middle, kLeastScale / devicePixelRatioF());
  Resize(fit);
  // Sets the area inside the frame, because a position of the frame changes its meaning when the
  // window is created and shown.
  if (first || geometry() != fit.Place) setGeometry(fit.Place);
  TellPlace();
}

void FormWindow::Resize(const Fit& fit) {
  if (size() != fit.Place.size() && !fit.Place.isEmpty()) {
    setFixedSize(fit.Place.size());
    form_->Window.MarkDirty();  // the background gets another size
  }
  if (fit.Scale == scale_) return;
  scale_ = fit.Scale;
  for (Control* control : known_) control->Dirty = true;
}

void FormWindow::StandOver(const FormWindow& owner) {
  if (form_ == nullptr || isFullScreen()) return;
  Stand(MiddleOf(owner.geometry().marginsAdded(owner.border_)));
  const Face* list = form_->KeepClear == nullptr ? nullptr : owner.FaceOf(*form_->KeepClear);
  if (list != nullptr) StandClearOf(list->SelectedPlace());
}

// Below what is to be seen, or else above it.
void FormWindow::StandClearOf(const QRect& seen) {
  constexpr int kGap = 16;  // pixels; the rows beside it are seen as well
  const QRect frame = geometry().marginsAdded(border_);
  if (seen.isEmpty() || !frame.intersects(seen.adjusted(0, -kGap, 0, kGap))) return;
  QRect place = frame;
  place.moveTop(seen.bottom() + 1 + kGap);
  if (!room_.contains(place)) place.moveBottom(seen.top() - 1 - kGap);
  if (room_.contains(place)) Stand(MiddleOf(place));
}

// Writes the window's place to the form. The form is not marked as dirty for this, because the
// screen shows that place already.
void FormWindow::TellPlace() {
  place_ = pos();
  Form::Frame& frame = form_->Window;
  const bool wasDirty = frame.Dirty, formWasDirty = form_->Dirty;
  frame.Left = place_.x() * kTwipsPerPixel;
  frame.Top = place_.y() * kTwipsPerPixel;
  frame.Dirty = wasDirty;
  form_->Dirty = formWasDirty;
}

// The desktop's border is unknown until the window has been shown.
void FormWindow::LearnBorder() {
  if (borderKnown_ || form_ == nullptr || !form_->HasBorder) return;
  if (!isVisible() || windowHandle() == nullptr) return;
  const QMargins border = windowHandle()->frameMargins();
  if (border.isNull()) return;
  borderKnown_ = true;
  host_.Border() = border;
  if (border == std::exchange(border_, border)) return;
  Stand(middle_);  // the current place may be halfway between two places
}

void FormWindow::Restore() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
}

void FormWindow::moveEvent(QMoveEvent* /*event*/) {
  if (form_ == nullptr || syncing_ || !isVisible() || isMinimized()) return;
  LearnBorder();
  TellPlace();
}

}  // namespace vantora
