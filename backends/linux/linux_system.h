// The program's connection to a Linux desktop. Each user has one running instance: it holds its
// lock files from the first check to the end of this object. One is in the runtime folder and one
// in the cache folder: a login without a runtime folder finds the second, and a home whose file
// system cannot lock has the first.
#pragma once

#include "backends/linux/descriptor.h"
#include "backends/linux/help_opener.h"
#include "backends/linux/linux_places.h"

#include "platform/system.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantora {

class LinuxSystem final : public System {
 public:
  struct Options {
    Text Version;                      // "1.0.0"
    std::filesystem::path HelpFolder;  // holds TOPIC.html, and index.html for no topic
    std::string Opener = "xdg-open";   // shows a file or an address to the user
    // Versions of the components, by their product names in small letters. Files on Linux carry no
    // version.
    std::map<Text, Text> Versions{};
  };
  LinuxSystem(LinuxPlaces places, Options options);

  bool PrevInstance() override;
  Text Path() override { return L"C:\\Vantora"; }
  Text ExeName() override { return L"vantora"; }
  int Major() override { return VersionPart(0); }
  int Minor() override { return VersionPart(1); }
  int Revision() override { return VersionPart(2); }
  bool CloseCdPlayer() override { return false; }  // Linux has no such program
  Text FileVersion(const Text& path) override;
  // Without ShowHelpWith a page is only shown if the desktop has an opener.
  bool OpenHelp(const Text& file, const Text& topic) override;
  // Pages that the desktop's browser does not show go to `viewer`.
  void ShowHelpWith(Background& background, EventLoop& loop,
                    std::function<void(const std::filesystem::path&)> viewer);
  bool OpenFile(const std::filesystem::path& file) override;
  void OpenLink(const Text& address) override;  // opens web and mail addresses only

 private:
  int VersionPart(int index) const;
  bool OpenerThere() const;
  bool Show(const std::string& what) const;  // false when no program can show it

  LinuxPlaces places_;
  Options options_;
  std::vector<Descriptor> locks_;
  std::unique_ptr<HelpOpener> help_;
};

}  // namespace vantora
