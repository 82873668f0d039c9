#include "backends/burn/drive_writer.h"

#include "backends/burn/burn_drive.h"
#include "backends/burn/disc_burn.h"
#include "backends/burn/failure_log.h"
#include "backends/sound/disc/disc_plan.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace vantora {

namespace {

using namespace std::chrono_literals;
using Time = std::chrono::steady_clock;

constexpr int kTypeTrackAtOnce = 1, kTypeDiscAtOnce = 10;
constexpr int kFehlerFormat = 321;  // a file of a wrong format
constexpr std::size_t kMostTracks = 99;
constexpr int kRefused = 1, kMethodRefused = -1;
constexpr double kSingleSpeed = 176.4;  // kB a second
// How long calls on the interface thread wait for a drive.
constexpr auto kForScan = 4000ms, kForCheck = 3000ms, kForPlan = 6000ms;
// How long a drive may take to load its disc, or be in use, while a disc is looked for. Shorter
// than the wait for the answer (kForCheck), so that the next look starts anew.
constexpr auto kForReady = 2500ms;
// For this long the result of a look that came too late for its caller is still used.
constexpr auto kFresh = 2000ms;
// The interface's clock advances by this much per poll while a disc is written. A virtual clock
// runs as fast as it can, but a drive does not.
constexpr int kTurnMs = 20;

template <typename Result>
bool Ready(const std::shared_future<Result>& answer, std::chrono::milliseconds most = 0ms) {
  return answer.valid() && answer.wait_for(most) == std::future_status::ready;
}

}  // namespace

DriveWriter::DriveWriter(Dateien& files, EventLoop& loop, Background& background, ListCall list,
                         OpenBurnt open)
    : files_(files),
      loop_(loop),
      background_(background),
      list_(std::move(list)),
      open_(std::move(open)) {}

DriveWriter::~DriveWriter() {
  ending_.request_stop();
  Abandon();
}

int DriveWriter::Init_Prog() {
  current_ = 0;
  const std::vector<BurnDevice> devices = list_();
  if (devices.empty()) return 0;
  // While a drive finishes a stopped write, the earlier list stays valid.
  if (!Resting(0ms)) return 0;
  if (!scan_.valid() || Ready(scan_)) {
    const PostEvent tell = Teller();
    scan_ = thread_.Do<std::vector<Burner>>(
        [devices, known = burners_, tell, ending = ending_.get_token()] {
          return Scan(devices, known, tell, ending);
        });
  }
  if (Ready(scan_, kForScan)) burners_ = scan_.get();
  return 0;
}

// A drive that was seen once stays in the list, also while another program uses it (mounts its
// disc, for example) and after its cable was unplugged. It is never ready then. If it left the
// list, the next device would take its place, and the disc would be written in the wrong drive.
std::vector<DriveWriter::Burner> DriveWriter::Scan(const std::vector<BurnDevice>& devices,
                                                   const std::vector<Burner>& known,
                                                   const PostEvent& tell,
                                                   const std::stop_token& ending) {
  BurnLibrary library;
  std::vector<Burner> found;
  for (const BurnDevice& device : devices) {
    if (ending.stop_requested()) break;
    const auto can = ExamineDrive(library, device.Device);
    if (can && (can->TrackAtOnce || can->DiscAtOnce)) found.push_back({device, *can});
    for (const LibraryMessage& message : library.Messages()) {
      if (message.Severity >= BurnLibrary::kSorry) tell(LogEvent(message));
    }
  }
  for (const Burner& burner : known) {
    const auto same = [&burner](const Burner& other) {
      return other.Device.Device == burner.Device.Device;
    };
    if (std::none_of(found.begin(), found.end(), same)) found.push_back(burner);
  }
  std::stable_sort(found.begin(), found.end(), [](const Burner& a, const Burner& b) {
    return a.Device.Target < b.Device.Target;
  });
  return found;
}

const DriveWriter::Burner* DriveWriter::Current() const {
  const auto index = static_cast<std::size_t>(current_);
  return current_ >= 0 && index < burners_.size() ? &burners_[index] : nullptr;
}

int DriveWriter::DetermineDrive() {
  const Burner* burner = Current();
  if (burner == nullptr) return 0;
  return burner->Can.DiscAtOnce ? kTypeDiscAtOnce : kTypeTrackAtOnce;
}

Text DriveWriter::GetDescription(int index) {
  if (index < 0 || index >= BurnerCount()) return {};
  const BurnDevice& device = burners_[static_cast<std::size_t>(index)].Device;
  return device.Vendor + L"\t" + device.Product + L"\t" + device.Revision + L"\t" +
         std::to_wstring(device.Target);
}

bool DriveWriter::CanDAO() {
  const Burner* burner = Current();
  return burner != nullptr && burner->Can.DiscAtOnce;
}

int DriveWriter::KilobytesASecond() const {
  const double asked = speed_ * kSingleSpeed;
  int best = static_cast<int>(std::ceil(asked));
  const Burner* burner = Current();
  if (burner == nullptr || burner->Can.Speeds.empty()) return best;
  best = burner->Can.Speeds.front();
  for (const int speed : burner->Can.Speeds) {
    if (std::abs(speed - asked) < std::abs(best - asked)) best = speed;
  }
  return best;
}

int DriveWriter::Speed() {
  return std::max(static_cast<int>(std::lround(KilobytesASecond() / kSingleSpeed)), 1);
}

