#include "backends/qt/look/look.h"

#include "backends/qt/look/style.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>
#include <QTextDocument>
#include <QToolTip>

#include <cmath>

namespace vantora::look {

namespace {

constexpr const char* kMenus = R"(
QMenu { background-color: #2A2D4C; color: #F4F6FC; border: 1px solid #7076A8; padding: 3px; }
QMenu::item { padding: 4px 22px; border-radius: 3px; }
QMenu::item:selected { background-color: #FFB545; color: #10131F; }
QMenu::item:disabled { color: #858CA8; background: transparent; }
)";

QPalette Colours() {
  QPalette palette;
  palette.setColor(QPalette::Window, Of(kGround));
  palette.setColor(QPalette::WindowText, Of(kWords));
  palette.setColor(QPalette::Base, Of(kField));
  palette.setColor(QPalette::AlternateBase, QColor(22, 26, 43));
  palette.setColor(QPalette::Text, Of(kFieldWords));
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

QFont FontOf(int points, bool bold, double scale) {
  constexpr double kPixelsPerPoint = 96.0 / 72.0;
  constexpr int kLeastPixels = 6, kLeastScaled = 4;
  const double full =
      std::max(kLeastPixels, static_cast<int>(std::lround(points * kPixelsPerPoint)));
  const double wanted = full * scale;
  const int pixels = std::max(kLeastScaled, static_cast<int>(std::lround(wanted)));
  static const QStringList kFamilies{QStringLiteral("Liberation Sans"), QStringLiteral("Arial")};
  QFont font;
  font.setFamilies(kFamilies);
  font.setPixelSize(pixels);
  font.setBold(bold);
  if (pixels > wanted) font.setStretch(static_cast<int>(100 * wanted / pixels));
  return font;
}

QFont FontOf(const Control& control, double scale) {
  QFont font = FontOf(control.FontSize, control.FontBold, scale);
  if (!control.FontName().empty()) font.setFamilies({FromText(control.FontName)});
  font.setItalic(control.FontItalic);
  return font;
}

int Pixels(int twips, double scale) {
  return static_cast<int>(std::lround(twips * scale / kTwipsPerPixel));
}

QRect Pixels(const Control& control, double scale) {
  const int left = Pixels(control.Left, scale), top = Pixels(control.Top, scale);
  const auto length = [scale](int from, int twips) {
    const int pixels = Pixels(from + twips, scale) - Pixels(from, scale);
    return pixels == 0 && scale < 1 && Pixels(twips) > 0 ? 1 : pixels;
  };
  return QRect(left, top, length(control.Left, control.Width), length(control.Top, control.Height));
}

QString Tip(const QString& words) {
  return Qt::mightBeRichText(words) ? words.toHtmlEscaped() : words;
}

QString Plain(const Text& caption) {
  QString all = FromText(caption);
  if (!all.contains(u'&')) return all;
  QString plain;
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
  UseStyle();
  QApplication::setPalette(Colours());
  QApplication::setFont(FontOf(9, false));
  QToolTip::setPalette(Colours());
}

void Ink(QWidget& widget, QPalette::ColorRole role, const QColor& colour) {
  if (widget.palette().color(QPalette::Active, role) == colour) return;
  QPalette palette = widget.palette();
  palette.setColor(QPalette::Active, role, colour);
  palette.setColor(QPalette::Inactive, role, colour);
  widget.setPalette(palette);
}

void InkField(QWidget& field, const Control& control) {
  const Color fore = control.ForeColor, back = control.BackColor;
  Ink(field, QPalette::Text, Of(fore == kWords ? kFieldWords : fore));
  Ink(field, QPalette::Base, Of(back == kTransparent ? kField : back));
}

QString MenuSheet() {
  return QString::fromLatin1(kMenus);
}

}  // namespace vantora::look
