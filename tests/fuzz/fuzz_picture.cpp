// Random bytes as a picture for a cover: it must be refused with its error, or be shown and printed
// whole. Pictures of many pixels are left out, as each takes long.
#include "backends/qt/print/qt_image.h"
#include "backends/qt/print/qt_images.h"
#include "tests/backends/linux/home.h"
#include "tests/fuzz/fuzz_body.h"

#include <QBuffer>
#include <QImageReader>

namespace vantora::test {

namespace {

constexpr long long kManyPoints = 50'000;

bool Small(const std::string& bytes) {
  QByteArray copy = QByteArray::fromStdString(bytes);
  QBuffer buffer(&copy);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  return std::abs(1LL * size.width() * size.height()) <= kManyPoints;
}

}  // namespace

void FuzzOne(const std::string& bytes) {
  static Home home;
  static const auto usual = qInstallMessageHandler([](auto...) {});  // a message for each input
  static_cast<void>(usual);
  if (!Small(bytes)) return;
  Lay(home / "a.bin", bytes);
  QtImages images(home.Files);
  Bild picture;
  const int refused = ErrorOf([&] { picture = images.Load(L"C:\\a.bin"); });
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
