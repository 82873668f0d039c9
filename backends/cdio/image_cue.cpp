// The CUE format as programs write it in practice, beyond its manual: words in small letters, names
// without quotes or with one too many, files without a type.

#include "backends/cdio/image_layout.h"
#include "backends/cdio/sheet_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>

namespace vantora {

namespace {

constexpr const char* kBlanks = " \t";

struct CueFile {
  Text Path;
  SoundPlace Place;
  bool BigEndian = false, Wave = false;
};

struct CueEntry {
  int Line = 0;          // line of the sheet
  std::size_t File = 0;  // index of the file in which the track's sound begins
  int SectorBytes = kSectorBytes;
  bool Audio = true, Preemphasis = false;
  std::optional<int> Index0, Index1;  // sectors from the start of the file
  int Pregap = 0, Postgap = 0;        // sectors of silence that are in no file
};

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> Words(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream rest(InCapitals(line));
  for (std::string word; rest >> word;) words.push_back(word);
  return words;
}

struct NameAndKind {
  std::string Name, Kind;
};

bool IsKind(const std::string& word) {
  constexpr std::array kKinds{"BINARY", "MOTOROLA", "WAVE", "AIFF", "MP3"};
  return std::find(kKinds.begin(), kKinds.end(), word) != kKinds.end();
}

// Splits the rest of a FILE line. A name may contain quotes, and blanks even without quotes around
// it.
NameAndKind NameAndKindOf(const std::string& rest) {
  if (rest.starts_with('"')) {
    const std::size_t end = rest.rfind('"');
    if (end == 0) return {rest.substr(1), {}};
    return {rest.substr(1, end - 1), InCapitals(Trimmed(rest.substr(end + 1)))};
  }
  const std::size_t blank = rest.find_last_of(kBlanks);
  if (blank == std::string::npos) return {rest, {}};
  const std::string last = InCapitals(rest.substr(blank + 1));
  return IsKind(last) ? NameAndKind{Trimmed(rest.substr(0, blank)), last} : NameAndKind{rest, {}};
}

int SectorBytesOf(const std::string& mode) {
  if (mode == "AUDIO") return kSectorBytes;
  if (mode == "CDG") return kSectorBytes + kCdSubchannelBytes;
  const std::size_t slash = mode.find('/');
  const std::string bytes = slash == std::string::npos ? "" : mode.substr(slash + 1);
  for (const int possible : {2048, 2324, 2336, 2352, 2448}) {
    if (bytes == std::to_string(possible)) return possible;
  }
  SheetMakesNoSense();
}

class CueReader {
 public:
  CueReader(Dateien& files, const Text& sheet, SheetFault& where)
      : files_(files), sheet_(sheet), where_(where) {}

  void Line(const std::string& line) {
    ++where_.Line;
    const std::vector<std::string> words = Words(line);
    if (words.empty()) return;
    const std::string& what = words[0];
    const auto word = [&words](std::size_t place) {
      if (place >= words.size()) SheetMakesNoSense();
      return words[place];
    };
    if (what == "FILE") return AddFile(Trimmed(Trimmed(line).substr(what.size())));
    if (what == "TRACK") return AddTrack(word(2));
    if (what != "INDEX" && what != "PREGAP" && what != "POSTGAP" && what != "FLAGS") return;
    if (tracks_.empty()) SheetMakesNoSense();
    if (what == "FLAGS") {
      tracks_.back().Preemphasis = std::find(words.begin(), words.end(), "PRE") != words.end();
    }
    if (what == "INDEX") AddIndex(word(1), Time(word(2)));
    if (what == "PREGAP") tracks_.back().Pregap = Time(word(1));
    if (what == "POSTGAP") tracks_.back().Postgap = Time(word(1));
  }

  ImageLayout Layout() {
    // Some sheets also list the two seconds that every writer puts in front of the first track.
    if (!tracks_.empty()) {
      tracks_.front().Pregap = std::max(tracks_.front().Pregap - kCdLeadInSectors, 0);
    }
    const int lines = where_.Line;
    for (std::size_t i = 0; i < tracks_.size(); ++i) {
      where_.Line = tracks_[i].Line;
      Place(i);
    }
    where_.Line = lines;
    layout_.Toc.LeadOut = sector_;
    return std::move(layout_);
  }

 private:
  static int Time(const std::string& text) {
    const int sectors = SheetTime(text);
    if (sectors < 0) SheetMakesNoSense();
    return sectors;
  }

  void AddFile(const std::string& rest) {
    const auto [name, kind] = NameAndKindOf(rest);
    where_.File = SheetName(name);
    CueFile file;
    file.Path = FileOfSheet(files_, sheet_, where_.File);
    file.BigEndian = kind == "MOTOROLA";
    file.Wave = kind == "WAVE" || (kind.empty() && NamedAsWave(file.Path));
    if (!file.Wave && !file.BigEndian && kind != "BINARY" && !kind.empty()) SheetMakesNoSense();
    file.Place =
        file.Wave ? PlaceOfWave(files_, file.Path) : SoundPlace{0, files_.FileLen(file.Path)};
    where_.File.clear();
    sheetFiles_.push_back(file);
  }

