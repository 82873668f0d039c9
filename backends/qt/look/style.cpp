#include "backends/qt/look/style.h"

#include "backends/qt/look/look.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTreeView>

#include <algorithm>

namespace vantora::look {

namespace {

// All sizes are in pixels.
constexpr int kFieldMargin = 4;  // beside the words of a field, edge included
constexpr int kWordsMargin = 2;  // added to kFieldMargin; the toolkit's own margin in text boxes
constexpr int kArrowWidth = 18;  // of a combo box
constexpr int kItemMarginX = 2, kItemMarginY = 1;
constexpr int kBarWidth = 13;
constexpr int kLeastHandle = 24;
constexpr double kFieldRadius = 2.5;
constexpr double kHandleRadius = 4;

constexpr Color kEdgeOff = Rgb(67, 72, 107);
constexpr Color kSelectedBehind = Rgb(201, 165, 103);
constexpr Color kBarGround = Rgb(27, 31, 48);

// Margins shrink with the letters of a scaled window.
int Beside(int pixels, const QWidget* widget) {
  constexpr int kSmallest = 11;  // pixels of the letters at full size
  const int letters = widget == nullptr ? kSmallest : widget->font().pixelSize();
  return letters <= 0 || letters >= kSmallest ? pixels : std::max(1, pixels * letters / kSmallest);
}

QPalette::ColorGroup GroupOf(const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
  return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

QColor EdgeOf(const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return Of(kEdgeOff);
  return Of(option.state.testFlag(QStyle::State_HasFocus) ? kAmber : kEdge);
}

void DrawEdge(const QStyleOption& option, QPainter& painter, const QColor& edge,
              const QBrush& ground) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(edge, 1));
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), kFieldRadius,
                          kFieldRadius);
  painter.restore();
}

void DrawField(const QStyleOption& option, QPainter& painter) {
  DrawEdge(option, painter, EdgeOf(option), option.palette.brush(GroupOf(option), QPalette::Base));
}

void DrawArrow(const QStyleOption& option, QPainter& painter) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const QColor ink =
      enabled ? Of(kAmber) : option.palette.color(QPalette::Disabled, QPalette::Text);
  painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF tip(option.rect.width() - 13.5, option.rect.height() / 2.0 + 2);
  painter.drawPolyline(QPolygonF{tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)});
  painter.restore();
}

bool IsSelected(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_Selected);
}

// Not part of the palette: when colours differ between active and inactive windows, the toolkit
// repaints every widget each time a window becomes active.
void DrawSelection(const QStyleOption& option, QPainter& painter) {
  const QPalette::ColorGroup group = GroupOf(option);
  painter.fillRect(option.rect, group == QPalette::Inactive
                                    ? Of(kSelectedBehind)
                                    : option.palette.color(group, QPalette::Highlight));
}

void DrawRow(const QStyleOption& option, QPainter& painter) {
  const auto* row = qstyleoption_cast<const QStyleOptionViewItem*>(&option);
  if (IsSelected(option)) {
    DrawSelection(option, painter);
  } else if (row != nullptr && row->features.testFlag(QStyleOptionViewItem::Alternate)) {
    painter.fillRect(option.rect, option.palette.brush(QPalette::AlternateBase));
  }
}

void DrawHead(const QRect& rect, QPainter& painter) {
  QLinearGradient metal(rect.topLeft(), rect.bottomLeft());
  metal.setColorAt(0, QColor(74, 77, 133));
  metal.setColorAt(1, Of(kPanel));
  painter.fillRect(rect, metal);
  painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), Of(kGround));
}

void DrawFocusLine(const QRect& rect, QPainter& painter) {
  painter.save();
  painter.setPen(QPen(Of(kAmber), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect.adjusted(0, 0, -1, -1));
  painter.restore();
}

// A scroll bar has no arrows; its handle uses the whole length.
QRect BarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  const bool flat = bar.orientation == Qt::Horizontal;
  const int length = flat ? bar.rect.width() : bar.rect.height();
  const std::int64_t range = std::int64_t{bar.maximum} - bar.minimum;
  const std::int64_t share =
      range > 0 ? length * std::int64_t{bar.pageStep} / (range + bar.pageStep) : length;
  const int handle = std::min(length, std::max(kLeastHandle, static_cast<int>(share)));
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    length - handle, bar.upsideDown);
  const auto piece = [&](int from, int to) {
    return flat ? QRect(bar.rect.left() + from, bar.rect.top(), to - from, bar.rect.height())
                : QRect(bar.rect.left(), bar.rect.top() + from, bar.rect.width(), to - from);
  };
  switch (part) {
    case QStyle::SC_ScrollBarGroove:
      return bar.rect;
    case QStyle::SC_ScrollBarSlider:
      return piece(start, start + handle);
    case QStyle::SC_ScrollBarSubPage:
      return piece(0, start);
    case QStyle::SC_ScrollBarAddPage:
      return piece(start + handle, length);
    default:
      return {};
  }
}

void DrawBar(const QStyleOptionSlider& bar, QPainter& painter) {
  painter.save();
  painter.fillRect(bar.rect, Of(kBarGround));
  const bool hot = bar.state.testFlag(QStyle::State_MouseOver) &&
                   bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(hot ? QColor(122, 128, 188) : QColor(90, 95, 150));
  painter.drawRoundedRect(BarPart(bar, QStyle::SC_ScrollBarSlider).adjusted(2, 2, -2, -2),
                          kHandleRadius, kHandleRadius);
  painter.restore();
}

