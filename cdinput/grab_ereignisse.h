// What the reader reports while a track is read, and what of it the progress window shows. The
// values that last from one event to the next are those of frmKomponenten and of the grab.
#pragma once

#include "app/ereignisse.h"

namespace vantora {

struct Programm;

class GrabEreignisse final : public GrabEmpfaenger {
 public:
  explicit GrabEreignisse(Programm& programm) : prog(programm) {}

  void ACD_ActPosition(int position) override;
  void ACD_ReadComplete() override;
  void ACD_Failure(int code, const Text& text) override;

 private:
  Programm& prog;
};

}  // namespace vantora
