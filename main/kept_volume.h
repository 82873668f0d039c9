// Keeps the program's own volume from one run to the next, as a sound card keeps its volume.
#pragma once

#include "backends/sound/mixer/output_volume.h"

#include "platform/event_loop.h"
#include "platform/settings_store.h"

#include <memory>

namespace vantora {

class KeptVolume {
 public:
  // Sets the volume to the stored value; without a stored value it stays unchanged.
  KeptVolume(OutputVolume& volume, SettingsStore& settings, EventLoop& loop);
  ~KeptVolume();
  KeptVolume(const KeptVolume&) = delete;
  KeptVolume& operator=(const KeptVolume&) = delete;

  void Save();  // saves a change that has not been saved yet

 private:
  void Changed();

  OutputVolume& volume_;
  SettingsStore& settings_;
  EventLoop& loop_;
  bool unsaved_ = false;
  // Posted work runs only while this token exists.
  std::shared_ptr<int> token_ = std::make_shared<int>(0);
};

}  // namespace vantora
