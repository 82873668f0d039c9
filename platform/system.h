// The program's place in the system: its folder, its version, its neighbours.
#pragma once

#include "platform/text.h"

#include <filesystem>

namespace vantora {

class System {
 public:
  virtual ~System() = default;
  virtual bool PrevInstance() = 0;  // another instance of this user runs already
  virtual Text Path() = 0;          // application directory, "C:\Vantora"
  virtual Text ExeName() = 0;       // "vantora"
  virtual int Major() = 0;
  virtual int Minor() = 0;
  virtual int Revision() = 0;
  // Asks one window of the class "SJE_CdPlayerClass" to close; false when there is none.
  virtual bool CloseCdPlayer() = 0;
  virtual Text FileVersion(const Text& path) = 0;  // "1.6.5.100"; blank for none
  // Shows the help on a topic, the name of a window; its first page when the topic has none. False
  // when there is no help to show.
  virtual bool OpenHelp(const Text& file, const Text& topic) = 0;
  // Shows a file in the viewer that the desktop has for it; false when there is none.
  virtual bool OpenFile(const std::filesystem::path& file) = 0;
  virtual void OpenLink(const Text& address) = 0;
};

}  // namespace vantora
