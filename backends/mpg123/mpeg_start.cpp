#include "backends/mpg123/mpeg_start.h"

#include <array>
#include <cstring>
#include <vector>

namespace vantora {

namespace {

constexpr std::size_t kGarbage = 65536;    // bytes that may lie in front of the first frame
constexpr std::size_t kLookAhead = 16384;  // room for the frames that prove a start
constexpr int kProof = 4;                  // frames in a row

struct FrameHeader {
  std::uint32_t kind = 0;  // version, layer and rate: the same in all frames of a stream
  std::size_t bytes = 0;   // 0 in a stream of free format, which has its own bitrate
};

std::optional<FrameHeader> ParseHeader(const unsigned char* b) {
  static constexpr std::array<std::array<int, 15>, 5> kBitrates{{
      {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},  // 1, layer I
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},     // 1, layer II
      {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},      // 1, layer III
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},     // 2, layer I
      {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},          // 2, II and III
  }};
  static constexpr std::array<int, 3> kRates{44100, 48000, 32000};

  if (b[0] != 0xFF || (b[1] & 0xE0) != 0xE0) return {};
  const int version = (b[1] >> 3) & 3;  // 3: MPEG 1, 2: MPEG 2, 0: MPEG 2.5
  const int layer = 4 - ((b[1] >> 1) & 3);
  const std::size_t bitrate = b[2] >> 4;
  const std::size_t rate = (b[2] >> 2) & 3;
  if (version == 1 || layer == 4 || bitrate == 15 || rate == 3 || (b[3] & 3) == 2) return {};

  FrameHeader header;
  header.kind = static_cast<std::uint32_t>(((b[1] & 0x1E) << 8) | (b[2] & 0x0C));
  const bool first = version == 3;
  const std::size_t table = static_cast<std::size_t>(first ? layer - 1 : layer == 1 ? 3 : 4);
  const int kbit = kBitrates[table][bitrate];
  const int hertz = kRates[rate] / (first ? 1 : version == 2 ? 2 : 4);
  const int padding = (b[2] >> 1) & 1;
  const int size = layer == 1             ? (12000 * kbit / hertz + padding) * 4
                   : layer == 3 && !first ? 72000 * kbit / hertz + padding
                                          : 144000 * kbit / hertz + padding;
  header.bytes = kbit == 0 ? 0 : static_cast<std::size_t>(size);
  return header;
}

bool IsTag(const unsigned char* b) {
  return std::memcmp(b, "TAG", 3) == 0 || std::memcmp(b, "ID3", 3) == 0 ||
         std::memcmp(b, "APE", 3) == 0 || std::memcmp(b, "LYR", 3) == 0;
}

// `rest` is true when `data` reaches to the end of the file.
bool FramesFollow(const std::vector<unsigned char>& data, std::size_t at, bool rest) {
  std::uint32_t kind = 0;
  for (int count = 0; count < kProof; ++count) {
    if (at + 4 > data.size()) return rest && count > 1;
    if (count > 0 && IsTag(&data[at])) return true;
    const auto header = ParseHeader(&data[at]);
    if (!header || header->bytes == 0 || (count > 0 && header->kind != kind)) return false;
    kind = header->kind;
    at += header->bytes;
  }
  return true;
}

std::int64_t BehindTags(Datei& file) {
  std::int64_t at = 0;
  for (;;) {
    std::array<unsigned char, 10> tag{};
    file.Seek(at);
    if (file.ReadSome(tag.data(), tag.size()) < tag.size()) return at;
    if (std::memcmp(tag.data(), "ID3", 3) != 0 || tag[3] == 0xFF || tag[4] == 0xFF) return at;
    std::int64_t size = 0;
    for (std::size_t i = 6; i < 10; ++i) size = size * 128 + (tag[i] & 0x7F);
    const bool footer = (tag[5] & 0x10) != 0;
    if (at + 10 + size > file.Length()) return at;
    at += 10 + size + (footer ? 10 : 0);
  }
}

}  // namespace

std::optional<std::int64_t> FindMpegStart(Datei& file) {
  const std::int64_t base = BehindTags(file);
  file.Seek(base);
  std::vector<unsigned char> data(kGarbage + kLookAhead);
  data.resize(file.ReadSome(data.data(), data.size()));
  const bool rest = base + static_cast<std::int64_t>(data.size()) >= file.Length();
  if (data.size() < 4) return {};

  // A stream of free format gives no sizes to follow, so it has to start right here; the decoder
  // finds out the rest.
  const auto first = ParseHeader(data.data());
  if (first && first->bytes == 0) return base;

  for (std::size_t at = 0; at + 4 <= data.size() && at <= kGarbage; ++at) {
    if (data[at] == 0xFF && FramesFollow(data, at, rest)) {
      return base + static_cast<std::int64_t>(at);
    }
  }
  return {};
}

}  // namespace vantora
