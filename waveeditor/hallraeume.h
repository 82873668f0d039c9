// The rooms of the hall are sections of a file in the application directory, which the user may
// change. A file that is missing is written anew from the program's resources.
#pragma once

#include "platform/text.h"

#include <vector>

namespace vantora {

struct Programm;

class Hallraeume {
 public:
  explicit Hallraeume(Programm& programm) : prog(programm) {}

  Text Datei() const;
  // Returns the names of the rooms for the list: the section "3.Cathedral" is the room "Cathedral".
  // Without a file there are no rooms.
  std::vector<Text> Namen() const;

 private:
  void DateiAnlegen() const;

  Programm& prog;
};

}  // namespace vantora
