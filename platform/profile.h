// Private profile files (sections of key=value lines). A file name without a path belongs to the
// program's data directory. Sections and keys are compared without regard to case. Quotes and
// blanks around a value are removed. Text is Windows-1252. A file is always replaced as a whole.
// Errors are not reported, since callers of this interface cannot handle them: an unreadable file
// reads as empty, and a failed write changes nothing.
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
  // Names of the sections, limited to `limit` characters in all, where each name counts one more
  // for its NUL.
  virtual std::vector<Text> GetPrivateProfileSectionNames(const Text& file, std::size_t limit) = 0;
  virtual Text GetPrivateProfileString(const Text& section, const Text& key, const Text& fallback,
                                       std::size_t limit, const Text& file) = 0;
  // All entries of a section in the order of the file, including repeated keys. Values are limited
  // to `limit` characters.
  virtual std::vector<ProfileEntry> GetPrivateProfileSection(const Text& section, std::size_t limit,
                                                             const Text& file) = 0;
  virtual void WritePrivateProfileString(const Text& section, const Text& key, const Text& value,
                                         const Text& file) = 0;
  virtual void DeletePrivateProfileSection(const Text& section, const Text& file) = 0;
  virtual Text GetWindowsDirectory() = 0;  // the program's data directory, "C:\WINDOWS"
};

}  // namespace vantora
