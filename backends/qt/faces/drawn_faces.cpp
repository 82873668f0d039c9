// Faces of controls that are drawn and not edited: labels, pictures, panels, drawings and level
// meters.

#include "backends/qt/faces/drawing_widget.h"
#include "backends/qt/faces/face.h"
#include "backends/qt/faces/level_bars.h"
#include "backends/qt/faces/picture_widgets.h"
#include "backends/qt/faces/words.h"
#include "backends/qt/look/even_line.h"
#include "backends/qt/look/look.h"
#include "backends/qt/print/print_font.h"
#include "backends/qt/windows/form_window.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <memory>

namespace vantora {

namespace {

// A control without a mouse handler passes the mouse to the controls below. A container must not:
// its children would not get the mouse either.
void LetMouseThrough(QWidget& widget, bool through) {
  widget.setAttribute(Qt::WA_TransparentForMouseEvents, through);
}

// A QLabel that draws its words itself. Screen readers get the words as its accessible name, since
// the toolkit's own treatment of the text of focusable labels is not wanted.
class WordsWidget final : public QLabel, public Spoken {
 public:
  using QLabel::QLabel;

  Text Caption;
  bool SpeaksCaption = true;  // to a screen reader
  QFont Full;                 // its font without scaling
  double Scale = 1;
  QColor Ink, Ground;
  bool Wrap = false, OwnFont = false, Framed = false;

  // Shows the caption again after a change. Words that change faster than they can be read are
  // shown less often. The timer shows the last change: its delay is so long that it does not fire
  // while changes go on.
  void Renew() {
    if (isVisible() && sinceRenewed_.isValid() && sinceRenewed_.elapsed() < kReadingMs) {
      if (!late_.isActive()) late_.start(kLateMs, this);
      return;
    }
    if (isVisible()) sinceRenewed_.start();
    TakeCaption();
    update();
  }

 protected:
  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() != late_.timerId()) return QLabel::timerEvent(event);
    sinceRenewed_.invalidate();
    Renew();
  }
  void paintEvent(QPaintEvent* /*event*/) override {
    if (late_.isActive()) TakeCaption();  // painted for another reason
    QPainter painter(this);
    if (Ground.alpha() > 0) painter.fillRect(rect(), Ground);
    QColor ink = Ink;
    if (!isEnabled()) ink.setAlpha(120);
    const Qt::Alignment across = alignment() & Qt::AlignHorizontal_Mask;
    DrawWords(painter, {words_, Full, ink, rect(), across | Qt::AlignTop, Wrap, Scale, OwnFont});
    if (Framed) DrawFrame(painter);
    if (hasFocus()) look::DrawFocusRing(painter, rect());
  }

 private:
  static constexpr int kReadingMs = 330, kLateMs = 350;

  void TakeCaption() {
    late_.stop();
    words_ = look::FromText(Caption);
    words_.remove(u'\r');
    const QString name = look::Plain(Caption);
    if (SpeaksCaption && accessibleName() != name) setAccessibleName(name);
  }

  // Light and dark dashes in turn, visible on any background.
  void DrawFrame(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(look::Of(look::kAmber));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(QPen(look::Of(look::kField), 1, Qt::DashLine));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

  QString words_;
  QElapsedTimer sinceRenewed_;
  QBasicTimer late_;
};

// A control that records the position of the mouse and the modifier keys.
class PointedFace : public Face {
 public:
  using Face::Face;

  void MousePress(QMouseEvent& event) override {
    Point(event);
    Face::MousePress(event);
  }
  void MouseRelease(QMouseEvent& event) override {
    Point(event);
    Face::MouseRelease(event);
  }
  void MouseDouble(QMouseEvent& event) override {
    Point(event);
    Face::MouseDouble(event);
  }
  // The button is 0 unless it was pressed on this control.
  void MouseMove(QMouseEvent& event) override {
    Point(event);
    const bool held = window().Pressed(*this);
    const int button = !held                                       ? 0
                       : event.buttons().testFlag(Qt::LeftButton)  ? kLeftButton
                       : event.buttons().testFlag(Qt::RightButton) ? kRightButton
                                                                   : 0;
    Fire([button](Control& told) {
      if (const auto move = told.MouseMove) move(button);
    });
  }

