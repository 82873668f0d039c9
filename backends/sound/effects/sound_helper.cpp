#include "backends/sound/effects/sound_helper.h"

#include <cmath>

namespace vantora {

namespace {

constexpr double kSilenceDb = -100;
constexpr std::size_t kSectionLimit = 32'000;  // characters

}  // namespace

double SoundHelper::Db(double value, double fullScale) {
  if (value <= 0) return kSilenceDb;
  return 20 * std::log10(value / fullScale);
}

Text SoundHelper::IniSection(int index, const Text& iniFile) {
  const std::vector<Text> names = profiles_.GetPrivateProfileSectionNames(iniFile, kSectionLimit);
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < names.size() ? names[place] : Text();
}

}  // namespace vantora
