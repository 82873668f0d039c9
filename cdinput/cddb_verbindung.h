// One connection to a server: it is opened, sends one request, reads one answer, and is closed.
// While it waits, it processes events; the status 77 ends every wait at once.
#pragma once

#include "platform/plattform.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vantora {

inline constexpr std::size_t kMaxAntwort = 1U << 20U;  // bytes

class CDDBVerbindung {
 public:
  CDDBVerbindung(Plattform& plattform, const std::uint8_t& Status)
      : plattform_(plattform), Status_(Status) {}
  ~CDDBVerbindung() { Schliessen(); }
  CDDBVerbindung(const CDDBVerbindung&) = delete;
  CDDBVerbindung& operator=(const CDDBVerbindung&) = delete;

  // `Port` is the signed field of an address: 40000 is -25536. Returns true when connected.
  bool SocketOeffnen(const Text& Host, std::int16_t Port);
  const Text& Gegenstelle() const { return gegenstelle_; }  // "80:127.0.0.1"
  void Senden(const Text& text);                            // in Windows-1252
  // Reads everything up to the end of the connection. Returns false for an answer longer than
  // kMaxAntwort, whose rest is not read.
  bool Lesen(Text& antwort);
  void Schliessen();

 private:
  bool AdresseSuchen(const std::string& host, std::uint32_t& adresse);
  template <typename Schritt>
  int Warten(Schritt schritt);

  Plattform& plattform_;
  const std::uint8_t& Status_;
  int socket_ = kSocketFehler;
  Text gegenstelle_;
};

}  // namespace vantora
