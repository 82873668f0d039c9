// One track on its way into a wave file, in slices of a thread. It belongs to the slices until one
// has returned a negative number, then to the interface thread. One that is given up needs nobody:
// its last slice may still sit in a drive that struggles, and closes the file when it returns.
#pragma once

#include "backends/cdio/track_sound.h"

#include "platform/acd.h"
#include "platform/files.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

namespace vantora {

class TrackRead {
 public:
  using Event = std::function<void(AcdEvents&)>;
  struct Calls {
    std::function<void(const Event&)> Tell;  // from the thread of the slices
    std::function<void(int code)> Ended;     // 0: complete; else it stands where it failed
  };
  // Makes the file, or raises. `pace` times as fast as the disc is played; 0 for as fast as it
  // goes.
  TrackRead(Dateien& files, TrackSound sound, const Text& file, double pace, Calls calls);
  ~TrackRead() { Close(); }
  TrackRead(const TrackRead&) = delete;
  TrackRead& operator=(const TrackRead&) = delete;

  // For a background; goes on where it failed when it is started again.
  int Slice() noexcept;

  // From the interface thread: reads no further sector, and calls nobody from now on.
  void GiveUp();

 private:
  using Time = std::chrono::steady_clock;

  bool Move();  // false: all has been moved
  int ReadBlock(int wanted, Time::time_point until, bool& failed);
  void TellPosition(bool always);
  int Delay();
  void Header();          // true to what the file holds
  void Close() noexcept;  // header and file agree afterwards, as far as the disk allows

  TrackSound sound_;
  int sectors_;
  double pace_;
  void Ended(int code);

  const Calls calls_;
  std::mutex calling_;  // held while somebody is called
  std::atomic<bool> givenUp_ = false;
  std::unique_ptr<Datei> file_;
  std::vector<char> buffer_;
  int done_ = 0;  // sectors in the file
  double nominalMs_ = 0, passedMs_ = 0;
  Time::time_point told_;
};

}  // namespace vantora
