// The rooms of the hall, sections of a file in the application directory. The user may change the
// file; one that is missing is made anew from what the program brings.
#pragma once

#include "platform/text.h"

#include <vector>

namespace vantora {

struct Programm;

class Hallraeume {
 public:
  explicit Hallraeume(Programm& programm) : prog(programm) {}

  Text Datei() const;
  // As they are shown: without what stands before the first point of the section's name. An editor
  // works without rooms as well.
  std::vector<Text> Namen() const;

 private:
  void DateiAnlegen() const;

  Programm& prog;
};

}  // namespace vantora
