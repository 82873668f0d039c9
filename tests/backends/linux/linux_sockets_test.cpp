#include "backends/linux/linux_sockets.h"

#include <gtest/gtest.h>

#include "tests/emulators/cddb_server.h"

#include <memory>

namespace vantora::test {
namespace {

using namespace std::chrono;

constexpr int kSliceMs = 20, kSilenceMs = 300, kWholeMs = 900;

TEST(LinuxSockets, AClosedPortRefusesAndASilentMachineIsGivenUpInSlicesAsIsATalkativeOne) {
  LinuxSockets sockets{SocketPatience{kSliceMs, kSilenceMs, kWholeMs}};
  milliseconds longest{0};  // longest single call
  const auto repeat = [&](const std::function<int()>& call) {
    for (;;) {
      const auto start = steady_clock::now();
      const int result = call();
      longest = std::max(longest, duration_cast<milliseconds>(steady_clock::now() - start));
      if (result != kNochNicht) return result;
    }
  };
  SocketAdresse to{2, sockets.Htons(CddbServer(0).Port()), sockets.inet_addr("127.0.0.1")};
  const int refused = sockets.socket();
  EXPECT_EQ(repeat([&] { return sockets.connect(refused, to); }), kSocketFehler);
  EXPECT_EQ(sockets.WSAGetLastError(), ECONNREFUSED);
  sockets.closesocket(refused);
  EXPECT_EQ(repeat([&] { return sockets.gethostbyname("no.invalid", to.Adresse); }), kSocketFehler);
  ASSERT_EQ(repeat([&] { return sockets.gethostbyname("localhost", to.Adresse); }), 0);
  EXPECT_EQ(sockets.inet_ntoa(to.Adresse), "127.0.0.1");
  CddbServer silent, talkative;
  silent.Faults.Silent = true;
  talkative.Faults.Instead = std::string(100'000, 'x');
  for (CddbServer* server : {&silent, &talkative}) {
    const milliseconds patience(server == &silent ? kSilenceMs : kWholeMs);
    const auto start = steady_clock::now();
    const int number = sockets.socket();
    EXPECT_EQ(sockets.setsockopt_LINGER(number, true, 0), 0);
    to.Port = sockets.Htons(server->Port());
    EXPECT_EQ(repeat([&] { return sockets.connect(number, to); }), 0);
    sockets.send(number, "GET /x HTTP/1.1\r\n\r\n");
    int got = 1;
    while (got > 0) {
      char bytes[20];
      got = repeat([&] { return sockets.recv(number, bytes, 20); });
      std::this_thread::sleep_for(milliseconds(10));
    }
    EXPECT_EQ(got, kSocketFehler);
    EXPECT_EQ(sockets.WSAGetLastError(), ETIMEDOUT);
    EXPECT_GE(steady_clock::now() - start, patience);
    EXPECT_LT(steady_clock::now() - start, patience + milliseconds(1500));
    EXPECT_LT(longest, milliseconds(kSliceMs + 300));  // allows for delays on a busy machine
    sockets.closesocket(number);
    EXPECT_EQ(sockets.send(number, "x"), kSocketFehler);
  }
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
