// Reads audio discs digitally: lists the devices, describes the disc in the current device, and
// reads its tracks into wave files. All calls and all events are on the interface thread.
#pragma once

#include "platform/text.h"

#include <functional>

namespace vantora {

struct AcdEvents {
  std::function<void(int position)> ACD_ActPosition;  // thousandths of the track being read
  std::function<void()> ACD_ReadComplete;
  // A failed read has the text "ASPI Error" and waits for RetryRead, CloseDevice or another
  // ReadTrack. `code` is the number of the error.
  std::function<void(int code, const Text& text)> ACD_Failure;
};

class Acd {
 public:
  virtual ~Acd() = default;
  AcdEvents Events;

  virtual int Init() = 0;        // 0 for success, also on a machine without a drive
  virtual int DriveCount() = 0;  // devices have the numbers 1 to DriveCount
  // A fixed format by columns: 1 to 16 product, 21 and 22 target ID, 24 and 25 LUN. Blank for a
  // device that does not exist.
  virtual Text DriveDescription(int device) = 0;
  virtual void SelectDevice(int device) = 0;
  virtual void CloseDevice() = 0;
  virtual void ResetDevice() = 0;

  // The tracks of the disc in the current device, from 1. The results are 0 and false for a track
  // that does not exist.
  virtual int TrackLaengeSektoren(int track) = 0;  // 75 sectors a second
  virtual bool TrackIstAudio(int track) = 0;
  virtual int TrackLaengeMs(int track) = 0;
  // True for a track that was recorded with raised treble. Its wave file gets the original sound.
  virtual bool TrackPreemphasis(int track) = 0;
  // Sets the read offset of the current device: its tracks are read from `frames` frames after the
  // places in the table of contents, with silence beyond the ends of the disc. Selecting a device
  // resets the offset to 0.
  virtual void ReadOffset(int frames) = 0;
  // Starts reading a track into a wave file and returns 0; the file grows meanwhile. First ends a
  // running read, within 0.5 s and without a further event. Refuses a track that does not exist or
  // is no audio, and a file that cannot be created, with another number and without an event.
  virtual int ReadTrack(int track, const Text& file) = 0;
  virtual void RetryRead() = 0;  // continues a failed read at the same place
};

}  // namespace vantora
