// A machine without a drive for reading: asking is allowed, and nothing is found.
#pragma once

#include "platform/acd.h"
#include "platform/mci.h"

namespace vantora {

class NoAcd final : public Acd {
 public:
  int Init() override { return 0; }
  int DriveCount() override { return 0; }
  Text DriveDescription(int /*device*/) override { return {}; }
  void SelectDevice(int /*device*/) override {}
  void CloseDevice() override {}
  void ResetDevice() override {}
  int TrackLaengeSektoren(int /*track*/) override { return 0; }
  bool TrackIstAudio(int /*track*/) override { return false; }
  int TrackLaengeMs(int /*track*/) override { return 0; }
  int ReadTrack(int /*track*/, const Text& /*file*/) override { return 1; }
  void RetryRead() override {}
};

class NoCd final : public MMControl {
 public:
  void FileName(const Text& /*name*/) override {}
  void DeviceType(const Text& /*type*/) override {}
  void UpdateInterval(int /*ms*/) override {}
  void Command(const Text& /*command*/) override {}
  int Mode() override { return kMciNotOpen; }
  int Tracks() override { return 0; }
  int Length() override { return 0; }
  void Track(int /*track*/) override {}
  int TrackLength() override { return 0; }
  void TimeFormat(int format) override { format_ = format; }
  int TimeFormat() override { return format_; }
  int Position() override { return 0; }
  void To(int /*position*/) override {}

 private:
  int format_ = kMciMilliseconds;
};

class NoMci : public Mci {
 public:
  Text mciSendString(const Text& /*command*/) override { return {}; }
  Text MediaIdentity(const Text& /*drive*/) override { return {}; }
  int MCI_OPEN(const Text& /*drive*/) override { return -1; }
  bool MCI_SET(int /*device*/, int /*timeFormat*/) override { return false; }
  std::int32_t MCI_STATUS(int /*device*/, int /*item*/, int /*track*/) override { return -1; }
  void MCI_CLOSE(int /*device*/) override {}
};

}  // namespace vantora
