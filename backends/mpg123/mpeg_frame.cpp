#include "backends/mpg123/mpeg_frame.h"

#include <algorithm>
#include <array>

namespace vantora {

namespace {

// Reads numbers of a given number of bits in sequence.
class Bits {
 public:
  explicit Bits(const unsigned char* from) : from_(from) {}

  unsigned Take(unsigned count) {
    unsigned value = 0;
    for (; count > 0; --count, ++at_) value = value << 1 | ((from_[at_ / 8] >> (7 - at_ % 8)) & 1U);
    return value;
  }

 private:
  const unsigned char* from_;
  std::size_t at_ = 0;
};

// The side information of one channel in one granule.
struct Granule {
  unsigned bits = 0;
  bool possible = true;
};

Granule TakeGranule(Bits& bits, bool first) {
  constexpr unsigned kMostPairs = 288;
  Granule granule;
  granule.bits = bits.Take(12);
  const unsigned pairs = bits.Take(9);
  bits.Take(8);              // the gain may have any value
  bits.Take(first ? 4 : 9);  // any value, too: the lengths of the scale factors
  std::array<unsigned, 3> tables{};
  bool knownBlock = true;
  std::size_t regions = tables.size();
  if (bits.Take(1) == 1) {
    knownBlock = bits.Take(2) != 0;
    bits.Take(1);
    regions = 2;
    for (std::size_t i = 0; i < regions; ++i) tables[i] = bits.Take(5);
    bits.Take(9);
  } else {
    for (unsigned& table : tables) table = bits.Take(5);
    bits.Take(7);
  }
  bits.Take(first ? 3 : 2);
  const auto known = [](unsigned table) { return table != 4 && table != 14; };
  // With Huffman table 0 values take no bits, with the others at least one bit per pair.
  const bool room =
      std::find(tables.begin(), tables.begin() + regions, 0U) != tables.begin() + regions ||
      pairs <= granule.bits;
  granule.possible =
      pairs <= kMostPairs && knownBlock && room && std::all_of(tables.begin(), tables.end(), known);
  return granule;
}

}  // namespace

std::optional<FrameHeader> ParseHeader(const unsigned char* b) {
  static constexpr std::array<std::array<int, 15>, 5> kBitrates{{
      {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},  // MPEG 1, layer I
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},     // MPEG 1, layer II
      {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},      // MPEG 1, layer III
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},     // MPEG 2, layer I
      {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},          // MPEG 2, II and III
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
  header.bytes = kbit == 0 ? 0 : size;
  header.first = first;
  header.channels = (b[3] & 0xC0) == 0xC0 ? 1 : 2;
  header.checksum = (b[1] & 1) == 0;
  if (layer == 3) {
    header.sideInfo = first ? (header.channels == 1 ? 17 : 32) : (header.channels == 1 ? 9 : 17);
  }
  return header;
}

SideInfo ParseSideInfo(const FrameHeader& header, const unsigned char* frame) {
  Bits bits(frame + kHeaderOfFrame + (header.checksum ? 2 : 0));
  SideInfo info;
  info.back = bits.Take(header.first ? 9 : 8);
  if (header.first) {
    bits.Take(header.channels == 1 ? 5 : 3);
    bits.Take(header.channels == 1 ? 4 : 8);
  } else {
    bits.Take(header.channels == 1 ? 1 : 2);
  }
  std::int64_t used = 0;
  for (int i = 0; i < header.channels * (header.first ? 2 : 1); ++i) {
    const Granule granule = TakeGranule(bits, header.first);
    used += granule.bits;
    info.possible = info.possible && granule.possible;
  }
  info.used = (used + 7) / 8;
  return info;
}

bool ChecksumFits(const FrameHeader& header, const unsigned char* frame) {
  if (!header.checksum || header.sideInfo == 0) return true;
  unsigned sum = 0xFFFF;
  const auto add = [&sum](unsigned byte) {
    sum ^= byte << 8;
    for (int bit = 0; bit < 8; ++bit) sum = ((sum << 1) ^ ((sum & 0x8000) != 0 ? 0x8005U : 0U));
    sum &= 0xFFFF;
  };
  add(frame[2]);
  add(frame[3]);
  for (std::size_t i = 0; i < header.sideInfo; ++i) add(frame[kHeaderOfFrame + 2 + i]);
  return sum == (unsigned{frame[4]} << 8 | frame[5]);
}

}  // namespace vantora
