#include "tests/long/level.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QPixmapCache>

#include <fontconfig/fontconfig.h>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <unistd.h>

// Present in programs that the address sanitizer watches.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));
// That library keeps distances instead of pointers, which the leak sanitizer does not follow.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}

namespace vantora::test {

namespace fs = std::filesystem;

namespace {

int EntriesOf(const fs::path& folder) {
  return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

std::size_t LiveBytes() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) {
    return __sanitizer_get_current_allocated_bytes();
  }
  const struct mallinfo2 info = ::mallinfo2();
  return info.uordblks + info.hblkhd;
}

std::size_t ResidentBytes() {
  std::size_t size = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

int FilesIn(const fs::path& folder, const auto& counts) {
  int count = 0;
  std::error_code gone;
  for (const auto& entry : fs::recursive_directory_iterator(folder, gone)) {
    if (entry.is_regular_file() && counts(entry.path())) ++count;
  }
  return count;
}

// The file of the system's first font.
QString FontFile() {
  FcPattern* any = FcPatternCreate();
  FcConfigSubstitute(nullptr, any, FcMatchPattern);
  FcDefaultSubstitute(any);
  FcResult result = FcResultNoMatch;
  FcPattern* font = FcFontMatch(nullptr, any, &result);
  FcChar8* file = nullptr;
  if (font != nullptr) FcPatternGetString(font, FC_FILE, 0, &file);
  const QString name = QString::fromUtf8(reinterpret_cast<const char*>(file));
  if (font != nullptr) FcPatternDestroy(font);
  FcPatternDestroy(any);
  return name;
}

}  // namespace

void ForgetCaches() {
  if (QCoreApplication::instance() == nullptr) return;
  QPixmapCache::clear();
  static const QString font = FontFile();
  QFontDatabase::removeApplicationFont(QFontDatabase::addApplicationFont(font));
}

std::string Level::Words() const {
  return "handles " + std::to_string(Handles) + ", threads " + std::to_string(Threads) +
         ", temporary files " + std::to_string(TempFiles) + ", live kB " + std::to_string(LiveKb) +
         ", resident kB " + std::to_string(ResidentKb);
}

Level Measure(const fs::path& temporary, const fs::path& home) {
  constexpr std::size_t kKilo = 1024;
  Level level;
  level.Handles = EntriesOf("/proc/self/fd") - 1;  // without the one that counts
  level.Threads = EntriesOf("/proc/self/task");
  level.LiveKb = LiveBytes() / kKilo;
  level.ResidentKb = ResidentBytes() / kKilo;
  level.TempFiles = FilesIn(temporary, [](const fs::path&) { return true; }) +
                    FilesIn(home, [](const fs::path& file) {
                      return file.extension() == ".tmp" || file.extension() == ".new";
                    });
  return level;
}

}  // namespace vantora::test
