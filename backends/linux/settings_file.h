// The settings store as a text file in UTF-8:
//
//   [application\section]
//   key=value
//
// "%" and what would not survive a line (control characters, "=" in a key, blanks at an edge) stand
// as %XX. Keys and sections are found without regard to case; of two equal keys the last one rules.
// Lines that mean nothing here stay where they are. The file is read once; a file that is there but
// cannot be read is never overwritten. Reading it also removes the temporary files that a run left
// behind which was killed while it saved.
#pragma once

#include "platform/settings_store.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantora {

class SettingsFile final : public SettingsStore {
 public:
  explicit SettingsFile(std::filesystem::path file);  // its folder is made when missing

  Text GetSetting(const Text& application, const Text& section, const Text& key,
                  const Text& fallback) override;
  void SaveSettings(const Text& application, const Text& section,
                    const std::vector<KeyValue>& settings) override;
  void DeleteSetting(const Text& application, const Text& section, const Text& key) override;

 private:
  struct Line {
    std::string Raw;  // without its line end
    Text Section;     // the section that the line lies in, as compared
    Text Key;         // as compared; blank: no setting
    Text Value;
  };

  void ReadOnce();
  bool Set(const Text& application, const Text& section, const Text& key, const Text& value);
  void Parse(const std::string& bytes);
  void Add(const Text& section, const std::string& head, const Text& key, const std::string& raw,
           const Text& value);
  void FindPlaces();
  void Write();
  void Report(const Laufzeitfehler& why);

  std::filesystem::path file_;
  bool read_ = false;
  std::optional<Laufzeitfehler> unreadable_;  // why the file can't be read, nor written then
  bool written_ = true;                       // the last writing has reached the disk
  bool reported_ = false;
  std::vector<Line> lines_;
  std::map<std::pair<Text, Text>, std::size_t> places_;  // section and key: number of the line
};

}  // namespace vantora
