// Files that are written either completely or not at all.
#pragma once

#include <QByteArray>

#include <filesystem>

namespace vantora {

// Writes a temporary file beside `path`, syncs it to the disk and renames it. Raises 70, 75, 76, 61
// or 57; a file that `path` named before is then unchanged.
void WriteWhole(const std::filesystem::path& path, const QByteArray& bytes);

// A file in the system's temporary folder, deleted with this object.
class ScratchFile {
 public:
  explicit ScratchFile(const QByteArray& bytes);
  ~ScratchFile();
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace vantora
