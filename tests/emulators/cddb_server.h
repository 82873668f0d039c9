// A CDDB server on 127.0.0.1, in a thread of its own: knows discs, answers queries and reads of the
// protocol, and has faults that happen to its answers. As a proxy it wants requests in a proxy's
// form and passes them on to the server that they name.
//
// It serves one connection after the other, so many at the most as it was told, and none longer
// than 10 s, so that a test that goes wrong comes to an end.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantora::test {

struct ServerFaults {
  int FromRequest = 0;        // the first request, from 0, that meets the faults
  int PieceBytes = 0;         // sends so many bytes at a time, 0: all at once
  int PieceMs = 0;            // and lets so long pass between two pieces
  std::int64_t CloseAt = -1;  // closes after so many bytes of the answer
  bool Silent = false;        // takes the request, and keeps the connection without a word
  std::string Instead;        // sends this in place of the answer, unless blank
  std::int64_t Flood = 0;     // so many bytes behind the header, without a line's end
};

class CddbServer {
 public:
  explicit CddbServer(int connections = 32);
  ~CddbServer();
  CddbServer(const CddbServer&) = delete;
  CddbServer& operator=(const CddbServer&) = delete;

  // All of these before the first request.
  // `lines` is what a read tells, each line ended by CR LF.
  void Knows(const std::string& category, const std::string& id, const std::string& lines);
  void KnowsOnlySimilar(const std::string& id) { similar_ = id; }
  void PassesOnTo(const CddbServer& server) { upstream_ = &server; }  // is a proxy from now on
  ServerFaults Faults;

  std::uint16_t Port() const { return port_; }
  std::string Address() const { return "127.0.0.1:" + std::to_string(port_); }
  std::vector<std::string> Requests() const;  // to the byte, in order
  // The last request's connection was closed by the client, before the server was done with it.
  bool LeftAlone() const { return leftAlone_; }
  // From requests that had come whole to their answers that were sent, all together.
  std::chrono::nanoseconds Busy() const { return std::chrono::nanoseconds(busyNs_); }

 private:
  void Serve();
  void ServeOne(int client);
  std::string ReadRequest(int client) const;
  std::string Answer(const std::string& request) const;
  std::string Direct(const std::string& path) const;
  std::string Faulty(std::string answer) const;
  bool Send(int client, const std::string& answer, bool faulty) const;
  bool WaitForEnd(int client) const;
  bool Patient(std::int64_t since) const;

  const int connections_;
  int listener_ = -1;
  std::uint16_t port_ = 0;
  std::map<std::string, std::pair<std::string, std::string>> discs_;  // by ID: category, lines
  std::string similar_;
  const CddbServer* upstream_ = nullptr;

  mutable std::mutex mutex_;
  std::vector<std::string> requests_;
  std::atomic<bool> leftAlone_ = false, stopped_ = false;
  std::atomic<std::int64_t> busyNs_ = 0;
  std::thread thread_;  // last: it uses all the others
};

}  // namespace vantora::test
