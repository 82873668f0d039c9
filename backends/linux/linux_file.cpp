#include "backends/linux/linux_file.h"

#include "backends/linux/system_error.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace vantora {

namespace {

// Larger than the block size of any file system, and still a valid offset for the kernel.
constexpr std::int64_t kLargestPosition = 1LL << 62;

constexpr std::size_t kFirstBuffer = 512;  // holds the header of nearly every wave file
constexpr std::size_t kBuffer = 4096;
// Bytes mapped at once. They are in the system's page cache and take no memory of the program.
constexpr std::int64_t kMapped = 1 << 24;
constexpr std::int64_t kZeros = 1 << 20;  // written at once
constexpr std::int64_t kNanoseconds = 1'000'000'000;

}  // namespace

Text TimeText(const timespec& time) {
  std::tm utc{};
  if (!::gmtime_r(&time.tv_sec, &utc)) throw DateiFehler(kFehlerEinAusgabe);
  Text text;
  const auto put = [&text](long value, int digits, wchar_t behind) {
    text.resize(text.size() + static_cast<std::size_t>(digits), L'0');
    for (auto digit = text.rbegin(); value > 0 && digit != text.rend(); value /= 10) {
      *digit++ = static_cast<wchar_t>(L'0' + value % 10);
    }
    if (behind != L'\0') text += behind;
  };
  text.reserve(sizeof "2026-11-24 10:00:00.123456789");
  put(utc.tm_year + 1900, 4, L'-');
  put(utc.tm_mon + 1, 2, L'-');
  put(utc.tm_mday, 2, L' ');
  put(utc.tm_hour, 2, L':');
  put(utc.tm_min, 2, L':');
  put(utc.tm_sec, 2, L'.');
  put(time.tv_nsec, 9, L'\0');
  return text;
}

DateiStand StandOf(int descriptor, const std::string& path) {
  struct statx info {};
  const bool open = descriptor != AT_FDCWD;
  if (::statx(descriptor, open ? "" : path.c_str(), open ? AT_EMPTY_PATH : 0,
              STATX_BASIC_STATS | STATX_BTIME, &info) != 0) {
    RaiseErrno(errno, path);
  }
  const auto time = [](const statx_timestamp& stamp) {
    return stamp.tv_sec * kNanoseconds + stamp.tv_nsec;
  };
  return {makedev(info.stx_dev_major, info.stx_dev_minor), info.stx_ino,
          (info.stx_mask & STATX_BTIME) != 0 ? time(info.stx_btime) : 0,
          static_cast<std::int64_t>(info.stx_size), time(info.stx_mtime)};
}

LinuxFile::LinuxFile(Descriptor descriptor, std::string path, const struct stat& info)
    : descriptor_(std::move(descriptor)),
      path_(std::move(path)),
      length_(info.st_size),
      changed_(info.st_mtim) {}

std::int64_t LinuxFile::Length() const {
  if (length_ >= 0) return std::exchange(length_, -1);
  struct stat info {};
  if (::fstat(descriptor_(), &info) != 0) RaiseErrno(errno, path_);
  return info.st_size;
}

void LinuxFile::Seek(std::int64_t position) {
  if (position < 0 || position > kLargestPosition) throw DateiFehler(kFehlerUngueltigerAufruf);
  position_ = position;
  length_ = -1;
}

void LinuxFile::Read(void* target, std::size_t count) {
  if (ReadSome(target, count) != count) throw DateiFehler(kFehlerDateiEnde);
}

std::size_t LinuxFile::ReadSome(void* target, std::size_t count) {
  length_ = -1;
  auto* to = static_cast<char*>(target);
  std::size_t done = 0;
  while (done < count) {
    const std::int64_t inside = position_ - bufferStart_;
    if (inside >= 0 && inside < static_cast<std::int64_t>(bufferBytes_)) {
      const auto from = static_cast<std::size_t>(inside);
      const std::size_t some = std::min(count - done, bufferBytes_ - from);
      std::memcpy(to + done, buffer_.data() + from, some);
      done += some;
      position_ += static_cast<std::int64_t>(some);
      continue;
    }
    if (count - done >= kBuffer) {
      const std::size_t some = ReadAt(to + done, count - done, position_);
      position_ += static_cast<std::int64_t>(some);
      return done + some;
    }
    bufferBytes_ = 0;
    buffer_.resize(buffer_.empty() ? kFirstBuffer : kBuffer);
    bufferBytes_ = ReadAt(buffer_.data(), buffer_.size(), position_);
    bufferStart_ = position_;
    if (bufferBytes_ == 0) break;
  }
  return done;
}

