// The fonts of a process: at first only the windows' own family, and soon afterwards all fonts of
// the machine with the system's settings.
//
// Reading these settings takes longer than creating all windows of a start. The program's own words
// do not need them, but names in other scripts do. They are therefore read on a thread after the
// first windows are shown, and the windows are then painted again.
#pragma once

#include <atomic>
#include <thread>

namespace vantora {

// Created before the QApplication, which uses fonts.
class Fonts {
 public:
  // If the family is missing in its folder, the toolkit reads all fonts when it draws its first
  // word.
  Fonts();
  ~Fonts();
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  // Starts reading all fonts. An event of the QApplication completes it.
  void ReadAll();

  // Reads all fonts and completes at once.
  void AwaitAll();

  // Must be called before the QApplication is destroyed.
  void Finish();

 private:
  void TakeOver();

  bool rest_;                          // all fonts are still to be read
  std::atomic<void*> read_ = nullptr;  // fontconfig's new configuration, until TakeOver uses it
  std::thread reader_;
};

}  // namespace vantora
