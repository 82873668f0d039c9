// A library to be preloaded (LD_PRELOAD) under which the disk fails: at a chosen one of the system
// calls that change files below one folder. Calls elsewhere are passed on unchanged.
//
//   VANTORA_FAULTY_FOLDER   the folder
//   VANTORA_FAULTY_DISK     a file that says what fails; it is read again at every call, and must
//                           not lie in the folder. No file, or an empty one: nothing fails, nothing
//                           is counted. Else "NUMBER KIND": from call NUMBER on, counted from 1 and
//                           from the moment at which the file gets these words:
//
//      count      nothing fails
//      full       nothing can be created, and no file can grow
//      readonly   nothing can be changed
//      vanished   nothing can be reached, not even for reading
//      short      this call alone writes only half of its bytes, and returns their number
//      stop       the process is killed before this call
//      kill       the process is killed in the middle of this call if it writes, else before it
//
// With "count", each counted call is added to the file VANTORA_FAULTY_DISK.calls as a line: its
// name and the path below the folder.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

enum class Kind { Count, Full, ReadOnly, Vanished, Short, Stop, Kill };

// How a call uses the disk. Only the first three are counted.
enum class Use { Grows, Writes, Changes, Looks };

struct State {
  std::mutex Mutex;
  std::string Words;
  Kind What = Kind::Count;
  int At = 0;  // 0: off
  int Made = 0;
};

State& Disk() {
  static auto* const state = new State;  // never destroyed, as code may still run at exit
  return *state;
}

const char* Folder() {
  static const char* const folder = std::getenv("VANTORA_FAULTY_FOLDER");
  return folder;
}

const char* ControlFile() {
  static const char* const file = std::getenv("VANTORA_FAULTY_DISK");
  return file;
}

template <class Call>
Call Next(const char* name) {
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

bool Below(std::string_view path) {
  return Folder() != nullptr && path.starts_with(Folder());
}

std::string PathOf(int file) {
  char path[4096];
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const long length = ::syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), path, sizeof path);
  return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

std::string PathAt(int folder, const char* path) {
  if (path == nullptr || *path == '/') return path == nullptr ? "" : path;
  if (*path == 0) return PathOf(folder);
  char here[4096];
  const bool current = folder == AT_FDCWD && ::getcwd(here, sizeof here) != nullptr;
  return (current ? std::string(here) : PathOf(folder)) + "/" + path;
}

void ReadControl(State& disk) {
  char words[64] = {};
  const long file = ::syscall(SYS_openat, AT_FDCWD, ControlFile(), O_RDONLY | O_CLOEXEC);
  const long length = file < 0 ? 0 : ::syscall(SYS_read, file, words, sizeof words - 1);
  if (file >= 0) ::syscall(SYS_close, file);
  const std::string now(words, length > 0 ? static_cast<std::size_t>(length) : 0);
  if (now == disk.Words) return;
  disk.Words = now;
  disk.Made = disk.At = 0;
  char kind[16] = {};
  if (std::sscanf(now.c_str(), "%d %15s", &disk.At, kind) != 2) return;
  constexpr std::string_view kKinds[] = {"count", "full", "readonly", "vanished",
                                         "short", "stop", "kill"};
  for (std::size_t i = 0; i < std::size(kKinds); ++i) {
    if (kKinds[i] == kind) disk.What = static_cast<Kind>(i);
  }
}

