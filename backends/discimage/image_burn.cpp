#include "backends/discimage/image_burn.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace vantora {

namespace {

using Time = std::chrono::steady_clock;

constexpr std::int64_t kGapSectors = 150;                 // 2 seconds
constexpr std::int64_t kMostSectors = 100 * 60 * 75 - 1;  // the highest time "mm:ss:ff" can hold
constexpr std::int64_t kBlockBytes = 1 << 17;  // read and written at once; fits the cache
constexpr std::int64_t kSliceBytes = 32 * kBlockBytes;
constexpr auto kSliceTime = std::chrono::milliseconds(25);  // limit of a slice, besides kSliceBytes
constexpr double kTellMs = 50;
constexpr std::wstring_view kTempEnding = L".tmp";

template <class... Arguments, class... Values>
void Call(const std::function<void(Arguments...)>& handler, const Values&... values) {
  if (handler) handler(values...);
}

ImageBurn::Event FailureEvent(int code, const Text& text) {
  return [code, text](McdEvents& events) { Call(events.MCD_Failure, code, text); };
}

Text BaseName(const Text& path) {
  return path.substr(path.find_last_of(L'\\') + 1);
}

void Rename(Dateien& dateien, const Text& from, const Text& to) {
  std::error_code error;
  std::filesystem::rename(dateien.SystemPath(from), dateien.SystemPath(to), error);
  if (error) {
    throw Laufzeitfehler(kFehlerZugriff, L"No se puede dar su nombre al disco terminado.");
  }
}

bool Exists(const Dateien& dateien, const Text& path) {
  std::error_code error;
  return std::filesystem::exists(dateien.SystemPath(path), error);
}

// True for a name such as "Disco 007.bin.tmp", false for a name that a user chose.
bool IsOfABurn(const Text& temporary) {
  const std::size_t word = std::char_traits<wchar_t>::length(L"Disco ");
  const std::size_t end = temporary.find_first_not_of(L"0123456789", word);
  return end > word &&
         (temporary.substr(end) == L".bin.tmp" || temporary.substr(end) == L".cue.tmp");
}

}  // namespace

ImageBurn::ImageBurn(Dateien& dateien, BurnOrder order, Tell tell, Ended ended)
    : dateien_(dateien),
      order_(std::move(order)),
      tell_(std::move(tell)),
      ended_(std::move(ended)) {}

int ImageBurn::Slice() noexcept {
  Event failure;
  try {
    if (tracks_.empty()) Begin();
    if (!check_) {
      if (Move(Budget())) return Delay();
      End();
      return 0;  // the events of the end come before the comparison
    }
    if (Verify()) return 0;
    ended_({});
    return -1;
  } catch (const MediumFailed&) {
    failure = [faults = order_.faults](McdEvents& events) {
      switch (faults.FailAs) {
        case WriterFaults::Kind::Failure:
          return Call(events.MCD_Failure, faults.FailCode, faults.FailText);
        case WriterFaults::Kind::Scsi:
          return Call(events.MCD_ScsiEvents, 0, 0, faults.FailCode, 0, faults.FailText);
        case WriterFaults::Kind::Aspi:
          return Call(events.MCD_ASPIEvent, faults.FailCode, faults.FailText);
      }
    };
  } catch (const Laufzeitfehler& fehler) {
    failure = FailureEvent(fehler.Nummer, fehler.Beschreibung);
  } catch (const std::exception& error) {
    const std::string what = error.what();
    failure = FailureEvent(kFehlerEinAusgabe, Text(what.begin(), what.end()));
  }
  Discard();
  ended_(failure);
  return -1;
}

void ImageBurn::Begin() {
  Plan();
  buffer_.resize(kBlockBytes);
  if (order_.faults.WrongAtPercent >= 0) wrongAt_ = total_ * order_.faults.WrongAtPercent / 100;
  if (order_.faults.FailAtPercent >= 0) failAt_ = total_ * order_.faults.FailAtPercent / 100;
  if (!order_.simulation) {
    made_ = true;
    image_ = dateien_.Open(BinTemp(), Zugriff::Neu);
  }
  tell_([](McdEvents& events) { Call(events.MCD_WriteLeadIn, 0); });
}

