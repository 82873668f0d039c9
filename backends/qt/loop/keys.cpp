#include "backends/qt/loop/keys.h"

#include "backends/qt/look/look.h"

#include <QHash>

namespace vantora::keys {

namespace {

struct Named {
  const char* Name;
  int Key;
  int Code;
};

constexpr Named kNamed[] = {
    {"Backspace", Qt::Key_Backspace, kKeyBackspace},
    {"Tab", Qt::Key_Tab, kKeyTab},
    {"Return", Qt::Key_Return, kKeyReturn},
    {"Escape", Qt::Key_Escape, kKeyEscape},
    {"Space", Qt::Key_Space, kKeySpace},
    {"PageUp", Qt::Key_PageUp, kKeyPageUp},
    {"PageDown", Qt::Key_PageDown, kKeyPageDown},
    {"End", Qt::Key_End, kKeyEnd},
    {"Home", Qt::Key_Home, kKeyHome},
    {"Left", Qt::Key_Left, kKeyLeft},
    {"Up", Qt::Key_Up, kKeyUp},
    {"Right", Qt::Key_Right, kKeyRight},
    {"Down", Qt::Key_Down, kKeyDown},
    {"Delete", Qt::Key_Delete, kKeyDelete},
};

bool TakeOff(QString& name, const char* prefix) {
  const QLatin1String start(prefix);
  if (!name.startsWith(start, Qt::CaseInsensitive) || name.size() == start.size()) return false;
  name.remove(0, start.size());
  return true;
}

}  // namespace

int Code(const QKeyEvent& event) {
  const int key = event.key();
  for (const Named& named : kNamed) {
    if (named.Key == key) return named.Code;
  }
  if (key == Qt::Key_Enter) return kKeyReturn;
  if (key == Qt::Key_Backtab) return kKeyTab;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kKeyF1 + key - Qt::Key_F1;
  const bool letter = key >= Qt::Key_A && key <= Qt::Key_Z;
  const bool digit = key >= Qt::Key_0 && key <= Qt::Key_9;
  return letter || digit ? key : 0;
}

int Character(const QKeyEvent& event) {
  const int code = Code(event);
  if (code == kKeyBackspace || code == kKeyReturn || code == kKeyEscape) return code;
  if ((event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) != 0) return 0;
  const QString words = event.text();
  return words.isEmpty() || !words[0].isPrint() ? 0 : words[0].unicode();
}

std::optional<Stroke> Parse(const Text& name) {
  QString rest = look::FromText(name);
  Stroke stroke;
  for (bool more = true; more;) {
    more = false;
    if (TakeOff(rest, "Ctrl+")) {
      stroke.Modifiers |= Qt::ControlModifier;
      more = true;
    } else if (TakeOff(rest, "Shift+")) {
      stroke.Modifiers |= Qt::ShiftModifier;
      more = true;
    }
  }
  if (rest.size() == 1) {
    // The key is meant, not the letter: only Shift makes a capital of it.
    const bool shift = stroke.Modifiers.testFlag(Qt::ShiftModifier);
    const Stroke written = Writing(shift ? rest[0].toUpper() : rest[0].toLower());
    stroke.Key = written.Key;
    if ((stroke.Modifiers & Qt::ControlModifier) == 0) stroke.Words = written.Words;
    return stroke;
  }
  for (const Named& named : kNamed) {
    if (rest.compare(QLatin1String(named.Name), Qt::CaseInsensitive) != 0) continue;
    stroke.Key = named.Key;
    if (named.Key == Qt::Key_Space) stroke.Words = QStringLiteral(" ");
    if (named.Key == Qt::Key_Tab && stroke.Modifiers.testFlag(Qt::ShiftModifier)) {
      stroke.Key = Qt::Key_Backtab;
    }
    return stroke;
  }
  bool number = false;
  const int f = rest.startsWith(u'F', Qt::CaseInsensitive) ? rest.mid(1).toInt(&number) : 0;
  if (!number || f < 1 || f > 12) return std::nullopt;
  stroke.Key = Qt::Key_F1 + f - 1;
  return stroke;
}

Stroke Writing(QChar character) {
  Stroke stroke;
  if (character == u'\r' || character == u'\n') {
    stroke.Key = Qt::Key_Return;
    stroke.Words = QStringLiteral("\r");
    return stroke;
  }
  stroke.Words = QString(character);
  const QChar upper = character.toUpper();
  stroke.Key = upper.unicode() < 256 ? upper.unicode() : static_cast<int>(Qt::Key_unknown);
  if (character.isUpper()) stroke.Modifiers = Qt::ShiftModifier;
  return stroke;
}

bool Walks(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) return false;
  const int key = event.key();
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_End;
}

}  // namespace vantora::keys
