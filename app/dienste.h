// Small services that every window calls: the trace log, the string table, and paths, disks and
// times handled in one way for the whole program.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

struct Plattform;

struct LaufwerkEintrag {
  Text Wurzel;  // "C:\"
  int Klasse;   // 0 to 6, see platform/drives.h
  Text Zeile;   // root and class in words, as the drive scan builds it
};

// Running number of the log, and what the preview is busy with.
struct LogStatus {
  std::int16_t LogZaehler = 0;
  Text AktuelleDatei;  // of the preview
};

class Dienste {
 public:
  explicit Dienste(Plattform& dienste) : plattform(dienste) {}

  Plattform& plattform;

  // ---- texts ----
  vantora::Text Text(int nummer) const;  // string table; error 326 for a number without text

  // ---- log ----
  bool LogAktiv = false;
  LogStatus Log;
  // One line of the trace: -1 with the time, 0 with the running number, any other mode an empty
  // line. The place "HEADER" starts the log anew.
  void AppLog(vantora::Text wo, const vantora::Text& was, int modus = 0);

  // ---- files and disks ----
  bool DateiExistiert(const vantora::Text& name) const;  // never raises
  double FreierPlatz(const vantora::Text& pfad) const;   // bytes
  void LaufwerkListe(std::vector<LaufwerkEintrag>& liste) const;
  vantora::Text UNCAufLaufwerk(const vantora::Text& pfad) const;
  vantora::Text DateiVersion(const vantora::Text& pfad) const;
  std::int32_t WaveGeraete(std::vector<vantora::Text>& namen) const;
  void CDPlayerSchliessen() const;

  // ---- time ----
  bool JobAbbruch = false;  // ends `Warten` early
  // Lets time pass while events are processed; true when the time is over, false when cancelled.
  bool Warten(double sekunden);
};

inline constexpr double kPlatzUnbekannt = 2147483648.0;  // free bytes of a drive that fails

// Class of a drive in the words of the drive scan.
Text LaufwerkText(int klasse);

Text AddBackslash(const Text& pfad);
Text DateiNameOhnePfad(const Text& pfad);
void ExtensionSicher(Text& name, Text endung);
void ZeichenErsetzen(Text& text, wchar_t alt, wchar_t neu);
Text TextErsetzen(const Text& text, const Text& was, const Text& mit);
// Parts of a text, with one empty part behind a final separator. Returns the last part.
Text Split(const Text& text, const Text& trenner, std::vector<Text>& teile);
// Each on a line of its own below what stands before, as many as a message has room for.
Text ZeilenListe(const std::vector<Text>& zeilen);
bool DateiNameGueltig(const Text& name);
bool NurZiffern(int taste);
std::int32_t BytesNachMs(double bytes);

// Hours, minutes, seconds and 25ths out of milliseconds; the 25ths count in steps of 25 ms.
void MsNachHMSF(std::int64_t ms, int& stunden, int& minuten, int& sekunden, int& frames);
Text HMSFText(int stunden, int minuten, int sekunden, int frames);
// Minutes and seconds of a length, "05:23"; hours are left out.
Text MinutenText(std::int64_t ms);
// Minutes, without a limit of 59, and seconds, each "##00"; what is over the limit has a minus.
Text RestText(std::int64_t ms);

}  // namespace vantora
