// Copies one track into a wave file, in slices on a background thread. The object belongs to that
// thread until a slice has returned a negative number, and to the interface thread afterwards. An
// abandoned read needs no owner: its last slice may still wait for a drive, and closes the file
// when it returns.
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
    std::function<void(const Event&)> Tell;  // from the background thread
    std::function<void(int code)> Ended;     // 0: complete; else the error that stopped it
  };
  // Creates the file; raises when that fails. `pace` is the speed as a multiple of playing speed; 0
  // for no limit.
  TrackRead(Dateien& files, TrackSound sound, const Text& file, double pace, Calls calls);
  ~TrackRead() { Close(); }
  TrackRead(const TrackRead&) = delete;
  TrackRead& operator=(const TrackRead&) = delete;

  // One step for a background job. When started again after a failure, it goes on at the same
  // place.
  int Slice() noexcept;

  // From the interface thread: no further sector is read, and no callback is called from now on.
  void GiveUp();

 private:
  using Time = std::chrono::steady_clock;

  bool Move();  // false: the sound is complete
  int ReadBlock(int wanted, Time::time_point until, bool& failed);
  void ReportPosition(bool always);
  int Delay();
  void Header();          // updates the header to the sound in the file
  void Close() noexcept;  // makes header and file agree, as far as the disk allows

  TrackSound sound_;
  int sectors_;
  double pace_;
  void Ended(int code);

  const Calls calls_;
  std::mutex calling_;  // held while a callback runs
  std::atomic<bool> givenUp_ = false;
  std::unique_ptr<Datei> file_;
  std::vector<char> buffer_;
  int done_ = 0;  // sectors in the file
  double nominalMs_ = 0, passedMs_ = 0;
  Time::time_point told_;
};

}  // namespace vantora
