#include "backends/linux/profile_file.h"

#include "backends/linux/replacement_file.h"

#include "platform/laufzeitfehler.h"

#include <sys/stat.h>

namespace vantora {

// None of these calls reports file system errors: a read then sees an empty file, and a write
// leaves the file as it is. Callers of this interface cannot handle such errors.

std::vector<Text> ProfileFiles::GetPrivateProfileSectionNames(const Text& file, std::size_t limit) {
  try {
    return Read(file).Sections(limit);
  } catch (const Laufzeitfehler&) {
    return {};
  }
}

Text ProfileFiles::GetPrivateProfileString(const Text& section, const Text& key,
                                           const Text& fallback, std::size_t limit,
                                           const Text& file) {
  std::optional<Text> value;
  try {
    value = Read(file).Value(section, key);
  } catch (const Laufzeitfehler&) {
  }
  if (!value) value = fallback;
  if (value->size() > limit) value->resize(limit);
  return *std::move(value);
}

std::vector<ProfileEntry> ProfileFiles::GetPrivateProfileSection(const Text& section,
                                                                 std::size_t limit,
                                                                 const Text& file) {
  try {
    return Read(file).Entries(section, limit);
  } catch (const Laufzeitfehler&) {
    return {};
  }
}

void ProfileFiles::WritePrivateProfileString(const Text& section, const Text& key,
                                             const Text& value, const Text& file) {
  try {
    if (ReadAnew(file).SetValue(section, key, value)) Save();
  } catch (const Laufzeitfehler&) {
  }
}

void ProfileFiles::DeletePrivateProfileSection(const Text& section, const Text& file) {
  try {
    if (ReadAnew(file).RemoveSection(section)) Save();
  } catch (const Laufzeitfehler&) {
  }
}

ProfileFiles::Stamp ProfileFiles::StampOfFile() const {
  struct stat info {};
  if (::stat(place_.c_str(), &info) != 0) return {};
  return {static_cast<std::int64_t>(info.st_ino),
          info.st_size,
          info.st_mtim.tv_sec,
          info.st_mtim.tv_nsec,
          info.st_ctim.tv_sec,
          info.st_ctim.tv_nsec};
}

ProfileText& ProfileFiles::Read(const Text& file) {
  const bool known = stamp_ != Stamp{} && file == name_ && StampOfFile() == stamp_;
  return known ? text_ : ReadAnew(file);
}

ProfileText& ProfileFiles::ReadAnew(const Text& file) {
  stamp_ = {};
  const bool bare = file.find_first_of(L"\\/:") == Text::npos;
  place_ = table_.SystemPath(bare ? GetWindowsDirectory() + L"\\" + file : file);
  // The stamp is taken before the file is read, so that a change in between is noticed.
  const Stamp stamp = StampOfFile();
  text_ = ProfileText(ReadSmallFile(place_).value_or(std::string()));
  name_ = file;
  stamp_ = stamp;
  return text_;
}

void ProfileFiles::Save() {
  stamp_ = {};  // if the write fails, the file is read again
  WriteSmallFile(place_, text_.Bytes());
  stamp_ = StampOfFile();
}

}  // namespace vantora
