#include "backends/linux/linux_files.h"

#include "backends/linux/linux_file.h"
#include "backends/linux/replacement_file.h"
#include "backends/linux/system_error.h"
#include "backends/linux/utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>
#include <system_error>
#include <utility>

namespace vantora {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kCopyAtOnce = 1U << 26U;  // by the system
constexpr std::size_t kCopyBlock = 1U << 16U;
constexpr mode_t kNewFile = 0666;  // before the user's umask

void RequireRegular(const struct stat& info) {
  if (S_ISDIR(info.st_mode)) throw DateiFehler(kFehlerPfadZugriff);
  if (!S_ISREG(info.st_mode)) throw DateiFehler(kFehlerEinAusgabe);
}

bool MayWrite(const fs::path& file) {
  return ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0;
}

int Flags(Zugriff access) {
  switch (access) {
    case Zugriff::Lesen:
      return O_RDONLY;
    case Zugriff::Binaer:
      return O_RDWR | O_CREAT;
    case Zugriff::Anhaengen:
      return O_WRONLY | O_CREAT;
    case Zugriff::Neu:
      return O_RDWR | O_CREAT;  // truncated only when it turns out to be a regular file
  }
  return O_RDONLY;
}

Descriptor OpenPath(const char* path, int flags) {
  // Without O_NONBLOCK, opening a pipe would block until another program opens its other end.
  return Descriptor(::open(path, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kNewFile));
}

Descriptor OpenRegular(const fs::path& path, int flags, struct stat& info) {
  Descriptor file = OpenPath(path.c_str(), flags);
  if (!file.IsOpen() && errno == ENXIO) throw DateiFehler(kFehlerEinAusgabe);
  if (!file.IsOpen() || ::fstat(file(), &info) != 0) RaiseErrno(errno, path);
  RequireRegular(info);
  return file;
}

std::vector<Text> Patterns(const Text& pattern) {
  std::vector<Text> patterns;
  Text rest = LowerCase(pattern) + L";";
  while (!rest.empty()) {
    const auto end = rest.find(L';');
    Text one = rest.substr(0, end);
    rest.erase(0, end + 1);
    const auto first = one.find_first_not_of(L' ');
    if (first == Text::npos) continue;
    one = one.substr(first, one.find_last_not_of(L' ') - first + 1);
    patterns.push_back(one == L"*.*" ? L"*" : one);
  }
  if (patterns.empty()) patterns.emplace_back(L"*");
  return patterns;
}

// "*" matches any run of characters, "?" any character. Backtracks to the last star only, so no
// pattern takes long.
bool Matches(const Text& name, const Text& pattern) {
  std::size_t n = 0, p = 0, star = Text::npos, mark = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == L'*') {
      star = p++;
      mark = n;
    } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != Text::npos) {
      p = star + 1;
      n = ++mark;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == L'*') ++p;
  return p == pattern.size();
}

void SortWithoutCase(std::vector<Text>& names) {
  std::vector<std::pair<Text, Text>> keyed;
  keyed.reserve(names.size());
  for (Text& name : names) keyed.emplace_back(LowerCase(name), std::move(name));
  std::sort(keyed.begin(), keyed.end());
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
}

// Names of the regular files (or the folders) in a folder; links are followed, hidden names left
// out.
std::vector<Text> Names(const fs::path& folder, bool folders) {
  DIR* dir = ::opendir(folder.c_str());
  if (!dir) throw DateiFehler(errno == EACCES ? kFehlerZugriff : kFehlerPfadFehlt);
  const mode_t wanted = folders ? S_IFDIR : S_IFREG;
  const unsigned char wantedEntry = folders ? DT_DIR : DT_REG;
  std::vector<Text> names;
  while (const dirent* entry = ::readdir(dir)) {
    if (entry->d_name[0] == '.') continue;
    bool fits = entry->d_type == wantedEntry;
    if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
      struct stat info {};
      fits = ::fstatat(::dirfd(dir), entry->d_name, &info, 0) == 0 &&
             (info.st_mode & S_IFMT) == wanted;
    }
    if (fits) names.push_back(FromUtf8(entry->d_name));
  }
  ::closedir(dir);
  return names;
}

void CopyBytes(int from, const fs::path& source, ReplacementFile& copy, const fs::path& target) {
  // copy_file_range shares the blocks where the file system supports that.
  for (;;) {
    const ssize_t some = ::copy_file_range(from, nullptr, copy(), nullptr, kCopyAtOnce, 0);
    if (some > 0 || (some < 0 && errno == EINTR)) continue;
    if (some < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)) {
      RaiseErrno(errno, target);
    }
    break;  // at the end, or unsupported for these two files: the rest is read and written
  }
  std::array<char, kCopyBlock> block;
  for (;;) {
    const ssize_t some = ::read(from, block.data(), block.size());
    if (some < 0 && errno == EINTR) continue;
    if (some < 0) RaiseErrno(errno, source);
    if (some == 0) return;
    copy.Write(block.data(), static_cast<std::size_t>(some));
  }
}

}  // namespace

LinuxFiles::LinuxFiles(const DriveTable& table) : table_(table) {
  table_.MakeFolders();
  const fs::path shown = table_.Places().Home / "Vantora";
  for (const fs::path& folder :
       {table_.Places().Data, shown, shown / "Wavs", shown / "Catálogo", shown / "Pictures"}) {
    RemoveLeftovers(folder / "any");
  }
}

