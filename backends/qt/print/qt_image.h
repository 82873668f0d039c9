// A picture read by the toolkit. It keeps the bytes of its file, a tenth of the size of its pixels,
// and is decoded at the size needed.
#pragma once

#include "platform/images.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QTransform>

namespace vantora {

class QtImage final : public Image {
 public:
  // Raises 481 for bytes that are not a picture, 7 for a picture with too many pixels.
  explicit QtImage(QByteArray bytes);

  int Width() const override { return size_.width(); }
  int Height() const override { return size_.height(); }

  // All pixels of the picture for printing, except for very large pictures. The image is oriented
  // as in its file, since a rotated copy would need the same memory again. Upright() rotates the
  // unit square accordingly.
  QImage Whole() const;
  const QTransform& Upright() const { return upright_; }
  // The picture in `size` pixels, stretched if needed; for the screen.
  QImage Scaled(QSize size) const;
  bool Lossy() const { return lossy_; }  // the file is a jpg

 private:
  QImage Decode(QSize size, bool upright = true) const;

  QByteArray bytes_;
  QSize size_;  // in upright orientation
  QTransform upright_;
  bool turned_ = false;  // the file stores it rotated by 90 degrees
  bool lossy_ = false;
  mutable QImage preview_, scaled_;  // last results
};

}  // namespace vantora
