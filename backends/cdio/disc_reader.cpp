#include "backends/cdio/disc_reader.h"

#include "backends/cdio/track_read.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace vantora {

namespace {

constexpr int kRefused = 1;
constexpr int kAtOnceMs = 200;
constexpr std::chrono::milliseconds kPatience(3000), kLook(10);
constexpr const wchar_t* kReadError = L"ASPI Error";

constexpr std::size_t kProductPlaces = 16, kTargetEnd = 22, kLunEnd = 25;

// Writes `number` so that it ends before index `end`.
void PutNumber(Text& line, std::size_t end, int number) {
  const Text digits = std::to_wstring(std::clamp(number, 0, 99));
  std::copy(digits.begin(), digits.end(),
            line.begin() + static_cast<std::ptrdiff_t>(end - digits.size()));
}

}  // namespace

DiscReader::DiscReader(Dateien& files, EventLoop& loop, Background& background,
                       const DiscDrives& drives)
    : files_(files), loop_(loop), background_(background), drives_(drives) {}

DiscReader::~DiscReader() {
  Abandon();
  AwaitAbandoned();
}

Text DiscReader::DriveDescription(int device) {
  const std::vector<DiscDrive> all = drives_.All();
  if (device < 1 || device > static_cast<int>(all.size())) return {};
  const DiscDrive& drive = all[static_cast<std::size_t>(device) - 1];
  Text line = drive.Product.substr(0, kProductPlaces);
  line.resize(kLunEnd, L' ');
  PutNumber(line, kTargetEnd, drive.Target);
  PutNumber(line, kLunEnd, drive.Lun);
  return line;
}

void DiscReader::SelectDevice(int device) {
  Abandon();
  disc_.reset();
  device_ = device;
  offset_ = 0;
  selected_ = true;
}

void DiscReader::CloseDevice() {
  Abandon();
  disc_.reset();
  selected_ = false;
}

Disc* DiscReader::Medium() {
  // While a read runs, its thread uses the disc, and the table of contents stays the same.
  if (disc_ && !read_ && !disc_->StillThere()) disc_.reset();
  if (!disc_ && selected_) {
    AwaitAbandoned();
    const std::vector<DiscDrive> all = drives_.All();
    if (device_ >= 1 && device_ <= static_cast<int>(all.size())) {
      disc_ = drives_.Open(all[static_cast<std::size_t>(device_) - 1]);
    }
  }
  return disc_.get();
}

int DiscReader::TrackLaengeSektoren(int track) {
  const Disc* disc = Medium();
  return disc != nullptr && disc->Toc().Has(track) ? disc->Toc().Track(track).Sectors : 0;
}

bool DiscReader::TrackIstAudio(int track) {
  const Disc* disc = Medium();
  return disc != nullptr && disc->Toc().Has(track) && disc->Toc().Track(track).Audio;
}

bool DiscReader::TrackPreemphasis(int track) {
  const Disc* disc = Medium();
  return disc != nullptr && disc->Toc().Has(track) && disc->Toc().Track(track).Preemphasis;
}

int DiscReader::ReadTrack(int track, const Text& file) {
  Abandon();
  if (track < 1 || !TrackIstAudio(track)) return kRefused;
  const auto post = [this, watch = std::weak_ptr<int>(token_)](std::function<void()> work) {
    loop_.Post([watch, work = std::move(work)] {
      if (!watch.expired()) work();
    });
  };
  try {
    read_ = std::make_shared<TrackRead>(
        files_, TrackSound(disc_, track, offset_), file, Pace,
        TrackRead::Calls{
            [this, post](const TrackRead::Event& event) { post([this, event] { event(Events); }); },
            [this, post](int code) { post([this, code] { Ended(code); }); }});
  } catch (const Laufzeitfehler& fehler) {
    return fehler.Nummer;
  }
  StartSlices();
  return 0;
}

void DiscReader::StartSlices() {
  failed_ = false;
  job_ = background_.Start([read = read_] { return read->Slice(); });
}

void DiscReader::Ended(int code) {
  job_.reset();
  if (code == 0) {
    read_.reset();
    if (Events.ACD_ReadComplete) Events.ACD_ReadComplete();
    return;
  }
  failed_ = true;
  if (Events.ACD_Failure) Events.ACD_Failure(code, kReadError);
}

void DiscReader::RetryRead() {
  if (failed_) StartSlices();
}

void DiscReader::Abandon() {
  token_ = std::make_shared<int>(0);
  failed_ = false;
  if (read_) read_->GiveUp();
  if (job_ && !job_->Stop(kAtOnceMs)) {
    abandoned_ = read_;
    disc_.reset();  // from now on the read alone owns the disc
  }
  job_.reset();
  read_.reset();
}

// A drive in which an abandoned read still works cannot be opened at once.
void DiscReader::AwaitAbandoned() {
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (!abandoned_.expired() && std::chrono::steady_clock::now() < until) {
    std::this_thread::sleep_for(kLook);
  }
}

}  // namespace vantora