std::unique_ptr<Datei> LinuxFiles::Open(const Text& path, Zugriff access) {
  std::string place = table_.ExactPath(path);
  Descriptor descriptor = OpenPath(place.c_str(), Flags(access) & ~O_CREAT);
  struct stat info {};
  if (!descriptor.IsOpen() || ::fstat(descriptor(), &info) != 0) {
    place = SystemPath(path).native();
    descriptor = OpenRegular(place, Flags(access), info);
  } else {
    RequireRegular(info);
  }
  auto file = std::make_unique<LinuxFile>(std::move(descriptor), std::move(place), info);
  if (access == Zugriff::Neu && info.st_size > 0) file->Truncate(0);
  if (access == Zugriff::Anhaengen) file->Seek(info.st_size);
  return file;
}

struct stat LinuxFiles::Info(const Text& path) const {
  struct stat info {};
  if (::stat(table_.ExactPath(path).c_str(), &info) == 0) return info;
  const fs::path place = SystemPath(path);
  if (::stat(place.c_str(), &info) != 0) RaiseErrno(errno, place);
  return info;
}

std::int64_t LinuxFiles::FileLen(const Text& path) {
  const struct stat info = Info(path);
  if (S_ISDIR(info.st_mode)) return 0;
  RequireRegular(info);
  return info.st_size;
}

bool LinuxFiles::IsDirectory(const Text& path) {
  try {
    std::error_code failed;
    return fs::is_directory(SystemPath(path), failed);
  } catch (const Laufzeitfehler&) {
    return false;  // a drive that does not exist has no folders
  }
}

Text LinuxFiles::FileDateTime(const Text& path) {
  return TimeText(Info(path).st_mtim);
}

DateiStand LinuxFiles::Stand(const Text& path) {
  return StandOf(AT_FDCWD, SystemPath(path).native());
}

// Most file systems have an ID of their own. For a stick, the system's number is that of the USB
// port, so the ID given at formatting comes first.
Text LinuxFiles::Medium(const Text& path) {
  const fs::path place = SystemPath(path);
  struct statx info {};
  struct statfs system {};
  if (::statx(AT_FDCWD, place.c_str(), 0, STATX_BASIC_STATS, &info) != 0 ||
      ::statfs(place.c_str(), &system) != 0) {
    RaiseErrno(errno, place);
  }
  std::error_code none;
  for (const fs::directory_entry& entry : fs::directory_iterator("/dev/disk/by-uuid", none)) {
    struct stat device {};
    if (::stat(entry.path().c_str(), &device) == 0 &&
        device.st_rdev == makedev(info.stx_dev_major, info.stx_dev_minor)) {
      return FromUtf8(entry.path().filename().string());
    }
  }
  std::array<std::uint32_t, 2> number{};
  static_assert(sizeof number == sizeof system.f_fsid);
  std::memcpy(number.data(), &system.f_fsid, sizeof number);
  return std::to_wstring(number[0]) + L"-" + std::to_wstring(number[1]);
}

void LinuxFiles::Kill(const Text& path) {
  const fs::path place = SystemPath(path);
  struct stat info {};
  if (::lstat(place.c_str(), &info) != 0) RaiseErrno(errno, place);
  if (!S_ISLNK(info.st_mode)) RequireRegular(info);
  if (::unlink(place.c_str()) != 0) RaiseErrno(errno, place);
}

void LinuxFiles::SetAttrNormal(const Text& path) {
  const fs::path place = SystemPath(path);
  struct stat info {};
  if (::stat(place.c_str(), &info) != 0) RaiseErrno(errno, place);
  RequireRegular(info);
  if ((info.st_mode & S_IWUSR) != 0) return;
  if (::chmod(place.c_str(), info.st_mode | S_IWUSR) != 0) RaiseErrno(errno, place);
}

void LinuxFiles::FileCopy(const Text& from, const Text& to) {
  const fs::path source = SystemPath(from), target = SystemPath(to);
  struct stat info {};
  const Descriptor file = OpenRegular(source, O_RDONLY, info);
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0) {
    if (S_ISDIR(old.st_mode)) throw DateiFehler(kFehlerPfadZugriff);
    const bool same = old.st_dev == info.st_dev && old.st_ino == info.st_ino;
    if (same || !MayWrite(target)) throw DateiFehler(kFehlerZugriff);
    RequireRegular(old);
  }
  RemoveLeftovers(target);
  ReplacementFile copy(target);
  CopyBytes(file(), source, copy, target);
  const std::array<timespec, 2> times{info.st_atim, info.st_mtim};
  ::futimens(copy(), times.data());  // a copy with a wrong time is still a copy
  copy.Keep();
}

void LinuxFiles::MkDir(const Text& path) {
  const fs::path folder = SystemPath(path);
  std::error_code failed;
  fs::create_directories(folder, failed);
  const int error = failed.value();
  if (fs::is_directory(folder, failed)) return;
  if (error == EEXIST || error == ENOTDIR) throw DateiFehler(kFehlerPfadZugriff);
  RaiseErrno(error, folder);
}

std::vector<Text> LinuxFiles::List(const Text& folder, const Text& pattern) {
  std::vector<Text> names = Names(SystemPath(folder), false);
  const std::vector<Text> patterns = Patterns(pattern);
  std::erase_if(names, [&](const Text& name) {
    const Text lower = LowerCase(name);
    return std::none_of(patterns.begin(), patterns.end(),
                        [&](const Text& one) { return Matches(lower, one); });
  });
  SortWithoutCase(names);
  return names;
}

std::vector<Text> LinuxFiles::Folders(const Text& folder) {
  std::vector<Text> names = Names(SystemPath(folder), true);
  for (const Text& alias : table_.AliasesIn(folder)) {
    std::erase_if(names, [&](const Text& name) { return LowerCase(name) == LowerCase(alias); });
    names.push_back(alias);
  }
  SortWithoutCase(names);
  return names;
}

fs::path LinuxFiles::SystemPath(const Text& path) const {
  return table_.SystemPath(path);
}

}  // namespace vantora
