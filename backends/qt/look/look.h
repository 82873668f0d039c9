// The colours, the type and the style that all windows share, and the small conversions
// between the form model's units and the toolkit's.
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
QColor Of(Color color);  // invisible for kTransparent
// At 96 dots an inch, whatever the screen says. Scaled down, words take no more of their place than
// at full size, though letters come in whole pixels only.
QFont FontOf(int points, bool bold, double scale = 1);
// Of a control that shows the user's font at the size of the screen's other letters.
QFont FontOf(const Control& control, double scale);
// Edges are rounded, so that neighbours meet; what is seen at full size stays a pixel wide at
// least.
QRect Pixels(const Control& control, double scale = 1);
int Pixels(int twips, double scale = 1);
// A caption without the "&" that marks a letter, which no window uses.
QString Tip(const QString& words);  // as a tooltip shows them, and not as rich text
QString Plain(const Text& caption);

// The rounded panel that stands for buttons without a picture and for pictures that are missing.
void DrawPanel(QPainter& painter, const QRect& rect, bool pressed);
void DrawFocusRing(QPainter& painter, const QRect& rect);

// Gives the application its style and palette; doing it again changes nothing.
void Dress();
// Gives a widget a colour of its own, but for the times when it is disabled.
void Ink(QWidget& widget, QPalette::ColorRole role, const QColor& colour);
// The colours of a text box, list, table or choice.
void InkField(QWidget& field, const Control& control);
QString MenuSheet();

}  // namespace vantora::look
