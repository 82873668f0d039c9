// Sound files and pictures that a script asks for.
#pragma once

#include <string>

namespace vantora {

// A sine on the left and one half as high again on the right, at half of full volume.
struct SineWave {
  int Ms = 0;
  int Hertz = 440;  // left
  int Rate = 44100;
  int Bits = 16;  // 8 or 16
  int Channels = 2;
};

// A header of 44 bytes and the samples. Raises std::runtime_error.
void WriteSineWave(const std::string& file, const SineWave& wave);
// The same sound as an MP3 file of 128 kbit/s, made by the program `lame`.
void WriteSineMp3(const std::string& file, const SineWave& wave);

// A picture without compression: red grows to the right, green downwards, over a blue ground.
void WriteBmp(const std::string& file, int width, int height);

}  // namespace vantora
