#include "backends/sound/wave_file.h"

#include "backends/sound/wave_header.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vantora {

namespace {

constexpr std::int64_t kBlock = 1 << 20;

// Sound is followed by a byte that makes its length even.
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

void CopyBlock(Datei& file, std::vector<char>& block, std::int64_t from, std::int64_t to,
               std::int64_t bytes) {
  block.resize(static_cast<std::size_t>(bytes));
  file.Seek(from);
  file.Read(block.data(), block.size());
  file.Seek(to);
  file.Write(block.data(), block.size());
}

}  // namespace

WaveFile::~WaveFile() {
  try {
    Close();
  } catch (const Laufzeitfehler&) {
    // Whoever must know calls Close himself.
  }
}

void WaveFile::Open(const Text& file) {
  Close();
  std::unique_ptr<Datei> opened = dateien_.Open(file, Zugriff::Lesen);
  layout_ = ReadWaveLayout(*opened);
  file_ = std::move(opened);
  path_ = file;
  position_ = 0;
  shift_ = 0;
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
  position_ = std::min(bytes, kMaxWaveFileBytes);  // no file reaches further
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
  BeginWriting(end);
  file_->Write(source, bytes);
  position_ = end;
  layout_.DataBytes = std::max(layout_.DataBytes, end);
}

std::size_t WaveFile::WriteFrom(WaveFile& source, std::size_t bytes) {
  const std::size_t wanted = source.Seek(bytes);
  if (wanted == 0) return 0;
  BeginWriting(position_ + static_cast<std::int64_t>(wanted));
  const std::size_t got = source.CopyTo(*file_, wanted);
  position_ += static_cast<std::int64_t>(got);
  layout_.DataBytes = std::max(layout_.DataBytes, position_);
  return got;
}

void WaveFile::BeginWriting(std::int64_t end) {
  MakeWritable();
  MakeRoom(end);
  if (position_ > layout_.DataBytes) FillWithSilence(position_);
  file_->Seek(layout_.DataOffset + position_);
}

void WaveFile::SetLength(std::int64_t frames) {
  if (frames < 0) throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"Longitud no válida");
  MakeWritable();
  if (frames > kMaxWaveFileBytes) RaiseTooLong();
  const std::int64_t bytes = frames * layout_.FrameBytes;
  if (bytes > layout_.DataBytes) {
    MakeRoom(bytes);
    FillWithSilence(bytes);
  }
  layout_.DataBytes = bytes;
}

void WaveFile::Save() {
  Datei& file = File();
  if (!changed_) return;
  BringIntoLine(file);
  file.Flush();
  changed_ = false;
}

Datei& WaveFile::File() {
  if (!file_) throw Laufzeitfehler(kFehlerDateiNummer, L"El archivo no está abierto");
  return *file_;
}

void WaveFile::MakeWritable() {
  File();
  if (!writable_) {
    // The file must be the one whose header was read: nothing is made anew, nothing was changed.
    if (dateien_.FileLen(path_) != layout_.TailOffset + layout_.TailBytes) {
      throw Laufzeitfehler(kFehlerEinAusgabe, L"El archivo ha cambiado");
    }
    file_ = dateien_.Open(path_, Zugriff::Binaer);
    writable_ = true;
  }
  changed_ = true;
}

void WaveFile::RaiseTooLong() {
  throw Laufzeitfehler(kFehlerPlattenVoll, L"El archivo de sonido es demasiado largo");
}

void WaveFile::MakeRoom(std::int64_t dataBytes) {
  const std::int64_t end = layout_.DataOffset + Even(dataBytes);
  if (end + layout_.TailBytes > kMaxWaveFileBytes) RaiseTooLong();
  if (layout_.TailBytes == 0 || end <= layout_.TailOffset) return;
  const std::int64_t needed = end - layout_.TailOffset;
  if (layout_.TailBytes <= kBlock) {
    MoveSmallTailUp(needed);
    return;
  }
  // A long tail moves on by more than is needed, and by twice as much each time, so that sound that
  // comes piece by piece does not push it along with every piece.
  const std::int64_t shift = (std::max(needed, shift_) + kBlock - 1) / kBlock * kBlock;
  shift_ = std::min(shift * 2, 64 * kBlock);
  MoveLongTailUp(shift);
}

void WaveFile::MoveSmallTailUp(std::int64_t shift) {
  std::vector<char> tail(static_cast<std::size_t>(layout_.TailBytes));
  file_->Seek(layout_.TailOffset);
  file_->Read(tail.data(), tail.size());
  try {
    file_->Seek(layout_.TailOffset + shift);
    file_->Write(tail.data(), tail.size());
  } catch (const Laufzeitfehler&) {
    file_->Truncate(layout_.TailOffset + layout_.TailBytes);
    file_->Seek(layout_.TailOffset);
    file_->Write(tail.data(), tail.size());
    throw;
  }
  layout_.TailOffset += shift;
}

// By a multiple of the block: so every block is written either behind the old end of the file, or
// where all bytes have been copied already. A full disk shows while the file grows, and then the
// old tail is still whole.
void WaveFile::MoveLongTailUp(std::int64_t shift) {
  const std::int64_t oldEnd = layout_.TailOffset + layout_.TailBytes;
  std::vector<char> block;
  try {
    for (std::int64_t end = oldEnd; end > layout_.TailOffset;) {
      const std::int64_t start = std::max(end - kBlock, layout_.TailOffset);
      CopyBlock(*file_, block, start, start + shift, end - start);
      end = start;
    }
  } catch (const Laufzeitfehler&) {
    file_->Truncate(oldEnd);
    throw;
  }
  layout_.TailOffset += shift;
}

void WaveFile::FillWithSilence(std::int64_t to) {
  // Eight bits count from the middle of their range.
  const std::vector<char> silence(static_cast<std::size_t>(kBlock),
                                  layout_.BitsPerSample <= 8 ? '\x80' : '\0');
  file_->Seek(layout_.DataOffset + layout_.DataBytes);
  while (layout_.DataBytes < to) {
    const std::int64_t bytes = std::min(kBlock, to - layout_.DataBytes);
    file_->Write(silence.data(), static_cast<std::size_t>(bytes));
    layout_.DataBytes += bytes;
  }
}

// Closes the gap between sound and tail, and makes the sizes in the header true.
void WaveFile::BringIntoLine(Datei& file) {
  const std::int64_t dataEnd = layout_.DataOffset + layout_.DataBytes;
  const std::int64_t end = layout_.DataOffset + Even(layout_.DataBytes);
  if (end != dataEnd) {
    file.Seek(dataEnd);
    file.Write("", 1);
  }
  if (layout_.TailOffset > end) {
    std::vector<char> block;
    for (std::int64_t moved = 0; moved < layout_.TailBytes;) {
      const std::int64_t bytes = std::min(kBlock, layout_.TailBytes - moved);
      CopyBlock(file, block, layout_.TailOffset + moved, end + moved, bytes);
      moved += bytes;
    }
  }
  layout_.TailOffset = end;
  const std::int64_t length = end + layout_.TailBytes;
  if (file.Length() != length) file.Truncate(length);
  PutSize(file, 4, length - 8);
  PutSize(file, layout_.DataOffset - 4, layout_.DataBytes);
}

}  // namespace vantora
