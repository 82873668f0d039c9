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

// The components behind a root; "." and ".." are resolved and lead out of no root.
std::vector<Text> Components(const Text& path) {
  std::vector<Text> names;
  Text name;
  const auto finish = [&] {
    if (name == L"..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != L".") {
      names.push_back(name);
    }
    name.clear();
  };
  for (const wchar_t c : path) {
    if (IsSeparator(c)) {
      finish();
    } else {
      name += c;
    }
  }
  finish();
  return names;
}

// The name in `folder` that differs from `name` in case alone; of several the first in byte order,
// so that the choice does not depend on the order of the disk.
std::string SameButCase(const fs::path& folder, const Text& name) {
  const Text wanted = LowerCase(name);
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

fs::path Resolve(const fs::path& root, const std::vector<Text>& names) {
  fs::path whole = root;
  for (const Text& name : names) whole /= ToUtf8(name);
  if (names.empty() || Exists(whole)) return whole;

  fs::path path = root;
  bool missing = false;
  for (const Text& wanted : names) {
    std::string name = ToUtf8(wanted);
    if (!missing && !Exists(path / name)) {
      const std::string other = SameButCase(path, wanted);
      missing = other.empty();
      if (!missing) name = other;
    }
    path /= name;
  }
  return path;
}

// Number of components of `root` when `path` lies in it or is it.
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
  aliases_ = {{{L"windows", L"temp"}, L"C:\\WINDOWS\\TEMP", Plain(places_.Cache)},
              {{L"windows"}, L"C:\\WINDOWS", Plain(places_.Data)}};

  entries_.push_back({L'C', kDriveFixed, places_.Home, {}, {}});
  for (const OpticalDrive& drive : places_.Optical) {
    if (imageLetter_ == kWholeSystem - 1) break;  // the image drive needs the last one
    entries_.push_back({imageLetter_++, kDriveCdRom, {}, drive.Device, {}});
  }
  entries_.push_back({imageLetter_, kDriveCdRom, places_.Home / "Vantora/Bandeja", {}, {}});
  entries_.push_back({kWholeSystem, kDriveFixed, "/", {}, {}});
  LookAtMounts();
}

void DriveTable::LookAtMounts() const {
  if (!places_.MountTable) return;
  const std::vector<Mount> mounts = UserMounts(places_.MountTable(), places_);
  std::lock_guard lock(mutex_);
  for (DriveEntry& entry : entries_) {
    if (entry.Device.empty()) continue;
    entry.Root.clear();  // until the table shows it again
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

fs::path DriveTable::RootOf(wchar_t letter) const {
  std::optional<DriveEntry> entry = Entry(letter);
  if (!entry || entry->Root.empty()) {
    LookAtMounts();  // a disk that was plugged in since
    entry = Entry(letter);
  }
  if (!entry || entry->Root.empty()) throw DateiFehler(kFehlerPfadFehlt);
  return entry->Root;
}

DriveTable::Split DriveTable::SplitPath(const Text& given) const {
  const Text path = given.substr(0, given.find(L'\0'));  // as the system reads a name
  if (path.size() >= 2 && path[0] == L'\\' && path[1] == L'\\') {
    for (const DriveEntry& entry : Entries()) {
      const Text& share = entry.NetworkPath;
      const bool inside = !share.empty() && path.size() >= share.size() &&
                          LowerCase(path.substr(0, share.size())) == LowerCase(share) &&
                          (path.size() == share.size() || IsSeparator(path[share.size()]));
      if (inside) return {entry.Root, Components(path.substr(share.size()))};
    }
    throw DateiFehler(kFehlerPfadFehlt);
  }
  wchar_t letter = L'C';
  Text rest = path;
  if (path.size() >= 2 && path[1] == L':' && IsLetter(path[0])) {
    letter = Capital(path[0]);
    rest = path.substr(2);
  } else if (path.empty() || !IsSeparator(path[0])) {
    rest = L"Vantora\\" + path;
  }
  std::vector<Text> names = Components(rest);
  if (letter == L'C') {
    for (const Alias& alias : aliases_) {
      const bool inside =
          names.size() >= alias.Names.size() &&
          std::equal(alias.Names.begin(), alias.Names.end(), names.begin(),
                     [](const Text& a, const Text& b) { return a == LowerCase(b); });
      if (!inside) continue;
      names.erase(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(alias.Names.size()));
      return {alias.Target, std::move(names)};
    }
  }
  return {RootOf(letter), std::move(names)};
}

fs::path DriveTable::SystemPath(const Text& path) const {
  const Split split = SplitPath(path);
  return Resolve(split.Root, split.Names);
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
  Text spelled;
  if (folder.size() >= 2 && Capital(folder[0]) == L'C' && folder[1] == L':') {
    spelled = L"c:";
    for (const Text& name : Components(folder.substr(2))) spelled += L"\\" + LowerCase(name);
  }
  std::vector<Text> names;
  for (const Alias& alias : aliases_) {
    const auto last = alias.Spelling.rfind(L'\\');
    if (LowerCase(alias.Spelling.substr(0, last)) == spelled) {
      names.push_back(alias.Spelling.substr(last + 1));
    }
  }
  return names;
}

void DriveTable::MakeFolders() const {
  for (const fs::path& folder :
       {places_.Data, places_.Cache, places_.Home / "Vantora", places_.Home / "Vantora/Bandeja"}) {
    std::error_code left;  // a folder that cannot be made shows when a file in it is asked for
    fs::create_directories(folder, left);
  }
}

}  // namespace vantora
