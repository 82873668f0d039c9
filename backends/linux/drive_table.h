// Drive letters over Linux folders, and the way between `C:\folder\name` and system paths.
//
//   C:      the home; `C:\WINDOWS` is the data folder, `C:\WINDOWS\TEMP` the cache folder
//   D: …    the optical drives, then the embedded image drive, whose tray is `C:\Vantora\Bandeja`
//   then    mounted disks, sticks and network folders; a letter once given stays for the run
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

  std::vector<DriveEntry> Entries() const;  // by letter, after a new look at the mount table
  std::optional<DriveEntry> Entry(wchar_t letter) const;
  wchar_t ImageLetter() const { return imageLetter_; }
  const LinuxPlaces& Places() const { return places_; }

  // A path without a letter lies in `C:\Vantora`, one that begins with a backslash on C:. The tail
  // that does not exist keeps its spelling. Error 76 for a letter or a share that is not there.
  std::filesystem::path SystemPath(const Text& path) const;
  // The same for a path that is spelled as on the disk, without a look at it. Most are, so whoever
  // asks for many files tries this place first.
  std::string ExactPath(const Text& path) const { return SplitPath(path).Path; }
  // The other way, by the longest root that the path lies in; blank for a relative path.
  Text ProductPath(const std::filesystem::path& path) const;
  // Folders that stand in a product folder without lying in its system folder ("WINDOWS" in C:\).
  std::vector<Text> AliasesIn(const Text& folder) const;

  // Makes the folders of the program that are missing, as far as the system allows.
  void MakeFolders() const;

 private:
  struct Alias {
    std::string Names;  // "/windows", as it stands behind the root of C:, in lower case
    Text Spelling;      // "C:\WINDOWS"
    std::filesystem::path Target;
  };
  struct Split {
    std::string Path;
    std::size_t Root;  // the part of it that the drive gives, without a slash behind it
  };

  void LookAtMounts() const;
  Split SplitPath(const Text& given) const;
  std::string RootOf(wchar_t letter) const;
  std::string TakeShare(std::wstring_view& path) const;

  LinuxPlaces places_;
  wchar_t imageLetter_ = L'D';
  std::vector<Alias> aliases_;  // the longest first
  mutable std::mutex mutex_;
  mutable std::vector<DriveEntry> entries_;
};

}  // namespace vantora
