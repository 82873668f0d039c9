#include "backends/qt/loop/held_keys.h"

#include <QCoreApplication>

#include <utility>

namespace vantora {

namespace {

constexpr quint64 kLongestDelayMs = 700;  // before a keyboard begins to repeat

quint32 PlaceOf(const QKeyEvent& event) {
  return event.nativeScanCode() != 0 ? event.nativeScanCode() : static_cast<quint32>(event.key());
}

}  // namespace

bool HeldKeys::IsRepetition(const QObject* window, const QKeyEvent& press) {
  State& key = keys_[PlaceOf(press)];
  const quint64 now = press.timestamp();
  const bool wasDown = key.Down;
  const bool torn = !wasDown && now != 0 && now == key.Stamp;
  const bool held = torn || (wasDown && now - key.Stamp < kLongestDelayMs);
  if (!held) key.Origin = press.isAutoRepeat() ? nullptr : window;
  key.Down = true;
  key.Stamp = now;
  return held && !(torn && key.Origin == window);
}

bool HeldKeys::eventFilter(QObject* target, QEvent* event) {
  const bool pressed = event->type() == QEvent::KeyPress;
  // Windows of the desktop get the keys first and pass them on to the widgets in them.
  if (!target->isWindowType() || (!pressed && event->type() != QEvent::KeyRelease)) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (!pressed) {
    State& state = keys_[PlaceOf(key)];
    state.Stamp = key.timestamp();
    if (!key.isAutoRepeat()) state.Down = false;
    return false;
  }
  if (!IsRepetition(target, key) || key.isAutoRepeat()) return false;
  QKeyEvent again(key.type(), key.key(), key.modifiers(), key.nativeScanCode(),
                  key.nativeVirtualKey(), key.nativeModifiers(), key.text(), true,
                  static_cast<quint16>(key.count()));
  again.setTimestamp(key.timestamp());
  QCoreApplication::sendEvent(target, &again);
  event->setAccepted(again.isAccepted());
  return true;
}

}  // namespace vantora
