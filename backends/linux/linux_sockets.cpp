#include "backends/linux/linux_sockets.h"

#include <arpa/inet.h>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>

namespace vantora {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Callers that wait for a name repeat the call many times a second. A longer pause means a new
// attempt.
constexpr milliseconds kNewAttempt(1000);

}  // namespace

std::uint32_t LinuxSockets::AskResolver(const std::string& host) {
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), nullptr, &wanted, &found) != 0 || !found) return kKeineAdresse;
  sockaddr_in first{};
  std::memcpy(&first, found->ai_addr, sizeof first);
  ::freeaddrinfo(found);
  return first.sin_addr.s_addr;
}

struct LinuxSockets::Lookup {
  explicit Lookup(std::string host) : Host(std::move(host)) {}

  const std::string Host;
  const Moment Begun = steady_clock::now();
  Moment Asked = Begun;  // the last call; used by the calling thread only
  std::mutex Guard;
  std::condition_variable Answered;
  bool Done = false;
  std::uint32_t Address = kKeineAdresse;
};

int LinuxSockets::WSAStartup(int version) {
  return version == kSocketVersion ? 0 : kSocketFehler;
}

std::uint16_t LinuxSockets::Htons(std::uint16_t value) {
  return htons(value);
}

std::uint32_t LinuxSockets::inet_addr(const std::string& host) {
  return ::inet_addr(host.c_str());
}

std::string LinuxSockets::inet_ntoa(std::uint32_t address) {
  char text[INET_ADDRSTRLEN] = "";
  const in_addr value{address};
  return ::inet_ntop(AF_INET, &value, text, sizeof text) ? text : "";
}

// An abandoned lookup goes on until the resolver returns; its thread owns everything that it uses.
// A further call with the same name waits for the running lookup. After a pause of kNewAttempt it
// starts a new one instead: the earlier attempt was given up, and its failure must not count for
// the new one.
int LinuxSockets::gethostbyname(const std::string& host, std::uint32_t& address) {
  const Moment now = steady_clock::now();
  if (!lookup_ || lookup_->Host != host || now - lookup_->Asked > kNewAttempt) {
    auto lookup = std::make_shared<Lookup>(host);
    try {
      std::thread([lookup, resolver = resolver_] {
        const std::uint32_t found = resolver(lookup->Host);
        const std::lock_guard lock(lookup->Guard);
        lookup->Address = found;
        lookup->Done = true;
        lookup->Answered.notify_all();
      }).detach();
    } catch (const std::system_error&) {
      return Failed(EAGAIN);
    }
    lookup_ = std::move(lookup);
  }
  const std::shared_ptr<Lookup> lookup = lookup_;
  lookup->Asked = now;
  std::unique_lock lock(lookup->Guard);
  if (!lookup->Answered.wait_for(lock, milliseconds(patience_.Slice),
                                 [&] { return lookup->Done; })) {
    if (steady_clock::now() - lookup->Begun < milliseconds(patience_.Silence)) return kNochNicht;
    lookup_.reset();
    return Failed(ETIMEDOUT);
  }
  lookup_.reset();
  address = lookup->Address;
  return address == kKeineAdresse ? Failed(EHOSTUNREACH) : 0;
}

int LinuxSockets::socket() {
  Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP));
  if (!socket.IsOpen()) return Failed(errno);
  const int number = socket();
  const Moment now = steady_clock::now();
  connections_.insert_or_assign(number, Connection{std::move(socket), now, now});
  return number;
}

int LinuxSockets::setsockopt_LINGER(int number, bool on, int seconds) {
  Connection* const connection = Find(number);
  if (!connection) return Failed(EBADF);
  const linger value{on ? 1 : 0, seconds};
  const int result =
      ::setsockopt(connection->Socket(), SOL_SOCKET, SO_LINGER, &value, sizeof value);
  return result == 0 ? 0 : Failed(errno);
}

int LinuxSockets::connect(int number, const SocketAdresse& address) {
  Connection* const connection = Find(number);
  if (!connection) return Failed(EBADF);
  if (!connection->Connecting) {
    sockaddr_in target{};
    target.sin_family = static_cast<sa_family_t>(address.Familie);
    target.sin_port = address.Port;
    target.sin_addr.s_addr = address.Adresse;
    sockaddr general{};
    static_assert(sizeof general == sizeof target);
    std::memcpy(&general, &target, sizeof general);
    if (::connect(connection->Socket(), &general, sizeof general) == 0) return 0;
    if (errno != EINPROGRESS && errno != EINTR) return Failed(errno);
    connection->Connecting = true;
    connection->LastSign = steady_clock::now();
  }
  if (!Ready(*connection, POLLOUT)) return NotYet(*connection);
  int error = 0;
  socklen_t size = sizeof error;
  if (::getsockopt(connection->Socket(), SOL_SOCKET, SO_ERROR, &error, &size) != 0) error = errno;
  if (error != 0) return Failed(error);
  connection->LastSign = steady_clock::now();
  return 0;
}

int LinuxSockets::send(int number, const std::string& bytes) {
  Connection* const connection = Find(number);
  if (!connection) return Failed(EBADF);
  const auto sent = ::send(connection->Socket(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  if (sent >= 0) return static_cast<int>(sent);
  if (errno != EAGAIN && errno != EINTR) return Failed(errno);
  Ready(*connection, POLLOUT);
  return NotYet(*connection);
}

int LinuxSockets::recv(int number, char* bytes, int limit) {
  Connection* const connection = Find(number);
  if (!connection) return Failed(EBADF);
  if (steady_clock::now() - connection->Born >= milliseconds(patience_.Whole)) {
    return Failed(ETIMEDOUT);
  }
  const auto take = [&] {
    return ::recv(connection->Socket(), bytes, static_cast<std::size_t>(limit), 0);
  };
  auto count = take();
  if (count < 0 && errno == EAGAIN && Ready(*connection, POLLIN)) count = take();
  if (count < 0) return errno == EAGAIN || errno == EINTR ? NotYet(*connection) : Failed(errno);
  connection->LastSign = steady_clock::now();
  return static_cast<int>(count);
}

LinuxSockets::Connection* LinuxSockets::Find(int number) {
  const auto place = connections_.find(number);
  return place == connections_.end() ? nullptr : &place->second;
}

int LinuxSockets::Failed(int error) {
  lastError_ = error;
  return kSocketFehler;
}

bool LinuxSockets::TooLate(const Connection& connection) const {
  const Moment now = steady_clock::now();
  return now - connection.LastSign >= milliseconds(patience_.Silence) ||
         now - connection.Born >= milliseconds(patience_.Whole);
}

bool LinuxSockets::Ready(const Connection& connection, short events) const {
  pollfd entry{connection.Socket(), events, 0};
  return ::poll(&entry, 1, patience_.Slice) > 0;
}

int LinuxSockets::NotYet(const Connection& connection) {
  return TooLate(connection) ? Failed(ETIMEDOUT) : kNochNicht;
}

}  // namespace vantora
