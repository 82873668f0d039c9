#include "backends/sound/files/wave_header.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <string_view>

namespace vantora {

namespace {

void Put(WaveHeader& header, std::size_t place, std::string_view tag) {
  std::copy(tag.begin(), tag.end(), header.begin() + static_cast<std::ptrdiff_t>(place));
}

void Put(WaveHeader& header, std::size_t place, std::uint32_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) {
    header[place + i] = static_cast<unsigned char>((value >> (8 * i)) & 0xFFU);
  }
}

}  // namespace

WaveHeader MakeWaveHeader(std::int64_t dataBytes) {
  if (dataBytes < 0) throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"Longitud no válida");
  if (dataBytes > kMaxWaveFileBytes - kWaveHeaderBytes) {
    throw Laufzeitfehler(kFehlerPlattenVoll, L"El archivo de sonido es demasiado largo");
  }
  const auto size = static_cast<std::uint32_t>(dataBytes);
  WaveHeader header{};
  Put(header, 0, "RIFF");
  Put(header, 4, size + (size & 1U) + static_cast<std::uint32_t>(kWaveHeaderBytes) - 8, 4);
  Put(header, 8, "WAVEfmt ");
  Put(header, 16, 16, 4);  // size of the format fields that follow
  Put(header, 20, 1, 2);   // PCM
  Put(header, 22, kChannels, 2);
  Put(header, 24, kSampleRate, 4);
  Put(header, 28, kSampleRate * kFrameBytes, 4);
  Put(header, 32, kFrameBytes, 2);
  Put(header, 34, kSampleBits, 2);
  Put(header, 36, "data");
  Put(header, 40, size, 4);
  return header;
}

void WriteWaveHeader(Datei& file, std::int64_t dataBytes) {
  const WaveHeader header = MakeWaveHeader(dataBytes);
  file.Seek(0);
  file.Write(header.data(), header.size());
}

}  // namespace vantora
