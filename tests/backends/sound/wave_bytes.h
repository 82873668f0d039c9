// Wave files built byte by byte, for tests with wrong headers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace vantora::test {

inline std::string Number(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i)
    text += static_cast<char>(i < 8 ? (value >> (8 * i)) & 0xFFU : 0U);
  return text;
}

inline std::string Chunk(const std::string& tag, const std::string& content) {
  return tag + Number(content.size(), 4) + content +
         (content.size() % 2 == 0 ? "" : std::string(1, '\0'));
}

struct Format {
  int Tag = 1, Channels = 2;
  std::uint32_t Rate = 44100;
  int Bits = 16;

  std::string Bytes() const {
    const auto frame = static_cast<std::uint64_t>(Channels * Bits / 8);
    return Number(static_cast<std::uint64_t>(Tag), 2) +
           Number(static_cast<std::uint64_t>(Channels), 2) + Number(Rate, 4) +
           Number(Rate * frame, 4) + Number(frame, 2) + Number(static_cast<std::uint64_t>(Bits), 2);
  }
};

inline std::string Riff(const std::string& chunks) {
  return "RIFF" + Number(chunks.size() + 4, 4) + "WAVE" + chunks;
}

inline std::string Wave(const std::string& data, const std::string& tail = "", Format format = {}) {
  return Riff(Chunk("fmt ", format.Bytes()) + Chunk("data", data) + tail);
}

// The 16-bit values of a sound, and back.
inline std::vector<std::int16_t> SamplesOf(const std::string& bytes) {
  std::vector<std::int16_t> samples(bytes.size() / 2);
  if (!samples.empty()) std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
  return samples;
}

inline std::string BytesOf(const std::vector<std::int16_t>& samples) {
  std::string bytes(samples.size() * 2, '\0');
  std::memcpy(bytes.data(), samples.data(), bytes.size());
  return bytes;
}

// The sound of a plain wave file; blank when the file is none or its header is false.
inline std::string SoundOf(const std::string& wave) {
  std::string sound = wave.substr(std::min<std::size_t>(wave.size(), 44));
  return wave == Wave(sound) ? sound : std::string();
}

// Bytes that differ from their neighbours, so that every shift is noticed.
inline std::string Noise(std::size_t bytes, std::uint32_t seed = 1) {
  std::string text(bytes, '\0');
  for (char& c : text) {
    seed = seed * 1664525U + 1013904223U;
    c = static_cast<char>(seed >> 24U);
  }
  return text;
}

}  // namespace vantora::test
