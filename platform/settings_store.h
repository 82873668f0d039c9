// The user's settings: text values by application, section and key. `SaveSettings` writes all
// values to the disk before it returns, or none: an interrupted write leaves the old file. An
// unreadable store reads as empty. When the store cannot be written, saved values still hold during
// this run.
#pragma once

#include "platform/laufzeitfehler.h"
#include "platform/text.h"

#include <functional>
#include <utility>
#include <vector>

namespace vantora {

class SettingsStore {
 public:
  using KeyValue = std::pair<Text, Text>;

  virtual ~SettingsStore() = default;
  virtual Text GetSetting(const Text& application, const Text& section, const Text& key,
                          const Text& fallback) = 0;
  virtual void SaveSettings(const Text& application, const Text& section,
                            const std::vector<KeyValue>& settings) = 0;
  void SaveSetting(const Text& application, const Text& section, const Text& key,
                   const Text& value) {
    SaveSettings(application, section, {{key, value}});
  }
  // Removes the key if it exists.
  virtual void DeleteSetting(const Text& application, const Text& section, const Text& key) = 0;

  // Called when the file `place` cannot be written, with the reason: once a run, from the call that
  // failed.
  std::function<void(const Text& place, const Laufzeitfehler& why)> OnUnwritable;
};

}  // namespace vantora
