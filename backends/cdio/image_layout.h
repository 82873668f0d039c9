// What a sheet says of its image: where on the disc the sound of which file lies. Two notations:
// CUE, with images that are BINARY, MOTOROLA or WAVE, one file for all tracks or one for each; and
// the TOC of cdrdao. The files are looked for beside the sheet, whatever folder it names.
//
// libcdio reads sheets too, but takes only the one BIN file that is named like the sheet, and gives
// wrong starts where a TOC begins a track later than its file.
#pragma once

#include "backends/cdio/disc.h"

#include "platform/files.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantora {

// Sound on the disc that comes out of a file; where no piece lies, there is silence.
struct ImagePiece {
  std::int64_t Start = 0, Bytes = 0;  // on the disc, from sector 0
  Text File;
  std::int64_t Offset = 0;  // bytes into the file
  bool BigEndian = false;
};

struct ImageLayout {
  CdToc Toc;
  std::vector<ImagePiece> Pieces;  // by their start, none over another
};

// Raises a Laufzeitfehler for a sheet that makes no sense, or one with a file missing. A file that
// is too short for its tracks is no failure: its disc is read up to there.
ImageLayout ReadSheet(Dateien& files, const Text& sheet);

// ---- for the two notations ----

[[noreturn]] void SheetMakesNoSense();
// Product path of a file that a sheet names.
Text FileOfSheet(Dateien& files, const Text& sheet, const std::string& name);
// "mm:ss:ff" in sectors, nothing else before or behind; -1 for what is no time.
int SheetTime(const std::string& text);
// Where the sound of a file lies in it.
struct SoundPlace {
  std::int64_t Offset = 0, Bytes = 0;
};
SoundPlace PlaceOfWave(Dateien& files, const Text& file);

ImageLayout LayoutOfCue(Dateien& files, const Text& sheet, const std::string& text);
ImageLayout LayoutOfToc(Dateien& files, const Text& sheet, const std::string& text);

}  // namespace vantora
