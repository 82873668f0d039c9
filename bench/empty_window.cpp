// The least that a program of this toolkit can do: one empty window of the size of the program's
// own. Prints the time of the machine's monotonic clock, in ms, when it has been painted.

#include <QApplication>
#include <QWidget>

#include <chrono>
#include <cstdio>

namespace {

class Empty final : public QWidget {
 protected:
  void paintEvent(QPaintEvent* event) override {
    QWidget::paintEvent(event);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  }
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  Empty window;
  window.resize(800, 600);
  window.show();
  const int result = QApplication::exec();
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  std::printf("%.3f\n", std::chrono::duration<double, std::milli>(now).count());
  return result;
}
