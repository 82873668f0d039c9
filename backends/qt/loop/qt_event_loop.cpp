#include "backends/qt/loop/qt_event_loop.h"

#include "backends/qt/loop/loop_core.h"

#include <QApplication>

#include <chrono>
#include <thread>

namespace vantora {

QtEventLoop::QtEventLoop(const std::filesystem::path& pictures, const std::filesystem::path& drawn,
                         double speed)
    : FormLoop(std::make_unique<Core>(pictures, drawn, speed)),
      core_(static_cast<Core&>(TheWorld())) {
  core_.Serve(*this);
}

QtEventLoop::~QtEventLoop() = default;

void QtEventLoop::Sleep(int ms) {
  LeaveIfEnded();
  std::this_thread::sleep_for(
      std::chrono::duration<double, std::milli>(std::max(0, ms) / core_.speed));
}

void QtEventLoop::MousePointer(Pointer pointer) {
  core_.Point(pointer);
}

Pointer QtEventLoop::MousePointer() const {
  return core_.pointer;
}

void QtEventLoop::Beep() {
  QApplication::beep();
}

double QtEventLoop::Speed() const {
  return core_.speed;
}

QWidget* QtEventLoop::WindowOf(const Form& form) const {
  return core_.WindowOf(form);
}

QWidget* QtEventLoop::WidgetOf(const Control& control) const {
  const FormWindow* window = core_.WindowOf(control.Owner());
  const Face* face = window == nullptr ? nullptr : window->FaceOf(control);
  return face == nullptr ? nullptr : face->widget();
}

QMenu* QtEventLoop::OpenMenu() const {
  return core_.menu;
}

std::int64_t QtEventLoop::Paints() const {
  return core_.paints;
}

}  // namespace vantora
