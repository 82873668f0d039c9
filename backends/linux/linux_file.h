// An open regular file. Small reads come out of a buffer, of 512 bytes for the first and of 4 KiB
// for all others, so that walking a header costs one call; writes go straight to the system. What
// another handle writes may show up to a buffer late.
//
// From one such file into another nothing goes through a buffer: the pages that the system keeps of
// the one are written to the other. Only the system touches them, so a file that shrinks meanwhile
// is an error and no crash.
#pragma once

#include "backends/linux/descriptor.h"

#include "platform/files.h"

#include <ctime>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace vantora {

// "2026-11-24 10:00:00.123456789", UTC.
Text TimeText(const timespec& time);

// Of the open file, or of that under the path when `descriptor` is AT_FDCWD.
DateiStand StandOf(int descriptor, const std::string& path);

class LinuxFile final : public Datei {
 public:
  // `info` is what the system has just told of the file.
  LinuxFile(Descriptor descriptor, std::string path, const struct stat& info);

  std::int64_t Length() const override;
  Text DateTime() const override { return TimeText(changed_); }
  std::int64_t Position() const override { return position_; }
  void Seek(std::int64_t position) override;  // error 5 for a negative one
  void Read(void* target, std::size_t count) override;
  std::size_t ReadSome(void* target, std::size_t count) override;
  void Write(const void* source, std::size_t count) override;
  std::size_t CopyTo(Datei& target, std::size_t count) override;
  void Truncate(std::int64_t length) override;  // a longer file is filled with zeros
  void Flush() override;
  void Reserve(std::int64_t length) override;
  DateiStand Stand() const override;
  bool Lock() override;

 private:
  void FillWithZeros(std::int64_t from, std::int64_t to);
  std::size_t ReadAt(void* target, std::size_t count, std::int64_t position) const;
  bool CopyMapped(LinuxFile& target, std::size_t count);  // false: the system cannot

  Descriptor descriptor_;
  std::string path_;             // for what is told of a failure
  mutable std::int64_t length_;  // for whoever asks before anything else; -1 afterwards
  timespec changed_;
  std::int64_t position_ = 0;
  std::vector<char> buffer_;
  std::int64_t bufferStart_ = 0;
  std::size_t bufferBytes_ = 0;
};

}  // namespace vantora
