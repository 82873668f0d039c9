#include "backends/sound/files/wave_file.h"

#include "backends/sound/files/wave_header.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>

namespace vantora {

namespace {

// Chunks are padded to an even length.
std::int64_t Even(std::int64_t bytes) {
  return bytes + bytes % 2;
}

void PutSize(Datei& file, std::int64_t place, std::int64_t size) {
  std::array<unsigned char, 4> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<unsigned char>((size >> (8 * i)) & 0xFF);
  }
  file.Seek(place);
  file.Write(bytes.data(), bytes.size());
}

}  // namespace

WaveFile::~WaveFile() {
  try {
    Close();
  } catch (const Laufzeitfehler&) {
    // A destructor cannot report a failed write. Callers that need to know call Close() first.
  }
}

void WaveFile::Open(const Text& file) {
  Close();
  std::unique_ptr<Datei> opened = dateien_.Open(file, Zugriff::Lesen);
  layout_ = ReadWaveLayout(*opened);
  file_ = std::move(opened);
  path_ = file;
  position_ = 0;
}

void WaveFile::Close() {
  if (!file_) return;
  const std::unique_ptr<Datei> last = std::move(file_);
  const bool changed = changed_;
  writable_ = changed_ = false;
  if (changed) BringIntoLine(*last);
}

std::int64_t WaveFile::Samples() const {
  return layout_.FrameBytes == 0 ? 0 : layout_.DataBytes / layout_.FrameBytes;
}

void WaveFile::SetPosition(std::int64_t bytes) {
  if (bytes < 0) throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"Posición no válida");
  position_ = std::min(bytes, kMaxWaveFileBytes);  // the maximum length of a wave file
}

std::size_t WaveFile::Read(void* target, std::size_t bytes) {
  const std::size_t wanted = Seek(bytes);
  const std::size_t got = wanted == 0 ? 0 : file_->ReadSome(target, wanted);
  position_ += static_cast<std::int64_t>(got);
  return got;
}

std::size_t WaveFile::CopyTo(Datei& target, std::size_t bytes) {
  const std::size_t wanted = Seek(bytes);
  const std::size_t got = wanted == 0 ? 0 : file_->CopyTo(target, wanted);
  position_ += static_cast<std::int64_t>(got);
  return got;
}

std::size_t WaveFile::Seek(std::size_t bytes) {
  Datei& file = File();
  const std::int64_t left = std::max<std::int64_t>(layout_.DataBytes - position_, 0);
  const std::size_t there = std::min(bytes, static_cast<std::size_t>(left));
  if (there > 0) file.Seek(layout_.DataOffset + position_);
  return there;
}

void WaveFile::Write(const void* source, std::size_t bytes) {
  if (bytes == 0) return;
  const std::int64_t end = position_ + static_cast<std::int64_t>(bytes);
  MakeWritable();
  if (end > layout_.DataBytes && layout_.TailBytes > 0) {
    throw Laufzeitfehler(kFehlerZugriff, L"Detrás del sonido hay otros datos");
  }
  if (layout_.DataOffset + Even(end) > kMaxWaveFileBytes) {
    throw Laufzeitfehler(kFehlerPlattenVoll, L"El archivo de sonido es demasiado largo");
  }
  file_->Seek(layout_.DataOffset + position_);
  file_->Write(source, bytes);
  position_ = end;
  layout_.DataBytes = std::max(layout_.DataBytes, end);
}

void WaveFile::Save() {
  Datei& file = File();
  if (!changed_) return;
  SaveHeader();
  file.Flush();
}

void WaveFile::SaveHeader() {
  Datei& file = File();
  if (!changed_) return;
  BringIntoLine(file);
  changed_ = false;
}

Datei& WaveFile::File() {
  if (!file_) throw Laufzeitfehler(kFehlerDateiNummer, L"El archivo no está abierto");
  return *file_;
}

void WaveFile::MakeWritable() {
  File();
  if (!writable_) {
    // A file with another length is not the one whose header was read, so it is not changed.
    if (dateien_.FileLen(path_) != layout_.TailOffset + layout_.TailBytes) {
      throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo ha cambiado");
    }
    file_ = dateien_.Open(path_, Zugriff::Binaer);
    writable_ = true;
  }
  changed_ = true;
}

// Writes the correct sizes to the header. Removes bytes that a failed write has left after the
// sound.
void WaveFile::BringIntoLine(Datei& file) {
  const std::int64_t dataEnd = layout_.DataOffset + layout_.DataBytes;
  const std::int64_t end = layout_.DataOffset + Even(layout_.DataBytes);
  if (layout_.TailBytes == 0) {
    if (end != dataEnd) {
      file.Seek(dataEnd);
      file.Write("", 1);
    }
    layout_.TailOffset = end;
    if (file.Length() != end) file.Truncate(end);
  }
  PutSize(file, 4, layout_.TailOffset + layout_.TailBytes - 8);
  PutSize(file, layout_.DataOffset - 4, layout_.DataBytes);
}

}  // namespace vantora
