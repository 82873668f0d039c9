// The bytes of one profile file and what they mean. Lines that are not touched keep every byte.
//
// A file is looked through once for its sections, and a section for a key whenever one is asked
// for.
#pragma once

#include "platform/profile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vantora {

class ProfileText final {
 public:
  explicit ProfileText(std::string bytes = {});
  const std::string& Bytes() const { return bytes_; }

  // The names of the sections as they are spelled, up to so many characters, each with a NUL.
  std::vector<Text> Sections(std::size_t limit) const;
  std::vector<ProfileEntry> Entries(const Text& section, std::size_t limit) const;
  std::optional<Text> Value(const Text& section, const Text& key) const;
  // Both tell whether there was something to change.
  bool SetValue(const Text& section, const Text& key, const Text& value);
  bool RemoveSection(const Text& section);

 private:
  struct Range {
    std::size_t Head, First, End;  // where its lines begin, those below the head, and the next head
  };
  void BuildIndex();
  const Range* Find(const Text& section) const;
  std::optional<std::size_t> Find(const Text& section, const Text& key) const;
  void Insert(std::size_t place, const std::string& line);
  std::size_t NextLine(std::size_t place) const;
  std::string_view Line(std::size_t place, std::size_t next) const;  // without its end
  std::string_view Line(std::size_t place) const { return Line(place, NextLine(place)); }

  std::string bytes_;
  std::string end_ = "\r\n";
  std::vector<std::size_t> heads_;                   // where the "[" of each section stands
  std::unordered_map<std::string, Range> sections_;  // by name in lower case
};

}  // namespace vantora
