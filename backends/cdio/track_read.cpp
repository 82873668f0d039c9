#include "backends/cdio/track_read.h"

#include "backends/sound/files/wave_header.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace vantora {

namespace {

constexpr int kBlockSectors = 64;  // sectors written in one step
constexpr auto kSliceTime = std::chrono::milliseconds(25);
constexpr auto kTellEvery = std::chrono::milliseconds(50);
constexpr int kThousandths = 1000;
constexpr int kPacedMs = 50;

struct SectorFailed {};

}  // namespace

TrackRead::TrackRead(Dateien& files, TrackSound sound, const Text& file, double pace, Calls calls)
    : sound_(std::move(sound)),
      sectors_(sound_.Sectors()),
      pace_(pace),
      calls_(std::move(calls)),
      buffer_(std::size_t{kBlockSectors} * kSectorBytes) {
  file_ = files.Open(file, Zugriff::Neu);
  WriteWaveHeader(*file_, 0);
}

void TrackRead::GiveUp() {
  const std::lock_guard lock(calling_);
  givenUp_ = true;
}

int TrackRead::Slice() noexcept {
  int code = kFehlerEinAusgabe;
  try {
    // A careful read begins with steps that take a slow drive seconds, so the position is reported
    // first.
    if (done_ == 0) ReportPosition(true);
    if (Move()) return Delay();
    Header();
    file_.reset();
    ReportPosition(true);
    Ended(0);
    return -1;
  } catch (const SectorFailed&) {
  } catch (const Laufzeitfehler& fehler) {
    code = fehler.Nummer;
  } catch (const std::exception&) {
  }
  Ended(code);
  return -1;
}

void TrackRead::Ended(int code) {
  const std::lock_guard lock(calling_);
  if (!givenUp_) calls_.Ended(code);
}

bool TrackRead::Move() {
  const auto until = Time::now() + kSliceTime;
  int budget = pace_ > 0
                   ? std::max(static_cast<int>(pace_ * kSectorsPerSecond * kPacedMs / 1000), 1)
                   : sectors_;
  while (budget > 0 && Time::now() < until && !givenUp_) {
    if (done_ == sectors_) return false;
    const int wanted = std::min({kBlockSectors, sectors_ - done_, budget});
    bool failed = false;
    const int count = ReadBlock(wanted, until, failed);
    // Seeks explicitly, since an earlier write may have failed half way.
    file_->Seek(kWaveHeaderBytes + std::int64_t{done_} * kSectorBytes);
    file_->Write(buffer_.data(), static_cast<std::size_t>(count) * kSectorBytes);
    done_ += count;
    budget -= count;
    if (failed) throw SectorFailed{};
    if (pace_ > 0) nominalMs_ += count * 1000.0 / (kSectorsPerSecond * pace_);
    ReportPosition(false);
  }
  return true;
}

// Reads into the buffer, up to a sector that fails or until the time is over, but at least one
// sector.
int TrackRead::ReadBlock(int wanted, Time::time_point until, bool& failed) {
  int read = 0;
  while (read < wanted && (read == 0 || Time::now() < until) && !givenUp_) {
    const int sector = done_ + read;
    char* target = buffer_.data() + std::ptrdiff_t{read} * kSectorBytes;
    int count = std::min(sound_.CarefulSectors(), wanted - read);
    if (!sound_.Read(sector, count, target)) {
      failed = count == 1 || givenUp_ || !sound_.Read(sector, 1, target);
      if (failed) break;
      count = 1;
    }
    read += count;
  }
  return read;
}

void TrackRead::ReportPosition(bool always) {
  const auto now = Time::now();
  if (!always && now - told_ < kTellEvery) return;
  told_ = now;
  const auto position =
      static_cast<int>(std::int64_t{done_} * kThousandths / std::max(sectors_, 1));
  const std::lock_guard lock(calling_);
  if (givenUp_) return;
  calls_.Tell([position](AcdEvents& events) {
    if (events.ACD_ActPosition) events.ACD_ActPosition(position);
  });
}

int TrackRead::Delay() {
  const int ms = static_cast<int>(nominalMs_ - passedMs_);
  passedMs_ += ms;
  return ms;
}

void TrackRead::Header() {
  WriteWaveHeader(*file_, std::int64_t{done_} * kSectorBytes);
}

void TrackRead::Close() noexcept {
  if (!file_) return;
  try {
    file_->Truncate(kWaveHeaderBytes + std::int64_t{done_} * kSectorBytes);
    Header();
  } catch (const std::exception&) {
    // The disk refuses further writes. Readers of the file use only the size that it really has.
  }
  file_.reset();
}

}  // namespace vantora
