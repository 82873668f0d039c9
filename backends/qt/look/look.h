// Colours, fonts and the style shared by all windows, and conversions between the form model's
// units and the toolkit's.
#pragma once

#include "platform/controls.h"
#include "platform/twips.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRect>
#include <QString>

class QPainter;
class QWidget;

namespace vantora::look {

inline constexpr Color kGround = Rgb(31, 34, 51);
inline constexpr Color kPanel = Rgb(53, 55, 99);
inline constexpr Color kField = Rgb(16, 19, 31);
inline constexpr Color kFieldWords = Rgb(230, 234, 246);
inline constexpr Color kWords = Rgb(235, 238, 245);
inline constexpr Color kQuiet = Rgb(154, 165, 200);
inline constexpr Color kAmber = Rgb(255, 181, 69);
inline constexpr Color kEdge = Rgb(112, 118, 168);

QString FromText(const Text& text);
Text ToText(const QString& text);
QColor Of(Color color);  // transparent for kTransparent
// A font for 96 dots per inch, whatever the screen reports. When scaled down, words take no more
// space relative to the window than at full size, although letters have whole pixels.
QFont FontOf(int points, bool bold, double scale = 1);
// The font of a control that shows a font of the user's choice at the size of the other words on
// the screen.
QFont FontOf(const Control& control, double scale);
// Edges are rounded so that neighbours meet. A control that is visible at full size stays at least
// one pixel wide.
QRect Pixels(const Control& control, double scale = 1);
int Pixels(int twips, double scale = 1);
// Plain removes the "&" that marks an access key, since no window uses access keys.
QString Tip(const QString& words);  // for a tooltip, never read as rich text
QString Plain(const Text& caption);

// The rounded panel for buttons without a picture and for missing pictures.
void DrawPanel(QPainter& painter, const QRect& rect, bool pressed);
void DrawFocusRing(QPainter& painter, const QRect& rect);

// Sets the application's style and palette. Repeated calls change nothing.
void Dress();
// Sets a colour of a widget for all states except disabled.
void Ink(QWidget& widget, QPalette::ColorRole role, const QColor& colour);
// Sets the colours of a text box, list, table or combo box.
void InkField(QWidget& field, const Control& control);
QString MenuSheet();

}  // namespace vantora::look
