// The program's environment: its folder, its version, and other programs of the desktop.
#pragma once

#include "platform/text.h"

#include <filesystem>

namespace vantora {

class System {
 public:
  virtual ~System() = default;
  virtual bool PrevInstance() = 0;  // the user has another running instance
  virtual Text Path() = 0;          // application folder, "C:\Vantora"
  virtual Text ExeName() = 0;       // "vantora"
  virtual int Major() = 0;
  virtual int Minor() = 0;
  virtual int Revision() = 0;
  // Asks a window of the class "SJE_CdPlayerClass" to close. Returns false when there is none.
  virtual bool CloseCdPlayer() = 0;
  virtual Text FileVersion(const Text& path) = 0;  // "1.6.5.100"; blank when the file has none
  // Shows the help page of a topic, which is the name of a window, or the first page when there is
  // none. Returns false when there is no help.
  virtual bool OpenHelp(const Text& file, const Text& topic) = 0;
  // Opens a file in the desktop's viewer. Returns false when there is no viewer.
  virtual bool OpenFile(const std::filesystem::path& file) = 0;
  virtual void OpenLink(const Text& address) = 0;
};

}  // namespace vantora
