#include "backends/qt/pictures/pictures.h"

#include "tests/backends/linux/home.h"

namespace vantora {
namespace {

using test::Get, test::Put;
namespace fs = std::filesystem;

class KeptPictures : public testing::Test {
 protected:
  void Write(const std::string& colour) const {
    Put(picture_,
        "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='10'><rect width='12' "
        "height='10' fill='" +
            colour + "'/></svg>");
  }
  // Shows the picture as one run of the program does. Returns a pixel inside the drawn rectangle
  // and a pixel beside it.
  std::pair<QRgb, QRgb> Run() const {
    Pictures pictures(folder_, store_);
    EXPECT_EQ(pictures.NaturalSize(L"panel"), QSize(20, 10));
    const QImage shown = pictures.Get(L"panel", {40, 20}, 2).toImage();
    EXPECT_EQ(shown.size(), QSize(80, 40));
    EXPECT_EQ(shown.devicePixelRatio(), 2);
    return {shown.pixel(40, 20), shown.pixel(79, 39)};
  }

  const std::pair<QRgb, QRgb> kRed{qRgb(255, 0, 0), 0}, kBlue{qRgb(0, 0, 255), 0};
  const test::TempFolder temporary_;
  const fs::path folder_ = temporary_();
  const fs::path store_ = folder_ / "new" / "drawn", picture_ = folder_ / "panel.svg";
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
  const std::string good = Get(store_);
  constexpr std::size_t kPixels = 80 * 40 * 4;
  ASSERT_GT(good.size(), kPixels);
  for (std::size_t length = 0; length < good.size(); length += length < 200 ? 11 : kPixels / 3) {
    Put(store_, good.substr(0, length));
    EXPECT_EQ(Run(), kRed) << "cut off at " << length;
    EXPECT_EQ(fs::file_size(store_), good.size()) << "cut off at " << length;
  }
  for (std::size_t at = 0; at < good.size() - kPixels; at += 5) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 0x7f);
    Put(store_, bad);
    Pictures(folder_, store_).Get(L"panel", {40, 20}, 2);
  }
}

}  // namespace
}  // namespace vantora
