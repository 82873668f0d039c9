// Reads a cue sheet and its image as another program would: by the format alone, without knowledge
// of this program's writer.
#pragma once

#include "tests/backends/linux/home.h"

#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace vantora::test {

struct DiscTrack {
  std::string Kind, Title, Performer;
  std::map<int, std::int64_t> Index;  // in sectors
  std::string Gap, Sound;             // bytes from INDEX 00 to 01, and from there to the next track
};

struct Disc {
  std::string Title, Performer, File, FileKind;
  std::vector<DiscTrack> Tracks;
  std::int64_t Sectors = 0;
  std::vector<std::string> Strange;  // lines that other readers would not understand
};

inline std::string Unquoted(std::istringstream& line) {
  std::string word;
  line >> std::ws;
  if (line.peek() == '"') {
    line.get();
    std::getline(line, word, '"');
  } else {
    line >> word;
  }
  return word;
}

inline Disc ReadDisc(const fs::path& sheet) {
  Disc disc;
  std::istringstream text(Get(sheet));
  for (std::string raw; std::getline(text, raw);) {
    if (!raw.ends_with('\r')) disc.Strange.push_back("no CR LF: " + raw);
    std::istringstream line(raw.substr(0, raw.size() - 1));
    std::string word;
    line >> word;
    DiscTrack* track = disc.Tracks.empty() ? nullptr : &disc.Tracks.back();
    if (word == "FILE") {
      disc.File = Unquoted(line);
      disc.FileKind = Unquoted(line);
    } else if (word == "TRACK") {
      std::size_t number = 0;
      disc.Tracks.emplace_back();
      line >> number >> disc.Tracks.back().Kind;
      if (number != disc.Tracks.size()) disc.Strange.push_back("out of order: " + raw);
    } else if (word == "TITLE") {
      (track == nullptr ? disc.Title : track->Title) = Unquoted(line);
    } else if (word == "PERFORMER") {
      (track == nullptr ? disc.Performer : track->Performer) = Unquoted(line);
    } else if (word == "INDEX" && track != nullptr) {
      int number = -1, minutes = 0, seconds = 0, sectors = 0;
      std::string time;
      line >> number >> time;
      if (std::sscanf(time.c_str(), "%2d:%2d:%2d", &minutes, &seconds, &sectors) != 3 ||
          time.size() != 8 || seconds > 59 || sectors > 74) {
        disc.Strange.push_back(raw);
      }
      track->Index[number] = (minutes * 60 + seconds) * 75 + sectors;
    } else {
      disc.Strange.push_back(raw);
    }
    std::string rest;
    if (line >> rest) disc.Strange.push_back("more behind: " + raw);
  }
  const std::string image = Get(sheet.parent_path() / disc.File);
  if (image.size() % 2352 != 0) disc.Strange.push_back("the image ends inside a sector");
  disc.Sectors = static_cast<std::int64_t>(image.size() / 2352);
  const auto part = [&image](std::int64_t from, std::int64_t to) {
    return image.substr(static_cast<std::size_t>(from * 2352),
                        static_cast<std::size_t>((to - from) * 2352));
  };
  for (std::size_t i = 0; i < disc.Tracks.size(); ++i) {
    DiscTrack& track = disc.Tracks[i];
    const bool last = i + 1 == disc.Tracks.size();
    const std::int64_t end = last ? disc.Sectors : disc.Tracks[i + 1].Index.begin()->second;
    track.Gap = part(track.Index.begin()->second, track.Index[1]);
    track.Sound = part(track.Index[1], end);
  }
  return disc;
}

}  // namespace vantora::test
