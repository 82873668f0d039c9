// Shows help pages in the desktop's browser, or in the program's own viewer if no browser shows
// them: the desktop has no program that opens pages, this program fails, or the browser is packed
// in a box of its own and cannot read the program's files.
#pragma once

#include "platform/background.h"
#include "platform/event_loop.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantora {

class HelpOpener {
 public:
  struct Programs {
    std::string Opener = "xdg-open";
    std::string Asker = "xdg-mime";  // names the browser's desktop file
    // Folders with applications/NAME.desktop, the first one found counts.
    std::vector<std::filesystem::path> DataFolders{};
  };
  static std::vector<std::filesystem::path> DataFoldersOfDesktop();

  HelpOpener(Programs programs, Background& background, EventLoop& loop,
             std::function<void(const std::filesystem::path&)> viewer);
  ~HelpOpener();
  HelpOpener(const HelpOpener&) = delete;
  HelpOpener& operator=(const HelpOpener&) = delete;

  // Returns at once. After a page that no browser has shown, all pages go to the viewer.
  void Open(const std::filesystem::path& page);

 private:
  class Attempt;
  struct Underway {
    std::filesystem::path Page;
    std::chrono::steady_clock::time_point Since;
    std::unique_ptr<BackgroundJob> Job;
  };
  void Ended(int number, bool shown);

  Programs programs_;
  Background& background_;
  EventLoop& loop_;
  std::function<void(const std::filesystem::path&)> viewer_;
  std::shared_ptr<HelpOpener*> self_;  // null after the destruction
  bool noBrowser_ = false;
  int count_ = 0;
  std::map<int, Underway> underway_;
};

}  // namespace vantora
