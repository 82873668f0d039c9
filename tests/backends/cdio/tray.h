// A home with a tray, disc images built byte by byte, and the back ends that read them.
#pragma once

#include "backends/cdio/disc_mci.h"
#include "backends/cdio/disc_player.h"
#include "backends/cdio/disc_reader.h"
#include "backends/headless/headless_output.h"
#include "tests/backends/bench.h"

namespace vantora::test {

constexpr std::size_t kSector = 2352;

inline std::string CueTime(int sectors) {
  char text[32];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", sectors / 75 / 60, sectors / 75 % 60,
                sectors % 75);
  return text;
}

class Tray : public Bench {
 protected:
  fs::path Folder() const { return home / "Vantora/Bandeja"; }

  // Puts an image of audio tracks into the tray and returns its bytes. `starts` and `end` are in
  // sectors. With `data`, the last track is a data track.
  std::string Lay(const std::vector<int>& starts, int end, bool data = false) {
    const std::string image = Noise(static_cast<std::size_t>(end) * kSector);
    std::string sheet = "FILE \"disco.bin\" BINARY\r\n";
    for (std::size_t i = 0; i < starts.size(); ++i) {
      const char* kind = data && i + 1 == starts.size() ? " MODE1/2352" : " AUDIO";
      sheet += "  TRACK " + std::to_string(i + 1) + kind + "\r\n    INDEX 01 " +
               CueTime(starts[i]) + "\r\n";
    }
    Put(Folder() / "disco.bin", image);
    Put(Folder() / "disco.cue", sheet);
    return image;
  }
  void Eject() { fs::remove_all(Folder()); }

  static std::string Part(const std::string& image, int from, int to) {
    return image.substr(static_cast<std::size_t>(from) * kSector,
                        static_cast<std::size_t>(to - from) * kSector);
  }
  std::string File(const char* name) const { return Get(home / name); }
  // The bytes of these sectors; blank when they cannot be read.
  static std::string Read(Disc& disc, int from, int to, bool carefully = false) {
    std::string bytes(static_cast<std::size_t>(to - from) * kSector, '?');
    const bool read = carefully ? disc.ReadCarefully(from, to - from, bytes.data())
                                : disc.Read(from, to - from, bytes.data());
    return read ? bytes : "";
  }

  std::vector<DiscDrive> Machine{{L'D', "", L"C:\\Vantora\\Bandeja", L"VANTORA IMAGE", 7, 0}};
  DiscDrives drives{disk, [this] { return Machine; }};
};

}  // namespace vantora::test
