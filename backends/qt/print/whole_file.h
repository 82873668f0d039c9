// Files that are there whole or not at all.
#pragma once

#include <QByteArray>

#include <filesystem>

namespace vantora {

// Writes under another name beside the file, brings it to the disk and renames it. Raises 70, 75,
// 76, 61 or 57; what stood under the name before is then still there.
void WriteWhole(const std::filesystem::path& path, const QByteArray& bytes);

// A file in the system's folder for such, gone with its owner.
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
