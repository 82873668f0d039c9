// Small services that every window calls: the trace log, the table of texts, and the handling of
// paths, disks and times.
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

// State of the trace log, and the file of the preview.
struct LogStatus {
  std::int16_t LogZaehler = 0;
  Text AktuelleDatei;  // the file that the preview plays
};

class Dienste {
 public:
  explicit Dienste(Plattform& dienste) : plattform(dienste) {}

  Plattform& plattform;

  // ---- texts ----
  // Returns a text of the table of texts. Raises error 326 when the number has no text.
  vantora::Text Text(int nummer) const;

  // ---- log ----
  bool LogAktiv = false;
  LogStatus Log;
  // Writes one line of the trace: with the time (mode -1), with the running number (mode 0), or an
  // empty line (any other mode). The place "HEADER" starts the log anew.
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
  // Processes events until the time is over (true) or `JobAbbruch` is set (false).
  bool Warten(double sekunden);
};

inline constexpr double kPlatzUnbekannt = 2147483648.0;  // free bytes of a drive that fails

// The class of a drive in words, as the drive scan writes it.
Text LaufwerkText(int klasse);

Text AddBackslash(const Text& pfad);
Text DateiNameOhnePfad(const Text& pfad);
void ExtensionSicher(Text& name, Text endung);
void ZeichenErsetzen(Text& text, wchar_t alt, wchar_t neu);
Text TextErsetzen(const Text& text, const Text& was, const Text& mit);
// Cuts a text into its parts; a separator at its end leaves one empty part. Returns the last part.
Text Split(const Text& text, const Text& trenner, std::vector<Text>& teile);
// Puts each line of a list on a line of its own. After the eighth line, "…" stands for the rest.
Text ZeilenListe(const std::vector<Text>& zeilen);
bool DateiNameGueltig(const Text& name);
bool NurZiffern(int taste);
std::int32_t BytesNachMs(double bytes);

// Splits milliseconds into hours, minutes, seconds and 25ths; a 25th counts as 25 ms.
void MsNachHMSF(std::int64_t ms, int& stunden, int& minuten, int& sekunden, int& frames);
Text HMSFText(int stunden, int minuten, int sekunden, int frames);
// Minutes and seconds of a length, "05:23"; hours are left out.
Text MinutenText(std::int64_t ms);
// Minutes, which may exceed 59, and seconds, each as "##00". Negative lengths have a minus sign.
Text RestText(std::int64_t ms);

}  // namespace vantora
