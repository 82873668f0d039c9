// A program with a disc in its drive and a CDDB server. The sockets between them record the
// client's calls, and can stall at any step.
#pragma once

#include "backends/linux/linux_sockets.h"
#include "cdinput/clsCCd.h"
#include "main/windows.h"
#include "tests/emulators/cddb_server.h"
#include "tests/support/buehne.h"

#include <deque>
#include <set>
#include <utility>

namespace vantora::test {

// A drive with one disc. Like a real drive, it answers only while it is open and set to MSF.
class FakeDisc final : public Mci {
 public:
  std::vector<int> Starts;  // starts of the tracks, in frames from the start of the disc
  int LeadOut = 0;
  int FailingCall = -1;  // number of the call that fails, from 0; -1: none
  Text Identity = L"11111111";
  int OpenDevices = 0;

  // Sets up tracks of about 13 seconds each.
  void Has(int tracks) {
    Starts.clear();
    for (int i = 0; i < tracks; ++i) Starts.push_back(150 + i * 1000);
    LeadOut = 150 + tracks * 1000;
  }

  Text mciSendString(const Text& /*command*/) override { return {}; }
  Text MediaIdentity(const Text& /*drive*/) override { return Identity; }
  int MCI_OPEN(const Text& drive) override {
    if (Fails() || drive != L"D:\\" || Starts.empty()) return -1;
    ++OpenDevices;
    msf_ = false;
    return 1;
  }
  bool MCI_SET(int /*device*/, int timeFormat) override {
    if (Fails() || OpenDevices != 1) return false;
    msf_ = timeFormat == kMciMsf;
    return true;
  }
  std::int32_t MCI_STATUS(int /*device*/, int item, int track) override {
    if (Fails() || OpenDevices != 1) return -1;
    if (item == kMciNumberOfTracks) return static_cast<std::int32_t>(Starts.size());
    if (!msf_ || track < 1 || track > static_cast<int>(Starts.size())) return -1;
    const auto index = static_cast<std::size_t>(track) - 1;
    if (item == kMciPosition) return Msf(Starts[index]);
    const bool last = index + 1 == Starts.size();
    return Msf((last ? LeadOut - 1 : Starts[index + 1]) - Starts[index]);
  }
  void MCI_CLOSE(int /*device*/) override { --OpenDevices; }

 private:
  static std::int32_t Msf(int frames) {
    return frames / 75 / 60 | frames / 75 % 60 << 8 | frames % 75 << 16;
  }
  bool Fails() { return FailingCall >= 0 && FailingCall-- == 0; }

  bool msf_ = false;
};

class WatchedSockets final : public Sockets {
 public:
  WatchedSockets(Sockets& real, Clock& clock) : real_(real), clock_(clock) {}

  const std::uint8_t* Status = nullptr;

  std::vector<int> Statuses;  // statuses seen at the steps, without repeats
  int Reads = 0;
  int LongestRead = 0;         // most bytes asked for in one call
  int ReadsWithoutEvents = 0;  // reads without any event processed since the read before
  int Opened = 0, Closed = 0;
  std::set<std::uint16_t> Ports;  // in network byte order

  int WSAStartup(int version) override { return real_.WSAStartup(version); }
  int WSAGetLastError() override { return real_.WSAGetLastError(); }
  std::uint16_t Htons(std::uint16_t value) override { return real_.Htons(value); }
  std::uint32_t inet_addr(const std::string& host) override { return real_.inet_addr(host); }
  std::string inet_ntoa(std::uint32_t address) override { return real_.inet_ntoa(address); }
  int gethostbyname(const std::string& host, std::uint32_t& address) override {
    Look();
    return real_.gethostbyname(host, address);
  }
  int socket() override {
    ++Opened;
    return real_.socket();
  }
  int setsockopt_LINGER(int number, bool on, int seconds) override {
    return real_.setsockopt_LINGER(number, on, seconds);
  }
  int connect(int number, const SocketAdresse& address) override {
    Ports.insert(address.Port);
    Look();
    return real_.connect(number, address);
  }
  int send(int number, const std::string& bytes) override {
    Look();
    return real_.send(number, bytes);
  }
  int recv(int number, char* bytes, int limit) override {
    ++Reads;
    LongestRead = std::max(LongestRead, limit);
    // On this clock, time passes only while events are processed.
    if (std::exchange(lastRead_, clock_.Ticks()) == clock_.Ticks()) ++ReadsWithoutEvents;
    Look();
    return real_.recv(number, bytes, limit);
  }
  void closesocket(int number) override {
    ++Closed;
    real_.closesocket(number);
  }

