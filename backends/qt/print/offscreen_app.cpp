#include "backends/qt/print/offscreen_app.h"

#include <QGuiApplication>

namespace vantora {

namespace {

struct OffscreenApp {
  char name[8] = "vantora", option[10] = "-platform", value[10] = "offscreen";
  char* words[4] = {name, option, value, nullptr};
  int count = 3;
  QGuiApplication app{count, words};
};

}  // namespace

// The application is never destroyed: at the end of a process, static objects of the toolkit may
// already be gone.
void NeedToolkit() {
  if (QCoreApplication::instance() != nullptr) return;
  static const OffscreenApp* app = new OffscreenApp;
  static_cast<void>(app);
}

}  // namespace vantora
