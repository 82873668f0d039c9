#include "backends/qt/look.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTextDocument>
#include <QToolTip>

#include <cmath>

namespace vantora::look {

namespace {

// Selected rows, edges and heads in the windows' own scheme. The words on amber are the field's
// ground, which reads at more than ten to one. The rules are given to the widgets that need them: a
// sheet of the application's would have the toolkit match every label and button with it. "%1" is
// the kind of widget.
constexpr const char* kFieldRules = R"(
%1 {
  background-color: #10131F; color: #E6EAF6; border: 1px solid #7076A8; border-radius: 3px;
  selection-background-color: #FFB545; selection-color: #10131F;
}
%1:focus { border: 1px solid #FFB545; }
%1:disabled { background-color: #1B1F30; color: #858CA8; border: 1px solid #43486B; }
)";

constexpr const char* kTextBoxRules = R"(
QLineEdit { padding: 0 3px; }
)";

constexpr const char* kChoiceRules = R"(
QComboBox { padding: 0 3px; }
QComboBox::drop-down { border: none; width: 18px; }
QComboBox QAbstractItemView {
  background-color: #10131F; color: #E6EAF6; border: 1px solid #FFB545;
  selection-background-color: #FFB545; selection-color: #10131F;
}
)";

constexpr const char* kItemRules = R"(
%1::item { padding: 1px 2px; border: none; }
%1::item:selected { background: #FFB545; color: #10131F; }
%1::item:selected:!active { background: #C9A567; color: #10131F; }
)";

constexpr const char* kTableRules = R"(
QTreeView { alternate-background-color: #161A2B; outline: none; }
)";

constexpr const char* kBarRules = R"(
QScrollBar:vertical { background: #1B1F30; width: 13px; margin: 0; }
QScrollBar:horizontal { background: #1B1F30; height: 13px; margin: 0; }
QScrollBar::handle { background: #5A5F96; border-radius: 4px; margin: 2px; }
QScrollBar::handle:hover { background: #7A80BC; }
QScrollBar::handle:vertical { min-height: 24px; }
QScrollBar::handle:horizontal { min-width: 24px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
)";

constexpr const char* kMenus = R"(
QMenu { background-color: #2A2D4C; color: #F4F6FC; border: 1px solid #7076A8; padding: 3px; }
QMenu::item { padding: 4px 22px; border-radius: 3px; }
QMenu::item:selected { background-color: #FFB545; color: #10131F; }
QMenu::item:disabled { color: #858CA8; background: transparent; }
)";

constexpr int kHeadMargin = 4;  // pixels round the words in the head of a table

// The toolkit's style, but for the heads of tables, and for the marks of check boxes and option
// buttons: what is set shines.
class Marks final : public QProxyStyle {
 public:
  Marks() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    if (element == PE_IndicatorCheckBox) {
      DrawCheck(*option, *painter);
    } else if (element == PE_IndicatorRadioButton) {
      DrawRadio(*option, *painter);
    } else if (element == PE_FrameFocusRect) {
      painter->save();
      painter->setPen(QPen(Of(kAmber), 1));
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
      painter->restore();
    } else {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element == CE_HeaderSection) {
      DrawHead(option->rect, *painter);
    } else if (element == CE_HeaderEmptyArea) {
      painter->fillRect(option->rect, Of(kPanel));
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    if (metric == PM_HeaderMargin) return kHeadMargin;
    return QProxyStyle::pixelMetric(metric, option, widget);
  }

 private:
  static void DrawHead(const QRect& rect, QPainter& painter) {
    QLinearGradient metal(rect.topLeft(), rect.bottomLeft());
    metal.setColorAt(0, QColor(74, 77, 133));
    metal.setColorAt(1, Of(kPanel));
    painter.fillRect(rect, metal);
    painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), Of(kGround));
  }
  static QRectF Begin(const QStyleOption& option, QPainter& painter) {
    const bool enabled = option.state.testFlag(State_Enabled);
    const bool hot = option.state.testFlag(State_MouseOver) ||
                     option.state.testFlag(State_Sunken) || option.state.testFlag(State_HasFocus);
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
  static QColor Light(const QStyleOption& option) {
    return option.state.testFlag(State_Enabled) ? Of(kAmber) : QColor(133, 140, 168);
  }
  static void DrawCheck(const QStyleOption& option, QPainter& painter) {
    painter.save();
    const QRectF box = Begin(option, painter);
    painter.drawRoundedRect(box, 2, 2);
    if (option.state.testFlag(State_On)) {
      const auto at = [&box](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
      };
      painter.setPen(QPen(Light(option), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.74), at(0.8, 0.26)});
    }
    painter.restore();
  }
  static void DrawRadio(const QStyleOption& option, QPainter& painter) {
    painter.save();
    const QRectF ring = Begin(option, painter);
    painter.drawEllipse(ring);
    if (option.state.testFlag(State_On)) {
      const double inset = ring.width() * 0.27;
      painter.setPen(Qt::NoPen);
      painter.setBrush(Light(option));
      painter.drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
    }
    painter.restore();
  }
};

QPalette Colours() {
  QPalette palette;
  palette.setColor(QPalette::Window, Of(kGround));
  palette.setColor(QPalette::WindowText, Of(kWords));
  palette.setColor(QPalette::Base, Of(kField));
  palette.setColor(QPalette::AlternateBase, QColor(22, 26, 43));
  palette.setColor(QPalette::Text, QColor(230, 234, 246));
  palette.setColor(QPalette::Button, Of(kPanel));
  palette.setColor(QPalette::ButtonText, Of(kWords));
  palette.setColor(QPalette::BrightText, Of(kAmber));
  palette.setColor(QPalette::Highlight, Of(kAmber));
  palette.setColor(QPalette::HighlightedText, Of(kField));
  palette.setColor(QPalette::Link, Of(kAmber));
  palette.setColor(QPalette::PlaceholderText, Of(kQuiet));
  palette.setColor(QPalette::ToolTipBase, QColor(255, 243, 217));
  palette.setColor(QPalette::ToolTipText, Of(kField));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(133, 140, 168));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(27, 31, 48));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(90, 95, 150));
  return palette;
}

}  // namespace

QString FromText(const Text& text) {
  return QString::fromStdWString(text);
}

Text ToText(const QString& text) {
  return text.toStdWString();
}

QColor Of(Color color) {
  if (color == kTransparent) return QColor(Qt::transparent);
  return QColor(static_cast<int>(color >> 16U & 255U), static_cast<int>(color >> 8U & 255U),
                static_cast<int>(color & 255U));
}

QFont FontOf(int points, bool bold) {
  QFont font;
  font.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
  font.setPixelSize(std::max(6, static_cast<int>(std::lround(points * 96.0 / 72.0))));
  font.setBold(bold);
  return font;
}

int Pixels(int twips) {
  return static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel));
}

