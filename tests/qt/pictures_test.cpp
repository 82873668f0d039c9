#include "backends/qt/pictures/pictures.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>

namespace vantora {
namespace {

namespace fs = std::filesystem;

class KeptPictures : public testing::Test {
 protected:
  void Write(const QByteArray& colour) const {
    QFile file(QString::fromStdString(picture_));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='10'><rect width='12' "
        "height='10' fill='" +
        colour + "'/></svg>");
  }
  // What a run of the program shows of the picture: a pixel within it, and one beside it.
  std::pair<QRgb, QRgb> Run() const {
    Pictures pictures(folder_, store_);
    EXPECT_EQ(pictures.NaturalSize(L"panel"), QSize(20, 10));
    const QImage shown = pictures.Get(L"panel", {40, 20}, 2).toImage();
    EXPECT_EQ(shown.size(), QSize(80, 40));
    EXPECT_EQ(shown.devicePixelRatio(), 2);
    return {shown.pixel(40, 20), shown.pixel(79, 39)};
  }

  const std::pair<QRgb, QRgb> kRed{qRgb(255, 0, 0), 0}, kBlue{qRgb(0, 0, 255), 0};
  QTemporaryDir temporary_;
  const fs::path folder_ = temporary_.path().toStdString();
  const fs::path store_ = folder_ / "new" / "drawn";
  const std::string picture_ = (folder_ / "panel.svg").string();
};

TEST_F(KeptPictures, AreDrawnAgainWhenTheirSourceHasChangedAndNotBefore) {
  Write("#ff0000");
  EXPECT_EQ(Run(), kRed);
  const auto time = fs::last_write_time(picture_);
  Write("#0000ff");
  fs::last_write_time(picture_, time);
  EXPECT_EQ(Run(), kRed) << "drawn once more without need";
  fs::last_write_time(picture_, time + std::chrono::seconds(1));
  EXPECT_EQ(Run(), kBlue);
  EXPECT_EQ(Run(), kBlue);
}

TEST_F(KeptPictures, AreDrawnAfreshFromAFileThatWasCutOffOrOverwritten) {
  Write("#ff0000");
  Run();
  const auto whole = fs::file_size(store_);
  QFile file(QString::fromStdString(store_.string()));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray good = file.readAll();
  file.close();
  const auto put = [&file](const QByteArray& bytes) {
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    file.close();
  };
  const auto pixels = static_cast<qsizetype>(80 * 40 * 4);
  for (qsizetype length = 0; length < good.size(); length += length < 200 ? 11 : pixels / 3) {
    put(good.first(length));
    EXPECT_EQ(Run(), kRed) << "cut off at " << length;
    EXPECT_EQ(fs::file_size(store_), whole) << "cut off at " << length;
  }
  for (qsizetype at = 0; at < good.size() - pixels; at += 5) {
    QByteArray bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 0x7f);
    put(bad);
    Pictures(folder_, store_).Get(L"panel", {40, 20}, 2);
  }
}

}  // namespace
}  // namespace vantora
