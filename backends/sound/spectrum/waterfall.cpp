#include "backends/sound/spectrum/waterfall.h"

#include "backends/sound/spectrum/waterfall_view.h"

#include "platform/form.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vantora {

namespace {

constexpr Color kGround = Rgb(16, 19, 31);  // background that the picture box must have
constexpr Color kFloor = Rgb(24, 28, 48), kGrid = Rgb(50, 56, 92);
constexpr Color kAxis = Rgb(154, 165, 200), kWords = Rgb(235, 238, 245),
                kUnits = Rgb(185, 192, 216);

constexpr int kShades = 24, kNoShade = -1, kFaceBands = 12;
constexpr double kMist = 0.35;  // share of the background colour at the far end
constexpr double kFaceMist = 0.55, kRidgeLight = 0.35;

constexpr double kColumnTwips = 70, kRowTwips = 60, kRidgeTwips = 80;
constexpr int kFewestColumns = 32, kMostColumns = 104;
constexpr int kFewestRows = 8, kMostRows = 70;
constexpr double kTick = 70;      // in twips
constexpr double kLetter = 0.46;  // average width of a letter, relative to the font size

Color Mix(Color from, Color to, double share) {
  Color mixed = 0;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const double a = from >> shift & 255U, b = to >> shift & 255U;
    mixed |= static_cast<Color>(std::lround(a + (b - a) * share)) << shift;
  }
  return mixed;
}

// The colour for a height of 0 to 1.
Color Shade(double up) {
  struct Stop {
    double Up;
    Color Of;
  };
  static constexpr std::array<Stop, 5> kStops{{{0.0, Rgb(37, 43, 104)},
                                               {0.28, Rgb(14, 122, 152)},
                                               {0.46, Rgb(64, 178, 160)},
                                               {0.68, Rgb(255, 181, 69)},
                                               {1.0, Rgb(255, 251, 240)}}};
  for (std::size_t i = 1; i < kStops.size(); ++i) {
    const Stop &low = kStops[i - 1], &high = kStops[i];
    if (up <= high.Up) return Mix(low.Of, high.Of, (up - low.Up) / (high.Up - low.Up));
  }
  return kStops.back().Of;
}

// Heights above the floor, row by row from the front.
struct Relief {
  int Rows = 0, Columns = 0;
  std::vector<double> Heights;

  Relief(int rows, int columns)
      : Rows(rows),
        Columns(columns),
        Heights(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}
  double& Up(int row, int column) { return Heights[Place(row, column)]; }
  double Up(int row, int column) const { return Heights[Place(row, column)]; }
  double Across(int column) const { return column / (Columns - 1.0); }
  double Away(int row) const { return Rows > 1 ? row / (Rows - 1.0) : 0; }

 private:
  std::size_t Place(int row, int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) +
           static_cast<std::size_t>(column);
  }
};

// The level between two bins, interpolated by a Catmull-Rom spline (1974).
double LevelAt(const Spectrum& spectrum, int block, double bin) {
  const int last = spectrum.Bins() - 1;
  const int from = std::clamp(static_cast<int>(bin), 0, last - 1);
  const double t = std::clamp(bin - from, 0.0, 1.0);
  const auto level = [&](int k) { return spectrum.Level(block, std::clamp(k, 0, last)); };
  const double a = level(from - 1), b = level(from), c = level(from + 1), d = level(from + 2);
  return b + t / 2 * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
}

