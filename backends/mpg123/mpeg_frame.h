// One frame of MPEG audio, as far as it can be judged without decoding it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vantora {

struct FrameHeader {
  std::uint32_t kind = 0;  // version, layer and rate: the same in all frames of a stream
  std::int64_t bytes = 0;  // 0 in a stream of free format, which has its own bitrate
  bool first = false;      // MPEG 1, which has two granules in a frame; the others have one
  int channels = 2;
  bool checksum = false;     // two bytes of it follow the header
  std::size_t sideInfo = 0;  // bytes of it follow header and checksum; 0 in the layers I and II
};

// The bytes that the functions below look at, from the frame's start.
constexpr std::size_t kHeaderOfFrame = 4;
constexpr std::size_t kHeadOfFrame = kHeaderOfFrame + 2 + 32;

std::optional<FrameHeader> ParseHeader(const unsigned char* frame);

// Layer III. The sound of a frame begins in what the frames before it have left free, and ends in
// the frame's own room at the latest.
struct SideInfo {
  std::int64_t back = 0;  // bytes that the sound lies in front of the frame's own room
  std::int64_t used = 0;  // bytes of the sound, begun ones too
  bool possible = true;   // false: it holds numbers that no encoder may write
};
SideInfo ParseSideInfo(const FrameHeader& header, const unsigned char* frame);

// True as well for a frame that has none. The checksum protects header and side information only.
bool ChecksumFits(const FrameHeader& header, const unsigned char* frame);

}  // namespace vantora
