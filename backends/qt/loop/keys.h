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

}  // namespace vantora::keys
