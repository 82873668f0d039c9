// A CDDB server on 127.0.0.1 with its own thread. It knows discs, answers the protocol's queries
// and reads, and can have faults.
//
// It serves one connection at a time, at most the given number in all, and waits 10 s at most, so
// that a failing test comes to an end.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace vantora::test {

struct ServerFaults {
  std::int64_t CloseAt = -1;  // closes the connection after this many bytes of the answer
  bool Silent = false;        // accepts the request and never answers
  std::string Instead;        // sent in place of the answer, unless blank
};

class CddbServer {
 public:
  explicit CddbServer(int connections = 32);
  ~CddbServer();
  CddbServer(const CddbServer&) = delete;
  CddbServer& operator=(const CddbServer&) = delete;

  // These must be called before the first request. `lines` is the answer to a read; each line ends
  // in CR LF.
  void Knows(const std::string& category, const std::string& id, const std::string& lines);
  void KnowsOnlySimilar(const std::string& id) { similar_ = id; }
  ServerFaults Faults;

  std::uint16_t Port() const { return port_; }
  std::string Address() const { return "127.0.0.1:" + std::to_string(port_); }
  int Requests() const { return requests_; }
  // Total time from complete requests to sent answers.
  std::chrono::nanoseconds Busy() const { return std::chrono::nanoseconds(busyNs_); }

 private:
  void Serve();
  void ServeOne(int client);
  std::string Answer(const std::string& request) const;

  const int connections_;
  int listener_ = -1;
  std::uint16_t port_ = 0;
  std::map<std::string, std::pair<std::string, std::string>> discs_;  // category and lines by ID
  std::string similar_;

  std::mutex mutex_;  // of the next two
  int client_ = -1;
  bool stopped_ = false;
  std::atomic<int> requests_ = 0;
  std::atomic<std::int64_t> busyNs_ = 0;
  std::thread thread_;  // last, since the thread uses all other members
};

}  // namespace vantora::test
