// A simulated operating system. Tests set its answers. It records the help pages, links and files
// that the program opens.
#pragma once

#include "platform/system.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace vantora {

class HeadlessSystem final : public System {
 public:
  bool OtherInstance = false;
  int CdPlayers = 0;                              // number of open windows of a CD player
  std::map<Text, Text> FileVersions;              // by path
  std::vector<std::pair<Text, Text>> HelpOpened;  // file, topic
  std::function<void(const Text& topic)>
      ShowHelp;  // shows the page as well, where there is a screen
  std::vector<Text> LinksOpened;
  bool Viewer = true;  // the desktop has a viewer for files
  std::vector<std::filesystem::path> FilesOpened;

  bool PrevInstance() override { return OtherInstance; }
  Text Path() override { return L"C:\\Vantora"; }
  Text ExeName() override { return L"vantora"; }
  int Major() override { return major_; }
  int Minor() override { return minor_; }
  int Revision() override { return revision_; }
  bool CloseCdPlayer() override {
    if (CdPlayers == 0) return false;
    --CdPlayers;
    return true;
  }
  Text FileVersion(const Text& path) override {
    const auto found = FileVersions.find(path);
    return found == FileVersions.end() ? Text() : found->second;
  }
  bool OpenHelp(const Text& file, const Text& topic) override {
    HelpOpened.emplace_back(file, topic);
    if (ShowHelp) ShowHelp(topic);
    return true;
  }
  bool OpenFile(const std::filesystem::path& file) override {
    if (!Viewer) return false;
    FilesOpened.push_back(file);
    return true;
  }
  void OpenLink(const Text& address) override { LinksOpened.push_back(address); }

 private:
  int major_ = 1, minor_ = 0, revision_ = 0;
};

}  // namespace vantora
