// The per-user store of text values under application, section and key. Values are on the disk when
// `SaveSettings` returns, all of them or none: a store cut off at any byte is the old one or the
// new one. An unreadable store reads as empty, an unwritable one keeps what is saved for the run.
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
  // Afterwards there is no such key; no effect when there was none.
  virtual void DeleteSetting(const Text& application, const Text& section, const Text& key) = 0;

  // Reports that nothing can be written to `place`, and why: once a run, out of the call that
  // failed.
  std::function<void(const Text& place, const Laufzeitfehler& why)> OnUnwritable;
};

}  // namespace vantora