std::size_t LinuxFile::ReadAt(void* target, std::size_t count, std::int64_t position) const {
  auto* to = static_cast<char*>(target);
  std::size_t done = 0;
  while (done < count) {
    const ssize_t some =
        ::pread(descriptor_(), to + done, count - done, position + static_cast<std::int64_t>(done));
    if (some < 0 && errno == EINTR) continue;
    if (some < 0) RaiseErrno(errno, path_);
    if (some == 0) break;
    done += static_cast<std::size_t>(some);
  }
  return done;
}

void LinuxFile::Write(const void* source, std::size_t count) {
  bufferBytes_ = 0;
  length_ = -1;
  const auto* from = static_cast<const char*>(source);
  while (count > 0) {
    const ssize_t some = ::pwrite(descriptor_(), from, count, position_);
    if (some < 0 && errno == EINTR) continue;
    if (some < 0) RaiseErrno(errno, path_);
    from += some;
    count -= static_cast<std::size_t>(some);
    position_ += some;
  }
}

std::size_t LinuxFile::CopyTo(Datei& target, std::size_t count) {
  auto* file = dynamic_cast<LinuxFile*>(&target);
  if (file == nullptr) return Datei::CopyTo(target, count);
  length_ = -1;
  const std::int64_t left = std::max<std::int64_t>(Length() - position_, 0);
  const std::size_t wanted = std::min(count, static_cast<std::size_t>(left));
  std::size_t done = 0;
  while (done < wanted) {
    // Copies up to a multiple of the block size in the target, so that no page of the target is
    // written twice.
    const auto room = static_cast<std::size_t>(kMapped - file->position_ % kMapped);
    const std::size_t some = std::min(wanted - done, room);
    if (!CopyMapped(*file, some)) return done + Datei::CopyTo(target, wanted - done);
    done += some;
  }
  return done;
}

bool LinuxFile::CopyMapped(LinuxFile& target, std::size_t count) {
  static const std::int64_t kPage = ::sysconf(_SC_PAGESIZE);
  const std::int64_t before = position_ % kPage;
  const std::size_t bytes = static_cast<std::size_t>(before) + count;
  void* const pages = ::mmap(nullptr, bytes, PROT_READ, MAP_SHARED | MAP_POPULATE, descriptor_(),
                             position_ - before);
  if (pages == MAP_FAILED) return false;
  const std::unique_ptr<void, std::function<void(void*)>> mapped(
      pages, [bytes](void* start) { ::munmap(start, bytes); });
  target.Write(static_cast<const char*>(pages) + before, count);
  position_ += static_cast<std::int64_t>(count);
  return true;
}

void LinuxFile::Truncate(std::int64_t length) {
  bufferBytes_ = 0;
  length_ = -1;
  if (length < 0) throw DateiFehler(kFehlerUngueltigerAufruf);
  if (::ftruncate(descriptor_(), length) != 0) RaiseErrno(errno, path_);
}

void LinuxFile::Flush() {
  if (::fsync(descriptor_()) != 0) RaiseErrno(errno, path_);
}

void LinuxFile::Reserve(std::int64_t length) {
  const std::int64_t before = Stand().Bytes;
  bufferBytes_ = 0;
  length_ = -1;
  // Reserves from the start of the file, since it may have holes.
  int error = 0;
  do {
    error = ::fallocate(descriptor_(), 0, 0, std::max(length, before)) == 0 ? 0 : errno;
  } while (error == EINTR);
  try {
    // Some file systems cannot reserve. There the file is filled with zeros, which allocates its
    // blocks.
    if (error != 0 && error != EOPNOTSUPP && error != ENOSYS) RaiseErrno(error, path_);
    if (error != 0 && length > before) FillWithZeros(before, length);
    if (::futimens(descriptor_(), nullptr) != 0) RaiseErrno(errno, path_);
  } catch (const Laufzeitfehler&) {
    if (::ftruncate(descriptor_(), before) != 0) RaiseErrno(errno, path_);
    throw;
  }
}

void LinuxFile::FillWithZeros(std::int64_t from, std::int64_t to) {
  const std::vector<char> zeros(static_cast<std::size_t>(std::min(to - from, kZeros)));
  Seek(from);
  while (position_ < to) {
    Write(zeros.data(), static_cast<std::size_t>(std::min(to - position_, kZeros)));
  }
}

DateiStand LinuxFile::Stand() const {
  return StandOf(descriptor_(), path_);
}

bool LinuxFile::Lock() {
  if (::flock(descriptor_(), LOCK_EX | LOCK_NB) == 0) return true;
  if (errno == EWOULDBLOCK) return false;
  RaiseErrno(errno, path_);
}

}  // namespace vantora
