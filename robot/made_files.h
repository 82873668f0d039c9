// Sound files and pictures that a script asks for.
#pragma once

#include <string>

namespace vantora {

// A sine on the left, and one of 1.5 times its frequency on the right, at half of full volume.
struct SineWave {
  int Ms = 0;
  int Hertz = 440;  // frequency of the left channel
  int Rate = 44100;
  int Bits = 16;  // 8 or 16
  int Channels = 2;
};

// Writes a header of 44 bytes and the samples. Raises std::runtime_error.
void WriteSineWave(const std::string& file, const SineWave& wave);
// Writes a sine wave as an MP3 file of 128 kbit/s, encoded by the program `lame`.
void WriteSineMp3(const std::string& file, const SineWave& wave);

// Writes an uncompressed picture: red grows to the right, green grows downwards, blue is constant.
void WriteBmp(const std::string& file, int width, int height);

}  // namespace vantora
