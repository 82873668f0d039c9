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

struct Space {
  double Free, Total;  // bytes
};

std::optional<Space> SpaceAt(fs::path path) {
  struct statvfs info {};
  while (::statvfs(path.c_str(), &info) != 0) {
    // A folder that does not exist yet will lie on the disk of its parent.
    if (errno != ENOENT || !path.has_relative_path()) return std::nullopt;
    path = path.parent_path();
  }
  const auto block = static_cast<double>(info.f_frsize);
  return Space{static_cast<double>(info.f_bavail) * block,
               static_cast<double>(info.f_blocks) * block};
}

// The system call for a network folder never returns when the server is gone. In that case its
// thread is abandoned.
std::optional<Space> SpaceInTime(const fs::path& path) {
  std::promise<std::optional<Space>> promise;
  std::future<std::optional<Space>> answer = promise.get_future();
  std::thread([path, said = std::move(promise)]() mutable {
    said.set_value(SpaceAt(path));
  }).detach();
  if (answer.wait_for(std::chrono::seconds(2)) != std::future_status::ready) return std::nullopt;
  return answer.get();
}

std::optional<Space> SpaceOf(const DriveTable& table, const Text& path) {
  const bool named = path.size() >= 2 && path[1] == L':';
  const std::optional<DriveEntry> entry = named ? table.Entry(path[0]) : std::nullopt;
  try {
    // The root itself is passed: looking for a folder on a dead server would not return either.
    if (entry && entry->Type == kDriveNetwork) return SpaceInTime(entry->Root);
    return SpaceAt(table.SystemPath(path));
  } catch (const Laufzeitfehler&) {
    return std::nullopt;
  }
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
  const std::optional<Space> space = SpaceOf(table_, path);
  return space ? std::optional(space->Free) : std::nullopt;
}

std::optional<double> LinuxDrives::GetDiskTotalBytes(const Text& path) {
  const std::optional<Space> space = SpaceOf(table_, path);
  return space ? std::optional(space->Total) : std::nullopt;
}

Text LinuxDrives::NetworkPath(wchar_t letter) {
  const std::optional<DriveEntry> entry = table_.Entry(letter);
  if (!entry || entry->NetworkPath.empty()) return L"Drive Letter Not Found";
  return entry->NetworkPath;
}

}  // namespace vantora
