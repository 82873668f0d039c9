#include "backends/headless/headless_images.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace vantora {

namespace {

using Bytes = std::vector<unsigned char>;

struct Measures {
  int Width = 0, Height = 0;
};

class Measured final : public Image {
 public:
  explicit Measured(Measures measures) : measures_(measures) {}
  int Width() const override { return measures_.Width; }
  int Height() const override { return measures_.Height; }

 private:
  Measures measures_;
};

int Big16(const Bytes& bytes, std::size_t at) {
  return bytes[at] << 8 | bytes[at + 1];
}
int Little16(const Bytes& bytes, std::size_t at) {
  return bytes[at + 1] << 8 | bytes[at];
}
int Little32(const Bytes& bytes, std::size_t at) {
  return static_cast<int>(static_cast<unsigned>(Little16(bytes, at)) |
                          static_cast<unsigned>(Little16(bytes, at + 2)) << 16U);
}
bool StartsWith(const Bytes& bytes, std::size_t at, std::string_view words) {
  return at + words.size() <= bytes.size() &&
         std::equal(words.begin(), words.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at),
                    [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

// Returns true if the camera was held on its side. The orientation is then 5 to 8. It stands in the
// first directory of the segment of a jpg that begins at `start`.
bool OnItsSide(const Bytes& bytes, std::size_t start, std::size_t end) {
  constexpr std::size_t kEntryBytes = 12;
  constexpr int kOrientation = 0x112, kFirstSideways = 5;
  const std::size_t tiff = start + 6;
  if (!StartsWith(bytes, start, std::string_view("Exif\0\0", 6)) || tiff + 8 > end) return false;
  const bool little = bytes[tiff] == 'I';
  const auto two = [&](std::size_t at) { return little ? Little16(bytes, at) : Big16(bytes, at); };
  const std::size_t list = tiff + static_cast<std::size_t>(two(tiff + (little ? 4 : 6)));
  if (list + 2 > end) return false;
  const auto count = static_cast<std::size_t>(two(list));
  for (std::size_t i = 0; i < count && list + 2 + (i + 1) * kEntryBytes <= end; ++i) {
    const std::size_t entry = list + 2 + i * kEntryBytes;
    if (two(entry) == kOrientation) return two(entry + 8) >= kFirstSideways;
  }
  return false;
}

std::optional<Measures> OfJpg(const Bytes& bytes) {
  constexpr int kExif = 0xE1, kFirstFrame = 0xC0, kLastFrame = 0xCF;
  bool sideways = false;
  for (std::size_t at = 2; at + 9 < bytes.size() && bytes[at] == 0xFF;) {
    const int marker = bytes[at + 1];
    const auto length = static_cast<std::size_t>(Big16(bytes, at + 2));
    const std::size_t end = std::min(at + 2 + length, bytes.size());
    if (marker == kExif) sideways = sideways || OnItsSide(bytes, at + 4, end);
    // Three of these markers begin tables and no frames.
    if (marker >= kFirstFrame && marker <= kLastFrame && marker != 0xC4 && marker != 0xC8 &&
        marker != 0xCC) {
      Measures found{Big16(bytes, at + 7), Big16(bytes, at + 5)};
      if (sideways) std::swap(found.Width, found.Height);
      return found;
    }
    at += 2 + length;
  }
  return std::nullopt;
}

std::optional<Measures> MeasuresOf(const Bytes& bytes) {
  constexpr std::size_t kLeast = 26;
  if (bytes.size() < kLeast) return std::nullopt;
  if (bytes[0] == 0xFF && bytes[1] == 0xD8) return OfJpg(bytes);
  if (StartsWith(bytes, 0, "GIF8")) return Measures{Little16(bytes, 6), Little16(bytes, 8)};
  // A bitmap with a negative height is stored with its top row first.
  if (StartsWith(bytes, 0, "BM")) {
    const int height = Little32(bytes, 22);
    return Measures{Little32(bytes, 18), height < 0 ? -height : height};
  }
  return std::nullopt;
}

}  // namespace

Bild HeadlessImages::Load(const Text& file) {
  const std::unique_ptr<Datei> open = files_.Open(file, Zugriff::Lesen);
  Bytes bytes(static_cast<std::size_t>(open->Length()));
  bytes.resize(open->ReadSome(bytes.data(), bytes.size()));
  const std::optional<Measures> measures = MeasuresOf(bytes);
  if (!measures || measures->Width < 1 || measures->Height < 1) {
    throw Laufzeitfehler(kFehlerBild, L"La imagen no es válida");
  }
  const bool jpg = bytes[0] == 0xFF;
  if (1LL * measures->Width * measures->Height > (jpg ? kMaxImagePoints : kMaxWholePoints)) {
    throw Laufzeitfehler(kFehlerSpeicher, L"La imagen es demasiado grande");
  }
  return std::make_shared<const Measured>(*measures);
}

}  // namespace vantora
