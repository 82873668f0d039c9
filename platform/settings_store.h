// The per-user store of text values under application, section and key. A value is on the disk when
// `SaveSetting` returns, in one piece: a store cut off at any byte is the old one or the new one.
// An unreadable store reads as empty, an unwritable one keeps what is saved for the run.
#pragma once

#include "platform/text.h"

namespace vantora {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual Text GetSetting(const Text& application, const Text& section, const Text& key,
                          const Text& fallback) = 0;
  virtual void SaveSetting(const Text& application, const Text& section, const Text& key,
                           const Text& value) = 0;
  // Afterwards there is no such key; no effect when there was none.
  virtual void DeleteSetting(const Text& application, const Text& section, const Text& key) = 0;
};

}  // namespace vantora
