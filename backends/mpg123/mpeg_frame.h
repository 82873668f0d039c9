// Parses the header and the side information of one MPEG audio frame, without decoding the sound.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vantora {

struct FrameHeader {
  std::uint32_t kind = 0;  // version, layer and rate, equal in all frames of a stream
  std::int64_t bytes = 0;  // 0 in a free-format stream, whose bitrate is not in the header
  bool first = false;      // MPEG 1, which has two granules in a frame; the other versions have one
  int channels = 2;
  bool checksum = false;     // two bytes of checksum follow the header
  std::size_t sideInfo = 0;  // bytes after header and checksum; 0 in layers I and II
};

// Number of bytes that the functions below read from the start of a frame.
constexpr std::size_t kHeaderOfFrame = 4;
constexpr std::size_t kHeadOfFrame = kHeaderOfFrame + 2 + 32;

std::optional<FrameHeader> ParseHeader(const unsigned char* frame);

// Layer III. The sound of a frame may begin in space that earlier frames left free, and ends in the
// frame itself at the latest.
struct SideInfo {
  std::int64_t back = 0;  // bytes of the sound in front of the frame's own data
  std::int64_t used = 0;  // bytes of the sound, rounded up
  bool possible = true;   // false: a field has a value that encoders must not write
};
SideInfo ParseSideInfo(const FrameHeader& header, const unsigned char* frame);

// Also true for a frame without a checksum. The checksum protects header and side information only.
bool ChecksumFits(const FrameHeader& header, const unsigned char* frame);

}  // namespace vantora
