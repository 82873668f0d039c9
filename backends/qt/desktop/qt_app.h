// The one QApplication of a process, with everything that must be set before the first window.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vantora {

// Created in main(), and lives longer than every loop and window.
class QtApp {
 public:
  // Takes the arguments of the process. Arguments that the toolkit uses itself (-platform …) are
  // missing from Arguments().
  QtApp(int argc, char** argv);
  ~QtApp();
  QtApp(const QtApp&) = delete;
  QtApp& operator=(const QtApp&) = delete;

  std::vector<std::string> Arguments() const;  // without the name of the process

  static bool IsSeen();  // false: windows are drawn off screen

  // Returns when all fonts of the machine are loaded, which normally happens soon after the start.
  static void AwaitFonts();

  // True when this process has a screen, or was started to work off screen. Must be asked before a
  // QtApp is created: without a screen its constructor ends the process.
  static bool HasScreen();

 private:
  class Application;

  int argc_;
  std::vector<std::string> words_;
  std::vector<char*> argv_;
  std::unique_ptr<Application> app_;
};

}  // namespace vantora
