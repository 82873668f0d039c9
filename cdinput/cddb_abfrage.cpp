// The requests to a CDDB server: their texts, their addressee, and their order.
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/cddb_verbindung.h"
#include "cdinput/clsCCd.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr double kPortHTTP = 80;
constexpr double kCodeGefunden = 200, kCodeMehrere = 211;
constexpr std::size_t kSuchbereich = 255;  // most characters taken from the first answer

struct Ziel {
  Text Host;
  std::int16_t Port;
};

// An address has a signed port field, so port numbers above 32767 become negative.
std::int16_t PortFeld(double port) {
  return Ganz16(port > 32767 ? port - 65536 : port);
}

// Returns host and port of the connection. Raises error 6 when the port number is too large.
Ziel ZielVon(const CDDBAnfrage& anfrage) {
  if (!anfrage.Proxy.empty()) return {anfrage.Proxy, PortFeld(Val(anfrage.ProxyPort))};
  const auto trenner = anfrage.Server.rfind(L':');
  if (trenner == Text::npos) return {anfrage.Server, PortFeld(kPortHTTP)};
  return {anfrage.Server.substr(0, trenner), PortFeld(Val(anfrage.Server.substr(trenner + 1)))};
}

Text Anforderung(const CDDBAnfrage& anfrage, const Text& befehl) {
  const bool proxy = !anfrage.Proxy.empty();
  const Text hello =
      anfrage.Benutzer + L"+" + anfrage.Rechner + L"+" + anfrage.Programm + L"+" + anfrage.Version;
  const Text zeile = (proxy ? L"http://" + anfrage.Server : Text()) + L"/~cddb/cddb.cgi?cmd=" +
                     befehl + L"&hello=" + hello + L"&proto=4 HTTP/1.1\r\n";
  // For direct requests, servers of this protocol do not need the name of the host.
  const Text kopf = proxy ? L"Host: " + anfrage.Server + L"\r\nProxy-Connection: Keep-Alive\r\n"
                          : Text(L"Connection: Keep-Alive\r\n");
  return L"GET " + zeile + kopf + L"\r\n";
}

// Removes the header of an answer. Returns false and changes nothing when there is no header.
bool KopfAbschneiden(Text& antwort) {
  const Text grenze = L"\r\n\r\n";
  const auto ende = antwort.find(grenze);
  if (ende == Text::npos) return false;
  antwort.erase(0, ende + grenze.size());
  return true;
}

double CodeVon(const Text& antwort) {
  double code = 0;
  Weiter([&] { code = Val(antwort); });  // a number that is too large is no code
  return code;
}

// "200 rock 0b012a02 Title" gives "rock+0b012a02". A control character ends the result too: the
// result becomes part of a request, where a line end would let the server add a line of its own.
Text TitelBefehl(const Text& antwort) {
  Text wahl;
  int leer = 0;
  for (const wchar_t zeichen : antwort.substr(std::min<std::size_t>(4, antwort.size()))) {
    if (wahl.size() >= kSuchbereich) throw Laufzeitfehler(kFehlerUeberlauf, L"Desbordamiento");
    if (zeichen < L' ' || (zeichen == L' ' && ++leer == 2)) break;
    wahl += zeichen == L' ' ? L'+' : zeichen;
  }
  return L"cddb+read+" + wahl;
}

}  // namespace

void clsCCd::CDDBAbfrage(const CDDBAnfrage& anfrage, std::uint8_t& Status, std::int16_t& Ergebnis) {
  Ergebnis = 1;
  Text antwort;
  if (!Fragen(anfrage, QueryString(), kCDDBAbfrageVerbinden, Status, antwort)) return;
  KopfAbschneiden(antwort);
  const double code = CodeVon(antwort);
  Status = code == kCodeGefunden  ? kCDDBGefunden
           : code == kCodeMehrere ? kCDDBMehrere
                                  : kCDDBNichtGefunden;
  if (Status != kCDDBGefunden) return;
  if (!Fragen(anfrage, TitelBefehl(antwort), kCDDBTitelVerbinden, Status, antwort)) return;
  if (!KopfAbschneiden(antwort)) {
    Status = kCDDBNichtGefunden;
    return;
  }
  if (!AntwortLesen(antwort, Status)) return;
  Status = kCDDBFertig;
  Ergebnis = 0;
}

// Sends one request and reads its answer. Connecting, sending and reading have three consecutive
// statuses. Each step checks for a cancel first, so that setting the next status does not hide it.
bool clsCCd::Fragen(const CDDBAnfrage& anfrage, const Text& befehl, std::uint8_t ersterStatus,
                    std::uint8_t& Status, Text& antwort) {
  const auto ereignisse = [&] {
    plattform_.schleife.DoEvents();
    return Status != kCDDBAbbruch;
  };
  Status = ersterStatus;
  if (ersterStatus == kCDDBAbfrageVerbinden) {
    plattform_.sockets.WSAStartup(kSocketVersion);
  } else if (!ereignisse()) {
    return false;
  }
  CDDBVerbindung verbindung(plattform_, Status);
  bool verbunden = false;  // also for an impossible port number
  Weiter([&] {
    const Ziel ziel = ZielVon(anfrage);
    verbunden = verbindung.SocketOeffnen(ziel.Host, ziel.Port);
  });
  if (Status == kCDDBAbbruch) return false;
  if (!verbunden) {
    Status = anfrage.Proxy.empty() ? kCDDBKeinServer : kCDDBKeinProxy;
    return false;
  }
  if (!ereignisse()) return false;
  Status = static_cast<std::uint8_t>(ersterStatus + 1);
  verbindung.Senden(Anforderung(anfrage, befehl));
  if (Status == kCDDBAbbruch || !ereignisse()) return false;
  Status = static_cast<std::uint8_t>(ersterStatus + 2);
  const bool gelesen = verbindung.Lesen(antwort);
  if (Status == kCDDBAbbruch) return false;
  if (!gelesen) Status = kCDDBNichtGefunden;
  return gelesen;
}

CDDBAnfrage CDDBAnfrageAusEinstellungen(Programm& prog) {
  const auto wert = [&](const wchar_t* schluessel) {
    return Trim(GetSetting(prog.plattform, schluessel, L""));
  };
  CDDBAnfrage anfrage{wert(L"CDDB_Server"),
                      prog.Proxy_Server.Getrimmt(),
                      prog.Proxy_Port.Getrimmt(),
                      wert(L"CDDB_Hello_User"),
                      wert(L"CDDB_Hello_Host"),
                      prog.Text(24007),
                      L"1.0"};
  const auto at = anfrage.Benutzer.find(L'@');
  if (at != Text::npos) {
    if (anfrage.Rechner.empty()) anfrage.Rechner = anfrage.Benutzer.substr(at + 1);
    anfrage.Benutzer.erase(at);
  }
  if (anfrage.Server.empty()) anfrage.Server = prog.Text(24004);
  if (anfrage.Benutzer.empty()) anfrage.Benutzer = prog.Text(24005);
  if (anfrage.Rechner.empty()) anfrage.Rechner = prog.Text(24006);
  return anfrage;
}

}  // namespace vantora
