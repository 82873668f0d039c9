// The one QApplication of a process, with what it must be told before the first window.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vantora {

// Lives in main(), longer than every loop and window.
class QtApp {
 public:
  // The arguments are the process's own; what the toolkit understands of them (-platform …) is
  // taken out of Arguments().
  QtApp(int argc, char** argv);
  ~QtApp();
  QtApp(const QtApp&) = delete;
  QtApp& operator=(const QtApp&) = delete;

  std::vector<std::string> Arguments() const;  // without the process's name

  static bool IsSeen();  // false: windows are drawn where nobody sees them (offscreen)

  // Returns when all fonts of the machine are known, as they are soon after the start.
  static void AwaitFonts();

  // Changes with the fonts in which a start draws its words; 0 when it is over.
  static std::int64_t StampOfStartFonts();

  // True when this process would find a screen, or was told to do without one (offscreen). To be
  // asked before a QtApp is made: without a screen its constructor ends the process.
  static bool HasScreen();

 private:
  class Application;

  int argc_;
  std::vector<std::string> words_;
  std::vector<char*> argv_;
  std::unique_ptr<Application> app_;
};

}  // namespace vantora
