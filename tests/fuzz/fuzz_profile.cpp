// Random bytes as a private profile file: listed, read, changed, and with a section removed.
#include "backends/linux/profile_file.h"
#include "tests/backends/linux/home.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

void FuzzOne(const std::string& bytes) {
  static Home home;
  const Text name = L"qmaudio.ini";
  static const fs::path file = home / ".local/share/vantora/qmaudio.ini";
  static const bool folder = fs::create_directories(file.parent_path());
  static_cast<void>(folder);
  Lay(file, bytes);
  ProfileFiles profile(home.Table);
  const auto read = [&](const Text& section, const Text& key) {
    return profile.GetPrivateProfileString(section, key, L"none", 5000, name);
  };
  const std::vector<Text> sections = profile.GetPrivateProfileSectionNames(name, 5000);
  for (const Text& section : sections) read(section, L"numtracks");

  const Text section = sections.empty() ? L"new" : sections.back();
  const Text artist = read(section, L"artist");
  profile.WritePrivateProfileString(section, L"Fresh Key", L"value", name);
  Require(read(section, L"FRESH KEY") == L"value", "what is written is read again");
  Require(read(section, L"artist") == artist, "a change leaves the others alone");
  const auto now = profile.GetPrivateProfileSectionNames(name, 1 << 30);
  profile.DeletePrivateProfileSection(section, name);
  Require(profile.GetPrivateProfileSectionNames(name, 1 << 30).size() <= now.size(),
          "a deletion adds nothing");
}

}  // namespace vantora::test
