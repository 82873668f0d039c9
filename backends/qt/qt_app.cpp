#include "backends/qt/qt_app.h"

#include "backends/qt/look.h"

#include <QApplication>
#include <QIcon>

#include <cstdlib>

namespace vantora {

QtApp::QtApp(int argc, char** argv, const std::filesystem::path& pictures)
    : argc_(argc), words_(argv, argv + argc) {
  for (std::string& word : words_) argv_.push_back(word.data());
  argv_.push_back(nullptr);
  QApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  app_ = std::make_unique<QApplication>(argc_, argv_.data());
  QApplication::setApplicationName(QStringLiteral("Vantora"));
  QApplication::setApplicationDisplayName(QStringLiteral("Vantora"));
  QGuiApplication::setDesktopFileName(QStringLiteral("vantora"));
  const std::filesystem::path icon = pictures / "vantora.svg";
  if (std::filesystem::exists(icon)) {
    QApplication::setWindowIcon(QIcon(QString::fromStdString(icon.string())));
  }
  look::Dress(*app_);
}

QtApp::~QtApp() = default;

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