// One row for each block. A column that covers several bins takes the highest level, so that no
// tone is lost.
Relief OfBlocks(const Spectrum& spectrum, const WaterfallView& view, int columns) {
  Relief relief(spectrum.Blocks(), columns);
  const double half = 0.5 / (columns - 1);
  for (int column = 0; column < columns; ++column) {
    const double across = relief.Across(column), hertz = spectrum.BinHertz();
    const double first = view.Frequency(across - half) / hertz;
    const double last = view.Frequency(std::min(across + half, 1.0)) / hertz;
    for (int block = 0; block < spectrum.Blocks(); ++block) {
      double level = LevelAt(spectrum, block, view.Frequency(across) / hertz);
      for (int bin = static_cast<int>(std::ceil(first)); bin <= last && bin < spectrum.Bins();
           ++bin) {
        level = std::max(level, static_cast<double>(spectrum.Level(block, bin)));
      }
      relief.Up(block, column) = view.Up(level);
    }
  }
  return relief;
}

// Fits the rows into `room`: the highest level counts where blocks share a row, and rows are
// interpolated between blocks that are far apart.
Relief WithRows(const Relief& blocks, int room) {
  const int count = blocks.Rows;
  if (count == 1) return blocks;
  const bool dense = count > room;
  const int rows = dense ? room : (count - 1) * std::max(room / (count - 1), 1) + 1;
  Relief relief(rows, blocks.Columns);
  const double step = (count - 1.0) / (rows - 1.0);
  for (int row = 0; row < rows; ++row) {
    const double at = row * step;
    const int from =
        std::clamp(static_cast<int>(dense ? std::ceil(at - step / 2) : at), 0, count - 1);
    const int to = std::clamp(static_cast<int>(dense ? at + step / 2 : from + 1), from, count - 1);
    for (int column = 0; column < blocks.Columns; ++column) {
      double& up = relief.Up(row, column);
      if (dense) {
        for (int block = from; block <= to; ++block) up = std::max(up, blocks.Up(block, column));
      } else {
        const double low = blocks.Up(from, column), high = blocks.Up(to, column);
        up = low + (high - low) * (at - from);
      }
    }
  }
  return relief;
}

class Painter {
 public:
  Painter(const Spectrum& spectrum, PictureBox& picture, int width, int height)
      : view_(spectrum, width, height), picture_(picture), width_(width), height_(height) {}

  void Room();
  void Landscape(const Relief& relief);
  void Scales(const Text& xText, const Text& yText);
  const WaterfallView& View() const { return view_; }

 private:
  using What = DrawItem::What;
  static void Add(DrawItem& item, Place place) {
    item.Points.push_back(static_cast<int>(std::lround(place.X)));
    item.Points.push_back(static_cast<int>(std::lround(place.Y)));
  }
  void Area(std::initializer_list<Place> places, Color fill);
  void Line(Place from, Place to, Color ink);
  void Words(const Text& words, Place place, Alignment align, Color ink);
  Place At(const Relief& relief, int row, int column) const {
    return view_.At(relief.Across(column), relief.Away(row), relief.Up(row, column));
  }
  template <typename Height, typename Draw>
  static void Runs(int columns, Height height, Draw draw);
  void Strip(const Relief& relief, int row);  // between a row and the one behind it
  void Ridge(const Relief& relief, int row);
  void RightFace(const Relief& relief, int row);
  void FrontFace(const Relief& relief);

  WaterfallView view_;
  PictureBox& picture_;
  int width_, height_;
};

void Painter::Area(std::initializer_list<Place> places, Color fill) {
  DrawItem item;
  item.Kind = What::Polygon;
  for (const Place& place : places) Add(item, place);
  item.Ink = item.Fill = fill;
  picture_.Draw(std::move(item));
}

void Painter::Line(Place from, Place to, Color ink) {
  DrawItem item;
  Add(item, from);
  Add(item, to);
  item.Ink = ink;
  picture_.Draw(std::move(item));
}

void Painter::Words(const Text& words, Place place, Alignment align, Color ink) {
  DrawItem item;
  item.Kind = What::Words;
  Add(item, place);
  item.Ink = ink;
  item.Content = words;
  item.FontSize = view_.FontSize();
  item.Align = align;
  picture_.Draw(std::move(item));
}

