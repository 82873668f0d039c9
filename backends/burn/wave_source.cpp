#include "backends/burn/wave_source.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

namespace vantora {

namespace {

constexpr std::int64_t kBlockBytes = 1 << 20;  // 6 seconds of sound

// The data of a source. Files are opened only while they are read, so that a disc of 99 tracks does
// not keep 99 files open.
struct Reader {
  Reader(Dateien& files, const PlannedTrack& track, std::function<void(int, const Text&)> failed)
      : Sound(files, track.Parts),
        Failed(std::move(failed)),
        Size(static_cast<off_t>(track.Sectors * kSectorBytes)) {}

  PartReader Sound;
  std::function<void(int, const Text&)> Failed;
  off_t Size;  // as the library has set it; only returned to it
  std::vector<unsigned char> Block;
  std::size_t Next = 0;  // next byte of the block

  int Read(unsigned char* target, std::size_t wanted);
  bool Refill();
};

int Reader::Read(unsigned char* target, std::size_t wanted) {
  std::size_t given = 0;
  while (given < wanted && (Next < Block.size() || Refill())) {
    const std::size_t part = std::min(wanted - given, Block.size() - Next);
    std::memcpy(target + given, &Block[Next], part);
    given += part;
    Next += part;
  }
  return static_cast<int>(given);
}

bool Reader::Refill() {
  const std::int64_t part = std::min(kBlockBytes, Sound.Left());
  if (part == 0) return false;
  Block.resize(static_cast<std::size_t>(part));
  Sound.Read(reinterpret_cast<char*>(Block.data()), part);
  Next = 0;
  return true;
}

Reader& Of(burn_source* source) {
  return *static_cast<Reader*>(source->data);
}

int ReadFrom(burn_source* source, unsigned char* buffer, int size) {
  Reader& reader = Of(source);
  try {
    return reader.Read(buffer, static_cast<std::size_t>(size));
  } catch (const Laufzeitfehler& fehler) {
    reader.Failed(fehler.Nummer, fehler.Beschreibung);
  } catch (const std::exception&) {
    reader.Failed(kFehlerSpeicher, L"No queda memoria.");
  }
  return -1;
}

}  // namespace

SourceHandle TrackSource(Dateien& files, const PlannedTrack& track,
                         std::function<void(int number, const Text& text)> failed) {
  // The library frees the record with free().
  auto* source = static_cast<burn_source*>(std::calloc(1, sizeof(burn_source)));
  if (source == nullptr) throw std::bad_alloc();
  source->refcount = 1;
  SourceHandle handle(source);
  auto reader = std::make_unique<Reader>(files, track, std::move(failed));
  source->data = reader.release();
  source->free_data = [](burn_source* dead) { delete static_cast<Reader*>(dead->data); };
  source->read = &ReadFrom;
  source->get_size = [](burn_source* asked) { return Of(asked).Size; };
  source->set_size = [](burn_source* asked, off_t size) {
    Of(asked).Size = size;
    return 1;
  };
  return handle;
}

}  // namespace vantora
