// The works of the desktop's loop.
//
// The loop never enters the toolkit's own nested loops: it turns by itself, so that every wait ends
// at once when the program ends, and no exception ever passes through the toolkit.
#pragma once

#include "backends/qt/loop/agenda.h"
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
#include <set>
#include <vector>

namespace vantora {

class QtEventLoop::Core final : public QObject, public WindowHost {
 public:
  Core(QtEventLoop& loop, const std::filesystem::path& pictures, const std::filesystem::path& drawn,
       double speed);
  ~Core() override;

  void Present(Form& form, bool modal);
  void ShowModal(Form& form);
  void Hide(Form& form);
  void Minimize(Form& form);
  void SetFocus(Control& control);
  void PopupMenu(Form& form, const Menu& menu);
  void Forget(Form& form);
  Form* Front() const;

  void Run();
  void DoEvents();
  void Sync();
  void Point(Pointer pointer);

  // WindowHost
  void Handle(const std::function<void()>& handler) override;
  void Later(std::function<void()> work) override { agenda.Post(std::move(work)); }
  bool Blocked(const Form& form) const override;
  void Activated() override { activation_.start(); }
  void Restored(Form& form) override;
  void Painted() override { ++paints; }
  std::uint64_t Stamp(std::uint64_t stamp) override;
  QRect Room(const QWidget& window) const override;
  QMargins& Border() override { return border_; }
  Text PathOfFile(const QString& file) const override;
  Pictures& ThePictures() override { return pictures_; }

  std::int64_t EventMs() const;
  std::int64_t NowMs() const;  // of the program's clock
  void ActAt(std::int64_t ms, const std::function<void()>& work);

  FormWindow* WindowOf(const Form& form) const;
  bool Alive(const Control& control) const;
  bool Minimized(const Form& form) const { return minimized_.count(&form) != 0; }

  Agenda agenda;
  bool quit = false;
  std::int64_t paints = 0;
  Text leftOpen;
  Pointer pointer = Pointer::Normal;
  QPointer<QMenu> menu;

 private:
  struct Modal {
    const Form* Window;
    int Token;
  };

  void ShowIcon();
  FormWindow& Ensure(Form& form);
  void Wait(const std::function<bool()>& done, const Form* modal);
  bool Turn();
  bool ProcessEvents();
  void Block();
  void AskUser(const Form* modal);
  bool TellFront();
  void BringFrontUp();
  void FollowActivation();
  void FollowApplication(Qt::ApplicationState state);
  void GiveFirstFocus(FormWindow& window);
  bool PaintUncovered();
  void Bury();
  bool ModalOpen(int token) const;

  QtEventLoop& loop_;
  Pictures pictures_;
  std::map<const Form*, FormWindow*> windows_;
  std::vector<FormWindow*> graves_;  // of forms that went while one of their handlers ran
  std::vector<Form*> stack_;         // shown windows, the front last
  std::vector<Modal> modals_;
  std::set<const Form*> minimized_;
  std::vector<Form*> uncovered_;  // shown, and not yet told to paint
  const Form* told_ = nullptr;    // was told last that it is in front
  const Form* menuOwner_ = nullptr;
  QTimer wake_, activation_;
  QMargins border_ = {0, 30, 0, 0};
  QElapsedTimer away_;  // another program is in front
  QElapsedTimer sinceAsked_;
  std::uint64_t stamp_ = 0;             // of the event that is being handled, 0 for none
  std::uint64_t handStamp_ = 0;         // for the events of hands, which bear none
  std::optional<std::int64_t> behind_;  // how far the stamps' clock lies behind ours, at the least
  int depth_ = 0;                       // handlers that are running
  int nextToken_ = 0;
};

}  // namespace vantora
