#include "backends/cdio/image_disc.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <utility>

namespace vantora {

ImageDisc::ImageDisc(Dateien& files, Text sheet)
    : files_(files), sheet_(std::move(sheet)), stamp_(files.FileDateTime(sheet_)) {
  ImageLayout layout = ReadSheet(files, sheet_);
  toc_ = std::move(layout.Toc);
  pieces_ = std::move(layout.Pieces);
  for (const ImagePiece& piece : pieces_) {
    std::unique_ptr<Datei>& file = open_[piece.File];
    if (!file) file = files.Open(piece.File, Zugriff::Lesen);
  }
}

bool ImageDisc::StillThere() {
  try {
    return files_.FileDateTime(sheet_) == stamp_;
  } catch (const Laufzeitfehler&) {
    return false;
  }
}

bool ImageDisc::Read(int sector, int count, void* target) {
  if (sector < 0 || count < 0 || sector + count > toc_.LeadOut) return false;
  try {
    Fill(std::int64_t{sector} * kSectorBytes, static_cast<char*>(target),
         static_cast<std::size_t>(count) * kSectorBytes);
    return true;
  } catch (const Laufzeitfehler&) {
    // The file is too short or its disk fails. A drive would report an unreadable sector.
    return false;
  }
}

void ImageDisc::Fill(std::int64_t from, char* target, std::size_t bytes) {
  const std::int64_t to = from + static_cast<std::int64_t>(bytes);
  auto piece = std::partition_point(pieces_.begin(), pieces_.end(), [from](const ImagePiece& one) {
    return one.Start + one.Bytes <= from;
  });
  while (from < to) {
    if (piece == pieces_.end() || piece->Start >= to) {
      std::fill_n(target, to - from, '\0');
      return;
    }
    if (piece->Start > from) {
      std::fill_n(target, piece->Start - from, '\0');
      target += piece->Start - from;
      from = piece->Start;
    }
    const std::int64_t at = from - piece->Start;
    std::int64_t part = std::min(to, piece->Start + piece->Bytes) - from;
    if (piece->SectorBytes != kSectorBytes) {
      part = std::min<std::int64_t>(part, kSectorBytes - at % kSectorBytes);
    }
    Datei& file = *open_.at(piece->File);
    file.Seek(piece->Offset + at / kSectorBytes * piece->SectorBytes + at % kSectorBytes);
    file.Read(target, static_cast<std::size_t>(part));
    if (piece->BigEndian) {
      for (std::int64_t i = 0; i + 1 < part; i += 2) std::swap(target[i], target[i + 1]);
    }
    target += part;
    from += part;
    if (from >= piece->Start + piece->Bytes) ++piece;
  }
}

}  // namespace vantora