void Painter::Room() {
  const auto& at = [this](double x, double y, double z) { return view_.At(x, y, z); };
  Area({at(0, 0, 0), at(1, 0, 0), at(1, 1, 0), at(0, 1, 0)}, kFloor);
  for (const Tick& tick : view_.LevelTicks()) {
    Line(at(0, 0, tick.At), at(0, 1, tick.At), kGrid);
    Line(at(0, 1, tick.At), at(1, 1, tick.At), kGrid);
  }
  for (const Tick& tick : view_.FrequencyTicks()) {
    Line(at(tick.At, 0, 0), at(tick.At, 1, 0), kGrid);
    Line(at(tick.At, 1, 0), at(tick.At, 1, 1), kGrid);
  }
  for (const Tick& tick : view_.TimeTicks()) Line(at(0, tick.At, 0), at(1, tick.At, 0), kGrid);
  Line(at(0, 1, 0), at(1, 1, 0), kAxis);
  Line(at(0, 0, 0), at(0, 1, 0), kAxis);
  Line(at(0, 1, 0), at(0, 1, 1), kGrid);
  Line(at(1, 1, 0), at(1, 1, 1), kGrid);
}

void Painter::Landscape(const Relief& relief) {
  const double between = view_.FloorDepth() / relief.Rows;
  const int every = std::max(1, static_cast<int>(std::lround(kRidgeTwips / between)));
  for (int row = relief.Rows - 1; row >= 0; --row) {
    if (row < relief.Rows - 1) {
      Strip(relief, row);
      RightFace(relief, row);
    }
    if (row == 0) FrontFace(relief);
    if (row % every == 0) Ridge(relief, row);
  }
}

// Neighbouring columns of the same shade become one item. Where there is no sound, the floor stays
// visible.
template <typename Height, typename Draw>
void Painter::Runs(int columns, Height height, Draw draw) {
  const auto shade = [&height](int column) {
    const double up = height(column);
    return up <= 0 ? kNoShade : static_cast<int>(std::lround(up * (kShades - 1)));
  };
  const int last = columns - 1;
  for (int from = 0; from < last;) {
    const int level = shade(from);
    int to = from + 1;
    while (to < last && shade(to) == level) ++to;
    if (level != kNoShade) draw(from, to, Shade(level / (kShades - 1.0)));
    from = to;
  }
}

void Painter::Strip(const Relief& relief, int row) {
  const auto height = [&](int column) {
    return (relief.Up(row, column) + relief.Up(row, column + 1) + relief.Up(row + 1, column) +
            relief.Up(row + 1, column + 1)) /
           4;
  };
  Runs(relief.Columns, height, [&](int from, int to, Color shade) {
    DrawItem item;
    item.Kind = What::Polygon;
    for (int column = from; column <= to; ++column) Add(item, At(relief, row, column));
    for (int column = to; column >= from; --column) Add(item, At(relief, row + 1, column));
    item.Ink = item.Fill = Mix(shade, kGround, kMist * relief.Away(row));
    picture_.Draw(std::move(item));
  });
}

void Painter::Ridge(const Relief& relief, int row) {
  const auto height = [&](int column) {
    return (relief.Up(row, column) + relief.Up(row, column + 1)) / 2;
  };
  Runs(relief.Columns, height, [&](int from, int to, Color shade) {
    DrawItem item;
    item.Kind = What::Polyline;
    for (int column = from; column <= to; ++column) Add(item, At(relief, row, column));
    item.Ink = Mix(Mix(shade, kWords, kRidgeLight), kGround, kMist * relief.Away(row));
    picture_.Draw(std::move(item));
  });
}

void Painter::RightFace(const Relief& relief, int row) {
  const int last = relief.Columns - 1;
  const double up = (relief.Up(row, last) + relief.Up(row + 1, last)) / 2;
  if (up <= 0) return;
  const double near = relief.Away(row), far = relief.Away(row + 1);
  Area(
      {view_.At(1, near, 0), At(relief, row, last), At(relief, row + 1, last), view_.At(1, far, 0)},
      Mix(Shade(up / 2), kGround, kFaceMist));
}

