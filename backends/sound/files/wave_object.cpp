#include "backends/sound/files/wave_object.h"

#include "backends/sound/files/wave_header.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace vantora {

namespace {

constexpr std::int64_t kMostAhead = 1 << 20;
constexpr std::size_t kCollected = 32 * kBufferBytes;  // 0.74 seconds
constexpr std::int64_t kMostBytes = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void RaiseOverflow() {
  throw Laufzeitfehler(kFehlerUeberlauf, L"Desbordamiento");
}

[[noreturn]] void RaiseClosed() {
  throw Laufzeitfehler(kFehlerDateiNummer, L"El archivo no está abierto");
}

}  // namespace

WaveObject::~WaveObject() {
  try {
    WaveObject::Close();
  } catch (const Laufzeitfehler&) {
    // Callers that need to know call Close themselves.
  }
}

void WaveObject::SetFileName(const Text& file) {
  Close();
  file_ = file;
}

void WaveObject::Open() {
  Close();
  position_ = cursor_ = 0;
  if (!FileMustExist && IsMissing()) {
    state_ = State::Missing;
    return;
  }
  wave_.Open(file_);
  state_ = State::Open;
}

bool WaveObject::IsMissing() {
  try {
    return dateien_.FileLen(file_) == 0 && !dateien_.IsDirectory(file_);
  } catch (const Laufzeitfehler& fehler) {
    if (fehler.Nummer == kFehlerDateiFehlt || fehler.Nummer == kFehlerPfadFehlt) return true;
    throw;
  }
}

void WaveObject::Close() {
  state_ = State::Closed;
  aheadBytes_ = 0;
  try {
    WriteCollected();
  } catch (const Laufzeitfehler&) {
    wave_.Close();
    throw;
  }
  wave_.Close();
}

std::int64_t WaveObject::DataBytes() const {
  if (state_ != State::Open) return 0;
  return wave_.DataBytes() + static_cast<std::int64_t>(collected_.size());
}

std::int32_t WaveObject::InUnits(std::int64_t bytes) const {
  const std::int64_t units = bytes / UnitBytes();
  if (units > kMostBytes) RaiseOverflow();
  return static_cast<std::int32_t>(units);
}

std::int32_t WaveObject::DataSize() const {
  return InUnits(DataBytes());
}

std::int32_t WaveObject::Position() const {
  return InUnits(position_);
}

void WaveObject::SetPosition(std::int32_t position) {
  if (position < 0) throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"Posición no válida");
  position_ = cursor_ = position * UnitBytes();
}

std::size_t WaveObject::ReadAt(std::int64_t place, char* target, std::size_t bytes) {
  WriteCollected();
  wave_.SetPosition(place);
  return wave_.Read(target, bytes);
}

std::size_t WaveObject::ReadData(void* buffer, std::size_t bytes) {
  if (state_ != State::Open) return 0;
  auto* to = static_cast<char*>(buffer);
  std::size_t done = 0;
  while (done < bytes) {
    const std::int64_t inside = cursor_ - aheadStart_;
    std::size_t some = 0;
    if (inside >= 0 && inside < static_cast<std::int64_t>(aheadBytes_)) {
      const auto from = static_cast<std::size_t>(inside);
      some = std::min(bytes - done, aheadBytes_ - from);
      std::memcpy(to + done, ahead_.data() + from, some);
    } else if (bytes - done >= aheadLimit_) {
      some = ReadAt(cursor_, to + done, bytes - done);
      if (some == 0) break;
    } else {
      ahead_.resize(aheadLimit_);
      aheadBytes_ = 0;  // before reading, in case it fails
      aheadStart_ = cursor_;
      aheadBytes_ = ReadAt(cursor_, ahead_.data(), ahead_.size());
      if (aheadBytes_ == 0) break;
    }
    done += some;
    cursor_ += static_cast<std::int64_t>(some);
  }
  position_ += static_cast<std::int64_t>(done);
  return done;
}

std::size_t WaveObject::WriteData(const void* buffer, std::size_t bytes) {
  if (state_ == State::Closed) RaiseClosed();
  if (bytes == 0) return 0;
  BeginWriting(bytes);
  wave_.Write(buffer, bytes);
  cursor_ += static_cast<std::int64_t>(bytes);
  return bytes;
}

void WaveObject::BeginWriting(std::size_t bytes) {
  const std::int64_t end = cursor_ + static_cast<std::int64_t>(bytes);
  if (TimeFormat == vantora::TimeFormat::tfByte && end > kMostBytes) RaiseOverflow();
  if (state_ == State::Missing) {
    const std::int64_t position = position_, cursor = cursor_;
    MakeAnew();
    position_ = position;
    cursor_ = cursor;
  }
  aheadBytes_ = 0;
  WriteCollected();
  wave_.SetPosition(cursor_);
}

