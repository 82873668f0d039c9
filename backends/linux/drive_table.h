// Maps drive letters to Linux folders, and converts between `C:\folder\name` and system paths.
//
//   C:      the home; `C:\WINDOWS` is the data folder, `C:\WINDOWS\TEMP` the cache folder
//   D: …    the optical drives, then the embedded image drive, whose tray is `C:\Vantora\Bandeja`
//   then    mounted disks, sticks and network folders; a letter stays the same during a run
//   Z:      the whole file system
//
// Names match exactly first, then without regard to case. May be used from any thread.
#pragma once

#include "backends/linux/linux_places.h"

#include "platform/text.h"

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantora {

struct DriveEntry {
  wchar_t Letter;
  int Type;                    // one of DriveType
  std::filesystem::path Root;  // blank: an optical drive without a mounted disc
  std::string Device;          // "/dev/sr0", "/dev/sdb1"; blank for C:, Z: and the image drive
  Text NetworkPath;            // "\\server\share"; blank for local drives
};

class DriveTable final {
 public:
  explicit DriveTable(LinuxPlaces places);

  std::vector<DriveEntry> Entries() const;  // by letter; reads the mount table again
  std::optional<DriveEntry> Entry(wchar_t letter) const;
  wchar_t ImageLetter() const { return imageLetter_; }
  const LinuxPlaces& Places() const { return places_; }

  // A path without a letter is relative to `C:\Vantora`; one that begins with a backslash is on C:.
  // Names at the end of the path that do not exist keep their spelling. Raises 76 for a letter or a
  // share that does not exist.
  std::filesystem::path SystemPath(const Text& path) const;
  // The system path without a search that ignores case, so it is right only for a path spelled as
  // on the disk. Most paths are, so callers with many files try this one first.
  std::string ExactPath(const Text& path) const { return SplitPath(path).Path; }
  // Converts a system path to a product path by the longest root that contains it; blank for a
  // relative path.
  Text ProductPath(const std::filesystem::path& path) const;
  // Folders that appear in a product folder although they lie elsewhere in the file system
  // ("WINDOWS" in C:\).
  std::vector<Text> AliasesIn(const Text& folder) const;

  // Creates the missing folders of the program, as far as the system allows.
  void MakeFolders() const;

 private:
  struct Alias {
    std::string Names;  // "/windows": its path below the root of C:, in lower case
    Text Spelling;      // "C:\WINDOWS"
    std::filesystem::path Target;
  };
  struct Split {
    std::string Path;
    std::size_t Root;  // length of the drive's part of it, without a slash at the end
  };

  void LookAtMounts() const;
  Split SplitPath(const Text& given) const;
  std::string RootOf(wchar_t letter) const;
  std::string TakeShare(std::wstring_view& path) const;

  LinuxPlaces places_;
  wchar_t imageLetter_ = L'D';
  std::vector<Alias> aliases_;  // longest first
  mutable std::mutex mutex_;
  mutable std::vector<DriveEntry> entries_;
};

}  // namespace vantora
