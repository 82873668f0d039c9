// Reads a cue sheet and its image as another program would: by the format alone, without knowledge
// of this program's writer.
#pragma once

#include "tests/backends/linux/home.h"

#include <map>
#include <regex>
#include <sstream>
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

inline Disc ReadDisc(const fs::path& sheet) {
  static const std::regex known(
      " *(FILE|TITLE|PERFORMER) \"([^\"]*)\" ?(BINARY)?\r| *(TRACK) ([0-9]{2}) ([A-Z0-9/]+)\r"
      "| *(INDEX) ([0-9]{2}) ([0-9]{2}):([0-5][0-9]):([0-6][0-9]|7[0-4])\r");
  Disc disc;
  std::istringstream text(Get(sheet));
  for (std::string line; std::getline(text, line);) {
    std::smatch part;
    DiscTrack* track = disc.Tracks.empty() ? nullptr : &disc.Tracks.back();
    const auto number = [&](std::size_t place) { return std::stoi(part[place]); };
    if (!std::regex_match(line, part, known)) {
      disc.Strange.push_back(line);
    } else if (part[1] == "FILE") {
      disc.File = part[2];
      disc.FileKind = part[3];
    } else if (part[4].matched) {
      disc.Tracks.emplace_back().Kind = part[6];
      if (number(5) != std::ssize(disc.Tracks)) disc.Strange.push_back("out of order: " + line);
    } else if (part[1] == "TITLE") {
      (track == nullptr ? disc.Title : track->Title) = part[2];
    } else if (part[1] == "PERFORMER") {
      (track == nullptr ? disc.Performer : track->Performer) = part[2];
    } else if (track != nullptr) {
      track->Index[number(8)] = (number(9) * 60 + number(10)) * 75 + number(11);
    } else {
      disc.Strange.push_back(line);
    }
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
