// What lies in the emulated drive: a folder with
//   toc         the medium and its table of contents, in words (see Save)
//   image.bin   the sound, 2352 bytes a sector, from sector 0; a hole reads as silence
//   cdtext.bin  the text packs of the lead-in, 18 bytes each
// One session. Whatever another program or a test puts there counts as a disc just laid in.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace vantora::bottle {

using Bytes = std::vector<unsigned char>;

constexpr int kSectorBytes = 2352;

struct DiscTrack {
  int Start;  // sector
  bool Audio;
  bool Preemphasis = false;
};

enum class DiscState { Blank, Open, Closed, Spoilt };

struct Disc {
  std::filesystem::path Folder;
  bool Erasable = false;   // a CD-RW
  int Capacity = 359'847;  // sectors up to the last possible lead-out
  DiscState State = DiscState::Blank;
  std::vector<DiscTrack> Tracks{};  // from number 1
  int LeadOut = 0;
  Bytes Text{};
  bool Dry = false;  // written with the laser at reading power: nothing stays

  // Nothing when the folder holds no table of contents that makes sense.
  static std::optional<Disc> Load(const std::filesystem::path& folder);

  void Save() const;
  void Write(int sector, const unsigned char* bytes, int count) const;
  bool Read(int sector, unsigned char* bytes, int count) const;
};

}  // namespace vantora::bottle
