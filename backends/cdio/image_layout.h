// What a sheet says of its image: where on the disc the sound of which file lies. Two notations:
// CUE, with images that are BINARY, MOTOROLA or WAVE, one file for all tracks or one for each; and
// the TOC of cdrdao. The files are looked for in the folder that the sheet names, as seen from its
// own, and beside it.
//
// libcdio reads sheets too, but takes only the one BIN file that is named like the sheet, and gives
// wrong starts where a TOC begins a track later than its file.
#pragma once

#include "backends/cdio/disc.h"

#include "platform/files.h"
#include "platform/laufzeitfehler.h"
#include "platform/mci.h"

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
  int SectorBytes = kSectorBytes;  // in the file; what is more than a sector is subchannel data
};

struct ImageLayout {
  CdToc Toc;
  std::vector<ImagePiece> Pieces;  // by their start, none over another
};

// A sheet that was not understood, or one with a file that is missing or of a kind that cannot be
// read.
class SheetFailure : public Laufzeitfehler {
 public:
  SheetFailure(const Laufzeitfehler& cause, SheetFault what)
      : Laufzeitfehler(cause), What(std::move(what)) {}
  SheetFault What;
};

// Raises a SheetFailure; a file that is too short for its tracks is none: its disc is read up to
// there.
ImageLayout ReadSheet(Dateien& files, const Text& sheet);

// ---- for the two notations ----

[[noreturn]] void SheetMakesNoSense();
// Product path of a file that a sheet names.
Text FileOfSheet(Dateien& files, const Text& sheet, const Text& name);
// Where the sound of a file lies in it.
struct SoundPlace {
  std::int64_t Offset = 0, Bytes = 0;
};
SoundPlace PlaceOfWave(Dateien& files, const Text& file);
bool NamedAsWave(const Text& file);

constexpr int kMostDiscSectors = 100 * 60 * kSectorsPerSecond;
constexpr std::size_t kMostDiscTracks = 99;

// `where` holds how far the reading has come: the line, and the file of that line while it is read.
ImageLayout LayoutOfCue(Dateien& files, const Text& sheet, const std::string& text,
                        SheetFault& where);
ImageLayout LayoutOfToc(Dateien& files, const Text& sheet, const std::string& text,
                        SheetFault& where);

}  // namespace vantora
