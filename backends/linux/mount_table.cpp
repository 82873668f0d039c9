#include "backends/linux/mount_table.h"

#include "backends/linux/utf8.h"

#include "platform/drives.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

namespace vantora {

namespace fs = std::filesystem;

namespace {

struct Line {
  std::string Numbers, Root, Point, FileSystem, Source;
};

// The kernel escapes blanks and backslashes inside a field as three octal digits.
std::string Unescape(std::string_view field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const auto digit = [&](std::size_t at) {
      return at < field.size() && field[at] >= '0' && field[at] <= '7' ? field[at] - '0' : -1;
    };
    if (field[i] == '\\' && digit(i + 1) >= 0 && digit(i + 1) <= 3 && digit(i + 2) >= 0 &&
        digit(i + 3) >= 0) {
      text += static_cast<char>(digit(i + 1) * 64 + digit(i + 2) * 8 + digit(i + 3));
      i += 3;
    } else {
      text += field[i];
    }
  }
  return text;
}

std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> fields;
  while (!line.empty()) {
    const auto end = std::min(line.find(' '), line.size());
    if (end > 0) fields.push_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return fields;
}

// Format: "36 35 98:0 /root /point options [optional…] - filesystem source options"
std::optional<Line> ParseLine(std::string_view text) {
  const std::vector<std::string_view> fields = Fields(text);
  if (fields.size() < 6) return std::nullopt;
  const auto dash = std::find(fields.begin() + 6, fields.end(), "-");
  if (fields.end() - dash < 3) return std::nullopt;
  return Line{std::string(fields[2]), Unescape(fields[3]), Unescape(fields[4]),
              Unescape(*(dash + 1)), Unescape(*(dash + 2))};
}

bool IsNetwork(const std::string& fileSystem) {
  static constexpr std::array kNames{"nfs",         "nfs4", "cifs",  "smb3",      "smbfs",
                                     "fuse.sshfs",  "afs",  "ncpfs", "davfs",     "fuse.davfs2",
                                     "fuse.rclone", "ceph", "9p",    "glusterfs", "fuse.glusterfs"};
  return std::find(kNames.begin(), kNames.end(), fileSystem) != kNames.end();
}

bool IsDisk(const Line& line) {
  if (line.FileSystem == "squashfs" || line.FileSystem == "swap") return false;
  return line.Source.starts_with("/dev/") || line.FileSystem == "zfs";
}

bool IsBelow(const fs::path& path, const fs::path& folder) {
  const auto both = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
  return both.first == folder.end();
}

// Parts of the installed system are available below Z:. Letters are for disks that the user plugged
// in.
bool IsSystemPoint(const fs::path& point, const LinuxPlaces& places) {
  if (IsBelow(places.Home, point)) return true;
  for (const char* folder : {"/boot", "/dev", "/efi", "/etc", "/gnu", "/nix", "/opt", "/proc",
                             "/root", "/snap", "/srv", "/sys", "/tmp", "/usr", "/var"}) {
    if (IsBelow(point, folder)) return !IsBelow(places.Home, folder);
  }
  if (point == "/home") return true;
  return IsBelow(point, "/run") && !IsBelow(point, "/run/media");
}

// A partition has no "removable" flag. Its disk, the parent folder, has it.
bool IsRemovable(const Line& line, const fs::path& sys) {
  std::error_code failed;
  const fs::path device = fs::canonical(sys / "dev/block" / line.Numbers, failed);
  if (failed) return false;
  for (const fs::path& folder : {device, device.parent_path()}) {
    std::ifstream flag(folder / "removable");
    int value = 0;
    if (flag >> value) return value == 1;
  }
  return false;
}

// Converts "server:/export", "//server/share" and "user@host:/folder" to "\\server\share".
Text NetworkName(const std::string& source) {
  std::string name = source;
  if (name.starts_with("//")) {
    name.erase(0, 2);
  } else if (const auto colon = name.find(':'); colon != std::string::npos) {
    std::string folder = name.substr(colon + 1);
    while (folder.starts_with('/')) folder.erase(0, 1);
    name = name.substr(0, colon) + "/" + folder;
    const auto at = name.find('@');
    if (at != std::string::npos && at < colon) name.erase(0, at + 1);
  }
  while (name.ends_with('/')) name.pop_back();
  Text text = L"\\\\" + FromUtf8(name);
  std::replace(text.begin(), text.end(), L'/', L'\\');
  return text;
}

}  // namespace

std::vector<Mount> UserMounts(std::string_view table, const LinuxPlaces& places) {
  std::vector<Mount> mounts;
  std::set<std::pair<std::string, std::string>> seen;
  while (!table.empty()) {
    const auto end = std::min(table.find('\n'), table.size());
    const std::optional<Line> line = ParseLine(table.substr(0, end));
    table.remove_prefix(std::min(end + 1, table.size()));
    if (!line || !line->Point.starts_with('/') || IsSystemPoint(line->Point, places)) continue;
    const bool network = IsNetwork(line->FileSystem);
    if (!network && !IsDisk(*line)) continue;
    if (!seen.insert({line->Source, line->Root}).second) continue;

    Mount mount{line->Source, line->Point, kDriveFixed, {}};
    const bool optical =
        std::any_of(places.Optical.begin(), places.Optical.end(),
                    [&](const OpticalDrive& drive) { return drive.Device == line->Source; });
    if (optical) {
      mount.Type = kDriveCdRom;
    } else if (network) {
      mount.Type = kDriveNetwork;
      mount.NetworkPath = NetworkName(line->Source);
    } else if (IsRemovable(*line, places.Sys)) {
      mount.Type = kDriveRemovable;
    }
    mounts.push_back(std::move(mount));
  }
  return mounts;
}

}  // namespace vantora
