// Identifies an audio CD by an ID computed from its table of contents, and fetches its titles by
// this ID from a CDDB server: plain HTTP at protocol level 4, directly or through a proxy.
//
// Everything runs on the interface thread. While the client waits, events are processed, so windows
// react and a cancel is noticed: after the status is set to 77, the client ends within 0.5 s.
#pragma once

#include "app/programm.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace vantora {

// The caller owns the status, so that a timer can read it while the client runs.
enum CDDBStatus : std::uint8_t {
  kCDDBAbfrageVerbinden = 0,
  kCDDBAbfrageSenden = 1,
  kCDDBAbfrageLesen = 2,
  kCDDBTitelVerbinden = 5,
  kCDDBTitelSenden = 6,
  kCDDBTitelLesen = 7,
  kCDDBFertig = 11,
  kCDDBAbbruch = 77,         // set by the caller's timer to cancel
  kCDDBKeinProxy = 99,       // the proxy could not be reached
  kCDDBKeinServer = 100,     // the server could not be reached
  kCDDBGefunden = 200,       // the server knows the disc
  kCDDBMehrere = 201,        // the server knows only similar discs
  kCDDBNichtGefunden = 202,  // any other answer
};

// The server, the proxy, and the words with which the program introduces itself. The values are
// sent unchanged.
struct CDDBAnfrage {
  Text Server;     // "host" or "host:port"; port 80 when there is none
  Text Proxy;      // blank for a direct connection
  Text ProxyPort;  // decimal
  Text Benutzer, Rechner, Programm, Version;
};

// Reads the settings: `CDDB_Server` and `CDDB_Hello_Host` replace the texts 24004 and 24006.
// `CDDB_Hello_User`, blank by default, is the user's e-mail address; the part behind "@" becomes
// the host of the hello, unless `CDDB_Hello_Host` is set.
CDDBAnfrage CDDBAnfrageAusEinstellungen(Programm& prog);

inline constexpr std::int64_t kCDDBMaxTracks = 100;
// By track number from 1; element 0 is not used.
using CDDBTexte = std::array<Text, kCDDBMaxTracks + 1>;

// The server's answer about a disc. The performer of a track ends with a blank.
struct CDDBInfo {
  Text Interpret, Titel, ExtD;
  CDDBTexte TrackTitel, TrackExt, TrackInterpret;
};

struct TocEintrag {
  std::int32_t Minute = 0, Sekunde = 0, Frame = 0;
  std::int32_t Offset = 0;  // frames; not set for the lead-out
};

class clsCCd {
 public:
  explicit clsCCd(Plattform& plattform) : plattform_(plattform) {}

  // Reads the table of contents of the disc in a drive ("D:\"). Without a readable one, the ID
  // stays "(unavailable)". The drive must not be open for playing.
  void Init(const Text& Laufwerk);
  const Text& DiscID() const { return mDiscID; }
  Text QueryString() const;  // in the form that a server reads

  // Looks up the disc and fetches its titles. `Ergebnis` is 0 on success, with status 11; otherwise
  // it is 1, and the status gives the reason. An answer that breaks the protocol raises
  // Laufzeitfehler 5, 6 or 9 (a track above 100); the results must not be used then.
  void CDDBAbfrage(const CDDBAnfrage& anfrage, std::uint8_t& Status, std::int16_t& Ergebnis);
  CDDBInfo CDDBGetInfo() const;
  const Text& Kategorie() const { return mKategorie; }

 private:
  bool TocLesen();
  void IDBerechnen();
  bool Fragen(const CDDBAnfrage& anfrage, const Text& befehl, std::uint8_t ersterStatus,
              std::uint8_t& Status, Text& antwort);
  bool AntwortLesen(const Text& antwort, const std::uint8_t& Status);
  void ZeileLesen(const Text& zeile);

  Plattform& plattform_;
  Text mDiscID = L"(unavailable)";
  Text mLaufwerk;
  std::int32_t mDevice = -1;  // -1 while closed
  std::int16_t mTrackAnzahl = 0;
  std::int32_t mLaengeSek = 0;   // between the first track and the lead-out
  std::vector<TocEintrag> mToc;  // one entry a track, and one for the lead-out
  Text mKategorie;
  Text mInterpret, mTitel, mExtD;
  CDDBTexte mTrackTitel, mTrackExt, mTrackInterpret;
};

// Reads the ID of the disc in a drive while the drive layer is closed; "(unavailable)" without a
// disc.
Text DiscIDLesen(Programm& prog, const Text& Laufwerk);

// What the progress window shows for a status: the number of a text, and the width of the bar
// `shpInsgKopie` in twips. For other statuses the window stays unchanged.
struct CDDBFortschritt {
  int TextNummer;
  int Breite;
};
std::optional<CDDBFortschritt> CDDBFortschrittZu(std::uint8_t Status);

// Writes the server's answer to cdplayer.ini, under the identity of the disc in `laufwerk`.
void CDPlayerIniSchreiben(Programm& prog, const Text& laufwerk, const CDDBInfo& info);

// Replaces "´" by "'" in all texts.
void AkuteErsetzen(CDDBInfo& info);

}  // namespace vantora
