#include "backends/qt/faces/face.h"

#include "backends/forms/focus.h"
#include "backends/qt/look/look.h"
#include "backends/qt/windows/form_window.h"

#include <QMouseEvent>

#include <algorithm>

namespace vantora {

namespace {

int ButtonOf(const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton) return kLeftButton;
  return event.button() == Qt::RightButton ? kRightButton : 0;
}

// The caption of a container is not shown.
Text CaptionOf(const Control& control) {
  if (control.Kind() == ControlKind::PictureBox) return {};
  return control.Read(L"Caption").value_or(Text());
}

QString SpokenName(const Control& control) {
  if (!control.AccessibleName().empty()) return look::Plain(control.AccessibleName);
  const Text caption = CaptionOf(control);
  if (!caption.empty()) return look::Plain(caption);
  if (control.Kind() == ControlKind::Label) return {};
  if (!HasMouseHandler(control) && control.Kind() == ControlKind::PictureButton) return {};
  return look::FromText(control.ToolTipText);
}

bool Bright(const Control& control) {
  if (!control.Enabled || control.Kind() != ControlKind::Label) return control.Enabled;
  const Control* button = static_cast<const Label&>(control).Of;
  return button == nullptr || button->Enabled;
}

}  // namespace

Face::Face(Control& control, FormWindow& window, QWidget* widget)
    : window_(window),
      control_(&control),
      widget_(widget),
      surface_(widget),
      spoken_(dynamic_cast<Spoken*>(widget)) {
  widget->setObjectName(look::FromText(control.Name));
}

Control* Face::control() const {
  const Form* form = window_.form();
  if (form == nullptr || control_ == nullptr) return nullptr;
  const auto& all = form->Controls;
  return std::find(all.begin(), all.end(), control_) == all.end() ? nullptr : control_;
}

Pictures& Face::pictures() const {
  return window_.host().ThePictures();
}

void Face::Retire() {
  control_ = nullptr;
  if (spoken_ != nullptr) spoken_->Press = nullptr;
  widget_->hide();
}

void Face::Sync() {
  Control* shown = control();
  if (shown == nullptr) return;
  shown->Dirty = false;
  const QRect place = look::Pixels(*shown, window_.Scale());
  if (widget_->geometry() != place) widget_->setGeometry(place);
  const auto dress = std::tie(shown->FontName(), shown->FontSize(), shown->FontBold(),
                              shown->FontItalic(), shown->ToolTipText(), shown->AccessibleName());
  const bool dressed = dress == dress_ && window_.Scale() == scale_;
  if (!dressed) {
    dress_ = dress;
    scale_ = window_.Scale();
    Dress(*shown);
  }
  // A meter has no caption, so only what it is dressed with can change its name.
  if (!dressed || shown->Kind() != ControlKind::LevelMeter) Speak(*shown);
  widget_->setEnabled(Bright(*shown));
  if (spoken_ != nullptr) spoken_->Say(*widget_, Says(*shown));
  Apply(*shown);
  const bool visible = shown->Visible && !place.isEmpty();
  if (widget_->isHidden() == visible) widget_->setVisible(visible);
}

void Face::Dress(const Control& control) {
  const QFont font = look::FontOf(control, window_.Scale());
  if (widget_->font() != font) widget_->setFont(font);
  const QString tip = look::Tip(look::FromText(control.ToolTipText));
  if (widget_->toolTip() != tip) widget_->setToolTip(tip);
}

void Face::Speak(const Control& control) {
  const QString name = SpokenName(control);
  if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
}

void Face::Take(const std::function<void(Control&)>& change) {
  Control* taken = control();
  if (taken == nullptr) return;
  const bool wasDirty = taken->Dirty, formWasDirty = taken->Owner().Dirty;
  change(*taken);
  taken->Dirty = wasDirty;
  taken->Owner().Dirty = formWasDirty;
}

void Face::Fire(const std::function<void(Control&)>& handler) {
  window_.Handle([&] {
    if (Control* told = control()) handler(*told);
  });
}

bool Face::ByReader() const {
  return !window_.Syncing() && !window_.Touched();
}

void Face::PressedByReader(const std::function<void()>& act) {
  const Control* pressed = control();
  if (pressed != nullptr && window_.host().Model().TakesInput(*pressed)) act();
}

// The handler is copied before it runs: it may destroy its own form.
void Face::FireClick() {
  Fire([](Control& told) {
    if (const auto click = told.Click) click();
  });
}

void Face::Pass(QMouseEvent& event) {
  if (control() != nullptr) static_cast<QObject*>(surface_)->event(&event);
}

void Face::PassKey(QKeyEvent& event) {
  if (control() != nullptr) static_cast<QObject*>(widget_)->event(&event);
}

void Face::MousePress(QMouseEvent& event) {
  const int button = ButtonOf(event);
  Fire([&](Control& told) {
    if (const auto down = told.MouseDown; down && button != 0) down(button);
  });
  Pass(event);
}

void Face::MouseRelease(QMouseEvent& event) {
  Pass(event);
  ReportRelease(event);
}

void Face::ReportRelease(const QMouseEvent& event) {
  const int button = ButtonOf(event);
  const bool inside = surface_->rect().contains(event.position().toPoint()) && !window_.Refused();
  Fire([&](Control& told) {
    if (const auto up = told.MouseUp; up && button != 0) up(button);
  });
  if (button == kLeftButton && inside && ClicksByMouse()) FireClick();
}

void Face::MouseDouble(QMouseEvent& event) {
  Pass(event);
  if (event.button() != Qt::LeftButton) return;
  Fire([](Control& told) {
    if (const auto twice = told.DblClick) twice();
  });
}

std::unique_ptr<Face> MakeFace(Control& control, FormWindow& window) {
  switch (control.Kind()) {
    case ControlKind::Label:
    case ControlKind::PictureButton:
    case ControlKind::Shape:
    case ControlKind::PictureBox:
    case ControlKind::LevelMeter:
      return MakeDrawnFace(control, window);
    case ControlKind::ListView:
      return MakeTableFace(static_cast<ListView&>(control), window);
    case ControlKind::Timer:
      return nullptr;
    default:
      return MakeInputFace(control, window);
  }
}

}  // namespace vantora
