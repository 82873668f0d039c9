#include "backends/linux/linux_sockets.h"

#include <gtest/gtest.h>

#include "tests/emulators/cddb_server.h"

#include <memory>

namespace vantora::test {
namespace {

using namespace std::chrono;

constexpr int kSliceMs = 20, kSilenceMs = 300, kWholeMs = 900;

struct Wire {
  LinuxSockets sockets{SocketPatience{kSliceMs, kSilenceMs, kWholeMs}};
  milliseconds longest{0};  // longest single call

  template <typename Call>
  int Repeat(Call call) {
    for (;;) {
      const auto start = steady_clock::now();
      const int result = call();
      longest = std::max(longest, duration_cast<milliseconds>(steady_clock::now() - start));
      if (result != kNochNicht) return result;
    }
  }
  SocketAdresse To(std::uint16_t port) {
    return {2, sockets.Htons(port), sockets.inet_addr("127.0.0.1")};
  }
  int Connected(const CddbServer& server) {
    const int number = sockets.socket();
    EXPECT_EQ(sockets.setsockopt_LINGER(number, true, 0), 0);
    EXPECT_EQ(Repeat([&] { return sockets.connect(number, To(server.Port())); }), 0);
    return number;
  }
  // Receives everything. Returns the result of the last call.
  int Drain(int number) {
    char bytes[20];
    int end = 1;
    while (end > 0) end = Repeat([&] { return sockets.recv(number, bytes, 20); });
    return end;
  }
};

TEST(LinuxSockets, ASilentMachineIsGivenUpInSlicesAndATalkativeOneToo) {
  CddbServer silent, slow;
  silent.Faults.Silent = true;
  slow.Faults.Instead = std::string(100000, 'x');
  slow.Faults.PieceBytes = 1;
  slow.Faults.PieceMs = 50;
  for (const auto& [server, patience] : {std::pair<CddbServer*, int>{&silent, kSilenceMs},
                                         std::pair<CddbServer*, int>{&slow, kWholeMs}}) {
    Wire wire;
    const auto start = steady_clock::now();
    const int number = wire.Connected(*server);
    wire.sockets.send(number, "GET /x HTTP/1.1\r\n\r\n");
    EXPECT_EQ(wire.Drain(number), kSocketFehler);
    EXPECT_EQ(wire.sockets.WSAGetLastError(), ETIMEDOUT);
    EXPECT_GE(steady_clock::now() - start, milliseconds(patience));
    EXPECT_LT(steady_clock::now() - start, milliseconds(patience + 1500));
    EXPECT_LT(wire.longest, milliseconds(kSliceMs + 300));  // allows for delays on a busy machine
    wire.sockets.closesocket(number);
  }
}

TEST(LinuxSockets, AClosedPortRefusesAndAClosedSocketIsNone) {
  Wire wire;
  std::uint16_t port = 0;
  {
    const CddbServer gone;
    port = gone.Port();
  }
  const int number = wire.sockets.socket();
  EXPECT_EQ(wire.Repeat([&] { return wire.sockets.connect(number, wire.To(port)); }),
            kSocketFehler);
  EXPECT_EQ(wire.sockets.WSAGetLastError(), ECONNREFUSED);
  wire.sockets.closesocket(number);
  char byte = 0;
  EXPECT_EQ(wire.sockets.recv(number, &byte, 1), kSocketFehler);
  EXPECT_EQ(wire.sockets.send(number, "x"), kSocketFehler);
}

TEST(LinuxSockets, NamesBecomeAddresses) {
  Wire wire;
  std::uint32_t address = 0;
  const auto lookUp = [&](const char* host) {
    return wire.Repeat([&] { return wire.sockets.gethostbyname(host, address); });
  };
  EXPECT_EQ(lookUp("no-such-machine.invalid"), kSocketFehler);
  EXPECT_EQ(lookUp("localhost"), 0);
  EXPECT_EQ(wire.sockets.inet_ntoa(address), "127.0.0.1");
  EXPECT_EQ(wire.sockets.inet_addr("no-such-machine.invalid"), kKeineAdresse);
}

TEST(LinuxSockets, ANewAttemptAtANameIsNotAnsweredWithTheFailureOfTheOneThatWasGivenUp) {
  const auto online = std::make_shared<std::atomic<bool>>(false);
  LinuxSockets sockets({}, [online](const std::string&) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return *online ? 0x0100007FU : kKeineAdresse;
  });
  std::uint32_t address = 0;
  EXPECT_EQ(sockets.gethostbyname("server", address), kNochNicht);
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  *online = true;
  int result = kNochNicht;
  for (int i = 0; i < 200 && result == kNochNicht; ++i) {
    result = sockets.gethostbyname("server", address);
  }
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace vantora::test
