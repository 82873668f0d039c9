#include "backends/qt/look/fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QWidget>

#include <fontconfig/fontconfig.h>
#include <unistd.h>

namespace vantora {

namespace {

// Files of the windows' font family, in the folder of its distribution package.
constexpr const char* kFamilyFile =
    "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf";

// The hinting is the system's default.
constexpr const char* kFamilyOnly = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/truetype/liberation</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <match target="pattern">
    <edit name="hintstyle" mode="append"><const>hintslight</const></edit>
  </match>
</fontconfig>
)";

bool KnowFamilyOnly() {
  if (access(kFamilyFile, R_OK) != 0) return false;
  FcConfig* settings = FcConfigCreate();
  const auto* words = reinterpret_cast<const FcChar8*>(kFamilyOnly);
  const bool known = FcConfigParseAndLoadFromMemory(settings, words, FcTrue) == FcTrue &&
                     FcConfigBuildFonts(settings) == FcTrue &&
                     FcConfigSetCurrent(settings) == FcTrue;
  FcConfigDestroy(settings);  // fontconfig keeps its own reference to the current configuration
  return known;
}

}  // namespace

Fonts::Fonts() : rest_(KnowFamilyOnly()) {}

Fonts::~Fonts() {
  if (auto* settings = static_cast<FcConfig*>(read_.load())) FcConfigDestroy(settings);
}

void Fonts::ReadAll() {
  if (!rest_) return;
  rest_ = false;
  reader_ = std::thread([this] {
    read_ = FcInitLoadConfigAndFonts();
    QMetaObject::invokeMethod(
        qApp, [this] { TakeOver(); }, Qt::QueuedConnection);
  });
}

void Fonts::AwaitAll() {
  ReadAll();
  Finish();
  TakeOver();
}

void Fonts::Finish() {
  if (reader_.joinable()) reader_.join();
}

void Fonts::TakeOver() {
  auto* settings = static_cast<FcConfig*>(read_.exchange(nullptr));
  if (settings == nullptr) return;
  FcConfigSetCurrent(settings);
  FcConfigDestroy(settings);
  // Removing an application font makes the toolkit drop its cached font data.
  const int own = QFontDatabase::addApplicationFont(QString::fromLatin1(kFamilyFile));
  QFontDatabase::removeApplicationFont(own);
  for (QWidget* window : QApplication::topLevelWidgets()) window->update();
}

}  // namespace vantora
