// The lines of one profile file and what they mean. Lines that are not touched keep every byte.
#pragma once

#include "platform/text.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantora {

class ProfileText final {
 public:
  explicit ProfileText(std::string_view bytes = {});
  std::string Bytes() const;

  const std::vector<Text>& Sections() const { return names_; }  // as they are spelled
  std::optional<Text> Value(const Text& section, const Text& key) const;
  // Both tell whether there was something to change.
  bool SetValue(const Text& section, const Text& key, const Text& value);
  bool RemoveSection(const Text& section);

 private:
  struct Range {
    std::size_t First, End;  // lines below the head, to the next head
  };
  void BuildIndex();
  void Insert(std::size_t number, const Text& line);
  Text Line(std::size_t number) const;  // without its end

  std::vector<Text> lines_;  // each with its own line end
  Text end_ = L"\r\n";
  std::vector<Text> names_;
  std::map<Text, Range> sections_;                       // by name in lower case
  std::map<std::pair<Text, Text>, std::size_t> places_;  // section and key in lower case: line
};

}  // namespace vantora
