// Handles the writer's events while a disc is burnt: shows the progress and reports errors. The
// values that it keeps from one event to the next are members of frmKomponenten.
#pragma once

#include "app/ereignisse.h"

namespace vantora {

struct Programm;
class frmKomponenten;

class BrennEreignisse final : public BrennEmpfaenger {
 public:
  explicit BrennEreignisse(Programm& programm) : prog(programm) {}

  void MCD_ActTrack(int track) override;
  void MCD_TrackPercent(int percent) override;
  void MCD_InfoMessage(int code, const Text& text) override;
  void MCD_StatusChange(int state) override;
  void MCD_WriteLeadIn(int mode) override;
  void MCD_WriteLeadOut(int mode) override;
  void MCD_Fixating() override;
  void MCD_Verify(int track, int state) override;
  void MCD_BurningProcessComplete(int success) override;
  void MCD_UserStop() override;
  void MCD_Failure(int code, const Text& text) override;
  void MCD_ScsiEvents(int first, int second, int code, int fourth, const Text& text) override;
  void MCD_ASPIEvent(int code, const Text& text) override;

 private:
  frmKomponenten& Komponenten() const;
  void Spur(const Text& wo, const Text& was);
  void VergleichZeigen(const Text& anteil);
  void ProzentTAO(int percent);
  void ProzentDAO(int percent);
  void NeuenTrackZeigen();
  double GesamtMs() const;             // audio of the whole disc, pauses included
  double FertigMs(int percent) const;  // audio written so far

  Programm& prog;
};

}  // namespace vantora
