// Waits for a drive before the library opens it. The library itself would wait too, but for minutes
// and without a way to cancel.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace vantora {

// Whether a program uses the drive exclusively. The library would wait many seconds to find out.
enum class DriveHold { Free, Held, Gone };
DriveHold HoldOf(const std::string& device);

enum class DriveState {
  Ready,   // it has a disc, and was free a moment ago
  Empty,   // no disc, and the tray is closed or the drive cannot close it
  NotYet,  // it is still loading its disc
  Held,    // another program uses it
  Gone,
};

// Closes the tray and waits for at most `most`. Returns earlier when the drive is ready, when it
// will certainly not become ready, or when `unwanted` returns true. While another program uses the
// drive, waits two seconds: the system itself opens a drive for a moment after each change of the
// disc.
DriveState WaitForDrive(const std::string& device, std::chrono::milliseconds most,
                        const std::function<bool()>& unwanted);

}  // namespace vantora