 private:
  static void Hold(Control& told, Qt::KeyboardModifiers modifiers) {
    told.ShiftHeld = modifiers.testFlag(Qt::ShiftModifier);
    told.ControlHeld = modifiers.testFlag(Qt::ControlModifier);
  }

  void Point(const QMouseEvent& event) {
    Control* told = control();
    if (told == nullptr) return;
    // A control that follows the mouse may have moved since its widget was updated.
    const QPoint lag =
        look::Pixels(*told, window().Scale()).topLeft() - widget()->geometry().topLeft();
    const QPoint place = event.position().toPoint() - lag;
    const double twips = kTwipsPerPixel / window().Scale();
    told->MouseX = static_cast<int>(std::lround(place.x() * twips));
    told->MouseY = static_cast<int>(std::lround(place.y() * twips));
    Hold(*told, event.modifiers());
  }
};

// The font size is in twips of the paper. Scaled to the window's pixels, letters keep the
// proportions of the printed ones.
QFont FontOnPaper(const Label& label) {
  LogicalFont font;
  font.FaceName = label.FontName;
  font.Height = -label.FontSize * kTwipsPerPoint;
  font.Weight = label.FontBold ? kWeightBold : kWeightNormal;
  font.Italic = label.FontItalic;
  return PrintFont(font);
}

Qt::Alignment Across(Alignment align) {
  if (align == Alignment::Right) return Qt::AlignRight;
  return align == Alignment::Center ? Qt::AlignHCenter : Qt::AlignLeft;
}

class LabelFace final : public PointedFace {
 public:
  LabelFace(Label& label, FormWindow& window)
      : LabelFace(label, window, new WordsWidget(&window)) {}

  void KeyPress(QKeyEvent& event) override {
    const bool press = event.key() == Qt::Key_Space || event.key() == Qt::Key_Return ||
                       event.key() == Qt::Key_Enter;
    if (!press || event.isAutoRepeat()) return PassKey(event);
    Act();
  }
  void FocusChanged(bool /*in*/) override { words_->update(); }

 private:
  LabelFace(Label& label, FormWindow& window, WordsWidget* words)
      : PointedFace(label, window, words), words_(words) {}

  void Dress(const Control& control) override {
    Face::Dress(control);
    const auto& label = static_cast<const Label&>(control);
    words_->OwnFont = !label.FontName().empty();
    words_->Full =
        words_->OwnFont ? FontOnPaper(label) : look::FontOf(label.FontSize, label.FontBold);
  }

  // A label without a name of its own is spoken as it is shown.
  void Speak(const Control& control) override {
    words_->SpeaksCaption =
        control.AccessibleName().empty() && !static_cast<const Label&>(control).Caption().empty();
    if (!words_->SpeaksCaption) Face::Speak(control);
  }

  // A caption is found as the name of its button.
  Said Says(const Control& control) const override {
    const auto& label = static_cast<const Label&>(control);
    if (label.Of != nullptr || (control.AccessibleName().empty() && label.Caption().empty()))
      return {};
    const bool opens = label.TabStop && (control.Click || control.DblClick);
    return {opens ? QAccessible::Link : QAccessible::StaticText};
  }