 private:
  void Look() {
    if (Status && (Statuses.empty() || Statuses.back() != *Status)) Statuses.push_back(*Status);
  }

  Sockets& real_;
  Clock& clock_;
  std::int64_t lastRead_ = -1;
};

// Sockets without a network: each connection receives the next of the answers.
class AnsweringSockets final : public Sockets {
 public:
  std::deque<std::string> Answers;
  std::vector<std::string> Requests;

  int WSAStartup(int /*version*/) override { return 0; }
  int WSAGetLastError() override { return 0; }
  std::uint16_t Htons(std::uint16_t value) override { return value; }
  std::uint32_t inet_addr(const std::string& /*host*/) override { return 1; }
  std::string inet_ntoa(std::uint32_t /*address*/) override { return {}; }
  int gethostbyname(const std::string& /*h*/, std::uint32_t& /*a*/) override { return 0; }
  int socket() override {
    rest_ = Answers.empty() ? "" : Answers.front();
    if (!Answers.empty()) Answers.pop_front();
    return 1;
  }
  int setsockopt_LINGER(int /*n*/, bool /*on*/, int /*seconds*/) override { return 0; }
  int connect(int /*n*/, const SocketAdresse& /*address*/) override { return 0; }
  int send(int /*n*/, const std::string& bytes) override {
    Requests.push_back(bytes);
    return static_cast<int>(bytes.size());
  }
  int recv(int /*n*/, char* bytes, int limit) override {
    const auto count = rest_.copy(bytes, static_cast<std::size_t>(limit));
    rest_.erase(0, count);
    return static_cast<int>(count);
  }
  void closesocket(int /*n*/) override {}

 private:
  std::string rest_;
};

// The outcome of a look-up.
struct Outcome {
  int Status = -1, Ergebnis = -1;
  int Error = 0;  // number of the run-time error of the client, or 0
  bool operator==(const Outcome&) const = default;
};

struct CddbStage {
  explicit CddbStage(Sockets* other = nullptr)
      : lines("DTITLE=Alguien / Algo\r\nTTITLE0=uno\r\nTTITLE1=dos\r\n"),
        sockets(other ? *other : real, platform.clock) {
    disc.Starts = {150, 13500};
    disc.LeadOut = 22500;
    request = {L"", L"", L"", L"anónimo", L"casa", L"VTR", L"1.0"};
    request.Server = Wide(server.Address());
  }

  static Text Wide(const std::string& text) { return {text.begin(), text.end()}; }

  Outcome Ask() {
    client.Init(L"D:\\");
    Outcome outcome;
    std::int16_t result = -1;
    status = 0;
    sockets.Status = &status;
    try {
      client.CDDBAbfrage(request, status, result);
    } catch (const Laufzeitfehler& error) {
      outcome.Error = error.Nummer;
    }
    outcome.Status = status;
    outcome.Ergebnis = result;
    return outcome;
  }
  Outcome AskFor(const std::string& tellingLines) {
    server.Knows("rock", kId, tellingLines);
    return Ask();
  }

  static constexpr const char* kId = "0b012a02";
  const std::string lines;

  TemporaryHome home;
  HeadlessPlatform platform{home.Path(), std::filesystem::path(VANTORA_SOURCE_DIR) / "resources"};
  FakeDisc disc;
  LinuxSockets real{SocketPatience{20, 800, 8000}};
  WatchedSockets sockets;
  Plattform bundle{With(platform.bundle, disc, sockets)};
  Programm prog{bundle, AllWindows};
  CddbServer server;
  CDDBAnfrage request;
  clsCCd client{bundle};
  std::uint8_t status = 0;
};

}  // namespace vantora::test
