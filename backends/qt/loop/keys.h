// Converts keys between the toolkit and the model.
#pragma once

#include "backends/forms/keys.h"

#include <QKeyEvent>

namespace vantora::keys {

int Code(const QKeyEvent& event);  // the code that handlers get; 0: the key is not reported
KeyStroke StrokeOf(const QKeyEvent& event);
// The event that a keyboard sends for a stroke.
QKeyEvent EventOf(const KeyStroke& stroke, QEvent::Type type);
// True for the keys that move through a list: arrows, Home and End, without Ctrl or Shift.
bool Walks(const QKeyEvent& event);
// The row from 0 that such a key selects in a list of `count` rows without a selection: the arrows
// select the current row, or the first one when there is none (-1).
int FirstRow(const QKeyEvent& event, int current, int count);

}  // namespace vantora::keys
