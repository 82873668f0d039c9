#include "backends/qt/loop/qt_event_loop.h"

#include "backends/qt/loop/loop_core.h"

#include <QApplication>

#include <chrono>
#include <thread>

namespace vantora {

QtEventLoop::QtEventLoop(const std::filesystem::path& pictures, const std::filesystem::path& drawn,
                         double speed)
    : core_(std::make_unique<Core>(*this, pictures, drawn, speed)) {}

QtEventLoop::~QtEventLoop() = default;

void QtEventLoop::Attach(Form& form) {
  EventLoop::Attach(form);
}

void QtEventLoop::Detach(Form& form) {
  core_->Forget(form);
  EventLoop::Detach(form);
}

void QtEventLoop::Show(Form& form) {
  core_->Present(form, false);
}

void QtEventLoop::ShowModal(Form& form) {
  core_->ShowModal(form);
}

void QtEventLoop::Hide(Form& form) {
  core_->Hide(form);
}

void QtEventLoop::Minimize(Form& form) {
  core_->Minimize(form);
}

void QtEventLoop::SetFocus(Control& control) {
  core_->SetFocus(control);
}

void QtEventLoop::PopupMenu(Form& form, Menu& menu) {
  core_->PopupMenu(form, menu);
}

Form* QtEventLoop::Front() {
  return core_->Front();
}

void QtEventLoop::Run() {
  core_->Run();
}

void QtEventLoop::Quit() {
  core_->quit = true;
}

void QtEventLoop::DoEvents() {
  core_->DoEvents();
}

void QtEventLoop::Sleep(int ms) {
  LeaveIfEnded();
  std::this_thread::sleep_for(
      std::chrono::duration<double, std::milli>(std::max(0, ms) / core_->agenda.Speed()));
}

void QtEventLoop::Post(std::function<void()> work) {
  core_->agenda.Post(std::move(work));
}

void QtEventLoop::PostAfter(int ms, std::function<void()> work) {
  core_->agenda.PostAfter(ms, std::move(work));
}

std::int64_t QtEventLoop::EventMs() const {
  return core_->EventMs();
}

void QtEventLoop::MousePointer(Pointer pointer) {
  core_->Point(pointer);
}

Pointer QtEventLoop::MousePointer() const {
  return core_->pointer;
}

void QtEventLoop::Beep() {
  QApplication::beep();
}

double QtEventLoop::Speed() const {
  return core_->agenda.Speed();
}

bool QtEventLoop::Reachable(const Form& form) const {
  return form.Visible() && !core_->Minimized(form) && !core_->Blocked(form);
}

bool QtEventLoop::Alive(const Control& control) const {
  return core_->Alive(control);
}

QWidget* QtEventLoop::WindowOf(const Form& form) const {
  return core_->WindowOf(form);
}

QWidget* QtEventLoop::WidgetOf(const Control& control) const {
  const FormWindow* window = core_->WindowOf(control.Owner());
  const Face* face = window == nullptr ? nullptr : window->FaceOf(control);
  return face == nullptr ? nullptr : face->widget();
}

Control* QtEventLoop::Focus(const Form& form) const {
  const FormWindow* window = core_->WindowOf(form);
  return window == nullptr ? nullptr : window->FocusControl();
}

QMenu* QtEventLoop::OpenMenu() const {
  return core_->menu;
}

void QtEventLoop::ActAt(std::int64_t ms, const std::function<void()>& work) {
  core_->ActAt(ms, work);
}

void QtEventLoop::Sync() {
  core_->Sync();
}

std::int64_t QtEventLoop::Paints() const {
  return core_->paints;
}

const Text& QtEventLoop::LeftOpen() const {
  return core_->leftOpen;
}

}  // namespace vantora
