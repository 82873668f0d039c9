#include "backends/linux/drive_table.h"

#include "backends/linux/mount_table.h"
#include "backends/linux/system_error.h"
#include "backends/linux/utf8.h"

#include "platform/drives.h"

#include <algorithm>
#include <iterator>
#include <sys/stat.h>
#include <system_error>

namespace vantora {

namespace fs = std::filesystem;

namespace {

constexpr wchar_t kWholeSystem = L'Z';

bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

bool IsLetter(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

wchar_t Capital(wchar_t c) {
  return c >= L'a' && c <= L'z' ? c - (L'a' - L'A') : c;
}

bool Exists(const fs::path& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0;
}

// Appends names to a path. "." and ".." are resolved and cannot lead above the root.
void AppendNames(std::string& path, std::size_t root, std::wstring_view names) {
  while (!names.empty()) {
    std::size_t end = 0;
    while (end < names.size() && !IsSeparator(names[end])) ++end;
    const std::wstring_view name = names.substr(0, end);
    names.remove_prefix(std::min(end + 1, names.size()));
    if (name == L"..") {
      if (path.size() > root) path.resize(path.rfind('/'));
    } else if (!name.empty() && name != L".") {
      path += '/';
      AppendUtf8(path, name);
    }
  }
}

// True when `names` begins with `start`, ignoring case. `start` must be lower case and ASCII.
bool StartsWithNames(std::string_view names, std::string_view start) {
  if (names.size() < start.size()) return false;
  const bool same = std::equal(start.begin(), start.end(), names.begin(), [](char a, char b) {
    return a == (b >= 'A' && b <= 'Z' ? static_cast<char>(b + ('a' - 'A')) : b);
  });
  return same && (names.size() == start.size() || names[start.size()] == '/');
}

// The name in `folder` that differs from `name` in case only. If there are several, the first in
// byte order, so that the choice does not depend on the order in which the disk lists them.
std::string SameButCase(const fs::path& folder, const std::string& name) {
  const Text wanted = LowerCase(FromUtf8(name));
  std::string found;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const std::string candidate = entry->path().filename().string();
    if (!found.empty() && candidate > found) continue;
    if (LowerCase(FromUtf8(candidate)) == wanted) found = candidate;
  }
  return found;
}

fs::path Resolve(const std::string& whole, std::size_t root) {
  if (whole.size() <= root || Exists(whole)) return whole;
  fs::path path = root == 0 ? "/" : whole.substr(0, root);
  bool missing = false;
  for (std::size_t at = root + 1, end = 0; at < whole.size(); at = end + 1) {
    end = std::min(whole.find('/', at), whole.size());
    std::string name = whole.substr(at, end - at);
    if (!missing && !Exists(path / name)) {
      const std::string other = SameButCase(path, name);
      missing = other.empty();
      if (!missing) name = other;
    }
    path /= name;
  }
  return path;
}

// The number of components of `root` when `path` is `root` or lies in it, else 0.
std::size_t DepthInside(const fs::path& path, const fs::path& root) {
  if (root.empty()) return 0;
  const auto both = std::mismatch(root.begin(), root.end(), path.begin(), path.end());
  if (both.first != root.end()) return 0;
  return static_cast<std::size_t>(std::distance(root.begin(), root.end()));
}

fs::path Plain(const fs::path& path) {
  const fs::path normal = path.lexically_normal();
  return normal.has_filename() || normal == normal.root_path() ? normal : normal.parent_path();
}

}  // namespace

DriveTable::DriveTable(LinuxPlaces places) : places_(std::move(places)) {
  places_.Home = Plain(places_.Home);
  aliases_ = {{"/windows/temp", L"C:\\WINDOWS\\TEMP", Plain(places_.Cache)},
              {"/windows", L"C:\\WINDOWS", Plain(places_.Data)}};

  entries_.push_back({L'C', kDriveFixed, places_.Home, {}, {}});
  for (const OpticalDrive& drive : places_.Optical) {
    if (imageLetter_ == kWholeSystem - 1) break;  // reserved for the image drive
    entries_.push_back({imageLetter_++, kDriveCdRom, {}, drive.Device, {}});
  }
  entries_.push_back({imageLetter_, kDriveCdRom, places_.Home / "Vantora/Bandeja", {}, {}});
  entries_.push_back({kWholeSystem, kDriveFixed, Plain(places_.Whole), {}, {}});
  LookAtMounts();
}

void DriveTable::LookAtMounts() const {
  if (!places_.MountTable) return;
  const std::vector<Mount> mounts = UserMounts(places_.MountTable(), places_);
  std::lock_guard lock(mutex_);
  for (DriveEntry& entry : entries_) {
    if (entry.Device.empty()) continue;
    entry.Root.clear();  // until the mount table lists it again
    for (const Mount& mount : mounts) {
      const bool same = mount.Device == entry.Device &&
                        (mount.Type == kDriveCdRom) == (entry.Type == kDriveCdRom);
      if (same && entry.Root.empty()) entry.Root = Plain(mount.Point);
    }
  }
  for (const Mount& mount : mounts) {
    const bool known = std::any_of(entries_.begin(), entries_.end(), [&](const DriveEntry& entry) {
      return entry.Device == mount.Device;
    });
    if (known || mount.Type == kDriveCdRom) continue;
    const wchar_t letter = entries_[entries_.size() - 2].Letter + 1;
    if (letter >= kWholeSystem) break;
    entries_.insert(entries_.end() - 1,
                    {letter, mount.Type, Plain(mount.Point), mount.Device, mount.NetworkPath});
  }
}

std::vector<DriveEntry> DriveTable::Entries() const {
  LookAtMounts();
  std::lock_guard lock(mutex_);
  std::vector<DriveEntry> present;
  std::copy_if(
      entries_.begin(), entries_.end(), std::back_inserter(present),
      [](const DriveEntry& entry) { return entry.Type == kDriveCdRom || !entry.Root.empty(); });
  return present;
}

std::optional<DriveEntry> DriveTable::Entry(wchar_t letter) const {
  std::lock_guard lock(mutex_);
  for (const DriveEntry& entry : entries_) {
    const bool present = entry.Type == kDriveCdRom || !entry.Root.empty();
    if (entry.Letter == Capital(letter) && present) return entry;
  }
  return std::nullopt;
}

std::string DriveTable::RootOf(wchar_t letter) const {
  const auto find = [this, letter] {
    std::lock_guard lock(mutex_);
    for (const DriveEntry& entry : entries_) {
      if (entry.Letter == letter) return entry.Root.native();
    }
    return std::string();
  };
  std::string root = find();
  if (root.empty()) {
    LookAtMounts();  // a disk may have been plugged in since
    root = find();
  }
  if (root.empty()) throw DateiFehler(kFehlerPfadFehlt);
  return root;
}

// Returns the root of the share in which a network path lies, and removes the share's name from the
// path.
std::string DriveTable::TakeShare(std::wstring_view& path) const {
  for (const DriveEntry& entry : Entries()) {
    const Text& share = entry.NetworkPath;
    const bool inside = !share.empty() && path.size() >= share.size() &&
                        LowerCase(Text(path.substr(0, share.size()))) == LowerCase(share) &&
                        (path.size() == share.size() || IsSeparator(path[share.size()]));
    if (!inside) continue;
    path.remove_prefix(share.size());
    return entry.Root.native();
  }
  throw DateiFehler(kFehlerPfadFehlt);
}

DriveTable::Split DriveTable::SplitPath(const Text& given) const {
  std::wstring_view names = given;
  names = names.substr(0, names.find(L'\0'));  // system calls end a name at NUL
  const bool share = names.starts_with(L"\\\\");
  const bool lettered = names.size() >= 2 && names[1] == L':' && IsLetter(names[0]);
  const bool relative = !lettered && (names.empty() || !IsSeparator(names[0]));
  const wchar_t letter = lettered ? Capital(names[0]) : L'C';
  if (lettered) names.remove_prefix(2);

  Split split{share ? TakeShare(names) : RootOf(letter), 0};
  std::string& path = split.Path;
  if (path == "/") path.clear();
  split.Root = path.size();
  if (relative) AppendNames(path, split.Root, L"Vantora");
  AppendNames(path, split.Root, names);
  for (const Alias& alias : aliases_) {
    if (share || letter != L'C') break;
    if (!StartsWithNames(std::string_view(path).substr(split.Root), alias.Names)) continue;
    const std::string& target = alias.Target.native();
    path.replace(0, split.Root + alias.Names.size(), target);
    split.Root = target.size();
    break;
  }
  if (path.empty()) path = "/";
  return split;
}

fs::path DriveTable::SystemPath(const Text& path) const {
  const Split split = SplitPath(path);
  return Resolve(split.Path, split.Root);
}

Text DriveTable::ProductPath(const fs::path& path) const {
  if (!path.is_absolute()) return {};
  const fs::path plain = Plain(path);
  Text start;
  fs::path root;
  std::size_t depth = 0;
  const auto offer = [&](const Text& spelling, const fs::path& candidate) {
    const std::size_t inside = DepthInside(plain, candidate);
    if (inside <= depth) return;
    depth = inside;
    start = spelling;
    root = candidate;
  };
  for (const Alias& alias : aliases_) offer(alias.Spelling, alias.Target);
  for (const DriveEntry& entry : Entries()) offer(Text{entry.Letter, L':'}, entry.Root);

  const fs::path rest = plain.lexically_relative(root);
  Text product = start;
  for (const fs::path& name : rest) {
    if (name != ".") product += L"\\" + FromUtf8(name.string());
  }
  if (product.size() == 2) product += L'\\';
  return product;
}

std::vector<Text> DriveTable::AliasesIn(const Text& folder) const {
  std::string inside;
  const bool onC = folder.size() >= 2 && Capital(folder[0]) == L'C' && folder[1] == L':';
  if (onC) AppendNames(inside, 0, std::wstring_view(folder).substr(2));
  std::vector<Text> names;
  for (const Alias& alias : aliases_) {
    const std::string parent = alias.Names.substr(0, alias.Names.rfind('/'));
    if (onC && inside.size() == parent.size() && StartsWithNames(inside, parent)) {
      names.push_back(alias.Spelling.substr(alias.Spelling.rfind(L'\\') + 1));
    }
  }
  return names;
}

void DriveTable::MakeFolders() const {
  for (const fs::path& folder :
       {places_.Data, places_.Cache, places_.Home / "Vantora", places_.Home / "Vantora/Bandeja"}) {
    // A folder that cannot be created is reported when a file in it is opened.
    std::error_code left;
    fs::create_directories(folder, left);
  }
}

}  // namespace vantora
