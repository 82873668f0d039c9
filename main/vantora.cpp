// The program on the desktop.

#include "app/programm.h"
#include "backends/qt/qt_app.h"
#include "main/desktop_platform.h"

#include <cstdio>

int main(int argc, char** argv) {
  const std::filesystem::path resources = vantora::ResourceFolder();
  if (resources.empty()) {
    std::fputs("vantora: faltan los recursos del programa.\n", stderr);
    return 1;
  }
  if (!vantora::QtApp::HasScreen()) {
    std::fputs("vantora: no hay pantalla.\n", stderr);
    return 1;
  }
  const vantora::QtApp app(argc, argv);
  vantora::DesktopPlatform platform(resources);
  vantora::Programm programm(platform.bundle);
  programm.Laufen();
  return 0;
}
