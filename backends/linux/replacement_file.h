// A file that takes the place of another as a whole: it grows under a temporary name in the same
// folder and disappears unless it is kept. Failures are Laufzeitfehler.
#pragma once

#include "backends/linux/descriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vantora {

class ReplacementFile final {
 public:
  // A link is followed: the file behind it is replaced. An older file's permissions are taken over.
  explicit ReplacementFile(const std::filesystem::path& place);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  int operator()() const { return file_(); }
  void Write(const char* bytes, std::size_t count);
  void Keep();
  void KeepOnDisk();  // the same, and it survives a power cut from here on

 private:
  std::filesystem::path place_;
  std::string temporary_;
  Descriptor file_;
};

// The bytes of a small file; nothing when it is missing. Error 57 for more than 16 MiB and for what
// is no file, the numbers of platform/files.h for the rest.
std::optional<std::string> ReadSmallFile(const std::filesystem::path& file);
// Puts the bytes on the disk as a whole or not at all.
void WriteSmallFile(const std::filesystem::path& file, std::string_view bytes);
// Removes the temporary files beside a file that processes left there which are no longer running.
// To be called when this process has no replacement under way in that folder.
void RemoveLeftovers(const std::filesystem::path& file);

}  // namespace vantora
