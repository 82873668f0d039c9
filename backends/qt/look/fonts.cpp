#include "backends/qt/look/fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QWidget>

#include <fontconfig/fontconfig.h>
#include <initializer_list>
#include <sys/stat.h>

namespace vantora {

namespace {

// The family's files that the windows are written in, in the folder of their package.
constexpr const char* kFamilyFile =
    "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf";
constexpr const char* kBoldFile = "/usr/share/fonts/truetype/liberation/LiberationSans-Bold.ttf";

// The hinting is the machine's own, as long as nobody has changed it.
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

// Changes with the files; 0 when one is missing.
std::int64_t StampOf(std::initializer_list<const char*> files) {
  std::int64_t stamp = 0;
  for (const char* file : files) {
    struct stat info {};
    if (::stat(file, &info) != 0) return 0;
    stamp += info.st_mtim.tv_sec + info.st_size;
  }
  return stamp;
}

bool KnowFamilyOnly() {
  FcConfig* settings = FcConfigCreate();
  const auto* words = reinterpret_cast<const FcChar8*>(kFamilyOnly);
  const bool known = FcConfigParseAndLoadFromMemory(settings, words, FcTrue) == FcTrue &&
                     FcConfigBuildFonts(settings) == FcTrue &&
                     FcConfigSetCurrent(settings) == FcTrue;
  FcConfigDestroy(settings);  // the library holds it when it is the current one
  return known;
}

}  // namespace

Fonts::Fonts() : stamp_(StampOf({kFamilyFile, kBoldFile})), rest_(stamp_ != 0 && KnowFamilyOnly()) {
  if (!rest_) stamp_ = 0;
}

Fonts::~Fonts() {
  if (auto* settings = static_cast<FcConfig*>(read_.load())) FcConfigDestroy(settings);
}

void Fonts::ReadAll() {
  if (!rest_) return;
  rest_ = false;
  stamp_ = 0;
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
  // The toolkit forgets what it knows of fonts when one of the application's own goes.
  const int own = QFontDatabase::addApplicationFont(QString::fromLatin1(kFamilyFile));
  QFontDatabase::removeApplicationFont(own);
  for (QWidget* window : QApplication::topLevelWidgets()) window->update();
}

}  // namespace vantora
