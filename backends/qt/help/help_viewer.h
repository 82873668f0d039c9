// The program's own window for help pages: a list of the pages, a search over all of them, and the
// page, in the look of the other windows. It can be used beside every window, even beside a dialog
// that waits for an answer.
#pragma once

#include "backends/qt/help/help_words.h"

#include <filesystem>
#include <functional>
#include <memory>

class QWidget;

namespace vantora {

class HelpViewer {
 public:
  // `openLink` gets addresses of the web and of mail. The window is made at the first use.
  HelpViewer(std::filesystem::path folder, std::function<HelpWords()> words,
             std::function<void(const Text&)> openLink);
  ~HelpViewer();
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;

  // Shows the page of a file name, "frmX.html" with or without its folder, and brings the window to
  // the front. An unknown page is replaced by the first one.
  void Show(const std::filesystem::path& page);

  Text VisiblePage() const;  // "frmX"; blank while the window is closed
  QWidget* Window() const;   // for tests; null before the first use

 private:
  class Frame;

  std::filesystem::path folder_;
  std::function<HelpWords()> words_;
  std::function<void(const Text&)> openLink_;
  std::unique_ptr<Frame> frame_;
};

}  // namespace vantora