int DriveWriter::AddTrack(const Text& file, int /*reserved*/) {
  if (tracks_.size() == kMostTracks) return kFehlerIndex;
  try {
    SoundForDisc(files_, file);
  } catch (const Laufzeitfehler& fehler) {
    return fehler.Nummer == kFehlerEinAusgabe ? kFehlerFormat : fehler.Nummer;
  }
  tracks_.push_back(file);
  return 0;
}

void DriveWriter::CdText(int index, const Text& title, const Text& performer) {
  cdText_[index] = {title, performer};
}

DriveWriter::Look DriveWriter::LookInto(const std::string& device, const std::stop_token& ending) {
  Look look;
  look.State = WaitForDrive(device, kForReady, [&ending] { return ending.stop_requested(); });
  if (look.State == DriveState::Ready) {
    const BurnLibrary library;
    const HeldDrive drive(library, device);
    look.Blank = drive && drive.HasBlankCd();
  }
  look.Time = Time::now();
  return look;
}

bool DriveWriter::CheckIfBurnerOK() {
  bool ready = false, inserted = false;
  const Burner* burner = Current();
  if (burner != nullptr && !burn_) {
    const bool known = look_.valid() && lookedAt_ == burner->Device.Device;
    if (!known || (Ready(look_) && Time::now() - look_.get().Time > kFresh)) {
      wasEmpty_ = wasEmpty_ && lookedAt_ == burner->Device.Device;
      lookedAt_ = burner->Device.Device;
      look_ = thread_.Do<Look>(
          [device = lookedAt_, ending = ending_.get_token()] { return LookInto(device, ending); });
    }
    if (Ready(look_, kForCheck)) {
      const Look look = look_.get();
      ready = look.Blank;
      inserted = wasEmpty_ && look.State == DriveState::Ready;
      wasEmpty_ = look.State == DriveState::Empty || (wasEmpty_ && !inserted);
      // The result holds until the program processes events. After that the drive may have another
      // disc.
      Teller()([this](McdEvents&) { look_ = {}; });
    }
  }
  Teller()([ready, inserted](McdEvents& events) {
    if (!events.MCD_StatusChange) return;
    if (inserted) events.MCD_StatusChange(kMcdDiscInserted);
    events.MCD_StatusChange(kMcdChecking);
    events.MCD_StatusChange(ready ? kMcdChecked : kMcdNoDisc);
  });
  return ready;
}

int DriveWriter::WriteDAO() {
  if (!CanDAO()) return kMethodRefused;
  const int result = Write(true);
  if (result != 0) return result;
  if (burn_->WaitWhileStarting(kForPlan) != DiscBurn::State::Refused) return 0;
  Drop();
  // Recorded at once, since the next look may come while this drive still finishes.
  burners_[static_cast<std::size_t>(current_)].Can.DiscAtOnce = false;
  return kMethodRefused;
}

int DriveWriter::Write(bool discAtOnce) {
  const Burner* burner = Current();
  if (burner == nullptr || burn_ || tracks_.empty() || !Resting(kForCheck)) return kRefused;
  DiscOrder order;
  order.Device = burner->Device.Device;
  order.DiscAtOnce = discAtOnce;
  order.Simulation = testMode_;
  order.Fixate = fixate_;
  order.Eject = eject_;
  order.Verify = verify_;
  order.Speed = KilobytesASecond();
  order.Waves = tracks_;
  order.CdText = cdText_;
  look_ = {};  // the disc is about to change
  const auto end = [this, watch = std::weak_ptr<int>(token_),
                    &loop = loop_](const BurnEvent& failure) {
    loop.Post([this, watch, failure] {
      if (!watch.expired()) Ended(failure);
    });
  };
  burn_ = std::make_shared<DiscBurn>(files_, std::move(order), open_, Teller(), Teller(words_));
  work_ = thread_.Do<void>([burn = burn_, end] { end(burn->Run()); });
  pace_ = background_.Start([burn = burn_] {
    return burn->WaitUntilOver(std::chrono::milliseconds(kTurnMs)) ? -1 : kTurnMs;
  });
  return 0;
}

void DriveWriter::Ended(const BurnEvent& failure) {
  pace_.reset();
  burn_.reset();
  if (failure) failure(Events);
  if (Events.MCD_BurningProcessComplete) Events.MCD_BurningProcessComplete(failure ? 0 : 1);
}

bool DriveWriter::Resting(std::chrono::milliseconds most) const {
  return !work_.valid() || Ready(work_, most);
}

void DriveWriter::StopBurn() {
  if (!burn_) return;
  Abandon();
  Teller()([](McdEvents& events) {
    if (events.MCD_UserStop) events.MCD_UserStop();
  });
}

void DriveWriter::StopVerify() {
  if (burn_) burn_->StopVerify();
}

void DriveWriter::ResetBurner() {
  Abandon();
  tracks_.clear();
  cdText_.clear();
}

// Drops all events of the write, also its messages for the log.
void DriveWriter::Abandon() {
  if (!burn_) return;
  words_ = std::make_shared<int>(0);
  Drop();
}

// Drops all events of the write except its messages for the log.
void DriveWriter::Drop() {
  token_ = std::make_shared<int>(0);
  pace_.reset();
  burn_->Stop();
  burn_.reset();
}

PostEvent DriveWriter::Teller(const std::shared_ptr<int>& token) {
  return [this, watch = std::weak_ptr<int>(token), &loop = loop_](const BurnEvent& event) {
    loop.Post([this, watch, event] {
      if (!watch.expired()) event(Events);
    });
  };
}

}  // namespace vantora
