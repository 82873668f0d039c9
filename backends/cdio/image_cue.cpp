// The notation CUE.

#include "backends/cdio/image_layout.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <sstream>

namespace vantora {

namespace {

struct CueFile {
  Text Path;
  SoundPlace Place;
  bool BigEndian = false, Wave = false;
};

struct CueEntry {
  std::size_t File = 0;  // of the files of the sheet: where its sound begins
  int SectorBytes = kCdSectorBytes;
  bool Audio = true;
  std::optional<int> Index0, Index1;  // sectors from the start of the file
  int Pregap = 0, Postgap = 0;        // sectors of silence that no file holds
};

// The words of a line, quoted ones whole.
std::vector<std::string> Words(const std::string& line) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < line.size();) {
    if (std::isspace(static_cast<unsigned char>(line[at])) != 0) {
      ++at;
      continue;
    }
    const bool quoted = line[at] == '"';
    const std::size_t begin = quoted ? at + 1 : at;
    const std::size_t end =
        std::min(line.find_first_of(quoted ? "\"" : " \t\r\n", begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    at = end + (quoted ? 1 : 0);
  }
  return words;
}

int SectorBytesOf(const std::string& mode) {
  if (mode == "AUDIO") return kCdSectorBytes;
  if (mode == "CDG") return 2448;
  const std::size_t slash = mode.find('/');
  const std::string bytes = slash == std::string::npos ? "" : mode.substr(slash + 1);
  for (const int possible : {2048, 2336, 2352}) {
    if (bytes == std::to_string(possible)) return possible;
  }
  SheetMakesNoSense();
}

class CueReader {
 public:
  CueReader(Dateien& files, const Text& sheet) : files_(files), sheet_(sheet) {}

  void Line(const std::string& line) {
    const std::vector<std::string> words = Words(line);
    if (words.empty()) return;
    const std::string& what = words[0];
    if (what == "FILE" && words.size() >= 3) AddFile(words[1], words.back());
    if (what == "TRACK" && words.size() >= 3) AddTrack(words[2]);
    if (tracks_.empty()) return;
    if (what == "INDEX" && words.size() >= 3) AddIndex(words[1], Time(words[2]));
    if (what == "PREGAP" && words.size() >= 2) tracks_.back().Pregap = Time(words[1]);
    if (what == "POSTGAP" && words.size() >= 2) tracks_.back().Postgap = Time(words[1]);
  }

  ImageLayout Layout() {
    // What a writer puts in front of the first track by itself is told by some sheets all the same.
    if (!tracks_.empty()) {
      tracks_.front().Pregap = std::max(tracks_.front().Pregap - kCdLeadInSectors, 0);
    }
    for (std::size_t i = 0; i < tracks_.size(); ++i) Place(i);
    layout_.Toc.LeadOut = sector_;
    return std::move(layout_);
  }

 private:
  static int Time(const std::string& text) {
    const int sectors = SheetTime(text);
    if (sectors < 0) SheetMakesNoSense();
    return sectors;
  }

  void AddFile(const std::string& name, const std::string& kind) {
    CueFile file;
    file.Path = FileOfSheet(files_, sheet_, name);
    file.BigEndian = kind == "MOTOROLA";
    file.Wave = kind == "WAVE";
    if (!file.Wave && !file.BigEndian && kind != "BINARY") SheetMakesNoSense();
    file.Place =
        file.Wave ? PlaceOfWave(files_, file.Path) : SoundPlace{0, files_.FileLen(file.Path)};
    sheetFiles_.push_back(file);
  }

  void AddTrack(const std::string& mode) {
    if (sheetFiles_.empty()) SheetMakesNoSense();
    CueEntry track;
    track.SectorBytes = SectorBytesOf(mode);
    track.Audio = mode == "AUDIO";
    track.File = sheetFiles_.size() - 1;
    tracks_.push_back(track);
  }

  void AddIndex(const std::string& number, int sector) {
    CueEntry& track = tracks_.back();
    const std::size_t file = sheetFiles_.size() - 1;
    // A gap at the end of the file before is no part of the file in which the track begins.
    if (number == "01" && file != track.File) track.Index0.reset();
    if (number == "00") track.Index0 = sector;
    if (number == "01") {
      track.Index1 = sector;
      track.File = file;
    }
  }

  static int First(const CueEntry& track) { return track.Index0.value_or(*track.Index1); }

  // Lays down what the track's file holds from its first index to the next track's, and everything
  // in front of the first track of a file with it.
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
    const std::int64_t left = std::max<std::int64_t>(file.Place.Bytes - offset_, 0);
    const bool more = number + 1 < tracks_.size() && tracks_[number + 1].File == track.File;
    if (more && !tracks_[number + 1].Index1) SheetMakesNoSense();
    // A sector that is there in part counts: its rest has been lost.
    const auto inRest = static_cast<int>(
        std::min<std::int64_t>((left + track.SectorBytes - 1) / track.SectorBytes, 1 << 20));
    const int end = more ? First(tracks_[number + 1]) : std::max(begin + inRest, *track.Index1 + 1);
    if (end <= *track.Index1) SheetMakesNoSense();

    sector_ += track.Pregap;
    layout_.Toc.Tracks.push_back({sector_ + *track.Index1 - begin, 0, track.Audio});
    AddPiece(track, file, end - begin, left);
    sector_ += end - begin + track.Postgap;
    inFile_ = end;
    offset_ += std::int64_t{end - begin} * track.SectorBytes;
  }

  void AddPiece(const CueEntry& track, const CueFile& file, int sectors, std::int64_t left) {
    if (!track.Audio) return;
    ImagePiece piece;
    piece.Start = std::int64_t{sector_} * kCdSectorBytes;
    piece.Bytes = std::int64_t{sectors} * kCdSectorBytes;
    if (file.Wave) piece.Bytes = std::min(piece.Bytes, left);  // silence to the end of the sector
    piece.File = file.Path;
    piece.Offset = file.Place.Offset + offset_;
    piece.BigEndian = file.BigEndian;
    layout_.Pieces.push_back(piece);
  }

  Dateien& files_;
  const Text& sheet_;
  std::vector<CueFile> sheetFiles_;
  std::vector<CueEntry> tracks_;
  ImageLayout layout_;
  int sector_ = 0;           // of the disc
  int inFile_ = 0;           // sectors of the file that have been laid down
  std::int64_t offset_ = 0;  // the same in bytes
};

}  // namespace

ImageLayout LayoutOfCue(Dateien& files, const Text& sheet, const std::string& text) {
  CueReader reader(files, sheet);
  std::istringstream lines(text.substr(text.starts_with("\xEF\xBB\xBF") ? 3 : 0));
  for (std::string line; std::getline(lines, line);) reader.Line(line);
  return reader.Layout();
}

}  // namespace vantora
