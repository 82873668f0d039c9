// Plays audio discs, under the names of the media control interface. All calls and events are on
// the interface thread.
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

// The reason why an image in a drive cannot be used as a disc.
struct SheetFault {
  Text Sheet;    // name of the file that describes the image
  int Line = 0;  // line of the sheet, from 1
  Text File;     // the file that is missing or unreadable; blank when the line is invalid
};

class MMControl {
 public:
  virtual ~MMControl() = default;
  virtual void FileName(const Text& name) = 0;    // the drive ("D:\") for the next Open
  virtual void DeviceType(const Text& type) = 0;  // "CDAudio"
  virtual void UpdateInterval(int ms) = 0;        // between StatusUpdate events; 0: none
  virtual void Command(
      const Text& command) = 0;  // "Open", "Close", "play", "Stop", "Pause", "seek"
  virtual int Mode() = 0;        // one of MciMode
  virtual int Tracks() = 0;      // 0 without a disc
  virtual int Length() = 0;      // in the current time format
  // The fault of the image in the drive. Its Sheet is blank when there is no image or a valid one.
  virtual SheetFault Fault() { return {}; }
  virtual void Track(int track) = 0;        // the track of TrackLength, from 1
  virtual int TrackLength() = 0;            // in the current time format; 0 for a missing track
  virtual void TimeFormat(int format) = 0;  // one of MciTimeFormat
  virtual int TimeFormat() = 0;
  // The position of the sound heard. In TMSF each part is one byte: track (lowest), minutes,
  // seconds, frames.
  virtual int Position() = 0;
  virtual void To(int position) = 0;  // the target of "seek", in the current time format

  std::function<void()> StatusUpdate;
};

class Mci {
 public:
  virtual ~Mci() = default;
  virtual Text mciSendString(const Text& command) = 0;  // result of the command; blank on failure
  // The media identity of the disc in a drive ("D:\"), as the decimal text that the system returns;
  // blank when there is no disc.
  virtual Text MediaIdentity(const Text& drive) = 0;
  // The media identity of the disc that was written last in a drive. It differs from MediaIdentity
  // only for writers whose discs are not in their drive afterwards.
  virtual Text WrittenIdentity(const Text& drive) { return MediaIdentity(drive); }

  // Opens the disc in a drive as a "cdaudio" device until MCI_CLOSE. Returns its number, from 1; -1
  // when there is no drive or no disc.
  virtual int MCI_OPEN(const Text& drive) = 0;
  virtual bool MCI_SET(int device, int timeFormat) = 0;  // `timeFormat` is a MciTimeFormat
  // `item` is a MciStatusItem, `track` counts from 1; 0 stands for the whole disc. Times in the
  // format MSF have minutes in byte 0, seconds in byte 1 and frames in byte 2. Returns -1 on
  // failure.
  virtual std::int32_t MCI_STATUS(int device, int item, int track) = 0;
  virtual void MCI_CLOSE(int device) = 0;
};

}  // namespace vantora
