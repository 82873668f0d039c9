// A library to be preloaded (LD_PRELOAD), which shows the libraries that read and write discs one
// emulated optical drive, /dev/sr0 (also /dev/cdrom). With VANTORA_EMULATED_DRIVE=FOLDER in the
// environment, that folder holds the drive, its discs and its faults (see script.h and disc.h).
// Without it, every call is passed on unchanged.
//
// Only the calls that those libraries and the standard library use for drives are replaced. An open
// device is an open file in the folder, so the system itself handles locks, duplicates and closing
// at the end of a program. Requests by ioctl go to the emulated drive.
#include "tests/emulators/drive/requests.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <fstream>
#include <linux/cdrom.h>
#include <mutex>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace vantora::emulated {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlockFolder = "/sys/class/block";
constexpr std::string_view kDriveTable = "/proc/sys/dev/cdrom/info";

enum Use : unsigned char { kNone, kShared, kExclusive };

struct EmulatedDrive {
  fs::path Folder;
  Drive TheDrive;
  Requests TheRequests{TheDrive};
  std::mutex Mutex;

  explicit EmulatedDrive(const char* folder) : Folder(fs::absolute(folder)), TheDrive(Folder) {
    const fs::path device = Folder / "machine/block/sr0/device";
    fs::create_directories(device);
    std::ofstream(device / "vendor") << "EMULATED\n";
    std::ofstream(device / "model") << "CD-RW 48X16X48  \n";
    std::ofstream(device / "rev") << "1.04\n";
    std::ofstream(device / "type") << "5\n";
    std::ofstream(Folder / "machine/info") << "CD-ROM information\n\ndrive name:\t\tsr0\n";
    std::ofstream(Folder / "machine/sr0", std::ios::app);
  }
};

// File descriptors of this process that stand for the drive.
std::array<std::atomic<Use>, 4096> uses{};

EmulatedDrive* Emulated() {
  static const char* const folder = std::getenv("VANTORA_EMULATED_DRIVE");
  if (folder == nullptr || *folder == 0) return nullptr;
  static auto* const emulated =
      new EmulatedDrive(folder);  // never destroyed, as code may still run at exit
  return emulated;
}

template <class Call>
Call Next(const char* name) {
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

bool IsDevice(std::string_view path) {
  return path == "/dev/sr0" || path == "/dev/cdrom";
}

bool IsDrive(int file) {
  return file >= 0 && file < static_cast<int>(uses.size()) &&
         uses[static_cast<std::size_t>(file)] != kNone;
}

// The file of the emulated machine that replaces `path`; blank for other paths.
std::string Instead(std::string_view path) {
  const bool listed = path == kBlockFolder || path == "/sys/class/block/" ||
                      path.starts_with("/sys/class/block/sr0");
  if (!listed && path != kDriveTable && !IsDevice(path)) return {};
  const EmulatedDrive* emulated = Emulated();
  if (emulated == nullptr) return {};
  const fs::path machine = emulated->Folder / "machine";
  if (path == kDriveTable) return machine / "info";
  if (IsDevice(path)) return machine / "sr0";
  return (machine / "block").native() + std::string(path.substr(kBlockFolder.size()));
}

bool HeldExclusively() {
  return std::any_of(uses.begin(), uses.end(), [](const auto& use) { return use == kExclusive; });
}

template <class Open>
int OpenInstead(const char* path, int flags, const Open& open) {
  const std::string instead = Instead(path);
  if (instead.empty()) return open(path);
  if (!IsDevice(path)) return open(instead.c_str());
  EmulatedDrive& emulated = *Emulated();
  std::lock_guard lock(emulated.Mutex);
  const Script script = Script::Load(emulated.Folder);
  const bool exclusive = (flags & O_EXCL) != 0;
  errno = script.Disconnected ? ENXIO : exclusive && (script.Busy || HeldExclusively()) ? EBUSY : 0;
  if (errno != 0) return -1;
  const int file =
      Next<int (*)(const char*, int, ...)>("open")(instead.c_str(), O_RDWR | (flags & O_CLOEXEC));
  if (file >= static_cast<int>(uses.size())) std::abort();
  if (file >= 0) uses[static_cast<std::size_t>(file)] = exclusive ? kExclusive : kShared;
  return file;
}

// Changes the system's description of the placeholder file to that of a drive.
int Device(struct stat* info, int result) {
  if (result != 0) return result;
  info->st_mode = S_IFBLK | 0660;
  info->st_rdev = makedev(11, 0);
  info->st_size = 0;
  return 0;
}

int StatInstead(const char* name, const char* path, struct stat* info) {
  const std::string instead = Instead(path);
  const auto next = Next<int (*)(const char*, struct stat*)>(name);
  const int result = next(instead.empty() ? path : instead.c_str(), info);
  return IsDevice(path) && !instead.empty() ? Device(info, result) : result;
}

}  // namespace

}  // namespace vantora::emulated

using namespace vantora::emulated;

#pragma GCC visibility push(default)

extern "C" {

// Some names are those of an older C library or of fortified functions. A call without a mode
// leaves it undefined, and the system does not look at it.
int OpenPath(const char* path, int flags, mode_t mode) asm("open");
int OpenWithoutMode(const char* path, int flags) asm("__open_2");
int OpenAt(int folder, const char* path, int flags, mode_t mode) asm("openat");
int OldStat(int version, const char* path, struct stat* info) noexcept asm("__xstat");

int OpenPath(const char* path, int flags, mode_t mode) {
  static const auto next = Next<int (*)(const char*, int, ...)>("open");
  return OpenInstead(path, flags, [&](const char* to) { return next(to, flags, mode); });
}

int OpenWithoutMode(const char* path, int flags) {
  return OpenPath(path, flags, 0);
}

int OpenAt(int folder, const char* path, int flags, mode_t mode) {
  static const auto next = Next<int (*)(int, const char*, int, ...)>("openat");
  return OpenInstead(path, flags, [&](const char* to) { return next(folder, to, flags, mode); });
}

FILE* fopen(const char* path, const char* mode) {
  static const auto next = Next<FILE* (*)(const char*, const char*)>("fopen");
  const std::string instead = Instead(path);
  return next(instead.empty() ? path : instead.c_str(), mode);
}

FILE* fopen64(const char*, const char*) __attribute__((alias("fopen")));

int stat(const char* path, struct stat* info) noexcept {
  return StatInstead("stat", path, info);
}

int lstat(const char* path, struct stat* info) noexcept {
  return StatInstead("lstat", path, info);
}

int OldStat(int /*version*/, const char* path, struct stat* info) noexcept {
  return stat(path, info);
}

int fstat(int file, struct stat* info) noexcept {
  static const auto next = Next<int (*)(int, struct stat*)>("fstat");
  const int result = next(file, info);
  return IsDrive(file) ? Device(info, result) : result;
}

int close(int file) {
  static const auto next = Next<int (*)(int)>("close");
  if (IsDrive(file)) uses[static_cast<std::size_t>(file)] = kNone;
  return next(file);
}

int ioctl(int file, unsigned long request, ...) noexcept {
  va_list rest;
  va_start(rest, request);
  void* argument = va_arg(rest, void*);
  va_end(rest);
  static const auto next = Next<int (*)(int, unsigned long, ...)>("ioctl");
  if (!IsDrive(file)) return next(file, request, argument);
  EmulatedDrive& emulated = *Emulated();
  std::lock_guard lock(emulated.Mutex);
  return emulated.TheRequests.Do(request, argument);
}

}  // extern "C"

#pragma GCC visibility pop