// The front face at the beginning of the sound, darker than the landscape, with one colour per band
// of heights.
void Painter::FrontFace(const Relief& relief) {
  const auto front = relief.Heights.begin();
  const double highest = *std::max_element(front, front + relief.Columns);
  for (int band = kFaceBands; band > 0; --band) {
    const double below = (band - 1.0) / kFaceBands, above = static_cast<double>(band) / kFaceBands;
    if (highest <= below) continue;
    DrawItem item;
    item.Kind = What::Polygon;
    Add(item, view_.At(0, 0, 0));
    for (int column = 0; column < relief.Columns; ++column) {
      Add(item, view_.At(relief.Across(column), 0, std::min(relief.Up(0, column), above)));
    }
    Add(item, view_.At(1, 0, 0));
    item.Ink = kTransparent;
    item.Fill = Mix(Shade((below + above) / 2), kGround, kFaceMist);
    picture_.Draw(std::move(item));
  }
}

void Painter::Scales(const Text& xText, const Text& yText) {
  const double em = view_.Em(), line = view_.LineHeight();
  Line(view_.At(0, 0, 0), view_.At(1, 0, 0), kAxis);
  for (const Tick& tick : view_.FrequencyTicks()) {
    const Place place = view_.At(tick.At, 0, 0);
    Line(place, {place.X, place.Y + (tick.Words.empty() ? kTick / 2 : kTick)}, kAxis);
    Words(tick.Words, {place.X, place.Y + kTick}, Alignment::Center, kUnits);
  }
  Line(view_.At(1, 0, 0), view_.At(1, 1, 0), kAxis);
  for (const Tick& tick : view_.TimeTicks()) {
    const Place place = view_.At(1, tick.At, 0);
    Line(place, {place.X + kTick, place.Y}, kAxis);
    Words(tick.Words, {place.X + kTick + em / 3, place.Y - line / 2}, Alignment::Left, kUnits);
  }
  Line(view_.At(0, 0, 0), view_.At(0, 0, 1), kAxis);
  for (const Tick& tick : view_.LevelTicks()) {
    const Place place = view_.At(0, 0, tick.At);
    Line({place.X - kTick, place.Y}, place, kAxis);
    Words(tick.Words, {place.X - kTick - em / 3, place.Y - line / 2}, Alignment::Right, kUnits);
  }
  const Place top = view_.At(0, 0, 1);
  Words(L"dB", {top.X - kTick - em / 3, top.Y - 1.6 * line}, Alignment::Right, kUnits);
  // Both axis names are on one line, with the frequency name under its scale if there is room.
  const double names = kLetter * em * static_cast<double>(xText.size() + yText.size()) + 2 * em;
  const double start = std::clamp(width_ - names, em / 4, view_.At(0, 0, 0).X);
  const double bottom = height_ - 1.3 * line;
  Words(xText, {start, bottom}, Alignment::Left, kWords);
  Words(yText, {width_ - em / 2, bottom}, Alignment::Right, kWords);
}

}  // namespace

void DrawWaterfall(const Spectrum& spectrum, PictureBox& picture, int width, int height,
                   const Text& xText, const Text& yText) {
  if (spectrum.Blocks() < 1 || width < 1 || height < 1) return;
  Painter painter(spectrum, picture, width, height);
  const WaterfallView& view = painter.View();
  const int columns =
      std::clamp(static_cast<int>(view.FloorWidth() / kColumnTwips), kFewestColumns, kMostColumns);
  const int rows =
      std::clamp(static_cast<int>(view.FloorDepth() / kRowTwips), kFewestRows, kMostRows);
  painter.Room();
  painter.Landscape(WithRows(OfBlocks(spectrum, view, columns), rows));
  painter.Scales(xText, yText);
}

}  // namespace vantora
