// A program with a disc in its drive, and sockets that answer as a CDDB server does and record the
// client's calls.
#pragma once

#include "cdinput/clsCCd.h"
#include "main/windows.h"
#include "tests/support/buehne.h"

#include <algorithm>
#include <deque>
#include <functional>

namespace vantora::test {

// A drive with one disc. Like a real drive, it answers only while it is open and set to MSF.
class FakeDisc final : public Mci {
 public:
  std::vector<int> Starts;  // starts of the tracks, in frames from the start of the disc
  int LeadOut = 0;
  int FailingCall = -1;  // number of the call that fails, from 0; -1: none
  Text Identity = L"11111111";
  int OpenDevices = 0;

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

// Sockets without a network: each connection receives the next of the answers.
class AnsweringSockets final : public Sockets {
 public:
  std::deque<std::string> Answers;
  std::vector<std::string> Requests;
  std::vector<int> Ports;                // of all connections
  std::function<void()> OnCall = [] {};  // before connecting, sending and reading
  int Open = 0;                          // sockets that are open
  int Reads = 0, LongestRead = 0;        // their number; most bytes asked for in one call

  int WSAStartup(int /*version*/) override { return 0; }
  int WSAGetLastError() override { return 0; }
  std::uint16_t Htons(std::uint16_t value) override { return value; }
  std::uint32_t inet_addr(const std::string& /*host*/) override { return 1; }
  std::string inet_ntoa(std::uint32_t /*address*/) override { return {}; }
  int gethostbyname(const std::string& /*h*/, std::uint32_t& /*a*/) override { return 0; }
  int socket() override {
    answer_ = Answers.empty() ? "" : Answers.front();
    if (!Answers.empty()) Answers.pop_front();
    at_ = 0;
    return ++Open;
  }
  int setsockopt_LINGER(int /*n*/, bool /*on*/, int /*seconds*/) override { return 0; }
  int connect(int /*n*/, const SocketAdresse& address) override {
    OnCall();
    Ports.push_back(address.Port);
    return 0;
  }
  int send(int /*n*/, const std::string& bytes) override {
    OnCall();
    Requests.push_back(bytes);
    return static_cast<int>(bytes.size());
  }
  int recv(int /*n*/, char* bytes, int limit) override {
    OnCall();
    ++Reads;
    LongestRead = std::max(LongestRead, limit);
    const auto count = answer_.copy(bytes, static_cast<std::size_t>(limit), at_);
    at_ += count;
    return static_cast<int>(count);
  }
  void closesocket(int /*n*/) override { --Open; }

 private:
  std::string answer_;
  std::size_t at_ = 0;
};

// The outcome of a look-up.
struct Outcome {
  int Status = -1, Ergebnis = -1;
  int Error = 0;  // number of the run-time error of the client, or 0
  bool operator==(const Outcome&) const = default;
};

struct CddbStage {
  explicit CddbStage(Sockets* other = nullptr)
      : bundle(With(platform.bundle, disc, other != nullptr ? *other : network)) {
    disc.Starts = {150, 13500};
    disc.LeadOut = 22500;
    request = {L"servidor:8880", L"", L"", L"anónimo", L"casa", L"VTR", L"1.0"};
  }

  Outcome Ask() {
    client.Init(L"D:\\");
    Outcome outcome;
    std::int16_t result = -1;
    status = 0;
    try {
      client.CDDBAbfrage(request, status, result);
    } catch (const Laufzeitfehler& error) {
      outcome.Error = error.Nummer;
    }
    outcome.Status = status;
    outcome.Ergebnis = result;
    EXPECT_EQ(network.Open, 0);
    return outcome;
  }
  // Asks a server that knows the disc and answers with these lines.
  Outcome AskFor(const std::string& tellingLines) {
    network.Answers = {kFound, kPage + "210 rock 0b012a02 x\r\n" + tellingLines};
    return Ask();
  }

  static constexpr const char* kId = "0b012a02";
  const std::string kPage = "HTTP/1.1 200 OK\r\n\r\n";
  const std::string kFound = kPage + "200 rock 0b012a02 Alguien / Algo\r\n";
  const std::string lines = "DTITLE=Alguien / Algo\r\nTTITLE0=uno\r\nTTITLE1=dos\r\n";

  TemporaryHome home;
  HeadlessPlatform platform{home.Path(), VANTORA_SOURCE_DIR "/resources"};
  FakeDisc disc;
  AnsweringSockets network;
  Plattform bundle;
  Programm prog{bundle, AllWindows};
  CDDBAnfrage request;
  clsCCd client{bundle};
  std::uint8_t status = 0;
};

}  // namespace vantora::test
