// An open regular file. Small reads use a buffer, of 512 bytes for the first read and 4 KiB
// afterwards, so that reading a header step by step costs one system call. Writes are not buffered.
// A read may return buffered bytes that another handle has overwritten meanwhile.
//
// CopyTo between two such files uses no buffer: it maps the source and writes the mapped pages to
// the target. Only the kernel reads these pages, so a file that shrinks meanwhile raises an error
// and does not crash the program.
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

// The state of the open file, or of the file at `path` when `descriptor` is AT_FDCWD.
DateiStand StandOf(int descriptor, const std::string& path);

class LinuxFile final : public Datei {
 public:
  // `info` is the result of fstat for the file just opened.
  LinuxFile(Descriptor descriptor, std::string path, const struct stat& info);

  std::int64_t Length() const override;
  Text DateTime() const override { return TimeText(changed_); }
  std::int64_t Position() const override { return position_; }
  void Seek(std::int64_t position) override;  // raises 5 for a negative one
  void Read(void* target, std::size_t count) override;
  std::size_t ReadSome(void* target, std::size_t count) override;
  void Write(const void* source, std::size_t count) override;
  std::size_t CopyTo(Datei& target, std::size_t count) override;
  void Truncate(std::int64_t length) override;  // a file that grows is filled with zeros
  void Flush() override;
  void Reserve(std::int64_t length) override;
  DateiStand Stand() const override;
  bool Lock() override;

 private:
  void FillWithZeros(std::int64_t from, std::int64_t to);
  std::size_t ReadAt(void* target, std::size_t count, std::int64_t position) const;
  bool CopyMapped(LinuxFile& target, std::size_t count);  // false: mapping is not possible

  Descriptor descriptor_;
  std::string path_;             // for error messages
  mutable std::int64_t length_;  // length at opening, for a Length() that comes first; else -1
  timespec changed_;
  std::int64_t position_ = 0;
  std::vector<char> buffer_;
  std::int64_t bufferStart_ = 0;
  std::size_t bufferBytes_ = 0;
};

}  // namespace vantora
