// The settings store as a text file in UTF-8:
//
//   [application\section]
//   key=value
//
// "%" and what would not survive a line (control characters, "=" in a key, blanks at an edge) stand
// as %XX. Keys and sections are found without regard to case; of two equal keys the last one rules.
// Lines that mean nothing here stay where they are. The file is read once; a file that is there but
// cannot be read is never overwritten.
#pragma once

#include "platform/settings_store.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace vantora {

class SettingsFile final : public SettingsStore {
 public:
  explicit SettingsFile(std::filesystem::path file);  // its folder is made when missing

  Text GetSetting(const Text& application, const Text& section, const Text& key,
                  const Text& fallback) override;
  void SaveSetting(const Text& application, const Text& section, const Text& key,
                   const Text& value) override;

 private:
  struct Line {
    std::string Raw;  // without its line end
    Text Section;     // "application\section" in lower case; the section that the line lies in
    Text Value;
  };

  void ReadOnce();
  void Parse(const std::string& bytes);
  std::size_t PlaceInSection(const Text& section, const Text& head);
  std::string AsBytes() const;

  std::filesystem::path file_;
  bool read_ = false;
  bool writable_ = true;
  std::vector<Line> lines_;
};

}  // namespace vantora
