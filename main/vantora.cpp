// The program on the desktop.

#include "app/programm.h"
#include "backends/linux/utf8.h"
#include "backends/qt/desktop/qt_app.h"
#include "main/desktop_platform.h"
#include "main/resource_check.h"
#include "main/windows.h"

#include <cstdio>

namespace {

// Reports an error on the terminal, and in a plain box if the screen is visible: a program that was
// started from a menu has no terminal.
int Refuse(const std::string& why, int argc, char** argv) {
  std::fputs(("vantora: " + why + "\n").c_str(), stderr);
  if (!vantora::QtApp::HasScreen()) return 1;
  const vantora::QtApp app(argc, argv);
  if (!vantora::QtApp::IsSeen()) return 1;
  vantora::QtEventLoop loop({});
  vantora::Text sentence = vantora::FromUtf8(why);
  sentence.front() = vantora::Ucase(sentence.substr(0, 1)).front();
  loop.Dispatch([&] { loop.SystemBox(sentence, vantora::kStopp, L"Vantora"); });
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::filesystem::path resources = vantora::ResourceFolder();
  if (resources.empty()) return Refuse("faltan los recursos del programa.", argc, argv);
  const std::filesystem::path incomplete = vantora::IncompleteResource(resources);
  if (!incomplete.empty()) {
    return Refuse("el archivo " + incomplete.lexically_normal().string() +
                      " falta o está incompleto. Instale de nuevo el programa.",
                  argc, argv);
  }
  if (!vantora::QtApp::HasScreen()) {
    std::fputs("vantora: no hay pantalla.\n", stderr);
    return 1;
  }
  const vantora::QtApp app(argc, argv);
  vantora::DesktopPlatform platform(resources);
  vantora::Programm programm(platform.bundle, vantora::AllWindows);
  return programm.Laufen() ? 0 : 1;
}
