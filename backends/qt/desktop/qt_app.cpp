#include "backends/qt/desktop/qt_app.h"

#include "backends/qt/faces/spoken.h"
#include "backends/qt/look/fonts.h"
#include "backends/qt/look/look.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>

namespace vantora {

namespace {

constexpr int kFontsMs = 200;  // by then the first windows are shown

}  // namespace

class QtApp::Application final : public Fonts, public QApplication {
 public:
  Application(int& argc, char** argv) : QApplication(argc, argv) {
    QTimer::singleShot(kFontsMs, this, [this] { ReadAll(); });
  }
  ~Application() override { Finish(); }
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
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
  LetScreenReadersIn();
}

QtApp::~QtApp() = default;

void QtApp::AwaitFonts() {
  if (auto* app = dynamic_cast<Application*>(QCoreApplication::instance())) app->AwaitAll();
}

std::vector<std::string> QtApp::Arguments() const {
  std::vector<std::string> arguments;
  for (int i = 1; i < argc_; ++i) {
    arguments.emplace_back(argv_[static_cast<std::size_t>(i)]);
  }
  return arguments;
}

bool QtApp::IsSeen() {
  const QString platform = QGuiApplication::platformName();
  return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

bool QtApp::HasScreen() {
  for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

}  // namespace vantora
