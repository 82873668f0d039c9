// Connects the model of the windows with the desktop: with real windows, the toolkit's events and
// the machine's clock.
//
// The program never enters a nested loop of the toolkit: the model's own loop does all waiting.
// Every wait therefore ends at once when the program ends, and no exception ever passes through the
// toolkit.
#pragma once

#include "backends/forms/form_loop.h"
#include "backends/qt/loop/held_keys.h"
#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/windows/form_window.h"
#include "backends/qt/windows/window_host.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <map>
#include <optional>
#include <vector>

namespace vantora {

class QtEventLoop::Core final : public QObject, public World, public WindowHost {
 public:
  Core(const std::filesystem::path& pictures, const std::filesystem::path& drawn, double speed);
  ~Core() override;
  void Serve(QtEventLoop& loop) { loop_ = &loop; }  // before the first window

  // World
  void Enter(FormLoop& model) override { model_ = &model; }
  std::int64_t NowUs() const override;
  std::int64_t StampOf(std::int64_t us) const override;
  void Wake() override;
  bool HandleInput() override;
  void EndTurns(bool busy) override;
  void Rest(std::optional<std::int64_t> until, const Form* modal) override;
  void TurnEnds() override;
  void Appear(Form& form, bool modal, Form* behind) override;
  void Vanish(Form& form) override;
  void Iconify(Form& form) override;
  void ComeForward(Form& form) override;
  void Bring(Form& form) override;
  void Gone(Form& form) override;
  void FocusOn(Control& control) override;
  Control* FocusOf(const Form& form) const override;
  void FocusReported(Control& control, bool came) override;
  void PopupMenu(Form& form, Menu& shown) override;

  // WindowHost
  FormLoop& Model() override { return *model_; }
  void Activated() override { activation_.start(); }
  void Painted() override { ++paints; }
  std::optional<std::int64_t> Stamp(std::uint64_t stamp) override;
  QRect Room(const QWidget& window) const override;
  QMargins& Border() override { return border_; }
  Text PathOfFile(const QString& file) const override;
  Pictures& ThePictures() override { return pictures_; }

  void Point(Pointer shown);
  FormWindow* WindowOf(const Form& form) const;

  const double speed;
  std::int64_t paints = 0;
  Pointer pointer = Pointer::Normal;
  QPointer<QMenu> menu;

 private:
  void ShowIcon();
  FormWindow& Ensure(Form& form);
  void FollowActivation();
  void FollowApplication(Qt::ApplicationState state);
  void GiveFirstFocus(FormWindow& window);
  void Bury();
  void KeepActive();
  void ShowPointer();
  static bool IsUnseen();

  FormLoop* model_ = nullptr;
  QtEventLoop* loop_ = nullptr;
  Pictures pictures_;
  std::map<const Form*, FormWindow*> windows_;
  std::vector<FormWindow*> graves_;  // windows of destroyed forms whose handlers still run
  const Form* menuOwner_ = nullptr;
  Pointer shown_ = Pointer::Normal;
  QTimer wake_, activation_;
  HeldKeys heldKeys_;
  std::optional<std::int64_t> wakesAt_;  // time that wake_ was started for
  QMargins border_ = {0, 30, 0, 0};
  QElapsedTimer away_;                  // runs while another program is in front
  std::optional<std::int64_t> behind_;  // our clock minus an event's stamp in ms, the least so far
};

}  // namespace vantora
