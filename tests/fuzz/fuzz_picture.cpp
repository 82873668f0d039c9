// Random bytes as a picture for a cover: it must be refused with its error, or be shown and printed
// whole. Pictures of many pixels are left out, as each takes long.
#include "backends/qt/print/qt_image.h"
#include "backends/qt/print/qt_images.h"
#include "tests/backends/linux/home.h"
#include "tests/fuzz/fuzz_body.h"

#include <QBuffer>
#include <QImageReader>

#include <iterator>

namespace vantora::test {

namespace {

constexpr long long kManyPoints = 50'000;

std::string Encoded(const char* format, QImage::Format pixels) {
  QImage image(9, 7, pixels);
  if (pixels == QImage::Format_Indexed8) image.setColorTable({qRgb(255, 0, 0), 0});
  image.fill(Qt::red);
  image.setPixel(3, 2, 0);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes.toStdString();
}

// A jpg of a camera that was held on its side.
std::string Sideways() {
  const std::string tiff("II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0", 26);
  const std::string exif = std::string("\xFF\xE1\0\x22", 4) + std::string("Exif\0\0", 6) + tiff;
  return Encoded("jpg", QImage::Format_RGB32).insert(2, exif);
}

bool Small(const std::string& bytes) {
  QByteArray copy = QByteArray::fromStdString(bytes);
  QBuffer buffer(&copy);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  return std::abs(1LL * size.width() * size.height()) <= kManyPoints;
}

int Refusal(Images& images, Bild& picture) {
  try {
    picture = images.Load(L"C:\\a.bin");
  } catch (const Laufzeitfehler& fehler) {
    return fehler.Nummer;
  }
  return 0;
}

}  // namespace

std::vector<std::string> FuzzSeeds() {
  return {Sideways(), Encoded("bmp", QImage::Format_RGB32), Encoded("bmp", QImage::Format_Indexed8),
          Encoded("png", QImage::Format_ARGB32), Encoded("jpg", QImage::Format_RGB32),
          // A gif of two by two pixels.
          std::string("GIF89a\2\0\2\0\x80\0\0\xFF\xFF\xFF\0\0\0,\0\0\0\0\2\0\2\0\0\2\3\x44\2\5\0;",
                      36)};
}

void FuzzOne(const std::string& bytes) {
  static Home home;
  static const auto usual = qInstallMessageHandler([](auto...) {});  // a message for each input
  static_cast<void>(usual);
  if (!Small(bytes)) return;
  Lay(home / "a.bin", bytes);
  QtImages images(home.Files);
  Bild picture;
  const int refused = Refusal(images, picture);
  Require(refused == 0 || refused == kFehlerBild || refused == kFehlerSpeicher,
          "what is no picture raises the error for it");
  if (refused != 0) return;
  const auto& image = static_cast<const QtImage&>(*picture);
  Require(image.Width() >= 1 && image.Height() >= 1, "a picture has a size");
  Require(image.Scaled(QSize(20, 30)).size() == QSize(20, 30), "a picture can be shown");
  const QSize whole = image.Whole().size();
  Require(whole == QSize(image.Width(), image.Height()) ||
              whole == QSize(image.Height(), image.Width()),
          "all pixels of a picture are printed");
}

}  // namespace vantora::test
