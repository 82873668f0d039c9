// Plays audio discs, under the names of the media control interface.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <functional>

namespace vantora {

enum MciMode : int {
  kMciNotOpen = 524,
  kMciStop = 525,
  kMciPlay = 526,
  kMciPause = 529,
  kMciReady = 530
};
enum MciTimeFormat : int { kMciMilliseconds = 0, kMciMsf = 2, kMciTmsf = 10 };
enum MciStatusItem : int { kMciLength = 1, kMciPosition = 2, kMciNumberOfTracks = 3 };

// Why the image that lies in a drive is no disc.
struct SheetFault {
  Text Sheet;    // name of the file that describes it
  int Line = 0;  // of the sheet, from 1
  Text File;     // that is missing or cannot be read; blank when the line was not understood
};

class MMControl {
 public:
  virtual ~MMControl() = default;
  virtual void FileName(const Text& name) = 0;
  virtual void DeviceType(const Text& type) = 0;
  virtual void UpdateInterval(int ms) = 0;  // of StatusUpdate; 0 for none
  virtual void Command(
      const Text& command) = 0;  // "Open", "Close", "play", "Stop", "Pause", "seek"
  virtual int Mode() = 0;        // one of MciMode
  virtual int Tracks() = 0;      // 0 without a disc
  virtual int Length() = 0;      // in the time format
  // For an image that is no disc; a blank sheet when there is none, or one that is a disc.
  virtual SheetFault Fault() { return {}; }
  virtual void Track(int track) = 0;
  virtual int TrackLength() = 0;
  virtual void TimeFormat(int format) = 0;
  virtual int TimeFormat() = 0;
  virtual int Position() = 0;  // tracks/minutes/seconds/frames: one byte each, track lowest
  virtual void To(int position) = 0;

  std::function<void()> StatusUpdate;
};

class Mci {
 public:
  virtual ~Mci() = default;
  virtual Text mciSendString(const Text& command) = 0;  // the answer; blank on failure
  // The media identity of the disc in a drive ("D:\") as the decimal text that the system gives;
  // blank when there is no disc.
  virtual Text MediaIdentity(const Text& drive) = 0;
  // The same of the disc that was written last in that drive. Only a writer whose discs do not lie
  // in its drive afterwards has another answer than the one above.
  virtual Text WrittenIdentity(const Text& drive) { return MediaIdentity(drive); }

  // A drive as the device "cdaudio", for as long as it takes to ask. The number of the device from
  // 1; -1 when there is no drive or no disc.
  virtual int MCI_OPEN(const Text& drive) = 0;
  virtual bool MCI_SET(int device, int timeFormat) = 0;  // one of MciTimeFormat
  // `track` from 1; 0 asks for the whole disc. Times in the format MSF: minutes in byte 0, seconds
  // in byte 1, frames in byte 2. -1 on failure.
  virtual std::int32_t MCI_STATUS(int device, int item, int track) = 0;
  virtual void MCI_CLOSE(int device) = 0;
};

}  // namespace vantora