// Checks all waves before the first is written: the sheet needs their sizes, and a missing file
// should be found now and not in the middle of the disc.
void ImageBurn::Plan() {
  const auto text = [this](int index) {
    const auto found = order_.cdText.find(index);
    return order_.dao && found != order_.cdText.end() ? found->second : std::pair<Text, Text>();
  };
  std::tie(sheet_.title, sheet_.performer) = text(0);
  sheet_.image = BaseName(order_.name) + L".bin";

  std::vector<DiscPart> waves;
  for (const Text& wave : order_.waves) waves.push_back(SoundForDisc(dateien_, wave));
  std::vector<PlannedTrack> tracks = PlanDisc(waves, {order_.dao, kGapSectors});
  for (PlannedTrack& track : tracks) {
    CueTrack entry;
    entry.start = track.Start;
    std::tie(entry.title, entry.performer) = text(static_cast<int>(sheet_.tracks.size()) + 1);
    if (track.Gap > 0) {
      entry.gap = track.Start - track.Gap;
      track.Parts.insert(track.Parts.begin(), {{}, 0, track.Gap * kSectorBytes});
    }
    sheet_.tracks.push_back(entry);
  }
  const std::int64_t sectors = tracks.back().Start + tracks.back().Sectors;
  if (sectors > kMostSectors) {
    throw Laufzeitfehler(kFehlerPlattenVoll, L"Las pistas no caben en un disco.");
  }
  total_ = sectors * kSectorBytes;
  tracks_ = std::move(tracks);
}

// Writes up to `budget` bytes. Returns false when the last track has been written.
bool ImageBurn::Move(std::int64_t budget) {
  const auto until = Time::now() + kSliceTime;
  while (budget > 0 && Time::now() < until) {
    if (track_ == tracks_.size()) return false;
    if (!sound_) BeginTrack();
    std::int64_t most = std::min({budget, kBlockBytes, sound_->Left()});
    if (failAt_ >= 0) {
      if (done_ >= failAt_) throw MediumFailed{};
      most = std::min(most, failAt_ - done_);
    }
    sound_->Read(buffer_.data(), most);
    if (wrongAt_ >= done_ && wrongAt_ < done_ + most) {
      buffer_[static_cast<std::size_t>(wrongAt_ - done_)] ^= 1;
    }
    if (image_) image_->Write(buffer_.data(), static_cast<std::size_t>(most));
    inTrack_ += most;
    done_ += most;
    budget -= most;
    nominalMs_ += order_.faults.Pace > 0
                      ? static_cast<double>(most) * 1000 / (order_.faults.Pace * kBytesPerSecond)
                      : 0;
    ReportPercent(false);
    if (sound_->Left() == 0) EndTrack();
  }
  return true;
}

void ImageBurn::BeginTrack() {
  const PlannedTrack& track = tracks_[track_];
  sound_ = std::make_unique<PartReader>(dateien_, track.Parts);
  tell_([number = static_cast<int>(track_) + 1, file = track.File](McdEvents& events) {
    Call(events.MCD_ActTrack, number);
    Call(events.MCD_InfoMessage, 1, L"Open file " + file);
  });
  if (!order_.dao) percent_ = -1;
  if (percent_ < 0) ReportPercent(true);
}

void ImageBurn::EndTrack() {
  if (!order_.dao || track_ + 1 == tracks_.size()) ReportPercent(true);
  tell_([file = tracks_[track_].File](McdEvents& events) {
    Call(events.MCD_InfoMessage, 1, L"Close file " + file);
  });
  sound_.reset();
  ++track_;
  inTrack_ = 0;
}