QRect Pixels(const Control& control) {
  const int left = Pixels(control.Left), top = Pixels(control.Top);
  return QRect(left, top, Pixels(control.Left + control.Width) - left,
               Pixels(control.Top + control.Height) - top);
}

QString Tip(const QString& words) {
  return Qt::mightBeRichText(words) ? words.toHtmlEscaped() : words;
}

QString Plain(const Text& caption) {
  QString plain;
  const QString all = FromText(caption);
  for (qsizetype i = 0; i < all.size(); ++i) {
    const bool mark = all[i] == u'&' && i + 1 < all.size() && all[i + 1].isLetterOrNumber();
    if (!mark) plain += all[i];
  }
  return plain;
}

void DrawPanel(QPainter& painter, const QRect& rect, bool pressed) {
  const QRectF edge = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
  QLinearGradient metal(edge.topLeft(), edge.bottomLeft());
  metal.setColorAt(0, pressed ? QColor(36, 38, 70) : QColor(88, 92, 146));
  metal.setColorAt(1, pressed ? QColor(58, 61, 108) : Of(kPanel));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(pressed ? QColor(80, 84, 130) : QColor(132, 138, 190), 1));
  painter.setBrush(metal);
  painter.drawRoundedRect(edge, 4, 4);
}

void DrawFocusRing(QPainter& painter, const QRect& rect) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Of(kAmber), 2));
  painter.drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), 4, 4);
}

void Dress() {
  if (dynamic_cast<Marks*>(QApplication::style()) != nullptr) return;
  QApplication::setStyle(new Marks);  // the application owns it
  QApplication::setPalette(Colours());
  QApplication::setFont(FontOf(9, false));
  QToolTip::setPalette(Colours());
}

QString FieldSheet(const char* kind, Color fore, Color back) {
  const QLatin1String name(kind);
  QString sheet = QLatin1String(kFieldRules);
  if (name == QLatin1String("QLineEdit")) {
    sheet += QLatin1String(kTextBoxRules);
  } else {
    if (name == QLatin1String("QComboBox")) sheet += QLatin1String(kChoiceRules);
    if (name != QLatin1String("QComboBox")) sheet += QLatin1String(kItemRules);
    if (name == QLatin1String("QTreeView")) sheet += QLatin1String(kTableRules);
    sheet += QLatin1String(kBarRules);
  }
  QString rule;
  if (fore != kWords) rule += QStringLiteral("color: %1;").arg(Of(fore).name());
  if (back != kTransparent) rule += QStringLiteral("background-color: %1;").arg(Of(back).name());
  if (!rule.isEmpty()) sheet += QLatin1String("%1 { ") + rule + QLatin1String(" }");
  return sheet.replace(QLatin1String("%1"), name);
}

QString MenuSheet() {
  return QString::fromLatin1(kMenus);
}

}  // namespace vantora::look
