#include "robot/made_files.h"

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vantora {

namespace {

constexpr int kHeaderBytes = 44;
constexpr double kVolume = 0.5;
constexpr double kRightOfLeft = 1.5;  // ratio of the frequencies

void Append(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
}

std::string Header(const SineWave& wave, std::uint32_t dataBytes) {
  const auto bits = static_cast<std::uint32_t>(wave.Bits);
  const auto channels = static_cast<std::uint32_t>(wave.Channels);
  const auto rate = static_cast<std::uint32_t>(wave.Rate);
  const std::uint32_t frameBytes = channels * bits / 8;
  std::string bytes = "RIFF";
  Append(bytes, dataBytes + kHeaderBytes - 8, 4);
  bytes += "WAVEfmt ";
  Append(bytes, 16, 4);
  Append(bytes, 1, 2);  // PCM
  Append(bytes, channels, 2);
  Append(bytes, rate, 4);
  Append(bytes, rate * frameBytes, 4);
  Append(bytes, frameBytes, 2);
  Append(bytes, bits, 2);
  bytes += "data";
  Append(bytes, dataBytes, 4);
  return bytes;
}

void AppendSample(std::string& bytes, const SineWave& wave, std::int64_t frame, int channel) {
  const double hertz = channel == 0 ? wave.Hertz : wave.Hertz * kRightOfLeft;
  const double angle = 2 * std::numbers::pi * hertz * static_cast<double>(frame) / wave.Rate;
  const double level = kVolume * std::sin(angle);
  if (wave.Bits == 8) {
    Append(bytes, static_cast<std::uint32_t>(std::lround(128 + 127 * level)), 1);
  } else {
    Append(bytes, static_cast<std::uint32_t>(std::lround(32767 * level)), 2);
  }
}

// Runs a program from the search path without input; returns its exit code.
int RunProgram(std::vector<std::string> words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t child = 0;
  const int refused =
      posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ);
  if (refused != 0) {
    throw std::runtime_error("an MP3 file was to be made by " + words.front() +
                             ", that program is not installed");
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

}  // namespace

void WriteSineWave(const std::string& file, const SineWave& wave) {
  const std::int64_t frames = std::int64_t{wave.Ms} * wave.Rate / 1000;
  const std::int64_t dataBytes = frames * wave.Channels * wave.Bits / 8;
  if (dataBytes > 0xFFFF'FF00LL) {
    throw std::runtime_error("a wave file was to be made, so long a one cannot be");
  }
  std::string bytes = Header(wave, static_cast<std::uint32_t>(dataBytes));
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  for (std::int64_t frame = 0; frame < frames; ++frame) {
    for (int channel = 0; channel < wave.Channels; ++channel) {
      AppendSample(bytes, wave, frame, channel);
    }
    if (bytes.size() < 1U << 16U) continue;
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.clear();
  }
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) throw std::runtime_error(file + " was to be written, that failed");
}

void WriteBmp(const std::string& file, int width, int height) {
  constexpr std::uint32_t kHead = 54;
  const int fill = (4 - width * 3 % 4) % 4;  // a row has a multiple of 4 bytes
  const auto rows =
      static_cast<std::uint32_t>(width * 3 + fill) * static_cast<std::uint32_t>(height);
  std::string bytes = "BM";
  for (const std::uint32_t word : {kHead + rows, 0U, kHead, 40U, static_cast<std::uint32_t>(width),
                                   static_cast<std::uint32_t>(height)}) {
    Append(bytes, word, 4);
  }
  Append(bytes, 1, 2);   // plane
  Append(bytes, 24, 2);  // bits
  for (const std::uint32_t word : {0U, rows, 2835U, 2835U, 0U, 0U}) Append(bytes, word, 4);
  for (int y = height - 1; y >= 0; --y) {
    for (int x = 0; x < width; ++x) {
      Append(bytes, 150, 1);
      Append(bytes, static_cast<std::uint32_t>(255 * y / height), 1);
      Append(bytes, static_cast<std::uint32_t>(255 * x / width), 1);
    }
    Append(bytes, 0, fill);
  }
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + file);
}

void WriteSineMp3(const std::string& file, const SineWave& wave) {
  const std::string source = file + ".wav-for-lame";
  WriteSineWave(source, wave);
  int code = -1;
  try {
    code = RunProgram({"lame", "--silent", "-b", "128", source, file});
  } catch (...) {
    std::filesystem::remove(source);
    throw;
  }
  std::filesystem::remove(source);
  if (code != 0) {
    throw std::runtime_error(file + " was to be made, lame gave up with code " +
                             std::to_string(code));
  }
}

}  // namespace vantora
