#include "backends/qt/qt_app.h"

#include "backends/qt/look.h"

#include <QApplication>

#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <thread>

namespace vantora {

namespace {

// To read the machine's settings for fonts takes as long as all else that happens before the first
// word is drawn, so it is done beside that.
class FontSettings {
 public:
  FontSettings() : reader_([] { FcInit(); }) {}
  ~FontSettings() { Await(); }
  FontSettings(const FontSettings&) = delete;
  FontSettings& operator=(const FontSettings&) = delete;

  void Await() {
    if (reader_.joinable()) reader_.join();
  }

 private:
  std::thread reader_;
};

}  // namespace

class QtApp::Application final : public FontSettings, public QApplication {
 public:
  using QApplication::QApplication;
};

QtApp::QtApp(int argc, char** argv) : argc_(argc), words_(argv, argv + argc) {
  for (std::string& word : words_) argv_.push_back(word.data());
  argv_.push_back(nullptr);
  QApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  app_ = std::make_unique<Application>(argc_, argv_.data());
  QApplication::setApplicationName(QStringLiteral("Vantora"));
  QApplication::setApplicationDisplayName(QStringLiteral("Vantora"));
  QGuiApplication::setDesktopFileName(QStringLiteral("vantora"));
  look::Dress();
}

QtApp::~QtApp() = default;

void QtApp::AwaitFonts() {
  if (auto* app = dynamic_cast<Application*>(qApp)) app->Await();
}

std::vector<std::string> QtApp::Arguments() const {
  std::vector<std::string> arguments;
  for (int i = 1; i < argc_; ++i) {
    arguments.emplace_back(argv_[static_cast<std::size_t>(i)]);
  }
  return arguments;
}

bool QtApp::HasScreen() {
  for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

}  // namespace vantora
