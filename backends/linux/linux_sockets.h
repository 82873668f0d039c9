// Sockets of the system. No call waits longer than a slice. Names are looked up on a separate
// thread, since a call of the resolver cannot be cancelled.
#pragma once

#include "backends/linux/descriptor.h"

#include "platform/sockets.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace vantora {

// Time limits in milliseconds.
struct SocketPatience {
  int Slice = 20;       // of one call
  int Silence = 20000;  // without data from the other side, also while connecting
  int Whole = 120000;   // from socket() to the last byte
};

class LinuxSockets final : public Sockets {
 public:
  using Resolver = std::function<std::uint32_t(const std::string& host)>;  // may block

  explicit LinuxSockets(SocketPatience patience = {}, Resolver resolver = &AskResolver)
      : patience_(patience), resolver_(std::move(resolver)) {}

  int WSAStartup(int version) override;
  int WSAGetLastError() override { return lastError_; }
  std::uint16_t Htons(std::uint16_t value) override;
  std::uint32_t inet_addr(const std::string& host) override;
  std::string inet_ntoa(std::uint32_t address) override;
  int gethostbyname(const std::string& host, std::uint32_t& address) override;
  int socket() override;
  int setsockopt_LINGER(int number, bool on, int seconds) override;
  int connect(int number, const SocketAdresse& address) override;
  int send(int number, const std::string& bytes) override;
  int recv(int number, char* bytes, int limit) override;
  void closesocket(int number) override { connections_.erase(number); }

 private:
  using Moment = std::chrono::steady_clock::time_point;
  struct Connection {
    Descriptor Socket;
    Moment Born, LastSign;
    bool Connecting = false;
  };
  struct Lookup;  // shared with the thread of the lookup, which may live longer than this object

  static std::uint32_t AskResolver(const std::string& host);
  Connection* Find(int number);
  int Failed(int error);
  bool TooLate(const Connection& connection) const;
  bool Ready(const Connection& connection, short events) const;  // waits at most one slice
  int NotYet(const Connection& connection);

  SocketPatience patience_;
  Resolver resolver_;
  int lastError_ = 0;
  std::map<int, Connection> connections_;
  std::shared_ptr<Lookup> lookup_;  // of the last name, until it is answered
};

}  // namespace vantora
