// The smallest program of this toolkit: one empty window of the size of the program's main window.
// With an argument, the window shows a single word, which loads the fonts. Prints the time of the
// machine's monotonic clock, in ms, when the window has been painted.

#include <QApplication>
#include <QPainter>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <utility>

namespace {

class Empty final : public QWidget {
 public:
  explicit Empty(QString word) : word_(std::move(word)) {}

 protected:
  void paintEvent(QPaintEvent* event) override {
    QWidget::paintEvent(event);
    if (!word_.isEmpty()) QPainter(this).drawText(rect(), Qt::AlignCenter, word_);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  }

 private:
  QString word_;
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  Empty window(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
  window.resize(1024, 768);
  window.show();
  const int result = QApplication::exec();
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  std::printf("%.3f\n", std::chrono::duration<double, std::milli>(now).count());
  return result;
}
