// Private profile files (sections of key=value lines). A name without a path lies in the program's
// data directory. Sections and keys are compared without regard to case; a value loses the quotes
// and blanks around it. Text is Windows-1252. Files are replaced as a whole, never half written;
// nothing is reported, as a caller could do nothing about it.
#pragma once

#include "platform/text.h"

#include <cstddef>
#include <vector>

namespace vantora {

struct ProfileEntry {
  Text Key, Value;
};

class Profile {
 public:
  virtual ~Profile() = default;
  // Section names, cut off where their texts with a NUL each would pass `limit` characters.
  virtual std::vector<Text> GetPrivateProfileSectionNames(const Text& file, std::size_t limit) = 0;
  virtual Text GetPrivateProfileString(const Text& section, const Text& key, const Text& fallback,
                                       std::size_t limit, const Text& file) = 0;
  // All that a section holds, in the file's order; a key that comes twice is there twice. At most
  // `limit` characters of a value.
  virtual std::vector<ProfileEntry> GetPrivateProfileSection(const Text& section, std::size_t limit,
                                                             const Text& file) = 0;
  virtual void WritePrivateProfileString(const Text& section, const Text& key, const Text& value,
                                         const Text& file) = 0;
  virtual void DeletePrivateProfileSection(const Text& section, const Text& file) = 0;
  virtual Text GetWindowsDirectory() = 0;  // the program's data directory, "C:\WINDOWS"
};

}  // namespace vantora