void ImageBurn::End() {
  tell_([](McdEvents& events) { Call(events.MCD_WriteLeadOut, 0); });
  const std::string sheet = FormatCueSheet(sheet_);
  if (image_) {
    image_.reset();
    dateien_.Open(CueTemp(), Zugriff::Neu)->Write(sheet.data(), sheet.size());
    Keep();
  }
  if (order_.fixate) tell_([](McdEvents& events) { Call(events.MCD_Fixating); });
  check_ = std::make_unique<ImageCheck>(
      dateien_, ImageCheck::Image{Image(), Sheet(), sheet}, tracks_, [this](int track, int state) {
        tell_([track, state](McdEvents& events) { Call(events.MCD_Verify, track, state); });
      });
}

// Compares a slice of the image with the waves. Returns false when there is nothing left to do.
bool ImageBurn::Verify() {
  return !order_.simulation && !stopVerify_ && check_->Slice();
}

void ImageBurn::ReportPercent(bool always) {
  const PlannedTrack& track = tracks_[track_];
  const std::int64_t gap = track.Gap * kSectorBytes;
  const std::int64_t now =
      order_.dao ? done_ * 100 / total_
                 : std::max<std::int64_t>(inTrack_ - gap, 0) * 100 / (track.Sectors * kSectorBytes);
  if (now == percent_) return;
  const double passed =
      order_.faults.Pace > 0
          ? nominalMs_ - toldMs_
          : std::chrono::duration<double, std::milli>(Time::now() - toldAt_).count();
  if (!always && passed < kTellMs) return;
  toldMs_ = nominalMs_;
  toldAt_ = Time::now();
  percent_ = static_cast<int>(now);
  tell_([percent = percent_](McdEvents& events) { Call(events.MCD_TrackPercent, percent); });
}

std::int64_t ImageBurn::Budget() const {
  if (order_.faults.Pace <= 0) return kSliceBytes;
  const auto bytes =
      static_cast<std::int64_t>(order_.faults.Pace * kBytesPerSecond * kTellMs / 1000);
  return std::clamp<std::int64_t>(bytes / kSectorBytes * kSectorBytes, kSectorBytes, kSliceBytes);
}

int ImageBurn::Delay() {
  const int ms = static_cast<int>(nominalMs_ - passedMs_);
  passedMs_ += ms;
  return ms;
}

void ImageBurn::Keep() {
  Rename(dateien_, BinTemp(), Image());
  try {
    // The sheet is renamed last, since only the sheet makes the pair a disc.
    Rename(dateien_, CueTemp(), Sheet());
  } catch (const Laufzeitfehler&) {
    dateien_.Kill(Image());
    throw;
  }
  made_ = false;
}

void ImageBurn::Discard() noexcept {
  image_.reset();
  sound_.reset();
  check_.reset();
  if (!made_) return;
  for (const Text& file : {BinTemp(), CueTemp()}) {
    try {
      dateien_.Kill(file);
    } catch (const std::exception&) {
      // The file has not been created yet, or its folder no longer allows removals.
    }
  }
  made_ = false;
}

void ImageBurn::ClearUp(Dateien& dateien, const Text& folder) {
  const Text inFolder = folder + L'\\';
  for (const Text& file : dateien.List(folder, L"Disco *.bin.tmp;Disco *.cue.tmp")) {
    const Text path = inFolder + file, name = path.substr(0, path.size() - kTempEnding.size());
    if (!IsOfABurn(file)) continue;
    try {
      // Keep renames the image before the sheet. The program was killed between the two.
      if (name.ends_with(L".cue") && !Exists(dateien, name) &&
          Exists(dateien, name.substr(0, name.size() - 4) + L".bin")) {
        Rename(dateien, path, name);
      } else {
        dateien.Kill(path);
      }
    } catch (const Laufzeitfehler&) {
      // The file stays and does no harm: a burn overwrites such files.
    }
  }
}

}  // namespace vantora