  void Apply(Control& control) override {
    const auto& label = static_cast<const Label&>(control);
    LetMouseThrough(*words_, !HasMouseHandler(control));
    words_->setFocusPolicy(label.TabStop ? Qt::TabFocus : Qt::NoFocus);
    Invite(HasMouseHandler(control));
    words_->setMouseTracking(static_cast<bool>(control.MouseMove));
    words_->Framed = label.BorderStyle != 0;
    words_->Scale = window().Scale();
    if (words_->OwnFont) words_->Scale *= label.FontScale / kTwipsPerPixel;
    words_->Ink = look::Of(label.ForeColor);
    words_->Ground = look::Of(label.BackColor);
    words_->Wrap = label.WordWrap;
    words_->setAlignment(Across(label.Align) | Qt::AlignTop);
    words_->Caption = label.Caption;
    words_->Press = nullptr;
    if (control.Click || control.DblClick) {
      words_->Press = [this] { PressedByReader([this] { Act(); }); };
    }
    words_->Renew();
  }

  void Act() {
    Fire([](Control& told) {
      if (const auto act = told.Click ? told.Click : told.DblClick) act();
    });
  }

  void Invite(bool toClick) {
    if (toClick == words_->testAttribute(Qt::WA_SetCursor)) return;
    if (toClick) {
      words_->setCursor(Qt::PointingHandCursor);
    } else {
      words_->unsetCursor();
    }
  }

  WordsWidget* words_;
};

// A picture without a mouse handler.
class PictureFace final : public Face {
 public:
  PictureFace(PictureButton& picture, FormWindow& window)
      : PictureFace(picture, window, new PictureWidget(window.host().ThePictures(), &window)) {}

  bool Fits() const override { return control() == nullptr || !HasMouseHandler(*control()); }

 private:
  PictureFace(PictureButton& picture, FormWindow& window, PictureWidget* widget)
      : Face(picture, window, widget), picture_(widget) {
    LetMouseThrough(*picture_, true);
  }

  Said Says(const Control& control) const override {
    const Lamp lamp = static_cast<const PictureButton&>(control).State;
    if (lamp != Lamp::None) return {QAccessible::CheckBox, -1, lamp};
    return {control.AccessibleName().empty() ? QAccessible::NoRole : QAccessible::Graphic};
  }

  void Apply(Control& control) override {
    const auto& picture = static_cast<const PictureButton&>(control);
    picture_->Shown = {
        picture.Picture, picture.Icon, {picture.ClipTop, picture.ClipHeight}, window().Scale()};
    picture_->update();
  }

  PictureWidget* picture_;
};

class ButtonFace final : public Face {
 public:
  ButtonFace(PictureButton& button, FormWindow& window)
      : ButtonFace(button, window, new ButtonWidget(window.host().ThePictures(), &window)) {}

  bool Fits() const override { return control() == nullptr || HasMouseHandler(*control()); }

  // A click does not move the focus to a button, so that it does not end typing in a text box.
  void MousePress(QMouseEvent& event) override {
    if (event.button() == Qt::MiddleButton) return;
    Down(event.button() == Qt::RightButton ? kRightButton : kLeftButton);
  }
  void MouseRelease(QMouseEvent& event) override {
    if (event.button() == Qt::MiddleButton || !held_) return;
    const bool inside =
        widget()->rect().contains(event.position().toPoint()) && !window().Refused();
    Up(event.button() == Qt::RightButton ? kRightButton : kLeftButton, inside);
  }
  void MouseDouble(QMouseEvent& event) override {
    const bool twice =
        event.button() == Qt::LeftButton && control() != nullptr && control()->DblClick;
    if (!twice) return MousePress(event);
    // The second press of a double click raises DblClick instead of MouseDown. Its release is
    // handled like any other.
    held_ = true;
    Fire([](Control& told) {
      if (const auto act = told.DblClick) act();
    });
  }
  void MouseMove(QMouseEvent& /*event*/) override {}

