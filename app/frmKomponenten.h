// The hidden window that owns the device and codec controls and receives all their events during
// the whole run. It passes them on to the receivers of app/ereignisse.h. Its flags hold the state
// between these events and the jobs that wait for them.
#pragma once

#include "app/ereignisse.h"
#include "app/fenster.h"

#include "platform/acd.h"
#include "platform/mcd.h"
#include "platform/mci.h"
#include "platform/mp3.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace vantora {

class frmKomponenten final : public VtrFenster {
 public:
  frmKomponenten(Programm& programm, EreignisEmpfaenger empfaenger);
  ~frmKomponenten() override;

  // ---- CD drives ----
  void CheckAudioCDRomDevices();
  void LaufwerkeLesen(std::vector<Text>& liste) const;    // root and class of every drive
  void CDLaufwerkeLesen(std::vector<Text>& liste) const;  // roots of the CD drives, from index 1
  void LaufwerkeMelden();  // writes the devices and their letters to the trace log
  // Returns the letter of a SCSI device; `Produkt` is in upper case. Blank when the registry does
  // not know the device.
  Text SCSILaufwerkSuchen(const Text& Produkt, const Text& Ziel, const Text& LUN) const;
  bool AutoInsertAktiv() const;
  void ACD_INIT();
  void ACD_Open();
  void ACD_Close();

  bool CD_Check();
  // Returns, and writes to the trace log, why the image in the open drive is no disc; blank without
  // such an image.
  Text ImageFehler() const;
  int GetNumTracks();
  int GetCDLength();
  int GetTrackLength(int track);
  void CD_GetPositionTMS(int& track, int& minute, int& sekunde);
  void CD_SetFormatMS();
  void CD_SetFormatTMSF();
  void CD_Open(const Text& laufwerk);
  void CD_Play();
  void CD_Stop();
  void CD_Pause();
  void CD_SetTrack(int track);
  void CD_Close();
  void CD_StatusUpdate();

  // ---- MP3 ----
  void MP3_Init();
  std::int32_t MP3_GetMBSize(const Text& datei);  // decoded size in whole MB

  std::int16_t AktCDDevice = 0;  // number of the device in ACD's count, from 1
  Text AktCDDrive;               // root of the drive, "D:\"
  std::int32_t CDModus = 0;      // last mode of the CD control
  bool CDGeschlossen = false;
  int LeseFehler = 0;  // failed tries at the track being read

  bool BrennLaeuft = false;  // from the start of a write to MCD_BurningProcessComplete
  bool Vergleich = false;    // the disc is complete and is compared with its waves
  std::vector<std::pair<int, int>> Abweichungen;  // what the comparison found: track and McdVerify
  bool Abgebrochen = false;                       // the run has failed or was cancelled
  Text BrennerLaufwerk;                           // root of the burner's drive
  std::int16_t AktTrack = 0;
  std::int16_t AngezeigterTrack = 0;

  bool KonvertierungAktiv = false;
  std::int64_t KonvertierungsStart = 0;  // ticks

  Mcd& MCD;
  Acd& ACD;
  MMControl& CD;
  Qm3Play& Mp3Play1;

 private:
  void EreignisseVerbinden();
  EreignisEmpfaenger empfaenger_;
};

}  // namespace vantora
