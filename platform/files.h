// Files and folders under the names that the product knows: `C:\folder\name.ext`.
// A name is matched exactly first, then without regard to case. All failures are Laufzeitfehler:
// 53 file not found, 76 path not found, 70 permission, 75 a directory where a file is meant,
// 61 disk full, 62 past the end of a file, 57 anything else that the system reports.
#pragma once

#include "platform/text.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace vantora {

// By what a file is known again: another file under its name differs in the first line, a file that
// has been written to in the second.
struct DateiStand {
  std::uint64_t Device = 0, Inode = 0;
  std::int64_t Born = 0;  // in ns since 1970, UTC; 0 where the file system does not know
  std::int64_t Bytes = 0;
  std::int64_t Time = 0;  // of the last change, in ns since 1970, UTC
  bool operator==(const DateiStand&) const = default;
  bool SameFile(const DateiStand& other) const {
    return Device == other.Device && Inode == other.Inode && Born == other.Born;
  }
};

// An open file; closed by its destructor.
class Datei {
 public:
  virtual ~Datei() = default;
  virtual std::int64_t Length() const = 0;  // bytes
  virtual Text DateTime() const = 0;        // when it was opened, as Dateien::FileDateTime tells it
  virtual std::int64_t Position() const = 0;  // bytes from the start
  virtual void Seek(std::int64_t position) = 0;
  virtual void Read(void* target, std::size_t count) = 0;             // all of it, or error 62
  virtual std::size_t ReadSome(void* target, std::size_t count) = 0;  // fewer only at the end
  virtual void Write(const void* source, std::size_t count) = 0;
  // From here to where the target stands; both move on. Returns the bytes, fewer only at the end.
  virtual std::size_t CopyTo(Datei& target, std::size_t count);
  virtual void Truncate(std::int64_t length) = 0;
  virtual void Flush() = 0;  // to the disk, so that it survives a power cut
  // Makes the file at least so long, with all its blocks reserved: writing up to there needs no
  // more room. New bytes are zeros. Error 61 without the room; the length is then what it was.
  virtual void Reserve(std::int64_t length) = 0;
  virtual DateiStand Stand() const = 0;
  // False when another open file, of this program or of another, holds the lock. Closing frees it.
  virtual bool Lock() = 0;
};

inline std::size_t Datei::CopyTo(Datei& target, std::size_t count) {
  // Small enough to stay in the processor's own memory between reading and writing.
  std::vector<char> block(std::min(count, std::size_t{1} << 18U));
  std::size_t done = 0;
  while (done < count) {
    const std::size_t some = ReadSome(block.data(), std::min(block.size(), count - done));
    if (some == 0) break;
    target.Write(block.data(), some);
    done += some;
  }
  return done;
}

enum class Zugriff {
  Lesen,      // must exist
  Binaer,     // read and write, made when missing
  Anhaengen,  // write at the end, made when missing; fails for a file that cannot be written
  Neu,        // write, made or emptied
};

class Dateien {
 public:
  virtual ~Dateien() = default;
  virtual std::unique_ptr<Datei> Open(const Text& path, Zugriff access) = 0;
  virtual std::int64_t FileLen(const Text& path) = 0;  // 0 for a folder; error 53 when missing
  virtual bool IsDirectory(const Text& path) = 0;      // never raises
  // Time of the last change as text, "2026-11-24 10:00:00.123456789"; stable while unchanged.
  virtual Text FileDateTime(const Text& path) = 0;
  virtual DateiStand Stand(const Text& path) = 0;  // of a file or a folder
  // A name of the file system that holds a file or a folder, by which it is known when it comes
  // back.
  virtual Text Medium(const Text& path) = 0;
  virtual void Kill(const Text& path) = 0;
  virtual void SetAttrNormal(const Text& path) = 0;  // takes the write protection off a file
  virtual void FileCopy(const Text& from, const Text& to) = 0;  // no half file stays on failure
  virtual void MkDir(const Text& path) = 0;                     // with its parents
  // Names (no path) in a folder that match one of the patterns ("*.vtr", "*.wav;*.mp3"), sorted
  // without regard to case. Error 76 when the folder is missing.
  virtual std::vector<Text> List(const Text& folder, const Text& pattern) = 0;
  virtual std::vector<Text> Folders(const Text& folder) = 0;
  // Where a product path lies in the system; for services that hand files to a library.
  virtual std::filesystem::path SystemPath(const Text& path) const = 0;
};

}  // namespace vantora
