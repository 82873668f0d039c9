#include "backends/qt/desktop/qt_display.h"

#include "backends/qt/windows/fit.h"

#include <QGuiApplication>
#include <QScreen>

namespace vantora {

int QtDisplay::Width() {
  if (pixelWidth_ > 0) return pixelWidth_ * kTwipsPerPixel;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 0 : ScreenPixels(screen->size().width(), Scale()) * kTwipsPerPixel;
}

int QtDisplay::Height() {
  if (pixelHeight_ > 0) return pixelHeight_ * kTwipsPerPixel;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 0 : ScreenPixels(screen->size().height(), Scale()) * kTwipsPerPixel;
}

double QtDisplay::Scale() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return pixelWidth_ > 0 || screen == nullptr ? 1 : screen->devicePixelRatio();
}

int QtDisplay::BitsPerPixel() {
  if (bits_ > 0) return bits_;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 0 : screen->depth();
}

}  // namespace vantora