QRectF BeginMark(const QStyleOption& option, QPainter& painter) {
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool hot = option.state.testFlag(QStyle::State_MouseOver) ||
                   option.state.testFlag(QStyle::State_Sunken) ||
                   option.state.testFlag(QStyle::State_HasFocus);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(!enabled ? QColor(90, 95, 130)
                      : hot    ? Of(kAmber)
                               : QColor(160, 166, 214),
                      1));
  painter.setBrush(enabled ? Of(kField) : QColor(27, 31, 48));
  const QRectF all(option.rect);
  const double side = std::min(all.width(), all.height()) - 1;
  return {all.center().x() - side / 2, all.center().y() - side / 2, side, side};
}

QColor Light(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_Enabled) ? Of(kAmber) : QColor(133, 140, 168);
}

void DrawCheck(const QStyleOption& option, QPainter& painter) {
  painter.save();
  const QRectF box = BeginMark(option, painter);
  painter.drawRoundedRect(box, 2, 2);
  if (option.state.testFlag(QStyle::State_On)) {
    const auto at = [&box](double x, double y) {
      return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    painter.setPen(QPen(Light(option), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.74), at(0.8, 0.26)});
  }
  painter.restore();
}

void DrawRadio(const QStyleOption& option, QPainter& painter) {
  painter.save();
  const QRectF ring = BeginMark(option, painter);
  painter.drawEllipse(ring);
  if (option.state.testFlag(QStyle::State_On)) {
    const double inset = ring.width() * 0.27;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Light(option));
    painter.drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
  }
  painter.restore();
}

class Style final : public QProxyStyle {
 public:
  Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override;

 private:
  void DrawChoiceWords(const QStyleOptionComboBox& option, QPainter& painter,
                       const QWidget* widget) const;
};

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
    case PE_IndicatorCheckBox:
      return DrawCheck(*option, *painter);
    case PE_IndicatorRadioButton:
      return DrawRadio(*option, *painter);
    case PE_PanelLineEdit:
      return DrawField(*option, *painter);
    case PE_Frame: {
      // The widget inside the frame fills its own background.
      const bool choices = widget != nullptr && widget->inherits("QComboBoxPrivateContainer");
      return DrawEdge(*option, *painter, choices ? Of(kAmber) : EdgeOf(*option), Qt::NoBrush);
    }
    case PE_PanelItemViewRow:
      return DrawRow(*option, *painter);
    case PE_PanelItemViewItem:
      if (IsSelected(*option)) DrawSelection(*option, *painter);
      return;
    case PE_FrameFocusRect:
      // In a table the selected rows already show where the focus is.
      if (qobject_cast<const QTreeView*>(widget) == nullptr) DrawFocusLine(option->rect, *painter);
      return;
    default:
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  if (element == CE_HeaderSection) {
    DrawHead(option->rect, *painter);
  } else if (element == CE_HeaderEmptyArea) {
    painter->fillRect(option->rect, Of(kPanel));
  } else if (element == CE_ComboBoxLabel) {
    DrawChoiceWords(*qstyleoption_cast<const QStyleOptionComboBox*>(option), *painter, widget);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void Style::DrawChoiceWords(const QStyleOptionComboBox& option, QPainter& painter,
                            const QWidget* widget) const {
  const QRect room =
      subControlRect(CC_ComboBox, &option, SC_ComboBoxEditField, widget)
          .adjusted(Beside(kWordsMargin, widget), 0, -Beside(kWordsMargin, widget), 0);
  const QString words =
      option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, room.width());
  drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, option.palette,
               option.state.testFlag(State_Enabled), words, QPalette::Text);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  if (control == CC_ComboBox) {
    DrawField(*option, *painter);
    DrawArrow(*option, *painter);
  } else if (control == CC_ScrollBar) {
    DrawBar(*qstyleoption_cast<const QStyleOptionSlider*>(option), *painter);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option,
                            const QWidget* widget) const {
  if (element == SE_LineEditContents) {
    const int margin = Beside(kFieldMargin, widget);
    return option->rect.adjusted(margin, 1, -margin, -1);
  }
  const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
  if (element != SE_ItemViewItemText || item == nullptr) {
    return QProxyStyle::subElementRect(element, option, widget);
  }
  QStyleOptionViewItem inner(*item);
  const int margin = Beside(kItemMarginX, widget);
  inner.rect.adjust(margin, kItemMarginY, -margin, -kItemMarginY);
  return QProxyStyle::subElementRect(element, &inner, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const {
  if (control == CC_ScrollBar) {
    return BarPart(*qstyleoption_cast<const QStyleOptionSlider*>(option), part);
  }
  if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
    const int margin = Beside(kFieldMargin, widget);
    return option->rect.adjusted(margin, 1, -margin - kArrowWidth, -1);
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
  const QSize needed = QProxyStyle::sizeFromContents(type, option, size, widget);
  if (type != CT_ItemViewItem) return needed;
  return needed + QSize(2 * Beside(kItemMarginX, widget), 2 * kItemMarginY);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return Beside(kBarWidth, widget);
    case PM_FocusFrameHMargin:  // beside the words of a list's line
      return Beside(QProxyStyle::pixelMetric(metric, option, widget), widget);
    case PM_ScrollBarSliderMin:
      return kLeastHandle;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return Beside(QProxyStyle::pixelMetric(metric, option, widget), widget);
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

// A combo box opens its list below itself, not over itself.
int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* answer) const {
  // A scroll bar has no menu of its own.
  const bool off =
      hint == SH_ComboBox_Popup || hint == SH_ScrollBar_ContextMenu || hint == SH_EtchDisabledText;
  return off ? 0 : QProxyStyle::styleHint(hint, option, widget, answer);
}

}  // namespace

void UseStyle() {
  if (dynamic_cast<Style*>(QApplication::style()) != nullptr) return;
  QApplication::setStyle(new Style);  // owned by the application
}

}  // namespace vantora::look
