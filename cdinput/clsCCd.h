// Tells audio CDs apart by an ID made of their table of contents, and fetches a disc's titles from
// a CDDB server by it: plain HTTP at protocol level 4, directly or through a proxy.
//
// All of it runs on the interface thread. While the client waits, events are processed, so that
// windows live and a cancel comes through: whoever sets the status to 77 gets an end within 0.5 s.
#pragma once

#include "app/programm.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace vantora {

// The status belongs to the caller, so that a timer can read it while the client runs.
enum CDDBStatus : std::uint8_t {
  kCDDBAbfrageVerbinden = 0,
  kCDDBAbfrageSenden = 1,
  kCDDBAbfrageLesen = 2,
  kCDDBTitelVerbinden = 5,
  kCDDBTitelSenden = 6,
  kCDDBTitelLesen = 7,
  kCDDBFertig = 11,
  kCDDBAbbruch = 77,         // set by whoever cancels
  kCDDBKeinProxy = 99,       // the proxy could not be reached
  kCDDBKeinServer = 100,     // the server could not be reached
  kCDDBGefunden = 200,       // the server knows the disc
  kCDDBMehrere = 201,        // it knows only similar ones
  kCDDBNichtGefunden = 202,  // any other answer
};

// Whom to ask, through whom, and how the program introduces itself. The values are sent as they
// stand.
struct CDDBAnfrage {
  Text Server;     // "host" or "host:port"; port 80 when there is none
  Text Proxy;      // blank for a direct connection
  Text ProxyPort;  // decimal
  Text Benutzer, Rechner, Programm, Version;
};

// From the settings: `CDDB_Server` and `CDDB_Hello_Host` replace the texts 24004 and 24006.
// `CDDB_Hello_User`, blank by default, is the person's own e-mail address; its part behind "@" is
// then the host of the hello, unless `CDDB_Hello_Host` names one.
CDDBAnfrage CDDBAnfrageAusEinstellungen(Programm& prog);

inline constexpr std::int64_t kCDDBMaxTracks = 100;
// By track number from 1; element 0 is not used.
using CDDBTexte = std::array<Text, kCDDBMaxTracks + 1>;

// What a server told about a disc. A performer of a track ends in a blank.
struct CDDBInfo {
  Text Interpret, Titel, ExtD;
  CDDBTexte TrackTitel, TrackExt, TrackInterpret;
};

struct TocEintrag {
  std::int32_t Minute = 0, Sekunde = 0, Frame = 0;
  std::int32_t Offset = 0;  // frames; not set in the lead-out's entry
};

class clsCCd {
 public:
  explicit clsCCd(Plattform& plattform) : plattform_(plattform) {}

  // Reads the table of contents of the disc in a drive ("D:\"). The ID stays "(unavailable)" when
  // there is none to read. The drive must not be open for playing.
  void Init(const Text& Laufwerk);
  const Text& DiscID() const { return mDiscID; }
  Text QueryString() const;  // the query as the server reads it

  // Asks for the disc and fetches its titles. `Ergebnis` is 0 for success, with the status 11;
  // else 1, and the status says why. A server's answer that breaks the rules of the protocol raises
  // Laufzeitfehler 5, 6 or 9 (a track above 100); the results are not to be used then.
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
  std::vector<TocEintrag> mToc;  // one a track, and one for the lead-out
  Text mKategorie;
  Text mInterpret, mTitel, mExtD;
  CDDBTexte mTrackTitel, mTrackExt, mTrackInterpret;
};

// The ID of the disc in a drive, read with the drive layer closed; "(unavailable)" without a disc.
Text DiscIDLesen(Programm& prog, const Text& Laufwerk);

// What the progress window shows at a status: the number of a text, and the width of the bar
// `shpInsgKopie` in twips. Nothing changes at any other status.
struct CDDBFortschritt {
  int TextNummer;
  int Breite;
};
std::optional<CDDBFortschritt> CDDBFortschrittZu(std::uint8_t Status);

// Files what a server told in cdplayer.ini, under the identity of the disc in `laufwerk`.
void CDPlayerIniSchreiben(Programm& prog, const Text& laufwerk, const CDDBInfo& info);

// Puts "'" for every "´" in all texts.
void AkuteErsetzen(CDDBInfo& info);

}  // namespace vantora
