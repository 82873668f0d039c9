// Keeps the program's own volume from one run to the next, as a card keeps its own.
#pragma once

#include "backends/sound/mixer/output_volume.h"

#include "platform/event_loop.h"
#include "platform/settings_store.h"

#include <memory>

namespace vantora {

class KeptVolume {
 public:
  // Sets the volume to what was kept; a store without one leaves it.
  KeptVolume(OutputVolume& volume, SettingsStore& settings, EventLoop& loop);
  ~KeptVolume();
  KeptVolume(const KeptVolume&) = delete;
  KeptVolume& operator=(const KeptVolume&) = delete;

  void Save();  // what has changed and is not kept yet

 private:
  void Changed();

  OutputVolume& volume_;
  SettingsStore& settings_;
  EventLoop& loop_;
  bool unsaved_ = false;
  std::shared_ptr<int> token_ = std::make_shared<int>(0);  // of the posted work
};

}  // namespace vantora