void Log(const char* call, const std::string& path) {
  const std::string name = std::string(ControlFile()) + ".calls";
  const std::string line = std::string(call) + " " + path.substr(std::strlen(Folder())) + "\n";
  const long file = ::syscall(SYS_openat, AT_FDCWD, name.c_str(),
                              O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (file < 0) return;
  ::syscall(SYS_write, file, line.data(), line.size());
  ::syscall(SYS_close, file);
}

[[noreturn]] void Die() {
  ::syscall(SYS_kill, ::getpid(), SIGKILL);
  std::abort();
}

enum class Fate { Done, Failed, Half, HalfThenDeath };

// Decides about a call and sets errno when it fails.
Fate Judge(const char* call, const std::string& path, Use use) {
  if (ControlFile() == nullptr || !Below(path)) return Fate::Done;
  State& disk = Disk();
  const std::lock_guard lock(disk.Mutex);
  const int before = errno;
  ReadControl(disk);
  errno = before;
  if (disk.At == 0) return Fate::Done;
  if (use != Use::Looks) {
    ++disk.Made;
    if (disk.What == Kind::Count) Log(call, path);
  }
  if (disk.Made < disk.At) return Fate::Done;
  const bool now = disk.Made == disk.At && use != Use::Looks;
  const bool writes = use == Use::Writes;
  switch (disk.What) {
    case Kind::Count:
      return Fate::Done;
    case Kind::Full:
      errno = ENOSPC;
      return writes || use == Use::Grows ? Fate::Failed : Fate::Done;
    case Kind::ReadOnly:
      errno = EROFS;
      return use == Use::Looks ? Fate::Done : Fate::Failed;
    case Kind::Vanished:
      errno = use == Use::Writes ? EIO : ENOENT;
      return Fate::Failed;
    case Kind::Short:
      return now && writes ? Fate::Half : Fate::Done;
    case Kind::Stop:
      if (now) Die();
      return Fate::Done;
    case Kind::Kill:
      if (now && !writes) Die();
      return now ? Fate::HalfThenDeath : Fate::Done;
  }
  return Fate::Done;
}

// Carries out a call that writes `count` bytes; `write` writes so many of them.
template <class Write>
ssize_t Written(const char* call, int file, std::size_t count, const Write& write) {
  const Fate fate = Judge(call, PathOf(file), Use::Writes);
  if (fate == Fate::Failed) return -1;
  if (fate == Fate::Done || count < 2) return write(count);
  const ssize_t some = write(count / 2);
  if (fate == Fate::HalfThenDeath) Die();
  return some;
}

bool Allowed(const char* call, const std::string& path, Use use) {
  return Judge(call, path, use) != Fate::Failed;
}

int Open(int folder, const char* path, int flags, mode_t mode) {
  const std::string whole = PathAt(folder, path);
  const bool writes = (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
  struct stat info {};
  const bool creates =
      (flags & O_CREAT) != 0 && ::syscall(SYS_newfstatat, folder, path, &info, 0) != 0;
  const Use use = !writes ? Use::Looks : creates ? Use::Grows : Use::Changes;
  if (!Allowed(creates ? "create" : "open", whole, use)) return -1;
  return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

// Makes a call to the system, unless it fails.
template <class... Arguments>
int Passed(const char* call, const std::string& path, Use use, long number,
           Arguments... arguments) {
  return Allowed(call, path, use) ? static_cast<int>(::syscall(number, arguments...)) : -1;
}

}  // namespace

extern "C" {

// A call without a mode leaves it undefined, and the system does not look at it.
int OpenPath(const char* path, int flags, mode_t mode) asm("open");
int OpenPath(const char* path, int flags, mode_t mode) {
  return Open(AT_FDCWD, path, flags, mode);
}
int OpenPath64(const char* path, int flags, mode_t mode) asm("open64");
int OpenPath64(const char* path, int flags, mode_t mode) {
  return Open(AT_FDCWD, path, flags, mode);
}
int OpenAt(int folder, const char* path, int flags, mode_t mode) asm("openat");
int OpenAt(int folder, const char* path, int flags, mode_t mode) {
  return Open(folder, path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t count) {
  return Written("write", file, count,
                 [&](std::size_t some) { return ::syscall(SYS_write, file, bytes, some); });
}
ssize_t pwrite(int file, const void* bytes, size_t count, off_t place) {
  return Written("pwrite", file, count, [&](std::size_t some) {
    return ::syscall(SYS_pwrite64, file, bytes, some, place);
  });
}
ssize_t pwrite64(int, const void*, size_t, off_t) __attribute__((alias("pwrite")));
// A short write of several pieces writes the first one only.
ssize_t writev(int file, const iovec* pieces, int count) {
  return Written("writev", file, static_cast<std::size_t>(count),
                 [&](std::size_t some) { return ::syscall(SYS_writev, file, pieces, some); });
}
ssize_t copy_file_range(int from, off64_t* at, int to, off64_t* place, size_t count,
                        unsigned flags) {
  if (!Allowed("read", PathOf(from), Use::Looks)) return -1;
  return Written("copy", to, count, [&](std::size_t some) {
    return ::syscall(SYS_copy_file_range, from, at, to, place, some, flags);
  });
}

int fallocate(int file, int mode, off_t from, off_t length) {
  return Passed("reserve", PathOf(file), Use::Grows, SYS_fallocate, file, mode, from, length);
}
int fallocate64(int, int, off_t, off_t) __attribute__((alias("fallocate")));
int ftruncate(int file, off_t length) noexcept {
  return Passed("truncate", PathOf(file), Use::Changes, SYS_ftruncate, file, length);
}
int ftruncate64(int, off_t) noexcept __attribute__((alias("ftruncate")));
int fsync(int file) {
  return Passed("sync", PathOf(file), Use::Changes, SYS_fsync, file);
}
int futimens(int file, const timespec times[2]) noexcept {
  return Passed("touch", PathOf(file), Use::Changes, SYS_utimensat, file, nullptr, times, 0);
}

int mkdir(const char* path, mode_t mode) noexcept {
  return Passed("mkdir", PathAt(AT_FDCWD, path), Use::Grows, SYS_mkdirat, AT_FDCWD, path, mode);
}
int unlink(const char* path) noexcept {
  return Passed("unlink", PathAt(AT_FDCWD, path), Use::Changes, SYS_unlinkat, AT_FDCWD, path, 0);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  return Passed("unlink", PathAt(folder, path), Use::Changes, SYS_unlinkat, folder, path, flags);
}
int remove(const char* path) noexcept {
  if (!Allowed("unlink", PathAt(AT_FDCWD, path), Use::Changes)) return -1;
  return Next<int (*)(const char*)>("remove")(path);
}
int rename(const char* from, const char* to) noexcept {
  return Passed("rename", PathAt(AT_FDCWD, to), Use::Changes, SYS_renameat2, AT_FDCWD, from,
                AT_FDCWD, to, 0);
}

// What only looks fails when the folder has vanished.
ssize_t read(int file, void* bytes, size_t count) {
  if (!Allowed("read", PathOf(file), Use::Looks)) return -1;
  return ::syscall(SYS_read, file, bytes, count);
}
ssize_t pread(int file, void* bytes, size_t count, off_t place) {
  if (!Allowed("read", PathOf(file), Use::Looks)) return -1;
  return ::syscall(SYS_pread64, file, bytes, count, place);
}
ssize_t pread64(int, void*, size_t, off_t) __attribute__((alias("pread")));
int stat(const char* path, struct stat* info) noexcept {
  return Passed("look", PathAt(AT_FDCWD, path), Use::Looks, SYS_newfstatat, AT_FDCWD, path, info,
                0);
}
int lstat(const char* path, struct stat* info) noexcept {
  return Passed("look", PathAt(AT_FDCWD, path), Use::Looks, SYS_newfstatat, AT_FDCWD, path, info,
                AT_SYMLINK_NOFOLLOW);
}
int statx(int folder, const char* path, int flags, unsigned mask, struct statx* info) noexcept {
  return Passed("look", PathAt(folder, path), Use::Looks, SYS_statx, folder, path, flags, mask,
                info);
}
DIR* opendir(const char* path) {
  if (!Allowed("look", PathAt(AT_FDCWD, path), Use::Looks)) return nullptr;
  return Next<DIR* (*)(const char*)>("opendir")(path);
}
}
