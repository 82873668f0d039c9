// Reads from a sheet how its image is laid out: which file's sound lies where on the disc. Two
// formats are known: CUE, with images of type BINARY, MOTOROLA or WAVE, one file for all tracks or
// one per track; and the TOC of cdrdao. The files are looked for in the folder that the sheet
// names, relative to the sheet's own folder, and beside the sheet.
//
// libcdio reads sheets too, but accepts only one BIN file with the name of the sheet, and returns
// wrong starts where a TOC begins a track after the start of its file.
#pragma once

#include "backends/cdio/disc.h"

#include "platform/files.h"
#include "platform/laufzeitfehler.h"
#include "platform/mci.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantora {

// Sound on the disc that comes from a file. Places without a piece are silent.
struct ImagePiece {
  std::int64_t Start = 0, Bytes = 0;  // on the disc, from sector 0
  Text File;
  std::int64_t Offset = 0;  // bytes from the start of the file
  bool BigEndian = false;
  int SectorBytes = kSectorBytes;  // in the file; bytes beyond a sector's sound are subchannel data
};

struct ImageLayout {
  CdToc Toc;
  std::vector<ImagePiece> Pieces;  // sorted by start, without overlaps
};

// A sheet that could not be parsed, or that names a file that is missing or of an unknown kind.
class SheetFailure : public Laufzeitfehler {
 public:
  SheetFailure(const Laufzeitfehler& cause, SheetFault what)
      : Laufzeitfehler(cause), What(std::move(what)) {}
  SheetFault What;
};

// Raises a SheetFailure. A file that is too short for its tracks is no failure: its disc can be
// read up to the end of the file.
ImageLayout ReadSheet(Dateien& files, const Text& sheet);

// Functions for the two formats.

[[noreturn]] void SheetMakesNoSense();
// Product path of a file that a sheet names.
Text FileOfSheet(Dateien& files, const Text& sheet, const Text& name);
// Where the sound lies inside a file.
struct SoundPlace {
  std::int64_t Offset = 0, Bytes = 0;
};
SoundPlace PlaceOfWave(Dateien& files, const Text& file);
bool NamedAsWave(const Text& file);

constexpr int kMostDiscSectors = 100 * 60 * kSectorsPerSecond;
constexpr std::size_t kMostDiscTracks = 99;

// `where` holds the position of the parser: the line, and the file of that line while it is read.
ImageLayout LayoutOfCue(Dateien& files, const Text& sheet, const std::string& text,
                        SheetFault& where);
ImageLayout LayoutOfToc(Dateien& files, const Text& sheet, const std::string& text,
                        SheetFault& where);

}  // namespace vantora
