// The one QApplication of a process, with what it must be told before the first window.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class QApplication;

namespace vantora {

// Lives in main(), longer than every loop and window.
class QtApp {
 public:
  // `pictures` holds the window icon as vantora.svg; it may be missing. The arguments are the
  // process's own; what the toolkit understands of them (-platform …) is taken out of Arguments().
  QtApp(int argc, char** argv, const std::filesystem::path& pictures);
  ~QtApp();
  QtApp(const QtApp&) = delete;
  QtApp& operator=(const QtApp&) = delete;

  std::vector<std::string> Arguments() const;  // without the process's name

  // True when this process would find a screen, or was told to do without one (offscreen). To be
  // asked before a QtApp is made: without a screen its constructor ends the process.
  static bool HasScreen();

 private:
  int argc_;
  std::vector<std::string> words_;
  std::vector<char*> argv_;
  std::unique_ptr<QApplication> app_;
};

}  // namespace vantora
