#include "tests/emulators/drive/disc.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <string>

namespace vantora::emulated {

namespace fs = std::filesystem;

namespace {

constexpr std::array kStates{"blank", "open", "closed", "spoilt"};

}  // namespace

std::optional<Disc> Disc::Load(const fs::path& folder) {
  std::ifstream toc(folder / "toc");
  Disc disc{folder};
  std::string word, value;
  bool stated = false;
  while (toc >> word) {
    if (word == "track") {
      DiscTrack track{};
      toc >> track.Start >> value;
      track.Audio = value != "data";
      track.Preemphasis = value == "raised";
      disc.Tracks.push_back(track);
    } else if (word == "capacity") {
      toc >> disc.Capacity;
    } else if (word == "leadout") {
      toc >> disc.LeadOut;
    } else if (word == "state") {
      toc >> value;
      const auto found = std::find(kStates.begin(), kStates.end(), value);
      if (found == kStates.end()) return std::nullopt;
      disc.State = static_cast<DiscState>(found - kStates.begin());
      stated = true;
    }
  }
  if (!stated) return std::nullopt;
  return disc;
}

// The table of contents is written last and at once. A program that sees it sees the whole disc.
void Disc::Save() const {
  if (Dry) return;
  fs::create_directories(Folder);
  if (!Text.empty())
    std::ofstream(Folder / "cdtext.bin", std::ios::binary)
        .write(reinterpret_cast<const char*>(Text.data()),
               static_cast<std::streamsize>(Text.size()));
  const fs::path half = Folder / "toc.half";
  std::ofstream toc(half);
  toc << "capacity " << Capacity << "\nstate " << kStates[static_cast<std::size_t>(State)] << '\n';
  for (const DiscTrack& track : Tracks) {
    toc << "track " << track.Start
        << (track.Preemphasis ? " raised"
            : track.Audio     ? " audio"
                              : " data")
        << '\n';
  }
  if (LeadOut > 0) toc << "leadout " << LeadOut << '\n';
  toc.close();
  fs::rename(half, Folder / "toc");
}

void Disc::Write(int sector, const unsigned char* bytes, int count) const {
  if (Dry) return;
  const fs::path image = Folder / "image.bin";
  if (!fs::exists(image)) std::ofstream{image};
  std::fstream file(image, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(std::streamoff{sector} * kSectorBytes);
  file.write(reinterpret_cast<const char*>(bytes), std::streamsize{count} * kSectorBytes);
}

bool Disc::Read(int sector, unsigned char* bytes, int count, int late) const {
  if (State != DiscState::Closed || sector < 0 || sector + count > LeadOut) return false;
  const std::streamoff from = std::streamoff{sector} * kSectorBytes - std::streamoff{late} * 4;
  const std::streamoff size = std::streamoff{count} * kSectorBytes;
  const std::streamoff end = std::streamoff{LeadOut} * kSectorBytes;
  const auto onDisc = [end](std::streamoff place) {
    return std::clamp(place, std::streamoff{0}, end);
  };
  std::memset(bytes, 0, static_cast<std::size_t>(size));
  std::ifstream file(Folder / "image.bin", std::ios::binary);
  file.seekg(onDisc(from));
  file.read(reinterpret_cast<char*>(bytes) + (onDisc(from) - from),
            onDisc(from + size) - onDisc(from));
  return true;
}

}  // namespace vantora::emulated
