// Handles the decoder's events while an MP3 file is imported: shows the progress and reports
// errors.
#pragma once

#include "app/ereignisse.h"

namespace vantora {

struct Programm;

class Mp3Ereignisse final : public Mp3Empfaenger {
 public:
  explicit Mp3Ereignisse(Programm& programm) : prog(programm) {}

  void Mp3Play1_ActFrame(int frame) override;
  void Mp3Play1_Failure(int code, const Text& text) override;
  void Mp3Play1_ThreadEnded() override;

 private:
  Programm& prog;
};

}  // namespace vantora
