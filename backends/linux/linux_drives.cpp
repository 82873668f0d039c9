#include "backends/linux/linux_drives.h"

#include "platform/laufzeitfehler.h"

#include <cerrno>
#include <chrono>
#include <future>
#include <sys/statvfs.h>
#include <system_error>
#include <thread>

namespace vantora {

namespace fs = std::filesystem;

namespace {

std::optional<double> FreeBytes(fs::path path) {
  struct statvfs info {};
  while (::statvfs(path.c_str(), &info) != 0) {
    // A folder that is still to be made lies on the disk of the folder above.
    if (errno != ENOENT || !path.has_relative_path()) return std::nullopt;
    path = path.parent_path();
  }
  return static_cast<double>(info.f_bavail) * static_cast<double>(info.f_frsize);
}

// The call on a network folder whose server is gone never returns; its thread is left behind.
std::optional<double> FreeBytesInTime(const fs::path& path) {
  std::promise<std::optional<double>> promise;
  std::future<std::optional<double>> answer = promise.get_future();
  std::thread([path, said = std::move(promise)]() mutable {
    said.set_value(FreeBytes(path));
  }).detach();
  if (answer.wait_for(std::chrono::seconds(2)) != std::future_status::ready) return std::nullopt;
  return answer.get();
}

}  // namespace

Text LinuxDrives::GetLogicalDrives() {
  Text letters;
  for (const DriveEntry& entry : table_.Entries()) letters += entry.Letter;
  return letters;
}

int LinuxDrives::GetDriveType(const Text& root) {
  if (root.size() < 2 || root[1] != L':') return kDriveNoRoot;
  const std::optional<DriveEntry> entry = table_.Entry(root[0]);
  return entry ? entry->Type : kDriveNoRoot;
}

std::optional<double> LinuxDrives::GetDiskFreeSpaceEx(const Text& path) {
  const bool named = path.size() >= 2 && path[1] == L':';
  const std::optional<DriveEntry> entry = named ? table_.Entry(path[0]) : std::nullopt;
  try {
    // The root itself is asked: to look for a folder on a dead server would not return either.
    if (entry && entry->Type == kDriveNetwork) return FreeBytesInTime(entry->Root);
    return FreeBytes(table_.SystemPath(path));
  } catch (const Laufzeitfehler&) {
    return std::nullopt;
  }
}

Text LinuxDrives::NetworkPath(wchar_t letter) {
  const std::optional<DriveEntry> entry = table_.Entry(letter);
  if (!entry || entry->NetworkPath.empty()) return L"Drive Letter Not Found";
  return entry->NetworkPath;
}

}  // namespace vantora
