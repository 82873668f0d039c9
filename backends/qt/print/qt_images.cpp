#include "backends/qt/print/qt_images.h"

#include "backends/qt/print/qt_image.h"

#include "platform/laufzeitfehler.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vantora {

namespace {

constexpr int kPreviewPoints = 1600;  // of the longer side
constexpr long long kMostPrinted = 30'000'000;
constexpr int kMostMegabytes = 256;  // of pixels: enough for the largest picture that is read whole
constexpr qint64 kMostBytes = 512LL * 1024 * 1024;

[[noreturn]] void NoPicture(const QString& why) {
  throw Laufzeitfehler(kFehlerBild, L"La imagen no es válida", why.toStdWString());
}

// The number of pixels of a bmp, also when the toolkit refuses its size.
long long PointsOfBmp(const QByteArray& bytes) {
  constexpr int kWidth = 18, kHeight = 22;
  if (bytes.size() < kHeight + 4) return 0;
  const auto side = [&](int at) {
    return std::abs(1LL * qFromLittleEndian<qint32>(bytes.constData() + at));
  };
  return side(kWidth) * side(kHeight);
}

// True for a bmp that ends before its last pixel. The missing pixels would show old contents of
// memory.
bool CutOff(const QByteArray& bytes) {
  constexpr int kStart = 10, kHeader = 14, kWidth = 18, kHeight = 22, kBits = 28, kPacking = 30;
  constexpr quint32 kPlain = 0, kMasks = 3, kUsualHeader = 40;
  if (bytes.size() < kPacking + 4) return true;
  const auto number = [&](int at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
  const bool counts = number(kPacking) == kPlain || number(kPacking) == kMasks;
  if (number(kHeader) < kUsualHeader || !counts) return false;
  const auto bits = qFromLittleEndian<quint16>(bytes.constData() + kBits);
  // The caller has limited the product of both sides.
  const auto side = [&](int at) { return std::abs(1LL * static_cast<qint32>(number(at))); };
  const long long row = (side(kWidth) * bits + 31) / 32 * 4;
  return number(kStart) + row * side(kHeight) > bytes.size();
}

[[noreturn]] void TooLarge() {
  throw Laufzeitfehler(kFehlerSpeicher, L"La imagen es demasiado grande");
}

}  // namespace

QtImage::QtImage(QByteArray bytes) : bytes_(std::move(bytes)) {
  QBuffer buffer(&bytes_);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QByteArray format = reader.format();
  lossy_ = format == "jpeg";
  if (!lossy_ && format != "bmp" && format != "gif" && format != "png") {
    NoPicture(QStringLiteral("format ") + QString::fromLatin1(format));
  }
  size_ = reader.size();
  if (format == "bmp") {
    if (PointsOfBmp(bytes_) > kMaxWholePoints) TooLarge();
    if (CutOff(bytes_)) NoPicture(QStringLiteral("it is cut off"));
    size_.setHeight(std::abs(size_.height()));  // negative when the first row is the top one
  }
  if (size_.isEmpty()) NoPicture(reader.errorString());
  if (1LL * size_.width() * size_.height() > (lossy_ ? kMaxImagePoints : kMaxWholePoints)) {
    TooLarge();
  }
  // A gif may claim to be far larger than its picture is. The toolkit then reads only the picture.
  if (format == "gif") size_ = Decode(size_).size();
  const QImageIOHandler::Transformations turns = reader.transformation();
  const bool mirror = turns.testFlag(QImageIOHandler::TransformationMirror);
  const bool flip = turns.testFlag(QImageIOHandler::TransformationFlip);
  upright_ = {mirror ? -1.0 : 1.0, 0, 0, flip ? -1.0 : 1.0, mirror ? 1.0 : 0, flip ? 1.0 : 0};
  turned_ = turns.testFlag(QImageIOHandler::TransformationRotate90);
  if (turned_) {
    upright_ *= QTransform(0, 1, -1, 0, 1, 0);
    size_.transpose();
  }
  const int longer = std::max(size_.width(), size_.height());
  preview_ = Decode(longer > kPreviewPoints
                        ? size_.scaled(kPreviewPoints, kPreviewPoints, Qt::KeepAspectRatio)
                              .expandedTo(QSize(1, 1))
                        : size_);
}

// Readers scale before they rotate, so a rotated picture needs the transposed size.
QImage QtImage::Decode(QSize size, bool upright) const {
  QBuffer buffer(const_cast<QByteArray*>(&bytes_));
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(upright);
  QImageReader::setAllocationLimit(kMostMegabytes);
  if (size != size_) reader.setScaledSize(turned_ ? size.transposed() : size);
  QImage image = reader.read();
  if (image.isNull()) NoPicture(reader.errorString());
  return image;
}

QImage QtImage::Whole() const {
  const long long points = 1LL * size_.width() * size_.height();
  if (!lossy_ || points <= kMostPrinted) return Decode(size_, false);
  const double share = std::sqrt(static_cast<double>(kMostPrinted) / static_cast<double>(points));
  return Decode((QSizeF(size_) * share).toSize().expandedTo(QSize(1, 1)), false);
}

QImage QtImage::Scaled(QSize size) const {
  if (scaled_.size() == size) return scaled_;
  const bool enough = preview_.size() == size_ ||
                      (preview_.width() >= size.width() && preview_.height() >= size.height());
  const QImage& source = enough ? preview_ : (preview_ = Decode(size));
  scaled_ = source.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return scaled_;
}

Bild QtImages::Load(const Text& file) {
  const std::unique_ptr<Datei> open = files_.Open(file, Zugriff::Lesen);
  if (open->Length() > kMostBytes) TooLarge();
  QByteArray bytes(static_cast<qsizetype>(open->Length()), Qt::Uninitialized);
  bytes.truncate(
      static_cast<qsizetype>(open->ReadSome(bytes.data(), static_cast<std::size_t>(bytes.size()))));
  return std::make_shared<const QtImage>(std::move(bytes));
}

}  // namespace vantora