  void KeyPress(QKeyEvent& event) override {
    if (event.key() == Qt::Key_Space) {
      if (event.isAutoRepeat()) return;
      keyHeld_ = true;
      Down(kLeftButton);
    } else if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
      if (!event.isAutoRepeat()) DownAndUp();
    } else {
      PassKey(event);
    }
  }
  void KeyRelease(QKeyEvent& event) override {
    if (event.key() != Qt::Key_Space || event.isAutoRepeat() || !keyHeld_) return;
    keyHeld_ = false;
    Up(kLeftButton, !window().Refused());
  }
  // When the focus moves while the space bar is held, the release of the key goes to another
  // window.
  void FocusChanged(bool in) override {
    if (in || !keyHeld_) return;
    keyHeld_ = false;
    Up(kLeftButton, false);
  }

 private:
  ButtonFace(PictureButton& button, FormWindow& window, ButtonWidget* widget)
      : Face(button, window, widget), button_(widget) {
    button_->Press = [this] { PressedByReader([this] { DownAndUp(); }); };
  }

  Said Says(const Control& control) const override {
    const Lamp state = static_cast<const PictureButton&>(control).State;
    return {state == Lamp::None ? QAccessible::Button : QAccessible::CheckBox, -1, state};
  }

  void Apply(Control& control) override {
    const auto& button = static_cast<const PictureButton&>(control);
    button_->Shown = {
        button.Picture, button.Icon, {button.ClipTop, button.ClipHeight}, window().Scale()};
    const Text& words =
        button.AccessibleName().empty() ? button.ToolTipText() : button.AccessibleName();
    button_->Words = button.Picture().empty() && button.Icon().empty() ? look::Plain(words) : "";
    button_->Ink = look::Of(button.ForeColor);
    button_->setFocusPolicy(button.TabStop ? Qt::TabFocus : Qt::NoFocus);
    button_->update();
  }

  void Down(int button) {
    if (control() == nullptr || !control()->Enabled) return;
    held_ = true;
    button_->Held = As<PictureButton>()->PicturePressed.empty();
    button_->update();
    Fire([&](Control& told) { Press(static_cast<PictureButton&>(told), button); });
  }
  // A button with MouseDown works while it is held, and its handler turns the event loop. The
  // release is therefore posted as an event.
  void DownAndUp() {
    if (control() == nullptr) return;
    if (!control()->MouseDown) {
      Down(kLeftButton);
      Up(kLeftButton, true);
      return;
    }
    window().host().Model().Post([this, life = std::weak_ptr<int>(life_)] {
      if (!life.expired()) Up(kLeftButton, true);
    });
    Down(kLeftButton);
  }
  // Releasing the mouse outside cancels a button that acts on release. A button that acts while it
  // is held still needs its MouseUp.
  void Up(int button, bool inside) {
    held_ = false;
    button_->Held = false;
    button_->update();
    if (control() == nullptr) return;
    if (!inside && !control()->MouseDown) {
      auto* left = As<PictureButton>();
      if (!left->PictureReleased.empty()) left->Picture = left->PictureReleased;
      return;
    }
    Fire([&](Control& told) { Release(static_cast<PictureButton&>(told), button); });
    if (inside && button == kLeftButton) FireClick();
  }

  ButtonWidget* button_;
  bool held_ = false, keyHeld_ = false;
  std::shared_ptr<int> life_ = std::make_shared<int>();
};

