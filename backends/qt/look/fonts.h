// The fonts of a process: at once the family that the windows are written in, and a little later
// all others of the machine, with its own settings for them.
//
// To read those settings takes longer than to make all windows of a start. Names in other scripts
// need them, the program's own words do not, so they are read in a thread when the first windows
// stand, and what is on the screen is then painted once more.
#pragma once

#include <atomic>
#include <cstdint>
#include <thread>

namespace vantora {

// Made before the QApplication, which asks for fonts.
class Fonts {
 public:
  // Where the family is not in its folder, the toolkit reads everything with its first word.
  Fonts();
  ~Fonts();
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  // Begins to read the rest, which an event of the QApplication's takes over.
  void ReadAll();

  // Reads the rest and takes it over.
  void AwaitAll();

  // To be called before the QApplication goes.
  void Finish();

  // Of the one family's files; 0 as soon as the machine's own settings are being read.
  std::int64_t StampOfFamily() const { return stamp_; }

 private:
  void TakeOver();

  std::int64_t stamp_;
  bool rest_;                          // is still to be read
  std::atomic<void*> read_ = nullptr;  // the library's settings, until they are taken over
  std::thread reader_;
};

}  // namespace vantora
