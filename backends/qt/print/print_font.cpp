#include "backends/qt/print/print_font.h"

#include "backends/qt/desktop/qt_app.h"
#include "backends/qt/look/look.h"
#include "backends/qt/print/offscreen_app.h"
#include "backends/qt/print/qt_font_book.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr int kMeasuredPixels = 1000;  // accurate enough for every size

QFont InPixels(const LogicalFont& font, double pixels) {
  QFont made;
  made.setFamilies({look::FromText(font.FaceName), QStringLiteral("Liberation Sans")});
  made.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
  made.setBold(font.Weight > (kWeightNormal + kWeightBold) / 2);
  made.setItalic(font.Italic);
  made.setUnderline(font.Underline);
  made.setStrikeOut(font.StrikeOut);
  made.setHintingPreference(QFont::PreferNoHinting);
  made.setStyleStrategy(QFont::PreferOutline);
  made.setKerning(true);
  return made;
}

// The letter height of a font with this line height.
double LettersOf(const LogicalFont& font) {
  if (font.Height < 0) return -font.Height;
  const QFontMetricsF metrics(InPixels(font, kMeasuredPixels));
  return font.Height * kMeasuredPixels / (metrics.ascent() + metrics.descent());
}

void NeedFonts() {
  NeedToolkit();
  QtApp::AwaitFonts();
}

}  // namespace

QFont PrintFont(const LogicalFont& font) {
  NeedFonts();
  return InPixels(font, LettersOf(font));
}

std::vector<Text> QtFontBook::Families() {
  NeedFonts();
  std::vector<Text> names;
  for (const QString& family : QFontDatabase::families()) {
    const bool usable = !QFontDatabase::isPrivateFamily(family) &&
                        QFontDatabase::isSmoothlyScalable(family) && !family.startsWith(u'.');
    if (usable) names.push_back(look::ToText(family));
  }
  if (names.empty()) names.emplace_back(L"Liberation Sans");
  return names;
}

Text QtFontBook::Substitute(const Text& family) {
  NeedFonts();
  LogicalFont font;
  font.FaceName = family;
  return look::ToText(QFontInfo(InPixels(font, kMeasuredPixels)).family());
}

TextExtent QtFontBook::Measure(const LogicalFont& font, const Text& text) {
  NeedFonts();
  const double share = LettersOf(font) / kMeasuredPixels;
  const QFontMetricsF metrics(InPixels(font, kMeasuredPixels));
  return {metrics.horizontalAdvance(look::FromText(text)) * share,
          (metrics.ascent() + metrics.descent()) * share, metrics.ascent() * share};
}

}  // namespace vantora
