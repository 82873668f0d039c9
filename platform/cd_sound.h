// The format of an audio CD's sound, which all waves of a catalog have: 44,100 frames a second with
// two channels of 16 bits each, and the disc sectors that hold them.
#pragma once

namespace vantora {

inline constexpr int kSampleRate = 44100;  // Hz
inline constexpr int kChannels = 2;
inline constexpr int kSampleBits = 16;

inline constexpr int kFrameBytes = kChannels * kSampleBits / 8;    // 4
inline constexpr int kBytesPerSecond = kSampleRate * kFrameBytes;  // 176,400

inline constexpr int kSectorsPerSecond = 75;
inline constexpr int kSectorFrames = kSampleRate / kSectorsPerSecond;  // 588
inline constexpr int kSectorBytes = kSectorFrames * kFrameBytes;       // 2352

}  // namespace vantora
