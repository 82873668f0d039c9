// One burn of the embedded writer: copies the waves into an image, slice by slice, and compares it
// with them. The files have temporary names until everything has been written. The comparison reads
// them under their own names, so a finished image stays when the program ends during it.
#pragma once

#include "backends/discimage/cue_sheet.h"
#include "backends/discimage/image_check.h"
#include "backends/discimage/writer_faults.h"
#include "backends/sound/disc/disc_plan.h"

#include "platform/files.h"
#include "platform/mcd.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vantora {

struct BurnOrder {
  bool dao = false, simulation = false, fixate = true;
  std::vector<Text> waves;
  std::map<int, std::pair<Text, Text>> cdText;  // title and performer; 0 is the disc
  Text name;                                    // of the files, with path, without extension
  WriterFaults faults;
};

class ImageBurn {
 public:
  // Both are called from the slices. `Tell` posts an event to the interface thread. `Ended` follows
  // the last event; its argument is empty for success, and the event of the failure otherwise.
  using Event = std::function<void(McdEvents&)>;
  using Tell = std::function<void(Event)>;
  using Ended = std::function<void(Event)>;

  ImageBurn(Dateien& dateien, BurnOrder order, Tell tell, Ended ended);

  int Slice() noexcept;  // a step of a Background job

  // From any thread: a comparison ends, or does not begin. The image is complete without it.
  void StopVerify() { stopVerify_ = true; }

  // For the interface thread, after the last slice: deletes the files of an image that is not
  // complete.
  void Discard() noexcept;

  Text Sheet() const { return order_.name + L".cue"; }
  bool Simulation() const { return order_.simulation; }

  // Removes the temporary files that a killed program left in `folder`. No burn may be running
  // there. When only the sheet still has its temporary name, the disc is complete, and the sheet is
  // renamed instead.
  static void ClearUp(Dateien& dateien, const Text& folder);

 private:
  struct MediumFailed {};

  void Begin();
  void Plan();
  bool Move(std::int64_t budget);
  void BeginTrack();
  void EndTrack();
  void End();
  void Keep();
  bool Verify();
  void ReportPercent(bool always);
  int Delay();
  std::int64_t Budget() const;
  Text Image() const { return order_.name + L".bin"; }
  Text BinTemp() const { return order_.name + L".bin.tmp"; }
  Text CueTemp() const { return order_.name + L".cue.tmp"; }

  Dateien& dateien_;
  BurnOrder order_;
  Tell tell_;
  Ended ended_;
  std::vector<PlannedTrack> tracks_;
  CueSheet sheet_;
  std::unique_ptr<Datei> image_;
  std::unique_ptr<PartReader> sound_;  // of the track being written
  std::vector<char> buffer_;
  std::size_t track_ = 0;                    // being written, from 0
  std::int64_t inTrack_ = 0;                 // bytes of it that are in the image
  std::int64_t done_ = 0, total_ = 0;        // bytes of the image
  std::int64_t failAt_ = -1, wrongAt_ = -1;  // places of the faults in it
  int percent_ = -1;                         // reported last
  std::chrono::steady_clock::time_point toldAt_;
  double nominalMs_ = 0, toldMs_ = 0, passedMs_ = 0;  // at the pace ordered
  bool made_ = false;                                 // temporary files may exist
  std::unique_ptr<ImageCheck> check_;                 // exists when everything has been written
  std::atomic<bool> stopVerify_ = false;
};

}  // namespace vantora
