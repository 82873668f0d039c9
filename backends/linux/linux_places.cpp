#include "backends/linux/linux_places.h"

#include "backends/linux/utf8.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <pwd.h>
#include <sstream>
#include <system_error>
#include <unistd.h>

namespace vantora {

namespace fs = std::filesystem;

namespace {

// The XDG standard requires that relative paths in these variables are ignored.
fs::path FromEnvironment(const char* name, const fs::path& fallback) {
  const char* value = std::getenv(name);
  if (!value || value[0] != '/') return fallback;
  return value;
}

fs::path HomeOfUser() {
  fs::path named = FromEnvironment("HOME", {});
  if (!named.empty()) return named;
  const passwd* user = getpwuid(getuid());
  return user && user->pw_dir && user->pw_dir[0] == '/' ? user->pw_dir : "/";
}

std::string FileText(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

Text Attribute(const fs::path& file) {
  const std::string raw = FileText(file);
  const auto first = raw.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return FromUtf8(raw.substr(first, raw.find_last_not_of(" \t\r\n") - first + 1));
}

}  // namespace

LinuxPlaces PlacesBelow(const fs::path& home) {
  LinuxPlaces places;
  places.Home = home;
  places.Data = home / ".local/share/vantora";
  places.Cache = home / ".cache/vantora";
  places.Config = home / ".config/vantora";
  return places;
}

LinuxPlaces PlacesOfUser() {
  LinuxPlaces places = PlacesBelow(HomeOfUser());
  places.Data = FromEnvironment("XDG_DATA_HOME", places.Home / ".local/share") / "vantora";
  places.Cache = FromEnvironment("XDG_CACHE_HOME", places.Home / ".cache") / "vantora";
  places.Config = FromEnvironment("XDG_CONFIG_HOME", places.Home / ".config") / "vantora";
  places.Runtime = FromEnvironment("XDG_RUNTIME_DIR", {});
  places.Optical = OpticalDrives(places.Sys);
  places.MountTable = [] { return FileText("/proc/self/mountinfo"); };
  return places;
}

std::vector<OpticalDrive> OpticalDrives(const fs::path& sys) {
  std::vector<OpticalDrive> drives;
  std::error_code failed;
  for (fs::directory_iterator entry(sys / "class/block", failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    const bool isDrive = name.size() > 2 && name.size() < 6 && name.starts_with("sr") &&
                         std::all_of(name.begin() + 2, name.end(), [](char c) {
                           return std::isdigit(static_cast<unsigned char>(c)) != 0;
                         });
    if (!isDrive) continue;
    const fs::path device = entry->path() / "device";
    drives.push_back({"/dev/" + name, Attribute(device / "vendor"), Attribute(device / "model"),
                      Attribute(device / "rev"), std::stoi(name.substr(2))});
  }
  std::sort(drives.begin(), drives.end(),
            [](const OpticalDrive& a, const OpticalDrive& b) { return a.Target < b.Target; });
  return drives;
}

}  // namespace vantora
