// Private profile files on the Linux file system. New lines end like the file's first line; in a
// new file they end in CR LF. Of two sections or keys with the same name only the first is seen.
#pragma once

#include "backends/linux/drive_table.h"
#include "backends/linux/profile_text.h"

#include "platform/profile.h"

#include <array>
#include <cstdint>
#include <filesystem>

namespace vantora {

class ProfileFiles final : public Profile {
 public:
  explicit ProfileFiles(const DriveTable& table) : table_(table) {}

  std::vector<Text> GetPrivateProfileSectionNames(const Text& file, std::size_t limit) override;
  // Returns at most `limit` characters of the value.
  Text GetPrivateProfileString(const Text& section, const Text& key, const Text& fallback,
                               std::size_t limit, const Text& file) override;
  std::vector<ProfileEntry> GetPrivateProfileSection(const Text& section, std::size_t limit,
                                                     const Text& file) override;
  // Line ends and NULs in the texts become blanks.
  void WritePrivateProfileString(const Text& section, const Text& key, const Text& value,
                                 const Text& file) override;
  void DeletePrivateProfileSection(const Text& section, const Text& file) override;
  Text GetWindowsDirectory() override { return L"C:\\WINDOWS"; }

 private:
  using Stamp = std::array<std::int64_t, 6>;  // changes whenever the file changes

  Stamp StampOfFile() const;  // all zero for a file that is missing
  ProfileText& Read(const Text& file);
  ProfileText& ReadAnew(const Text& file);  // before a change, to keep other programs' changes
  void Save();

  const DriveTable& table_;
  // The last file is kept, since a search through a database asks for thousands of its values.
  Text name_;  // as the caller spelled it
  std::filesystem::path place_;
  Stamp stamp_{};  // all zero: `text_` does not match the file
  ProfileText text_;
};

}  // namespace vantora
