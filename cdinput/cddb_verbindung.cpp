#include "cdinput/cddb_verbindung.h"

#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/clsCCd.h"

#include <array>

namespace vantora {

namespace {

constexpr std::int16_t kInternet = 2;  // address family of IPv4
constexpr std::uint16_t kKeinPort = 0xFFFF;
constexpr int kStueck = 20;  // bytes a read; few, so that windows react during a slow transfer

std::string Bytes(const Text& text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t zeichen : text) bytes += static_cast<char>(ByteIn1252(zeichen));
  return bytes;
}

Text AusBytes(const std::string& bytes) {
  Text text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += ZeichenAus1252(static_cast<unsigned char>(byte));
  return text;
}

}  // namespace

template <typename Schritt>
int CDDBVerbindung::Warten(Schritt schritt) {
  for (;;) {
    const int ergebnis = schritt();
    if (ergebnis != kNochNicht) return ergebnis;
    plattform_.schleife.DoEvents();
    if (Status_ == kCDDBAbbruch) return kSocketFehler;
  }
}

bool CDDBVerbindung::SocketOeffnen(const Text& Host, std::int16_t Port) {
  Schliessen();
  Sockets& sockets = plattform_.sockets;
  SocketAdresse adresse;
  adresse.Familie = kInternet;
  adresse.Port = sockets.Htons(static_cast<std::uint16_t>(Port));
  if (adresse.Port == kKeinPort) return false;
  if (!AdresseSuchen(Bytes(Host), adresse.Adresse)) return false;
  const std::string zahlen = sockets.inet_ntoa(adresse.Adresse);
  gegenstelle_ = ZahlText(static_cast<std::uint16_t>(Port)) + L":" +
                 (zahlen.empty() ? Text(L"255.255.255.255") : AusBytes(zahlen));
  socket_ = sockets.socket();
  if (socket_ == kSocketFehler) return false;
  if (sockets.setsockopt_LINGER(socket_, true, 0) == 0 &&
      Warten([&] { return sockets.connect(socket_, adresse); }) == 0) {
    return true;
  }
  Schliessen();
  return false;
}

bool CDDBVerbindung::AdresseSuchen(const std::string& host, std::uint32_t& adresse) {
  adresse = plattform_.sockets.inet_addr(host);
  if (adresse != kKeineAdresse) return true;
  return Warten([&] { return plattform_.sockets.gethostbyname(host, adresse); }) == 0;
}

// A failed send is not reported: the answer is then short or missing.
void CDDBVerbindung::Senden(const Text& text) {
  const std::string bytes = Bytes(text);
  Warten([&] { return plattform_.sockets.send(socket_, bytes); });
}

bool CDDBVerbindung::Lesen(Text& antwort) {
  std::string bytes;
  std::array<char, kStueck> stueck{};
  for (;;) {
    const int anzahl =
        Warten([&] { return plattform_.sockets.recv(socket_, stueck.data(), kStueck); });
    if (anzahl <= 0 || Status_ == kCDDBAbbruch) break;
    bytes.append(stueck.data(), static_cast<std::size_t>(anzahl));
    if (bytes.size() > kMaxAntwort) return false;
    plattform_.schleife.DoEvents();
    if (Status_ == kCDDBAbbruch) break;
  }
  antwort = AusBytes(bytes);
  return true;
}

void CDDBVerbindung::Schliessen() {
  if (socket_ != kSocketFehler) plattform_.sockets.closesocket(socket_);
  socket_ = kSocketFehler;
}

}  // namespace vantora
