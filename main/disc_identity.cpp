#include "main/disc_identity.h"

#include "platform/laufzeitfehler.h"

#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace vantora {

namespace {

constexpr int kSectorsPerSecond = 75, kSectorBytes = 2352;
constexpr int kLeadInSectors = 150;  // a disc's first track starts two seconds into it

// Starts of the tracks in sectors of the image, from the lines "INDEX 01 mm:ss:ff".
std::vector<std::int64_t> TrackStarts(const std::string& sheet) {
  std::vector<std::int64_t> starts;
  std::istringstream lines(sheet);
  for (std::string line; std::getline(lines, line);) {
    int minute = 0, second = 0, frame = 0;
    if (std::sscanf(line.c_str(), " INDEX 01 %d:%d:%d", &minute, &second, &frame) != 3) continue;
    starts.push_back((minute * std::int64_t{60} + second) * kSectorsPerSecond + frame);
  }
  return starts;
}

std::uint32_t PackedTime(std::int64_t sectors) {
  const std::int64_t onDisc = sectors + kLeadInSectors;
  const auto frames = static_cast<std::uint32_t>(onDisc % kSectorsPerSecond);
  const auto seconds = static_cast<std::uint32_t>(onDisc / kSectorsPerSecond % 60);
  const auto minutes = static_cast<std::uint32_t>(onDisc / kSectorsPerSecond / 60);
  return minutes << 16U | seconds << 8U | frames;
}

}  // namespace

Text DiscIdentity::MediaIdentity(const Text& /*drive*/) {
  const Text sheetFile = writer_.LastImage();
  if (sheetFile.empty()) return {};
  try {
    const auto sheet = files_.Open(sheetFile, Zugriff::Lesen);
    std::string text(static_cast<std::size_t>(sheet->Length()), '\0');
    sheet->Read(text.data(), text.size());
    const std::vector<std::int64_t> starts = TrackStarts(text);
    if (starts.empty()) return {};
    std::uint32_t id = 0;
    for (const std::int64_t start : starts) id += PackedTime(start);
    const Text image = sheetFile.substr(0, sheetFile.size() - 4) + L".bin";
    const std::int64_t sectors = files_.FileLen(image) / kSectorBytes;
    if (starts.size() <= 2) id += static_cast<std::uint32_t>(sectors);
    return std::to_wstring(id);
  } catch (const Laufzeitfehler&) {
    return {};  // the image has been moved away: there is no disc to know
  }
}

}  // namespace vantora
