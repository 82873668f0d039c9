#include "backends/burn/drive_wait.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <scsi/sg.h>
#include <sys/ioctl.h>
#include <thread>
#include <unistd.h>

namespace vantora {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPause = 100ms;
constexpr auto kMostHeld = 2000ms;
constexpr unsigned kCommandMs = 5000;

using Command = std::array<unsigned char, 6>;
constexpr Command kTestUnitReady{};
constexpr Command kCloseTray{0x1b, 1, 0, 0, 3, 0};  // returns at once, before the tray is closed

constexpr int kNotReady = 2, kAttention = 6;      // sense keys
constexpr int kInTransition = 4, kNoDisc = 0x3a;  // causes of kNotReady
constexpr int kNeedsStart = 2, kNeedsHand = 3;    // details of kInTransition: waiting does not help
constexpr int kTrayClosed = 1;                    // detail of kNoDisc

struct Sense {
  int Key = 0, Cause = 0, Detail = 0;  // all 0: the command succeeded
};

class Opened {
 public:
  Opened(const std::string& device, int flags)
      : file_(::open(device.c_str(), flags | O_NONBLOCK | O_CLOEXEC)) {}
  ~Opened() {
    if (IsOpen()) ::close(file_);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  int operator()() const { return file_; }
  bool IsOpen() const { return file_ >= 0; }

 private:
  int file_;
};

// Sends a command. Returns nothing when there is no drive to answer.
std::optional<Sense> Tell(int drive, Command command) {
  std::array<unsigned char, 32> sense{};
  sg_io_hdr_t order{};
  order.interface_id = 'S';
  order.dxfer_direction = SG_DXFER_NONE;
  order.cmdp = command.data();
  order.cmd_len = command.size();
  order.sbp = sense.data();
  order.mx_sb_len = sense.size();
  order.timeout = kCommandMs;
  if (::ioctl(drive, SG_IO, &order) < 0 || order.host_status != 0) return std::nullopt;
  if (order.sb_len_wr < 14) return Sense{};
  return Sense{sense[2] & 0xf, sense[12], sense[13]};
}

// A drive that is polled.
class Watched {
 public:
  explicit Watched(const std::string& device) : device_(device) {}

  DriveState Look();

 private:
  DriveState Empty(int drive, int detail);

  const std::string& device_;
  bool closing_ = false;
};

DriveState Watched::Look() {
  const DriveHold hold = HoldOf(device_);
  if (hold == DriveHold::Held) return DriveState::Held;
  const Opened drive(device_, O_RDWR);
  if (hold == DriveHold::Gone || !drive.IsOpen()) return DriveState::Gone;
  auto sense = Tell(drive(), kTestUnitReady);
  // A change of the medium is reported once, in place of the answer.
  if (sense && sense->Key == kAttention) sense = Tell(drive(), kTestUnitReady);
  if (!sense) return DriveState::Gone;
  if (sense->Key == kAttention) return DriveState::NotYet;
  if (sense->Key != kNotReady) return DriveState::Ready;
  if (sense->Cause == kNoDisc) return Empty(drive(), sense->Detail);
  const bool waiting =
      sense->Cause == kInTransition && sense->Detail != kNeedsStart && sense->Detail != kNeedsHand;
  return waiting ? DriveState::NotYet : DriveState::Ready;
}

DriveState Watched::Empty(int drive, int detail) {
  if (detail == kTrayClosed) return DriveState::Empty;
  if (closing_) return DriveState::NotYet;
  const auto refusal = Tell(drive, kCloseTray);
  if (!refusal) return DriveState::Gone;
  if (refusal->Key == kAttention) return DriveState::NotYet;
  closing_ = refusal->Key == 0;
  return closing_ ? DriveState::NotYet : DriveState::Empty;
}

}  // namespace

DriveHold HoldOf(const std::string& device) {
  const Opened drive(device, O_RDONLY | O_EXCL);
  if (drive.IsOpen()) return DriveHold::Free;
  return errno == EBUSY ? DriveHold::Held : DriveHold::Gone;
}

DriveState WaitForDrive(const std::string& device, std::chrono::milliseconds most,
                        const std::function<bool()>& unwanted) {
  Watched drive(device);
  const auto start = Clock::now();
  auto free = start;  // when the drive was last seen free
  for (;;) {
    const DriveState state = drive.Look();
    if (state != DriveState::Held && state != DriveState::NotYet) return state;
    const auto now = Clock::now();
    if (state != DriveState::Held) free = now;
    if (now - start >= most || now - free >= kMostHeld || unwanted()) return state;
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace vantora
