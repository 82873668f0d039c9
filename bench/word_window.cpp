// The smallest program of this toolkit that shows text: one window of the size of the program's
// main window, with a single word in it. Prints the time of the machine's monotonic clock, in ms,
// when the window has been painted.

#include <QApplication>
#include <QPainter>
#include <QWidget>

#include <chrono>
#include <cstdio>

namespace {

class Window final : public QWidget {
 protected:
  void paintEvent(QPaintEvent* event) override {
    QWidget::paintEvent(event);
    QPainter(this).drawText(rect(), Qt::AlignCenter, QStringLiteral("Vantora"));
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  }
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  Window window;
  window.resize(1024, 768);
  window.show();
  const int result = QApplication::exec();
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  std::printf("%.3f\n", std::chrono::duration<double, std::milli>(now).count());
  return result;
}
