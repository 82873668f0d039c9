// Files of the Linux file system under the names of the drive table. A path that is not a regular
// file (a pipe, a device) is refused with error 57 before it can block the program. May be used
// from any thread; an open file may be used by one thread at a time.
#pragma once

#include "backends/linux/drive_table.h"

#include "platform/files.h"

#include <sys/stat.h>

namespace vantora {

class LinuxFiles final : public Dateien {
 public:
  explicit LinuxFiles(const DriveTable& table);  // creates the missing folders of the program

  std::unique_ptr<Datei> Open(const Text& path, Zugriff access) override;
  std::int64_t FileLen(const Text& path) override;
  bool IsDirectory(const Text& path) override;
  Text FileDateTime(const Text& path) override;  // UTC
  DateiStand Stand(const Text& path) override;
  Text Medium(const Text& path) override;
  void Kill(const Text& path) override;
  void SetAttrNormal(const Text& path) override;
  // The copy keeps the time of the original. Raises 70 when a file is copied onto itself.
  void FileCopy(const Text& from, const Text& to) override;
  void MkDir(const Text& path) override;
  // List and Folders leave out names that begin with a dot: these are hidden on this system, and
  // the program does not accept them. A blank pattern and "*.*" match every name.
  std::vector<Text> List(const Text& folder, const Text& pattern) override;
  std::vector<Text> Folders(const Text& folder) override;
  std::filesystem::path SystemPath(const Text& path) const override;

 private:
  struct stat Info(const Text& path) const;

  const DriveTable& table_;
};

}  // namespace vantora
