// Connections to other machines, TCP over IPv4, as much of them as asking a server takes.
//
// No call keeps its caller longer than 50 ms. What is not done by then gives kNochNicht: the caller
// processes events and calls again, with the same arguments, or gives up by closing the socket.
// A machine that does not answer at all, or goes on for ever, is given up after a while and counts
// as a failure; so a caller that just repeats comes to an end.
#pragma once

#include <cstdint>
#include <string>

namespace vantora {

inline constexpr int kSocketFehler = -1;
inline constexpr int kNochNicht = -2;

inline constexpr int kSocketVersion = 257;  // 1.1

inline constexpr std::uint32_t kKeineAdresse = 0xFFFFFFFF;

struct SocketAdresse {
  std::int16_t Familie = 0;   // 2 for IPv4
  std::uint16_t Port = 0;     // as it is sent, see Htons
  std::uint32_t Adresse = 0;  // as it is sent
};

class Sockets {
 public:
  virtual ~Sockets() = default;

  virtual int WSAStartup(
      int version) = 0;               // once, before all others; kSocketVersion. 0 for success
  virtual int WSAGetLastError() = 0;  // the system's number for the last failure, for the log

  // The port as it is sent. With a capital, because the system's own is a macro.
  virtual std::uint16_t Htons(std::uint16_t value) = 0;
  virtual std::uint32_t inet_addr(const std::string& host) = 0;  // of "1.2.3.4"; or kKeineAdresse
  virtual std::string inet_ntoa(std::uint32_t address) = 0;      // blank on failure
  // The first address of a name: 0 when it is there, kSocketFehler when there is none.
  virtual int gethostbyname(const std::string& host, std::uint32_t& address) = 0;

  virtual int socket() = 0;  // a number, or kSocketFehler
  // A close then drops the connection, with what was not sent yet. 0 for success.
  virtual int setsockopt_LINGER(int number, bool on, int seconds) = 0;
  virtual int connect(int number, const SocketAdresse& address) = 0;  // 0 when connected
  virtual int send(int number, const std::string& bytes) = 0;         // how many were taken
  // Bytes that have come, `limit` at the most. 0: the other side has closed.
  virtual int recv(int number, char* bytes, int limit) = 0;
  virtual void closesocket(int number) = 0;
};

}  // namespace vantora
