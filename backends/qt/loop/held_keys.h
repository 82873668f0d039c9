// Marks repetitions of a held key that the toolkit takes for new presses.
//
// X11 sends a repetition as a release and a press with the same stamp. The toolkit recognises the
// pair if it reads both at once. When a window closes while a key is held, the release is lost with
// the window, and at other times the pair is torn; the toolkit then reports a new press. So a press
// is a repetition as well if no release came before it, unless the key was silent for longer than a
// keyboard waits before it repeats, because a release is lost when no window has the keyboard. A
// torn pair is a repetition in all windows but the one in which the key was pressed: there, the
// release has been handled already.
#pragma once

#include <QKeyEvent>
#include <QObject>

#include <map>

namespace vantora {

// Filters the events of the application.
class HeldKeys final : public QObject {
 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  struct State {
    bool Down = false;
    quint64 Stamp = 0;                // of the last press or release, in ms
    const QObject* Origin = nullptr;  // the window in which the key was pressed; only compared
  };
  bool IsRepetition(const QObject* window, const QKeyEvent& press);

  std::map<quint32, State> keys_;  // by the place of the key on the keyboard
};

}  // namespace vantora