class PanelWidget final : public QWidget, public Spoken {
 public:
  using QWidget::QWidget;
  QColor Fill, Edge;
  double Opacity = 1;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.setOpacity(Opacity);
    const bool line = width() == 1 || height() == 1;
    if (Fill.alpha() > 0) {
      painter.fillRect(line ? look::EvenLine(painter, rect()) : QRectF(event->rect()), Fill);
    }
    if (Edge.alpha() == 0) return;
    painter.setPen(Edge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

class ShapeFace final : public Face {
 public:
  ShapeFace(Shape& shape, FormWindow& window)
      : ShapeFace(shape, window, new PanelWidget(&window)) {}

 private:
  ShapeFace(Shape& shape, FormWindow& window, PanelWidget* panel)
      : Face(shape, window, panel), panel_(panel) {}

  Said Says(const Control& control) const override {
    const auto& shape = static_cast<const Shape&>(control);
    if (shape.Percent != kNoGauge) return {QAccessible::ProgressBar, shape.Percent};
    if (shape.State != Lamp::None) return {QAccessible::CheckBox, -1, shape.State};
    return {control.AccessibleName().empty() ? QAccessible::NoRole : QAccessible::Graphic};
  }

  void Apply(Control& control) override {
    const auto& shape = static_cast<const Shape&>(control);
    LetMouseThrough(*panel_, !HasMouseHandler(control) && !window().Holds(control));
    panel_->Fill = look::Of(shape.FillColor);
    panel_->Edge = look::Of(shape.BorderColor);
    panel_->Opacity = std::clamp(shape.Opacity(), 0, 100) / 100.0;
    panel_->update();
  }

  PanelWidget* panel_;
};

class DrawingFace final : public PointedFace {
 public:
  DrawingFace(PictureBox& box, FormWindow& window)
      : DrawingFace(box, window, new DrawingWidget(window.host().ThePictures(), &window)) {}

 private:
  DrawingFace(PictureBox& box, FormWindow& window, DrawingWidget* drawing)
      : PointedFace(box, window, drawing), drawing_(drawing) {}

  Said Says(const Control& control) const override {
    const bool named = !control.AccessibleName().empty() || !control.ToolTipText().empty();
    if (!control.KeyDown && (!named || window().Holds(control))) return {};
    return {QAccessible::Canvas, -1, Lamp::None, look::FromText(control.AccessibleValue)};
  }

  void Apply(Control& control) override {
    const auto& box = static_cast<const PictureBox&>(control);
    LetMouseThrough(*drawing_, !HasMouseHandler(control) && !window().Holds(control));
    drawing_->setMouseTracking(static_cast<bool>(control.MouseMove));
    drawing_->setFocusPolicy(control.KeyDown ? Qt::StrongFocus : Qt::NoFocus);
    drawing_->Press = nullptr;
    if (control.DblClick && !control.KeyDown) {
      drawing_->Press = [this] { PressedByReader([this] { Open(); }); };
    }
    if (drawing_->Set(box, window().Scale())) window().PaintAtOnce();
  }

  void Open() {
    Fire([](Control& told) {
      if (const auto open = told.DblClick) open();
    });
  }

  DrawingWidget* drawing_;
};

class MeterFace final : public Face {
 public:
  MeterFace(LevelMeter& meter, FormWindow& window)
      : MeterFace(meter, window, new LevelBars(&window)) {}

 private:
  MeterFace(LevelMeter& meter, FormWindow& window, LevelBars* bars)
      : Face(meter, window, bars), bars_(bars) {}

  Said Says(const Control& /*control*/) const override { return bars_->Says(); }

  void Apply(Control& control) override {
    const auto& meter = static_cast<const LevelMeter&>(control);
    LetMouseThrough(*bars_, !HasMouseHandler(control));
    bars_->Set(meter.Active, meter.PeakLeft, meter.PeakRight, meter.Shown, meter.Mark);
  }

  LevelBars* bars_;
};

}  // namespace

std::unique_ptr<Face> MakeDrawnFace(Control& control, FormWindow& window) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return std::make_unique<LabelFace>(static_cast<Label&>(control), window);
    case ControlKind::PictureButton: {
      auto& picture = static_cast<PictureButton&>(control);
      if (HasMouseHandler(control)) return std::make_unique<ButtonFace>(picture, window);
      return std::make_unique<PictureFace>(picture, window);
    }
    case ControlKind::Shape:
      return std::make_unique<ShapeFace>(static_cast<Shape&>(control), window);
    case ControlKind::PictureBox:
      return std::make_unique<DrawingFace>(static_cast<PictureBox&>(control), window);
    default:
      return std::make_unique<MeterFace>(static_cast<LevelMeter&>(control), window);
  }
}

}  // namespace vantora
