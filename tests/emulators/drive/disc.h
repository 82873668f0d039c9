// The disc in the emulated drive, which is a folder with
//   toc         the medium and its table of contents, in words (see Save)
//   image.bin   the sound, 2352 bytes a sector, from sector 0; a hole reads as silence
//   cdtext.bin  the text packs of the lead-in, 18 bytes each
// It has one session. When a program or a test puts files there, the drive reports a newly inserted
// disc.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace vantora::emulated {

using Bytes = std::vector<unsigned char>;

constexpr int kSectorBytes = 2352;

struct DiscTrack {
  int Start;  // first sector
  bool Audio;
  bool Preemphasis = false;
};

enum class DiscState { Blank, Open, Closed, Spoilt };

struct Disc {
  std::filesystem::path Folder;
  int Capacity = 359'847;  // number of sectors up to the last possible lead-out
  DiscState State = DiscState::Blank;
  std::vector<DiscTrack> Tracks{};  // from track 1
  int LeadOut = 0;
  Bytes Text{};
  bool Dry = false;  // a simulated write: nothing is saved

  // Returns nothing when the folder has no valid table of contents.
  static std::optional<Disc> Load(const std::filesystem::path& folder);

  void Save() const;
  void Write(int sector, const unsigned char* bytes, int count) const;
  // Reads the sound `late` frames late. Silence surrounds the sound of the disc.
  bool Read(int sector, unsigned char* bytes, int count, int late) const;
};

}  // namespace vantora::emulated