  void AddTrack(const std::string& mode) {
    if (sheetFiles_.empty() || tracks_.size() == kMostDiscTracks) SheetMakesNoSense();
    CueEntry track;
    track.Line = where_.Line;
    track.SectorBytes = SectorBytesOf(mode);
    track.Audio = mode == "AUDIO" || mode == "CDG";
    track.File = sheetFiles_.size() - 1;
    tracks_.push_back(track);
  }

  void AddIndex(const std::string& number, int sector) {
    if (number.find_first_not_of("0123456789") != std::string::npos) SheetMakesNoSense();
    CueEntry& track = tracks_.back();
    const std::size_t file = sheetFiles_.size() - 1;
    const bool first = number == "01" || number == "1";
    // A gap at the end of the file before is not part of the file in which the track begins.
    if (first && file != track.File) track.Index0.reset();
    if (number == "00" || number == "0") track.Index0 = sector;
    if (first) {
      track.Index1 = sector;
      track.File = file;
    }
  }

  static int First(const CueEntry& track) { return track.Index0.value_or(*track.Index1); }

  // Sectors of the file that have not been placed yet. At the end of an image, a part of a sector
  // is ignored; a wave may end within its last sector.
  int InRest(const CueEntry& track, const CueFile& file) const {
    const std::int64_t left = file.Place.Bytes - offset_ + (file.Wave ? track.SectorBytes - 1 : 0);
    return static_cast<int>(std::clamp<std::int64_t>(left / track.SectorBytes, 0, 1 << 20));
  }

  // Places the track's sound on the disc, from its first index to that of the next track. The first
  // track of a file includes the sound in front of it.
  void Place(std::size_t number) {
    const CueEntry& track = tracks_[number];
    if (!track.Index1) SheetMakesNoSense();
    const bool firstOfFile = number == 0 || tracks_[number - 1].File != track.File;
    if (firstOfFile) {
      inFile_ = 0;
      offset_ = 0;
    }
    const int begin = firstOfFile ? 0 : First(track);
    if (First(track) < begin || *track.Index1 < begin || begin != inFile_) SheetMakesNoSense();
    const CueFile& file = sheetFiles_[track.File];
    const bool more = number + 1 < tracks_.size() && tracks_[number + 1].File == track.File;
    if (more && !tracks_[number + 1].Index1) {
      where_.Line = tracks_[number + 1].Line;
      SheetMakesNoSense();
    }
    const int end = more ? First(tracks_[number + 1])
                         : std::max(begin + InRest(track, file), *track.Index1 + 1);
    if (end <= *track.Index1) SheetMakesNoSense();

    sector_ += track.Pregap;
    layout_.Toc.Tracks.push_back(
        {sector_ + *track.Index1 - begin, 0, track.Audio, track.Audio && track.Preemphasis});
    AddPiece(track, file, end - begin);
    sector_ += end - begin + track.Postgap;
    if (sector_ > kMostDiscSectors) SheetMakesNoSense();
    inFile_ = end;
    offset_ += std::int64_t{end - begin} * track.SectorBytes;
  }

  void AddPiece(const CueEntry& track, const CueFile& file, int sectors) {
    if (!track.Audio) return;
    ImagePiece piece;
    piece.Start = std::int64_t{sector_} * kSectorBytes;
    piece.Bytes = std::int64_t{sectors} * kSectorBytes;
    if (file.Wave) {  // fills the sector with silence
      const std::int64_t left = std::max<std::int64_t>(file.Place.Bytes - offset_, 0);
      piece.Bytes = std::min(piece.Bytes, left);
    }
    piece.File = file.Path;
    piece.Offset = file.Place.Offset + offset_;
    piece.BigEndian = file.BigEndian;
    piece.SectorBytes = track.SectorBytes;
    layout_.Pieces.push_back(piece);
  }

  Dateien& files_;
  const Text& sheet_;
  SheetFault& where_;
  std::vector<CueFile> sheetFiles_;
  std::vector<CueEntry> tracks_;
  ImageLayout layout_;
  int sector_ = 0;           // next sector of the disc
  int inFile_ = 0;           // sectors of the file already placed
  std::int64_t offset_ = 0;  // bytes of the file already placed
};

}  // namespace

ImageLayout LayoutOfCue(Dateien& files, const Text& sheet, const std::string& text,
                        SheetFault& where) {
  CueReader reader(files, sheet, where);
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) reader.Line(line);
  return reader.Layout();
}

}  // namespace vantora
