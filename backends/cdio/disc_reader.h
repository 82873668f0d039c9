// Reads tracks digitally: from optical drives with the paranoia reader, from the embedded drive as
// they lie in the image. Pre-emphasis is taken off.
//
// Whatever ends a read, the file's header tells what the file holds. A file that cannot be made is
// refused with the number of the error. Everything that stops a read short, the disk that takes the
// file included, is told as "ASPI Error", since there is no other failure after which somebody
// tries again or gives up; its code is the number of the error.
//
// A drive that struggles with a scratch answers after many seconds. Nobody waits for it to end a
// read: that ends by itself, and only who wants the disc again before waits a while.
#pragma once

#include "backends/cdio/disc_drives.h"

#include "platform/acd.h"
#include "platform/background.h"
#include "platform/event_loop.h"

#include <memory>

namespace vantora {

class TrackRead;

class DiscReader final : public Acd {
 public:
  DiscReader(Dateien& files, EventLoop& loop, Background& background, const DiscDrives& drives);
  ~DiscReader() override;

  // How many times as fast as it is played the next track is read, for tests and demonstrations; 0
  // for as fast as it goes.
  double Pace = 0;

  int Init() override { return 0; }
  int DriveCount() override { return static_cast<int>(drives_.All().size()); }
  Text DriveDescription(int device) override;
  void SelectDevice(int device) override;
  void CloseDevice() override;  // ends a read that runs
  void ResetDevice() override { CloseDevice(); }

  int TrackLaengeSektoren(int track) override;
  bool TrackIstAudio(int track) override;
  bool TrackPreemphasis(int track) override;
  void ReadOffset(int frames) override { offset_ = frames; }
  int TrackLaengeMs(int track) override { return CdMilliseconds(TrackLaengeSektoren(track)); }
  int ReadTrack(int track, const Text& file) override;  // refuses data tracks too
  void RetryRead() override;

 private:
  Disc* Medium();
  void StartSlices();
  void Ended(int code);
  void Abandon();
  void AwaitAbandoned();

  Dateien& files_;
  EventLoop& loop_;
  Background& background_;
  const DiscDrives& drives_;
  int device_ = 1;
  bool selected_ = false;
  int offset_ = 0;  // of the current device
  std::shared_ptr<Disc> disc_;
  // What is posted carries the token of its read: what one that was given up still had to say is
  // not told.
  std::shared_ptr<int> token_ = std::make_shared<int>(0);
  bool failed_ = false;  // the read waits for RetryRead
  std::shared_ptr<TrackRead> read_;
  std::unique_ptr<BackgroundJob> job_;  // behind `read_`: ends first
  std::weak_ptr<TrackRead> abandoned_;  // that still sits in the drive
};

}  // namespace vantora
