// Connections to other machines by TCP over IPv4, as far as a client needs them. All calls are from
// the interface thread.
//
// No call takes longer than 50 ms. A call that needs more returns kNochNicht. The caller then
// processes events and repeats the call with the same arguments, or gives up by closing the socket.
// A machine that does not answer, or never ends, counts as a failure after a while, so repeating a
// call always comes to an end.
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
  std::uint16_t Port = 0;     // in network byte order, see Htons
  std::uint32_t Adresse = 0;  // in network byte order
};

class Sockets {
 public:
  virtual ~Sockets() = default;

  virtual int WSAStartup(
      int version) = 0;               // must be called first, with kSocketVersion; 0 for success
  virtual int WSAGetLastError() = 0;  // the system's number of the last failure, for the log

  // The port in network byte order. The name has a capital letter, because the system's htons is a
  // macro.
  virtual std::uint16_t Htons(std::uint16_t value) = 0;
  virtual std::uint32_t inet_addr(const std::string& host) = 0;  // of "1.2.3.4", or kKeineAdresse
  virtual std::string inet_ntoa(std::uint32_t address) = 0;      // blank on failure
  // Looks up the first address of a name: 0 for success, kSocketFehler when there is none.
  virtual int gethostbyname(const std::string& host, std::uint32_t& address) = 0;

  virtual int socket() = 0;  // a number for the calls below, or kSocketFehler
  // With `on` and 0 seconds, closesocket drops the connection and all unsent bytes. Returns 0 for
  // success.
  virtual int setsockopt_LINGER(int number, bool on, int seconds) = 0;
  virtual int connect(int number, const SocketAdresse& address) = 0;  // 0 when connected
  virtual int send(int number, const std::string& bytes) = 0;         // returns the bytes accepted
  // Reads up to `limit` bytes. Returns their number, 0 when the other side has closed.
  virtual int recv(int number, char* bytes, int limit) = 0;
  virtual void closesocket(int number) = 0;
};

}  // namespace vantora
