#include "backends/qt/desktop/toolkit_words.h"
#include "backends/qt/faces/level_bars.h"
#include "backends/qt/faces/words.h"
#include "backends/qt/look/look.h"
#include "tests/qt/stage.h"

#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>

namespace vantora {
namespace {

// A scroll bar of 200 pixels, and functions that use the mouse on the bar.
struct Bar {
  Bar() {
    bar.setRange(0, 300);
    bar.setPageStep(100);
    bar.setSingleStep(1);
    bar.resize(13, 200);
    bar.show();
  }
  void Hand(QEvent::Type what, int y) {
    Mouse(bar, what, QPointF(6, y),
          what == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton);
  }
  void Click(int y) {
    Hand(QEvent::MouseButtonPress, y);
    Hand(QEvent::MouseButtonRelease, y);
  }
  bool HandleAt(int y) { return bar.grab().toImage().pixelColor(6, y).lightness() > 80; }

  QtEventLoop loop{"", {}, 20};  // applies the style to the application
  QScrollBar bar{Qt::Vertical};
};

TEST(Style, TheHandleOfABarIsAPagesShareAndGoesWithTheHand) {
  Bar on;
  EXPECT_TRUE(on.HandleAt(5) && on.HandleAt(45));
  EXPECT_FALSE(on.HandleAt(55));
  on.Hand(QEvent::MouseButtonPress, 25);
  on.Hand(QEvent::MouseMove, 25 + 75);
  on.Hand(QEvent::MouseButtonRelease, 25 + 75);
  EXPECT_EQ(on.bar.value(), 150);
  EXPECT_TRUE(on.HandleAt(100));
  EXPECT_FALSE(on.HandleAt(70) || on.HandleAt(130));
  on.bar.setRange(0, 1'000'000'000);
  on.bar.setValue(0);
  EXPECT_TRUE(on.HandleAt(20)) << "a handle can be gripped whatever the list's length";
}

TEST(Style, TheMenusOfTextBoxesHaveTheProgramsWordsAlone) {
  const QtEventLoop loop{"", {}, 20};
  const ToolkitWords words(
      [] { return EditWords{L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9"}; });
  QLineEdit line;
  QPlainTextEdit lines;
  for (QMenu* menu : {line.createStandardContextMenu(), lines.createStandardContextMenu()}) {
    for (const QAction* item : menu->actions()) {
      const QString word = item->text().section(u'\t', 0, 0);
      EXPECT_LE(word.size(), 1) << word.toStdString();
    }
    delete menu;
  }
}

TEST(Style, APathIsShortenedInItsMiddleAndKeepsItsFile) {
  const QtEventLoop loop{"", {}, 20};
  const QFontMetrics metrics(QApplication::font());
  const QString path = "Imagen: C:\\Discos\\De verano\\Cara A\\El faro.wav";
  const auto inRoomOf = [&](const QString& line, const QString& room) {
    return Shortened(line, metrics, metrics.horizontalAdvance(room));
  };
  for (const char* shorter : {"Imagen: C:\\…\\Cara A\\El faro.wav", "Imagen: C:\\…\\El faro.wav"}) {
    EXPECT_EQ(inRoomOf(path, QString(shorter) + "m"), shorter);
  }
  EXPECT_EQ(inRoomOf(path, path), path);
  EXPECT_TRUE(inRoomOf(path, "Imagen: C:\\…").endsWith("wav"));
  EXPECT_TRUE(inRoomOf("El faro de la isla", "El faro de…").endsWith(u'…'));
}

TEST(Style, AClickBesideTheHandleTurnsAPageAndTheEndsHaveNoArrows) {
  Bar on;
  on.Click(198);
  EXPECT_EQ(on.bar.value(), 100);
  on.Click(2);
  EXPECT_EQ(on.bar.value(), 0);
  on.Click(2);
  EXPECT_EQ(on.bar.value(), 0) << "the handle is there";
}

// If the colours differed, the toolkit would paint every widget again whenever a window comes to
// the front.
TEST(Style, WindowsInFrontAndBehindHaveTheSameColours) {
  const QtEventLoop loop{"", {}, 20};
  EXPECT_TRUE(QApplication::palette().isEqual(QPalette::Active, QPalette::Inactive));
}

// A change of the level paints only the lamps that go on or off.
TEST(Style, AMeterThatMovesLooksLikeOneThatIsPaintedWhole) {
  for (const QSize& size : {QSize(196, 18), QSize(18, 196)}) {
    for (const Ears shown : {Ears::Both, Ears::Left, Ears::Right}) {
      LevelBars bars(nullptr);
      bars.resize(size);
      bars.show();
      for (const int peak : {0, 20000, 300, 301, 32767, 0}) {
        bars.Set(true, peak, 32767 - peak, shown, 3000);
        QCoreApplication::processEvents();
        const QImage seen = bars.screen()->grabWindow(bars.winId()).toImage();
        ASSERT_FALSE(seen.isNull());
        EXPECT_EQ(seen.convertToFormat(QImage::Format_RGB32),
                  bars.grab().toImage().convertToFormat(QImage::Format_RGB32))
            << size.width() << " " << peak;
      }
    }
  }
}

}  // namespace
}  // namespace vantora
