// Digital audio extraction: which devices there are, what lies in the current one, and its tracks
// read into wave files. All calls and all events are on the interface thread.
#pragma once

#include "platform/text.h"

#include <functional>

namespace vantora {

struct AcdEvents {
  std::function<void(int position)> ACD_ActPosition;  // thousandths of the track being read
  std::function<void()> ACD_ReadComplete;
  // A read error has the text "ASPI Error": the read then waits for RetryRead or for its end.
  std::function<void(int code, const Text& text)> ACD_Failure;
};

class Acd {
 public:
  virtual ~Acd() = default;
  AcdEvents Events;

  virtual int Init() = 0;        // 0 for success, also on a machine without a drive
  virtual int DriveCount() = 0;  // devices count from 1
  // Fixed places: 1 to 16 product, 21 and 22 target ID, 24 and 25 LUN.
  virtual Text DriveDescription(int device) = 0;
  virtual void SelectDevice(int device) = 0;
  virtual void CloseDevice() = 0;
  virtual void ResetDevice() = 0;

  // Of the disc in the current device, tracks from 1; 0 and false for a track that is not there.
  virtual int TrackLaengeSektoren(int track) = 0;  // 75 a second
  virtual bool TrackIstAudio(int track) = 0;
  virtual int TrackLaengeMs(int track) = 0;
  // The treble of the track was raised when the disc was made; its wave gets it as it was before.
  virtual bool TrackPreemphasis(int track) = 0;
  // Of the current device, until another is selected: its tracks are read from so many frames
  // behind the place where the disc has them. At the disc's ends there is silence.
  virtual void ReadOffset(int frames) = 0;
  // Starts reading a track into a wave file, which grows as it is read; 0: started. A track that is
  // not there ends the read that runs, within 0.5 s and with no further event, and is refused.
  virtual int ReadTrack(int track, const Text& file) = 0;
  virtual void RetryRead() = 0;  // goes on with a read that has failed, where it failed
};

}  // namespace vantora
