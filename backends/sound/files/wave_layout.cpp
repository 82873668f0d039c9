#include "backends/sound/files/wave_layout.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace vantora {

namespace {

// A file with more chunks than this is not a real wave file.
constexpr int kMaxChunks = 1000;
constexpr std::int64_t kChunkHead = 8;
constexpr unsigned kPcm = 1, kExtensible = 0xFFFE;

[[noreturn]] void RaiseNoWave() {
  throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo no tiene un formato de sonido conocido");
}

template <std::size_t N>
unsigned Number(const std::array<unsigned char, N>& bytes, std::size_t place, std::size_t count) {
  unsigned value = 0;
  for (std::size_t i = 0; i < count; ++i) value |= unsigned{bytes[place + i]} << (8 * i);
  return value;
}

template <std::size_t N>
bool Has(const std::array<unsigned char, N>& bytes, std::size_t place, std::string_view tag) {
  return std::memcmp(bytes.data() + place, tag.data(), tag.size()) == 0;
}

void ReadFormat(Datei& file, std::int64_t size, WaveLayout& layout) {
  std::array<unsigned char, 26> format{};  // up to the sub-format of an extensible format
  const std::size_t wanted = static_cast<std::size_t>(std::min<std::int64_t>(size, 26));
  if (wanted < 16 || file.ReadSome(format.data(), wanted) != wanted) RaiseNoWave();
  unsigned tag = Number(format, 0, 2);
  if (tag == kExtensible && wanted == 26) tag = Number(format, 24, 2);
  layout.Channels = static_cast<int>(Number(format, 2, 2));
  layout.BitsPerSample = static_cast<int>(Number(format, 14, 2));
  const unsigned rate = Number(format, 4, 4);
  const bool sound = layout.Channels >= 1 && layout.Channels <= 64 && layout.BitsPerSample >= 1 &&
                     layout.BitsPerSample <= 64 && rate >= 1 && rate <= 10'000'000;
  if (tag != kPcm || !sound) RaiseNoWave();
  layout.SampleRate = static_cast<int>(rate);
  layout.FrameBytes = layout.Channels * ((layout.BitsPerSample + 7) / 8);
}

bool NeededChunkAt(Datei& file, std::int64_t place) {
  std::array<unsigned char, 4> name{};
  file.Seek(place);
  if (file.ReadSome(name.data(), name.size()) != name.size()) return false;
  return Has(name, 0, "data") || Has(name, 0, "fmt ");
}

// True when `place` has a name of letters and a size that fits into the file.
bool LikelyChunkAt(Datei& file, std::int64_t place) {
  std::array<unsigned char, kChunkHead> head{};
  file.Seek(place);
  if (file.ReadSome(head.data(), head.size()) != head.size()) return false;
  const bool letters = std::all_of(head.begin(), head.begin() + 4,
                                   [](unsigned char c) { return c >= ' ' && c <= '~'; });
  return letters && Number(head, 4, 4) <= file.Length() - place - kChunkHead;
}

// The end of a chunk. Chunks of odd length should be padded by one byte, but not every program does
// so.
std::int64_t BehindChunk(Datei& file, std::int64_t place, std::int64_t size) {
  const std::int64_t end = place + size;
  const bool unfilled = size % 2 == 0 || NeededChunkAt(file, end) ||
                        (LikelyChunkAt(file, end) && !LikelyChunkAt(file, end + 1));
  return std::min(unfilled ? end : end + 1, file.Length());
}

}  // namespace

WaveLayout ReadWaveLayout(Datei& file) {
  const std::int64_t length = file.Length();
  std::array<unsigned char, 12> start{};
  file.Seek(0);
  if (file.ReadSome(start.data(), start.size()) != start.size() || !Has(start, 0, "RIFF") ||
      !Has(start, 8, "WAVE")) {
    RaiseNoWave();
  }
  WaveLayout layout;
  std::int64_t place = 12;
  for (int chunk = 0; chunk < kMaxChunks && place + kChunkHead <= length; ++chunk) {
    std::array<unsigned char, kChunkHead> head{};
    file.Seek(place);
    if (file.ReadSome(head.data(), head.size()) != head.size()) break;
    place += kChunkHead;
    const std::int64_t size = std::min<std::int64_t>(Number(head, 4, 4), length - place);
    if (Has(head, 0, "fmt ") && layout.FrameBytes == 0) ReadFormat(file, size, layout);
    if (Has(head, 0, "data") && layout.DataOffset == 0) {
      layout.DataOffset = place;
      layout.DataBytes = size;
      layout.TailOffset = BehindChunk(file, place, size);
      layout.TailBytes = length - layout.TailOffset;
    }
    if (layout.FrameBytes != 0 && layout.DataOffset != 0) return layout;
    place = BehindChunk(file, place, size);
  }
  RaiseNoWave();
}

}  // namespace vantora
