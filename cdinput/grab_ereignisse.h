// Handles the reader's events while a track is read: shows the progress and reports errors. The
// values that it keeps from one event to the next are members of frmKomponenten and GrabZustand.
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
