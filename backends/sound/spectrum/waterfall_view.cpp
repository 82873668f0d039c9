#include "backends/sound/spectrum/waterfall_view.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr double kLowest = 50, kHighest = 22050;  // Hz
constexpr double kQuietestTop = -40;              // in dB; noise below is no landscape

// The viewpoint is to the right of the room. The side with the time scale thus widens away from it,
// and no near block hides a number.
constexpr double kVanishing = 1.28;   // of the vanishing point, in widths of the front edge
constexpr double kBackSize = 0.68;    // size of the back wall relative to the front
constexpr double kFloorShare = 0.62;  // share of the picture's height; the rest is the back wall

constexpr double kSmallestPicture = 2000, kTwipsPerPoint = 1300;
constexpr int kSmallestFont = 7, kLargestFont = 12;

int FontFor(int width, int height) {
  const double size = std::min(width / 1.4, static_cast<double>(height));
  const int points =
      kSmallestFont + static_cast<int>(std::lround((size - kSmallestPicture) / kTwipsPerPoint));
  return std::clamp(points, kSmallestFont, kLargestFont);
}

std::wstring HertzText(int hertz) {
  return hertz < 1000 ? std::to_wstring(hertz) : std::to_wstring(hertz / 1000) + L"k";
}

}  // namespace

WaterfallView::WaterfallView(const Spectrum& spectrum, int width, int height)
    : depth_(spectrum.Depth()),
      durationMs_(std::max(spectrum.Blocks() - 1, 0) * spectrum.BlockMs()),
      fontSize_(FontFor(width, height)) {
  left_ = 2.6 * Em();
  const double behind = width - 3.3 * Em();  // right end of the back wall
  right_ = left_ + (behind - left_) / (kVanishing + (1 - kVanishing) * kBackSize);
  vanishing_ = left_ + kVanishing * (right_ - left_);
  front_ = height - 3.2 * Em();
  const double room = front_ - 0.7 * Em();
  back_ = front_ - kFloorShare * room;
  wall_ = (1 - kFloorShare) * room / kBackSize;
  eye_ = front_ - (front_ - back_) / (1 - kBackSize);
  const double highest = std::ceil(spectrum.Highest() / 10.0) * 10;
  top_ = highest <= kQuietestTop - depth_ ? 0 : std::clamp(highest, kQuietestTop, 0.0);
}

Place WaterfallView::At(double across, double away, double up) const {
  const double size = 1 / (1 + away * (1 / kBackSize - 1));
  const double x = left_ + across * (right_ - left_);
  return {vanishing_ + (x - vanishing_) * size, eye_ + (front_ - eye_ - up * wall_) * size};
}

double WaterfallView::Frequency(double across) const {
  return kLowest * std::pow(kHighest / kLowest, across);
}

double WaterfallView::Up(double level) const {
  return std::clamp(1 + (level - top_) / depth_, 0.0, 1.0);
}

std::vector<Tick> WaterfallView::FrequencyTicks() const {
  const double octave = FloorWidth() / std::log2(kHighest / kLowest);
  const bool all = octave > 3 * Em();  // there is room for two labels of three characters
  std::vector<Tick> ticks;
  for (const int hertz : {50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000}) {
    const bool decade = hertz == 100 || hertz == 1000 || hertz == 10000;
    ticks.push_back({std::log(hertz / kLowest) / std::log(kHighest / kLowest),
                     all || decade ? HertzText(hertz) : std::wstring()});
  }
  return ticks;
}

std::vector<Tick> WaterfallView::TimeTicks() const {
  if (durationMs_ <= 0) return {{0, L"0"}};
  for (const int step : {10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000}) {
    const int last = static_cast<int>(durationMs_ / step);
    // The last two time marks are closest together on the picture.
    const double end = last * step / durationMs_;
    const double gap = At(0, end - step / durationMs_, 0).Y - At(0, end, 0).Y;
    if (last > 1 && gap < LineHeight()) continue;
    std::vector<Tick> ticks;
    for (int i = 0; i <= last; ++i) {
      ticks.push_back({i * step / durationMs_, std::to_wstring(i * step)});
    }
    return ticks;
  }
  return {{0, L"0"}};
}

std::vector<Tick> WaterfallView::LevelTicks() const {
  const double least = 1.1 * LineHeight() / wall_ * depth_;  // in dB
  const int step = least <= 10 ? 10 : least <= 20 ? 20 : 30;
  std::vector<Tick> ticks;
  for (int down = 0; down < depth_; down += step) {
    ticks.push_back({1 - down / depth_, std::to_wstring(static_cast<int>(top_) - down)});
  }
  return ticks;
}

}  // namespace vantora
