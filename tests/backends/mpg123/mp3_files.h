// MP3 files, made for a test by the distribution's encoder, and things that other programs add to
// them.
#pragma once

#include "tests/backends/linux/home.h"
#include "tests/backends/mpg123/tones.h"
#include "tests/backends/sound/wave_bytes.h"

namespace vantora::test {

inline bool EncoderIsThere() {
  static const bool there = std::system("lame --version >/dev/null 2>&1") == 0;
  return there;
}

// Encodes the data of a 16-bit wave at its own rate. `options` are those of the encoder's command.
inline std::string Encoded(const std::string& data, Format format, const std::string& options) {
  const TempFolder folder;
  Put(folder() / "a.wav", Wave(data, "", format));
  const std::string command = "cd " + folder().string() + " && lame --quiet --resample " +
                              std::to_string(format.Rate / 1000.0) + " " + options + " a.wav a.mp3";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  return Get(folder() / "a.mp3");
}

// A file as decoded by the encoder's program: samples at the file's rate, interleaved if stereo.
// Distributions build that program with the same library as ours. The comparison therefore shows
// whether sound is added, lost or moved, not how well the library decodes.
inline std::vector<std::int16_t> DecodedByOthers(const std::string& mp3) {
  const TempFolder folder;
  Put(folder() / "a.mp3", mp3);
  const std::string command =
      "cd " + folder().string() + " && lame --quiet --decode a.mp3 a.wav 2>/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
  const std::string wave = Get(folder() / "a.wav");
  return SamplesOf(wave.substr(std::min<std::size_t>(wave.size(), 44)));
}

// A tag with a picture of `bytes` bytes that is full of false frame marks.
inline std::string Id3Picture(std::size_t bytes) {
  std::string picture = Noise(bytes, 77);
  for (std::size_t i = 10; i + 4 < bytes; i += 997) picture.replace(i, 4, "\xFF\xFB\x90\x64");
  std::string size;
  for (int shift = 21; shift >= 0; shift -= 7) size += static_cast<char>((bytes >> shift) & 0x7F);
  return std::string("ID3\x03\x00\x00", 6) + size + picture;
}

inline std::string Id3v1() {
  std::string tag = "TAGAzul oscuro";
  tag.resize(128, ' ');
  return tag;
}

}  // namespace vantora::test
