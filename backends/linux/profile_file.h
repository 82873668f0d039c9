// Private profile files on the Linux file system. New lines end as the file's first line does, in a
// new file with CR and LF. Of two sections of one name only the first is seen.
#pragma once

#include "backends/linux/drive_table.h"

#include "platform/profile.h"

namespace vantora {

class ProfileFiles final : public Profile {
 public:
  explicit ProfileFiles(const DriveTable& table) : table_(table) {}

  std::vector<Text> GetPrivateProfileSectionNames(const Text& file, std::size_t limit) override;
  // At most `limit` characters of the value.
  Text GetPrivateProfileString(const Text& section, const Text& key, const Text& fallback,
                               std::size_t limit, const Text& file) override;
  // Line ends and NULs inside the texts become blanks.
  void WritePrivateProfileString(const Text& section, const Text& key, const Text& value,
                                 const Text& file) override;
  void DeletePrivateProfileSection(const Text& section, const Text& file) override;
  Text GetWindowsDirectory() override { return L"C:\\WINDOWS"; }

 private:
  std::filesystem::path Place(const Text& file) const;

  const DriveTable& table_;
};

}  // namespace vantora
