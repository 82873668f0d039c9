// The settings store as a text file in UTF-8:
//
//   [application\section]
//   key=value
//
// "%" and characters that would not survive in a line (control characters, "=" in a key, blanks at
// either end) are escaped as %XX. Keys and sections are found without regard to case; of two equal
// keys the last one counts. Other lines are kept. The file is read once. A file that exists but
// cannot be read is never overwritten. Reading also removes the temporary files of a program that
// was killed while it saved.
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
  explicit SettingsFile(std::filesystem::path file);  // creates the folder if it is missing

  Text GetSetting(const Text& application, const Text& section, const Text& key,
                  const Text& fallback) override;
  void SaveSettings(const Text& application, const Text& section,
                    const std::vector<KeyValue>& settings) override;
  void DeleteSetting(const Text& application, const Text& section, const Text& key) override;

 private:
  struct Line {
    std::string Raw;  // without its line end
    Text Section;     // of the line, in the form used for comparing
    Text Key;         // in the form used for comparing; blank: no setting
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
  std::optional<Laufzeitfehler> unreadable_;  // why the file cannot be read; it is not written then
  bool written_ = true;                       // the last write succeeded
  bool reported_ = false;
  std::vector<Line> lines_;
  std::map<std::pair<Text, Text>, std::size_t> places_;  // line number by section and key
};

}  // namespace vantora
