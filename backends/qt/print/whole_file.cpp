#include "backends/qt/print/whole_file.h"

#include "platform/laufzeitfehler.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vantora {

namespace {

[[noreturn]] void Raise(int error) {
  const std::string words = std::generic_category().message(error);
  const Text why(words.begin(), words.end());
  switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
      throw Laufzeitfehler(kFehlerZugriff, L"Permiso denegado", why);
    case EISDIR:
      throw Laufzeitfehler(kFehlerPfadZugriff, L"Es una carpeta", why);
    case ENOENT:
    case ENOTDIR:
      throw Laufzeitfehler(kFehlerPfadFehlt, L"No se encuentra la carpeta", why);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      throw Laufzeitfehler(kFehlerPlattenVoll, L"El disco está lleno", why);
    default:
      throw Laufzeitfehler(kFehlerEinAusgabe, L"Error de entrada o salida", why);
  }
}

// Opens a new file beside `path` for writing and sets `path` to its name.
int OpenBeside(std::string& path) {
  path += ".XXXXXX";
  const int file = mkostemp(path.data(), O_CLOEXEC);
  if (file < 0) Raise(errno);
  return file;
}

// Returns 0 or an errno.
int WriteAll(int file, const QByteArray& bytes) {
  for (qsizetype done = 0; done < bytes.size();) {
    const ssize_t some =
        ::write(file, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
    if (some < 0 && errno == EINTR) continue;
    if (some < 0) return errno;
    done += some;
  }
  return ::fsync(file) != 0 && errno != EINVAL ? errno : 0;
}

// Writes and closes the file; deletes it and raises when that fails.
void Fill(int file, const std::string& path, const QByteArray& bytes) {
  int error = WriteAll(file, bytes);
  if (::close(file) != 0 && error == 0) error = errno;
  if (error == 0) return;
  ::unlink(path.c_str());
  Raise(error);
}

}  // namespace

void WriteWhole(const std::filesystem::path& path, const QByteArray& bytes) {
  struct stat there {};
  const bool exists = ::stat(path.c_str(), &there) == 0;
  if (exists && S_ISDIR(there.st_mode)) Raise(EISDIR);
  if (exists && ::access(path.c_str(), W_OK) != 0) Raise(errno);
  std::string fresh = path.string();
  const int file = OpenBeside(fresh);
  // The permissions of the old file, or those of any new file; mkostemp gives access to the owner
  // only.
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::fchmod(file, exists ? there.st_mode & 0777U : 0666U & ~mask);
  Fill(file, fresh, bytes);
  if (::rename(fresh.c_str(), path.c_str()) == 0) return;
  const int error = errno;
  ::unlink(fresh.c_str());
  Raise(error);
}

ScratchFile::ScratchFile(const QByteArray& bytes) {
  std::error_code none;
  std::string path = (std::filesystem::temp_directory_path(none) / "vantora-pdf").string();
  const int file = OpenBeside(path);
  Fill(file, path, bytes);
  path_ = path;
}

ScratchFile::~ScratchFile() {
  ::unlink(path_.c_str());
}

}  // namespace vantora
