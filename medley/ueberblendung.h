// Joins neighbouring tracks of the medley: the end of the first track and the start of the second
// sound together, and the tempo of the first may slide towards that of the second. Works on the
// catalog's own wave files, without undo. Each file keeps one half of the crossfade, so that a disc
// written without pauses plays it without a gap.
// written without pauses plays it without a gap.
//
// An error of a file is reported in a message. Its transition is then left out, both files stay
// unchanged, and `MedleyFehler` is set.
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
  // `chkPitch` is read at each transition.
  Ueberblendung(Programm& programm, const CheckBox& chkPitch);
  ~Ueberblendung();
  Ueberblendung(const Ueberblendung&) = delete;
  Ueberblendung& operator=(const Ueberblendung&) = delete;

  // Computes the crossfade of two rows into `Ausschnitt1`. Changes no file of the catalog.
  // Processes events; when the program ends meanwhile, raises ProgrammEnde.
  void UeberblendungBerechnen(int Index1, int Index2);
  // Computes the crossfade of two rows, and writes its halves to the two files.
  void UeberblendungAusfuehren(int Index1, int Index2);

  // Called before the first transition of a run.
  void LaufBeginnen();
  // Called after the last transition: marks the files of the medley in the catalog as belonging to
  // a crossfade. Does nothing and returns false when the last transition was refused.
  bool KatalogMarkieren();

  // Writes the crossfade to "temp00.dat" for a preview and returns its path. When the file cannot
  // be written, a message reports it, `MedleyFehler` is set, and the path is blank.
  Text VorschauSchreiben();
  void TempDateienLoeschen();

  // Events of the component that pumps the sound.
  void Trigger_OnBufferLoad();
  void Trigger_OnStop();

  bool MedleyFehler = false;
  bool MixLaeuft = false;   // the tempo slide is being computed
  double PitchSchritt = 0;  // added to the pitch at every buffer
  // `Ausschnitt1` holds the end of the first track, and later the crossfade; `Ausschnitt2` holds
  // the start of the second track. Both have one value more than the crossfade, which is never
  // filled.
  std::vector<std::int16_t> Ausschnitt1 = std::vector<std::int16_t>(1), Ausschnitt2 = Ausschnitt1;

 private:
  // The values of a row as numbers.
  struct Werte {
    double Tempo1 = 0, Tempo2 = 0;  // beats a minute; 0 if not set
    std::int64_t U = 0;             // samples of the crossfade; each file loses as many bytes
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
  std::int64_t Bytes() const;  // bytes of the whole crossfade

  bool Gelingt(int text, const Text& was, const std::function<void()>& arbeit);
  bool Ablehnen(const Text& meldung);  // returns false

  Programm& prog;
  const CheckBox& chkPitch;
  std::unique_ptr<MMWave> SourceFile, SourceFile2;
  std::unique_ptr<MMWaveFileX> DestFile, Rein, Raus;
  std::unique_ptr<MMPitchX> Pitcher;
  std::unique_ptr<MMTriggerX> Trigger;
  MMWaveHelperX WaveHelper;
  std::int64_t groesse1_ = 0, groesse2_ = 0;  // bytes of sound in the two files
  bool geprueft_ = false;                     // both files were checked for this transition
  std::optional<Laufzeitfehler> kettenfehler_;
  std::vector<Text> getan_;  // transitions of this run, the latest first
};

}  // namespace vantora
