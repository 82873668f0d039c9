// A file that replaces another one as a whole: it is written under a temporary name in the same
// folder and is deleted unless it is kept. Failures raise a Laufzeitfehler.
#pragma once

#include "backends/linux/descriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vantora {

class ReplacementFile final {
 public:
  // Links are followed: the file behind the link is replaced. The permissions of an older file are
  // kept.
  explicit ReplacementFile(const std::filesystem::path& place);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  int operator()() const { return file_(); }
  void Write(const char* bytes, std::size_t count);
  void Keep();
  void KeepOnDisk();  // like Keep, and it returns when the file would survive a power cut

 private:
  std::filesystem::path place_;
  std::string temporary_;
  Descriptor file_;
};

// The bytes of a small file; nothing when it does not exist. Raises 57 for a file over 16 MiB and
// for anything but a regular file, otherwise the numbers of platform/files.h.
std::optional<std::string> ReadSmallFile(const std::filesystem::path& file);
// Writes the bytes to the disk either completely or not at all.
void WriteSmallFile(const std::filesystem::path& file, std::string_view bytes);
// Removes temporary files beside `file` whose processes have ended. This process itself must not be
// replacing a file in that folder.
void RemoveLeftovers(const std::filesystem::path& file);

}  // namespace vantora
