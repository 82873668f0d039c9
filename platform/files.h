// Files and folders under the names that the product knows: `C:\folder\name.ext`. A name is matched
// exactly first, then without regard to case. All failures are Laufzeitfehler: 53 file not found,
// 76 path not found, 70 permission denied, 75 a directory in place of a file, 61 disk full, 62 past
// the end of a file, 57 any other error of the system. `Dateien` may be used from any thread, an
// open `Datei` by one thread at a time.
#pragma once

#include "platform/text.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace vantora {

// Identifies a file and its state. Another file under the same name differs in Device, Inode or
// Born; a file that has been written to differs in Bytes or Time.
struct DateiStand {
  std::uint64_t Device = 0, Inode = 0;
  std::int64_t Born = 0;  // in ns since 1970, UTC; 0 if the file system has no such time
  std::int64_t Bytes = 0;
  std::int64_t Time = 0;  // of the last change, in ns since 1970, UTC
  bool operator==(const DateiStand&) const = default;
  bool SameFile(const DateiStand& other) const {
    return Device == other.Device && Inode == other.Inode && Born == other.Born;
  }
};

// An open file. Its destructor closes it.
class Datei {
 public:
  virtual ~Datei() = default;
  virtual std::int64_t Length() const = 0;    // in bytes
  virtual Text DateTime() const = 0;          // at opening, in the format of Dateien::FileDateTime
  virtual std::int64_t Position() const = 0;  // in bytes from the start
  virtual void Seek(std::int64_t position) = 0;
  virtual void Read(void* target, std::size_t count) = 0;             // all bytes, or raises 62
  virtual std::size_t ReadSome(void* target, std::size_t count) = 0;  // fewer only at the end
  virtual void Write(const void* source, std::size_t count) = 0;
  // Copies from this file's position to the target's and advances both. Returns the bytes copied,
  // fewer only at the end.
  virtual std::size_t CopyTo(Datei& target, std::size_t count);
  virtual void Truncate(std::int64_t length) = 0;
  virtual void Flush() = 0;  // to the disk, so that it survives a power failure
  // Makes the file at least `length` bytes long and reserves all its blocks, so that writing up to
  // there needs no more space. New bytes are zeros. Raises 61 when there is not enough space; the
  // length is then unchanged.
  virtual void Reserve(std::int64_t length) = 0;
  virtual DateiStand Stand() const = 0;
  // Locks the file. Returns false when another open file, of this program or another, holds the
  // lock. Closing releases it.
  virtual bool Lock() = 0;
};

inline std::size_t Datei::CopyTo(Datei& target, std::size_t count) {
  // Fits the processor's cache between reading and writing.
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
  Lesen,      // read; the file must exist
  Binaer,     // read and write; creates a missing file
  Anhaengen,  // write at the end; creates a missing file
  Neu,        // read and write; creates or empties the file
};

class Dateien {
 public:
  virtual ~Dateien() = default;
  virtual std::unique_ptr<Datei> Open(const Text& path, Zugriff access) = 0;
  virtual std::int64_t FileLen(const Text& path) = 0;  // 0 for a folder; raises 53 when missing
  virtual bool IsDirectory(const Text& path) = 0;      // never raises
  // The time of the last change as text, "2026-11-24 10:00:00.123456789", in UTC. Equal texts mean
  // an unchanged file.
  virtual Text FileDateTime(const Text& path) = 0;
  virtual DateiStand Stand(const Text& path) = 0;  // of a file or a folder
  // An identifier of the file system that contains the file or folder. It stays the same when a
  // medium is removed and returns.
  virtual Text Medium(const Text& path) = 0;
  virtual void Kill(const Text& path) = 0;
  virtual void SetAttrNormal(const Text& path) = 0;             // removes write protection
  virtual void FileCopy(const Text& from, const Text& to) = 0;  // a failed copy leaves no file
  virtual void MkDir(const Text& path) = 0;                     // creates missing parents too
  // Names without path, in a folder, that match one of the patterns ("*.vtr", "*.wav;*.mp3"),
  // sorted without regard to case. Raises 76 when the folder is missing.
  virtual std::vector<Text> List(const Text& folder, const Text& pattern) = 0;
  virtual std::vector<Text> Folders(const Text& folder) = 0;
  // The system path of a product path, for services that pass files to a library.
  virtual std::filesystem::path SystemPath(const Text& path) const = 0;
};

}  // namespace vantora
