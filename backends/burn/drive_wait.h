// Waiting for a drive before the library gets it. The library waits as well, but for minutes, and
// nothing can end that.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace vantora {

// Whether a program has the drive for itself. The library would wait many seconds to find out.
enum class DriveHold { Free, Held, Gone };
DriveHold HoldOf(const std::string& device);

enum class DriveState {
  Ready,   // a disc lies in it, and nobody held it a moment ago
  Empty,   // no disc, and the tray is closed or cannot be closed by the drive
  NotYet,  // it is still taking its disc in
  Held,    // another program has it
  Gone,
};

// Closes the tray, and returns as soon as the drive is ready or will certainly not be; else after
// `most`, or when `unwanted` says that nobody cares any more. Another program's hold is waited for
// two seconds: the system looks into a drive for a moment after each change of the disc.
DriveState WaitForDrive(const std::string& device, std::chrono::milliseconds most,
                        const std::function<bool()>& unwanted);

}  // namespace vantora
