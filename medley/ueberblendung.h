// Joins neighbouring tracks of the medley: the end of the first and the start of the second sound
// together, and the tempo of the first may slide towards that of the second. Works in place, on the
// catalog's own wave files, without undo. Each file keeps one half of the crossfade, so that a disc
// written without pauses plays it without a gap.
//
// What goes wrong with a file is said in a message; that transition is left out then, with both of
// its files as they were, and `MedleyFehler` is set.
#pragma once

#include "app/zustand/medley.h"

#include "platform/controls.h"
#include "platform/edits.h"
#include "platform/laufzeitfehler.h"
#include "platform/mmchain.h"
#include "platform/mmtools.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantora {

struct Programm;

class Ueberblendung {
 public:
  // `chkPitch` is read at the moment of each transition.
  Ueberblendung(Programm& programm, const CheckBox& chkPitch);
  ~Ueberblendung();
  Ueberblendung(const Ueberblendung&) = delete;
  Ueberblendung& operator=(const Ueberblendung&) = delete;

  // The crossfade of two rows of the medley into `Ausschnitt1`. Changes no file of the catalog.
  // Lets events run; a program that ends meanwhile leaves it with ProgrammEnde.
  void UeberblendungBerechnen(int Index1, int Index2);
  // The same, and its halves into the two files.
  void UeberblendungAusfuehren(int Index1, int Index2);

  // Before the first transition of a run, and behind the last one.
  void LaufBeginnen();
  // Marks the files of the medley in the catalog as belonging to a crossfade, unless the last
  // transition was refused; true when it did.
  bool KatalogMarkieren();

  // The crossfade as a wave file "temp00.dat" to listen to; returns its path, or blank after a
  // message that it could not be written, with `MedleyFehler` set.
  Text VorschauSchreiben();
  void TempDateienLoeschen();

  // Events of the pump.
  void Trigger_OnBufferLoad();
  void Trigger_OnStop();

  bool MedleyFehler = false;
  bool MixLaeuft = false;   // the tempo slides
  double PitchSchritt = 0;  // is added to the pitch at every buffer
  // The end of the first track, then the crossfade; the start of the second track. One value more
  // than the crossfade has, which is never filled.
  std::vector<std::int16_t> Ausschnitt1 = std::vector<std::int16_t>(1), Ausschnitt2 = Ausschnitt1;

 private:
  // What a row says as text, as numbers.
  struct Werte {
    double Tempo1 = 0, Tempo2 = 0;  // beats a minute, 0 for none
    std::int64_t U = 0;             // values that each file loses, as many as its bytes
  };

  Werte WerteLesen(const MedleyEintrag& a, const MedleyEintrag& b) const;
  bool DateienGeeignet(const MedleyEintrag& a, const MedleyEintrag& b);
  std::int64_t Groesse(const Text& datei, bool& format);
  void Lesen(MMWave& quelle, const Text& datei, std::int64_t stelle,
             std::vector<std::int16_t>& ziel);
  void TempSchreiben(const wchar_t* name);
  void Gleiten(double endwert);
  void Trigger_OnFailure(const Laufzeitfehler& fehler);
  Edit Vorhaben(const Text& datei1, const Text& datei2) const;
  std::int64_t Bytes() const;  // of the whole crossfade

  bool Gelingt(int text, const Text& was, const std::function<void()>& arbeit);
  bool Ablehnen(const Text& meldung);  // false

  Programm& prog;
  const CheckBox& chkPitch;
  std::unique_ptr<MMWave> SourceFile, SourceFile2;
  std::unique_ptr<MMWaveFileX> DestFile, Rein, Raus;
  std::unique_ptr<MMPitchX> Pitcher;
  std::unique_ptr<MMTriggerX> Trigger;
  MMWaveHelperX WaveHelper;
  std::int64_t groesse1_ = 0, groesse2_ = 0;  // bytes of sound in the two files
  bool geprueft_ = false;                     // both of them, in this transition
  std::optional<Laufzeitfehler> kettenfehler_;
  std::vector<Text> getan_;  // transitions of this run, the last one first
};

}  // namespace vantora
