#include "backends/burn/disc_burn.h"

#include "backends/burn/cd_text.h"
#include "backends/burn/disc_check.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <string>
#include <thread>
#include <utility>

namespace vantora {

namespace {

constexpr int kLeastSectors = 300;   // of a track
constexpr int kGapSectors = 152;     // between tracks at Track At Once, run-in included
constexpr off_t kBlockBytes = 2048;  // the library counts a disc's space in such blocks
// How long a drive may take to load its disc. Usually the drive has been ready a moment ago.
constexpr auto kForReady = std::chrono::seconds(30);
constexpr auto kLookPause = std::chrono::milliseconds(50);
// After a drive has been unplugged, the library calls it idle although its thread still works on
// it.
constexpr int kIdleLooks = 100;
constexpr auto kLastTouch = std::chrono::milliseconds(20);

struct Failed {
  BurnEvent Event;
};

template <auto Free>
struct With {
  template <typename Thing>
  void operator()(Thing* thing) const {
    Free(thing);
  }
};

bool Writes(burn_drive_status status, const burn_progress& progress) {
  return status == BURN_DRIVE_WRITING && progress.sectors > 0;
}

}  // namespace

// The library's objects for a disc. They refer to each other, and the disc holds all of them.
struct DiscBurn::Parts {
  std::unique_ptr<burn_disc, With<burn_disc_free>> Disc{burn_disc_create()};
  std::unique_ptr<burn_session, With<burn_session_free>> Session{burn_session_create()};
  std::vector<std::unique_ptr<burn_track, With<burn_track_free>>> Tracks;
  std::unique_ptr<burn_write_opts, With<burn_write_opts_free>> Options;
};

DiscBurn::DiscBurn(Dateien& files, DiscOrder order, OpenBurnt open, PostEvent tell, PostEvent words)
    : files_(files),
      order_(std::move(order)),
      open_(std::move(open)),
      tell_(std::move(tell)),
      words_(std::move(words)) {
  // A simulation leaves nothing to read, and the contents of an open disc have not been written.
  order_.Verify = order_.Verify && order_.Fixate && !order_.Simulation && open_;
}

BurnEvent DiscBurn::Run() noexcept {
  BurnEvent failure;
  try {
    Burn();
    if (order_.Verify && !Stopped()) Verify();
  } catch (const Failed& failed) {
    failure = failed.Event;
  } catch (const Laufzeitfehler& fehler) {
    failure = FailureEvent(fehler.Nummer, fehler.Beschreibung);
  } catch (const std::exception& error) {
    failure = FailureEvent(kFehlerEinAusgabe, FromLibrary(error.what()));
  }
  const std::lock_guard lock(mutex_);
  if (state_ != State::Refused) state_ = State::Over;
  changed_.notify_all();
  return failure_ ? failure_ : failure;
}

void DiscBurn::Fail(int code, const wchar_t* text) {
  throw Failed{complaints_.DriveLost() ? complaints_.Event(code) : FailureEvent(code, text)};
}

void DiscBurn::Burn() {
  Plan();
  BurnLibrary library;
  library.Messages();  // drops earlier messages
  bool done = Try(library, order_.DiscAtOnce && !order_.CdText.empty());
  if (!done && complaints_.PlanRefused() && !order_.CdText.empty() && !Stopped()) {
    // Some drives write Disc At Once but no CD-TEXT in the lead-in.
    complaints_.Forget();
    done = Try(library, false);
  }
  if (done || Stopped()) return;
  if (complaints_.PlanRefused()) Enter(State::Refused);
  throw Failed{complaints_.Event(kBurnUnexplained)};
}

// Holds the drive, writes, and releases the drive. Returns true when the disc has been written
// well. After a failed write the library does not open the drive again before it has been released.
bool DiscBurn::Try(BurnLibrary& library, bool withText) {
  if (!Await()) return false;
  HeldDrive drive(library, order_.Device);
  Listen(library);
  if (!drive) Fail(kBurnNoDrive, L"La grabadora no está disponible.");
  if (!drive.HasBlankCd()) Fail(kBurnNoBlank, L"No hay un CD virgen en la grabadora.");
  if (order_.Simulation && !drive.CanSimulate()) {
    Fail(kBurnNoTest, L"La grabadora no puede simular.");
  }
  if (order_.Speed > 0) burn_drive_set_speed(drive.Get(), 0, order_.Speed);
  const bool done = Write(library, drive, withText);
  drive.EjectAtTheEnd(done && order_.Eject && !order_.Verify);
  return done;
}

// The disc is complete, so nothing that goes wrong here is a failure of the write.
void DiscBurn::Verify() {
  const auto report = [this](int track, int state) {
    tell_([track, state](McdEvents& events) {
      if (events.MCD_Verify) events.MCD_Verify(track, state);
    });
  };
  const auto unwanted = [this] { return stopVerify_ || Stopped(); };
  report(1, kMcdVerifyBegins);  // a drive may need long to load its disc
  if (WaitForDrive(order_.Device, kForReady, unwanted) != DriveState::Ready) {
    if (!unwanted()) report(0, kMcdVerifyFailed);
    return;
  }
  if (std::optional<BurntDisc> disc = open_(order_.Device)) {
    DiscCheck(files_, std::move(*disc), unwanted).Run(tracks_, report, [this](int percent) {
      tell_([percent](McdEvents& events) {
        if (events.MCD_TrackPercent) events.MCD_TrackPercent(percent);
      });
    });
  } else {
    report(0, kMcdVerifyFailed);
  }
  if (!order_.Eject || Stopped()) return;
  const BurnLibrary library;
  HeldDrive(library, order_.Device).EjectAtTheEnd(true);
}

// Returns false when the write was stopped meanwhile.
bool DiscBurn::Await() {
  const DriveState state = WaitForDrive(order_.Device, kForReady, [this] { return Stopped(); });
  if (Stopped()) return false;
  if (state == DriveState::Empty) Fail(kBurnNoBlank, L"No hay un CD virgen en la grabadora.");
  if (state != DriveState::Ready) Fail(kBurnNoDrive, L"La grabadora no está disponible.");
  return true;
}

// Checks all waves before it touches the drive: a missing file should be found now and not in the
// middle of the disc.
void DiscBurn::Plan() {
  std::vector<DiscPart> waves;
  for (const Text& wave : order_.Waves) waves.push_back(SoundForDisc(files_, wave));
  tracks_ = PlanDisc(waves, {order_.DiscAtOnce, kGapSectors, kLeastSectors});
  std::vector<BurnProgress::Track> tracks;
  for (const PlannedTrack& track : tracks_) {
    tracks.push_back({track.File, static_cast<int>(track.Sectors)});
  }
  progress_ = std::make_unique<BurnProgress>(std::move(tracks), order_.DiscAtOnce, tell_);
}

bool DiscBurn::Write(BurnLibrary& library, const HeldDrive& drive, bool withText) {
  Parts parts;
  Assemble(parts, withText);
  SetOptions(parts, drive);
  Listen(library);
  if (Stopped()) return false;
  progress_->LeadIn();
  burn_disc_write(parts.Options.get(), parts.Disc.get());
  Watch(library, drive.Get());
  if (Stopped() || burn_drive_wrote_well(drive.Get()) == 0) return false;
  progress_->LeadOut(order_.Fixate);
  return true;
}

void DiscBurn::Assemble(Parts& parts, bool withText) {
  burn_disc_add_session(parts.Disc.get(), parts.Session.get(), BURN_POS_END);
  std::vector<burn_track*> tracks;
  for (const PlannedTrack& planned : tracks_) {
    parts.Tracks.emplace_back(burn_track_create());
    burn_track* track = parts.Tracks.back().get();
    burn_track_define_data(track, 0, 0, 1, BURN_AUDIO);
    const SourceHandle source = TrackSource(
        files_, planned, [this](int number, const Text& text) { FileFailed(number, text); });
    burn_track_set_source(track, source.get());
    burn_session_add_track(parts.Session.get(), track, BURN_POS_END);
    tracks.push_back(track);
  }
  if (withText) AttachCdText(parts.Session.get(), tracks, order_.CdText);
}

void DiscBurn::SetOptions(Parts& parts, const HeldDrive& drive) {
  parts.Options.reset(burn_write_opts_new(drive.Get()));
  burn_write_opts* options = parts.Options.get();
  if (order_.DiscAtOnce) {
    burn_write_opts_set_write_type(options, BURN_WRITE_SAO, BURN_BLOCK_SAO);
  } else {
    burn_write_opts_set_write_type(options, BURN_WRITE_TAO, BURN_BLOCK_MODE1);
  }
  burn_write_opts_set_simulate(options, order_.Simulation ? 1 : 0);
  burn_write_opts_set_multi(options, order_.Fixate || order_.Simulation ? 0 : 1);
  burn_write_opts_set_underrun_proof(options, 1);

  std::array<char, BURN_REASONS_LEN> reasons{};
  if (burn_precheck_write(options, parts.Disc.get(), reasons.data(), 0) <= 0) {
    if (order_.DiscAtOnce) {
      words_(LogEvent({kBurnNoMethod, 0, BurnLibrary::kSorry, reasons.data()}));
      Enter(State::Refused);
    }
    Fail(kBurnNoMethod, FromLibrary(reasons.data()).c_str());
  }
  const std::int64_t sectors = tracks_.back().Start + tracks_.back().Sectors;
  const off_t space = burn_disc_available_space(drive.Get(), options) / kBlockBytes;
  if (space > 0 && sectors > space) Fail(kBurnNoSpace, L"Las pistas no caben en el disco.");
}

// Returns when the library's writing thread has ended, for whatever reason.
void DiscBurn::Watch(BurnLibrary& library, burn_drive* drive) {
  const int last = static_cast<int>(tracks_.size()) - 1;
  bool cancelled = false;
  for (int idle = 0; idle < kIdleLooks;) {
    Listen(library);
    burn_progress now{};
    const burn_drive_status status = burn_drive_get_status(drive, &now);
    idle = status == BURN_DRIVE_IDLE ? idle + 1 : 0;
    if (status == BURN_DRIVE_IDLE && complaints_.WriterEnded()) break;
    const bool closing =
        status == BURN_DRIVE_CLOSING_SESSION || status == BURN_DRIVE_WRITING_LEADOUT;
    if (Writes(status, now) || closing || status == BURN_DRIVE_WRITING_LEADIN ||
        status == BURN_DRIVE_WRITING_PREGAP) {
      Enter(State::Writing);
    }
    if (!cancelled && Writes(status, now)) progress_->At(now.track, now.sector);
    if (!cancelled &&
        (closing || (Writes(status, now) && now.track == last && now.sector >= now.sectors))) {
      progress_->LeadOut(order_.Fixate);
    }
    if (Pause() && !cancelled) {
      burn_drive_cancel(drive);
      cancelled = true;
    }
  }
  // The library does not report the last steps of its thread.
  std::this_thread::sleep_for(kLastTouch);
}

void DiscBurn::Listen(BurnLibrary& library) {
  for (const LibraryMessage& message : library.Messages()) {
    complaints_.Hear(message);
    if (message.Severity >= BurnLibrary::kNote) words_(LogEvent(message));
  }
}

// Waits a moment, or not at all when the write is to stop. Returns true when it is to stop.
bool DiscBurn::Pause() {
  std::unique_lock lock(mutex_);
  if (stop_) {
    lock.unlock();
    std::this_thread::sleep_for(kLookPause);
    return true;
  }
  return changed_.wait_for(lock, kLookPause, [this] { return stop_; });
}

bool DiscBurn::Stopped() {
  const std::lock_guard lock(mutex_);
  return stop_;
}

void DiscBurn::Enter(State state) {
  const std::lock_guard lock(mutex_);
  state_ = state;
  changed_.notify_all();
}

void DiscBurn::FileFailed(int number, const Text& text) {
  const std::lock_guard lock(mutex_);
  if (!failure_) failure_ = FailureEvent(number, text);
  stop_ = true;
  changed_.notify_all();
}

void DiscBurn::Stop() {
  const std::lock_guard lock(mutex_);
  stop_ = true;
  changed_.notify_all();
}

DiscBurn::State DiscBurn::WaitWhileStarting(std::chrono::milliseconds most) {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, most, [this] { return state_ != State::Starting; });
  return state_;
}

bool DiscBurn::WaitUntilOver(std::chrono::milliseconds most) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, most,
                           [this] { return state_ == State::Over || state_ == State::Refused; });
}

}  // namespace vantora