// An incomplete file would look like the whole range, so it is deleted.
void WaveObject::SaveRange(const Text& file) {
  if (state_ == State::Closed) RaiseClosed();
  if (dateien_.SystemPath(file) == dateien_.SystemPath(file_)) {
    throw Laufzeitfehler(kFehlerZugriff, L"El archivo está abierto");
  }
  WriteCollected();
  const std::int64_t data = DataBytes();
  const std::int64_t from = std::clamp<std::int64_t>(PlayStart * UnitBytes(), 0, data);
  const std::int64_t to = std::clamp<std::int64_t>(PlayEnd * UnitBytes(), from, data);
  std::unique_ptr<Datei> copy = dateien_.Open(file, Zugriff::Neu);
  try {
    CopyRange(*copy, from, to);
  } catch (const Laufzeitfehler&) {
    copy.reset();
    dateien_.Kill(file);
    throw;
  }
}

void WaveObject::CopyRange(Datei& copy, std::int64_t from, std::int64_t to) {
  WriteWaveHeader(copy, to - from);
  const auto bytes = static_cast<std::size_t>(to - from);
  if (bytes > 0) wave_.SetPosition(from);
  if (bytes > 0 && wave_.CopyTo(copy, bytes) < bytes) {
    // Another program has shortened the file since it was opened.
    throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
  }
  if ((to - from) % 2 != 0) copy.Write("", 1);
}

void WaveObject::SetBufferBytes(std::int32_t bytes) {
  aheadLimit_ = static_cast<std::size_t>(std::clamp<std::int64_t>(bytes, 0, kMostAhead));
  aheadBytes_ = 0;
  ahead_ = {};
}

void WaveObject::ReadRange(MMData& data) {
  data.Bytes = 0;
  const std::int64_t start = std::max(cursor_, PlayStart * UnitBytes());
  const std::int64_t end = std::min(PlayEnd * UnitBytes(), DataBytes());
  if (start >= end) return;
  if (start != cursor_) position_ = cursor_ = start;
  const std::int64_t bytes = std::min(end - start, std::int64_t{kBufferBytes});
  const auto whole = static_cast<std::size_t>(bytes / kFrameBytes * kFrameBytes);
  PcmData sound;
  sound.Bytes = ReadData(sound.Samples.data(), whole) / kFrameBytes * kFrameBytes;
  FillWaveHeader(data, sound.Samples.data(), sound.Bytes);
}

void WaveObject::PeekRange(MMData& data) {
  const std::int64_t position = position_, cursor = cursor_;
  try {
    ReadRange(data);
  } catch (const Laufzeitfehler&) {
    data.Bytes = 0;  // the reading that follows reports it
  }
  position_ = position;
  cursor_ = cursor;
}

void WaveObject::MakeAnew() {
  Close();
  position_ = cursor_ = 0;
  const std::size_t slash = file_.find_last_of(L'\\');
  if (slash != Text::npos && !dateien_.IsDirectory(file_.substr(0, slash + 1))) {
    dateien_.MkDir(file_.substr(0, slash));
  }
  std::unique_ptr<Datei> made = dateien_.Open(file_, Zugriff::Neu);
  try {
    WriteWaveHeader(*made, 0);
  } catch (const Laufzeitfehler&) {
    made.reset();
    dateien_.Kill(file_);  // a file with part of a header is not a wave file
    throw;
  }
  made.reset();
  wave_.Open(file_);
  state_ = State::Open;
}

void WaveObject::Append(const MMData& data) {
  if (state_ != State::Open) RaiseClosed();
  aheadBytes_ = 0;
  PcmData sound;
  CopyWaveHeader(data, sound.Samples.data(), data.Bytes);
  const auto* bytes = reinterpret_cast<const char*>(sound.Samples.data());
  collected_.insert(collected_.end(), bytes, bytes + data.Bytes);
  if (collected_.size() >= kCollected) WriteCollected();
}

void WaveObject::WriteCollected() {
  if (collected_.empty()) return;
  const std::vector<char> sound = std::exchange(collected_, {});
  collected_.reserve(kCollected);
  wave_.SetPosition(wave_.DataBytes());
  try {
    wave_.Write(sound.data(), sound.size());
  } catch (const Laufzeitfehler&) {
    // On a full disk there may be room for a part.
    for (std::size_t done = 0; done < sound.size(); done += kBufferBytes) {
      wave_.Write(sound.data() + done, std::min(kBufferBytes, sound.size() - done));
    }
  }
  wave_.SaveHeader();
}

}  // namespace vantora
