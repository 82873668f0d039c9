#include "backends/qt/loop/keys.h"

#include <algorithm>

namespace vantora::keys {

namespace {

struct Pair {
  int Key;  // Qt::Key
  int Code;
};

constexpr Pair kKeys[] = {
    {Qt::Key_Backspace, kKeyBackspace}, {Qt::Key_Tab, kKeyTab},       {Qt::Key_Return, kKeyReturn},
    {Qt::Key_Escape, kKeyEscape},       {Qt::Key_Space, kKeySpace},   {Qt::Key_PageUp, kKeyPageUp},
    {Qt::Key_PageDown, kKeyPageDown},   {Qt::Key_End, kKeyEnd},       {Qt::Key_Home, kKeyHome},
    {Qt::Key_Left, kKeyLeft},           {Qt::Key_Up, kKeyUp},         {Qt::Key_Right, kKeyRight},
    {Qt::Key_Down, kKeyDown},           {Qt::Key_Delete, kKeyDelete}, {Qt::Key_Enter, kKeyReturn},
    {Qt::Key_Backtab, kKeyTab},
};

int KeyOf(const KeyStroke& stroke) {
  if (stroke.Code == kKeyTab && stroke.Shift) return Qt::Key_Backtab;
  for (const Pair& pair : kKeys) {
    if (pair.Code == stroke.Code) return pair.Key;
  }
  if (stroke.Code >= kKeyF1 && stroke.Code <= kKeyF12) return Qt::Key_F1 + stroke.Code - kKeyF1;
  if (stroke.Code != 0) return stroke.Code;
  const QChar upper = QChar(static_cast<char16_t>(stroke.Character)).toUpper();
  return upper.unicode() < 256 ? upper.unicode() : static_cast<int>(Qt::Key_unknown);
}

}  // namespace

int Code(const QKeyEvent& event) {
  const int key = event.key();
  for (const Pair& pair : kKeys) {
    if (pair.Key == key) return pair.Code;
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kKeyF1 + key - Qt::Key_F1;
  const bool letter = key >= Qt::Key_A && key <= Qt::Key_Z;
  const bool digit = key >= Qt::Key_0 && key <= Qt::Key_9;
  return letter || digit ? key : 0;
}

KeyStroke StrokeOf(const QKeyEvent& event) {
  KeyStroke stroke;
  stroke.Code = Code(event);
  stroke.Control = event.modifiers().testFlag(Qt::ControlModifier);
  stroke.Shift = event.modifiers().testFlag(Qt::ShiftModifier);
  stroke.Alt = event.modifiers().testFlag(Qt::AltModifier);
  stroke.Repeats = event.isAutoRepeat();
  const QString words = event.text();
  const int written = words.isEmpty() || !words[0].isPrint() ? 0 : words[0].unicode();
  const bool silent = stroke.Control || event.modifiers().testFlag(Qt::MetaModifier);
  stroke.Character = CharacterOf(stroke.Code, written, silent);
  return stroke;
}

QKeyEvent EventOf(const KeyStroke& stroke, QEvent::Type type) {
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ControlModifier, stroke.Control);
  held.setFlag(Qt::ShiftModifier, stroke.Shift);
  held.setFlag(Qt::AltModifier, stroke.Alt);
  QString words;
  if (stroke.Character == kKeyReturn) words = QStringLiteral("\r");
  if (stroke.Character >= kKeySpace) words = QChar(static_cast<char16_t>(stroke.Character));
  return {type, KeyOf(stroke), held, words};
}

bool Walks(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) return false;
  const int key = event.key();
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_End;
}

int FirstRow(const QKeyEvent& event, int current, int count) {
  if (event.key() == Qt::Key_Home) return 0;
  return event.key() == Qt::Key_End ? count - 1 : std::max(current, 0);
}

}  // namespace vantora::keys
