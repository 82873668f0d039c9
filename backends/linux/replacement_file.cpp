#include "backends/linux/replacement_file.h"

#include "backends/linux/system_error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace vantora {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kSmall = 16U << 20U;
constexpr std::string_view kTemporary = ".vantora-";  // followed by process ID and a number: -12-0

fs::path BehindLinks(const fs::path& place) {
  std::error_code failed;
  if (!fs::is_symlink(place, failed)) return place;
  const fs::path real = fs::canonical(place, failed);
  return failed ? place : real;
}

// The ID of the process that a temporary file belongs to; 0 for any other file.
pid_t OwnerOf(std::string_view name) {
  if (!name.starts_with(kTemporary)) return 0;
  name.remove_prefix(kTemporary.size());
  pid_t owner = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), owner);
  const bool whole = error == std::errc() && end != name.data() + name.size() && *end == '-';
  return whole && owner > 0 ? owner : 0;
}

}  // namespace

ReplacementFile::ReplacementFile(const fs::path& place) : place_(BehindLinks(place)) {
  const std::string start =
      (place_.parent_path() / kTemporary).string() + std::to_string(::getpid()) + "-";
  for (int number = 0; number < 1000 && !file_.IsOpen(); ++number) {
    temporary_ = start + std::to_string(number);
    file_ = Descriptor(::open(temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file_.IsOpen() && errno != EEXIST) break;
  }
  if (!file_.IsOpen()) {
    temporary_.clear();
    RaiseErrno(errno, place_);
  }
  struct stat old {};
  if (::stat(place_.c_str(), &old) == 0) ::fchmod(file_(), old.st_mode & 0777U);
}

ReplacementFile::~ReplacementFile() {
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void ReplacementFile::Write(const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t some = ::write(file_(), bytes, count);
    if (some < 0 && errno == EINTR) continue;
    if (some < 0) RaiseErrno(errno, place_);
    bytes += some;
    count -= static_cast<std::size_t>(some);
  }
}

void ReplacementFile::Keep() {
  if (!file_.Close()) RaiseErrno(errno, place_);
  if (::rename(temporary_.c_str(), place_.c_str()) != 0) RaiseErrno(errno, place_);
  temporary_.clear();
}

void ReplacementFile::KeepOnDisk() {
  if (::fsync(file_()) != 0) RaiseErrno(errno, place_);
  Keep();
  const Descriptor folder(::open(place_.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) ::fsync(folder());  // some file systems do not support fsync for folders
}

std::optional<std::string> ReadSmallFile(const fs::path& file) {
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!descriptor.IsOpen()) {
    if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
    RaiseErrno(errno, file);
  }
  struct stat info {};
  if (::fstat(descriptor(), &info) != 0) RaiseErrno(errno, file);
  if (!S_ISREG(info.st_mode)) throw DateiFehler(kFehlerEinAusgabe);
  std::string bytes;
  bytes.reserve(std::min(static_cast<std::size_t>(info.st_size), kSmall));
  std::array<char, 16384> block{};
  for (;;) {
    const ssize_t some = ::read(descriptor(), block.data(), block.size());
    if (some < 0 && errno == EINTR) continue;
    if (some < 0) RaiseErrno(errno, file);
    if (some == 0) return bytes;
    bytes.append(block.data(), static_cast<std::size_t>(some));
    if (bytes.size() > kSmall) throw DateiFehler(kFehlerEinAusgabe);
  }
}

void WriteSmallFile(const fs::path& file, std::string_view bytes) {
  std::error_code left;  // creating the file reports a missing folder
  fs::create_directories(file.parent_path(), left);
  ReplacementFile replacement(file);
  replacement.Write(bytes.data(), bytes.size());
  replacement.KeepOnDisk();
}

void RemoveLeftovers(const fs::path& file) {
  std::error_code failed;  // a file that cannot be listed or removed stays until another start
  for (fs::directory_iterator entry(BehindLinks(file).parent_path(), failed), end;
       !failed && entry != end; entry.increment(failed)) {
    const pid_t owner = OwnerOf(entry->path().filename().native());
    if (owner == 0) continue;
    // A file with this process's own ID is from an older process with the same ID.
    const bool running = owner != ::getpid() && (::kill(owner, 0) == 0 || errno != ESRCH);
    if (!running) ::unlink(entry->path().c_str());
  }
}

}  // namespace vantora
