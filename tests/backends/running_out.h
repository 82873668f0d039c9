// Files on a disk that fails after a given number of bytes written or read. Bytes before that stay
// in the file, as on a real disk.
#pragma once

#include "platform/files.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>

namespace vantora::test {

class RunningOut final : public Dateien {
 public:
  explicit RunningOut(Dateien& files) : files_(files) {}

  // These may be set while a back end's thread is working.
  std::atomic<std::int64_t> Room = INT64_MAX;      // bytes that can still be written; then error 61
  std::atomic<std::int64_t> Readable = INT64_MAX;  // bytes that can still be read; then error 57
  std::atomic<int> ReadMs = 0;                     // duration of every read
  std::atomic<bool> OldRoomIsFree = false;         // overwriting does not use up Room

  std::unique_ptr<Datei> Open(const Text& path, Zugriff access) override {
    return std::make_unique<File>(*this, files_.Open(path, access));
  }
  std::int64_t FileLen(const Text& path) override { return files_.FileLen(path); }
  bool IsDirectory(const Text& path) override { return files_.IsDirectory(path); }
  Text FileDateTime(const Text& path) override { return files_.FileDateTime(path); }
  DateiStand Stand(const Text& path) override { return files_.Stand(path); }
  Text Medium(const Text& path) override { return files_.Medium(path); }
  void Kill(const Text& path) override { files_.Kill(path); }
  void SetAttrNormal(const Text& path) override { files_.SetAttrNormal(path); }
  void FileCopy(const Text& from, const Text& to) override { files_.FileCopy(from, to); }
  void MkDir(const Text& path) override { files_.MkDir(path); }
  std::vector<Text> List(const Text& folder, const Text& pattern) override {
    return files_.List(folder, pattern);
  }
  std::vector<Text> Folders(const Text& folder) override { return files_.Folders(folder); }
  std::filesystem::path SystemPath(const Text& path) const override {
    return files_.SystemPath(path);
  }

 private:
  class File final : public Datei {
   public:
    File(RunningOut& disk, std::unique_ptr<Datei> file) : disk_(disk), file_(std::move(file)) {}
    std::int64_t Length() const override { return file_->Length(); }
    Text DateTime() const override { return file_->DateTime(); }
    std::int64_t Position() const override { return file_->Position(); }
    void Seek(std::int64_t position) override { file_->Seek(position); }
    void Read(void* target, std::size_t count) override {
      std::this_thread::sleep_for(std::chrono::milliseconds(disk_.ReadMs));
      Take(disk_.Readable, count, kFehlerEinAusgabe);
      file_->Read(target, count);
    }
    std::size_t ReadSome(void* target, std::size_t count) override {
      Take(disk_.Readable, count, kFehlerEinAusgabe);
      return file_->ReadSome(target, count);
    }
    void Write(const void* source, std::size_t count) override {
      const auto end = file_->Position() + static_cast<std::int64_t>(count);
      if (disk_.OldRoomIsFree && end <= file_->Length()) return file_->Write(source, count);
      const auto fits = static_cast<std::size_t>(
          std::clamp<std::int64_t>(disk_.Room, 0, static_cast<std::int64_t>(count)));
      file_->Write(source, fits);
      Take(disk_.Room, count, kFehlerPlattenVoll);
    }
    void Truncate(std::int64_t length) override { file_->Truncate(length); }
    void Flush() override {}  // power failures are not tested
    void Reserve(std::int64_t length) override {
      if (length - file_->Length() > disk_.Room) Take(disk_.Room, SIZE_MAX / 2, kFehlerPlattenVoll);
      file_->Reserve(length);
    }
    DateiStand Stand() const override { return file_->Stand(); }
    bool Lock() override { return file_->Lock(); }

   private:
    static void Take(std::atomic<std::int64_t>& left, std::size_t count, int error) {
      left -= static_cast<std::int64_t>(count);
      if (left < 0) throw Laufzeitfehler(error, L"El disco no da más.");
    }
    RunningOut& disk_;
    std::unique_ptr<Datei> file_;
  };

  Dateien& files_;
};

}  // namespace vantora::test
