#include "backends/linux/profile_file.h"

#include "backends/linux/replacement_file.h"

#include "platform/laufzeitfehler.h"

#include <sys/stat.h>

namespace vantora {

// All four calls swallow what the file system reports: whoever asks gets an empty file, and whoever
// writes could do nothing about it. The file is as it was then.

std::vector<Text> ProfileFiles::GetPrivateProfileSectionNames(const Text& file, std::size_t limit) {
  std::vector<Text> names;
  try {
    std::size_t used = 0;
    for (const Text& name : Read(file).Sections()) {
      used += name.size() + 1;
      if (used > limit) break;
      names.push_back(name);
    }
  } catch (const Laufzeitfehler&) {
  }
  return names;
}

Text ProfileFiles::GetPrivateProfileString(const Text& section, const Text& key,
                                           const Text& fallback, std::size_t limit,
                                           const Text& file) {
  Text value = fallback;
  try {
    value = Read(file).Value(section, key).value_or(fallback);
  } catch (const Laufzeitfehler&) {
  }
  return value.substr(0, limit);
}

void ProfileFiles::WritePrivateProfileString(const Text& section, const Text& key,
                                             const Text& value, const Text& file) {
  try {
    if (Read(file).SetValue(section, key, value)) Save();
  } catch (const Laufzeitfehler&) {
  }
}

void ProfileFiles::DeletePrivateProfileSection(const Text& section, const Text& file) {
  try {
    if (Read(file).RemoveSection(section)) Save();
  } catch (const Laufzeitfehler&) {
  }
}

ProfileFiles::Stamp ProfileFiles::StampOf(const std::filesystem::path& file) {
  struct stat info {};
  if (::stat(file.c_str(), &info) != 0) return {};
  return {static_cast<std::int64_t>(info.st_dev), static_cast<std::int64_t>(info.st_ino),
          info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

ProfileText& ProfileFiles::Read(const Text& file) {
  const bool bare = file.find_first_of(L"\\/:") == Text::npos;
  const std::filesystem::path place =
      table_.SystemPath(bare ? GetWindowsDirectory() + L"\\" + file : file);
  const Stamp stamp = StampOf(place);
  if (place == place_ && stamp == stamp_ && stamp != Stamp{}) return text_;
  place_.clear();
  text_ = ProfileText(ReadSmallFile(place).value_or(std::string()));
  place_ = place;
  stamp_ = stamp;
  return text_;
}

void ProfileFiles::Save() {
  const std::filesystem::path place = place_;
  place_.clear();  // what cannot be written is read again
  WriteSmallFile(place, text_.Bytes());
  place_ = place;
  stamp_ = StampOf(place);
}

}  // namespace vantora
