// A picture by the toolkit's readers. It keeps its file's bytes, which take a
// tenth of the room of its points, and is decoded at the size that is wanted.
#pragma once

#include "platform/images.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QTransform>

namespace vantora {

class QtImage final : public Image {
 public:
  // Raises 481 for bytes that are no picture, 7 for one with too many points.
  explicit QtImage(QByteArray bytes);

  int Width() const override { return size_.width(); }
  int Height() const override { return size_.height(); }

  // As many points as the picture has, but for very large ones; for paper. It lies as in its file,
  // since a turned copy takes as much room again, and Upright() turns the square from 0 to 1.
  QImage Whole() const;
  const QTransform& Upright() const { return upright_; }
  // In so many points, whatever its own proportions; for the screen.
  QImage Scaled(QSize size) const;
  bool Lossy() const { return lossy_; }  // was a jpg

 private:
  QImage Decode(QSize size, bool upright = true) const;

  QByteArray bytes_;
  QSize size_;  // upright
  QTransform upright_;
  bool turned_ = false;  // its file has it on its side
  bool lossy_ = false;
  mutable QImage preview_, scaled_;  // what was wanted last
};

}  // namespace vantora
