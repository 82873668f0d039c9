#include "tests/emulators/cddb_server.h"

#include <algorithm>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace vantora::test {

namespace {

constexpr timeval kLongest{10, 0};

// Returns what came until `end`, or until the client closes the connection.
std::string Received(int client, const char* end) {
  std::string all;
  char bytes[512];
  while (all.find(end) == std::string::npos) {
    const auto count = ::recv(client, bytes, sizeof bytes, 0);
    if (count <= 0) break;
    all.append(bytes, static_cast<std::size_t>(count));
  }
  return all;
}

std::string Page(const std::string& text) {
  return "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\n" + text;
}

// The part of a text between two others; blank when they are missing.
std::string Between(const std::string& text, const std::string& from, const std::string& to) {
  const auto start = text.find(from);
  if (start == std::string::npos) return {};
  const auto end = text.find(to, start + from.size());
  if (end == std::string::npos) return {};
  return text.substr(start + from.size(), end - start - from.size());
}

}  // namespace

CddbServer::CddbServer(int connections) : connections_(connections) {
  listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* general = reinterpret_cast<sockaddr*>(&place);
  socklen_t size = sizeof place;
  if (listener_ < 0 || ::bind(listener_, general, size) != 0 || ::listen(listener_, 8) != 0 ||
      ::getsockname(listener_, general, &size) != 0) {
    throw std::runtime_error("no port for a server");
  }
  port_ = ntohs(place.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

// The thread may wait for a connection or for its client.
CddbServer::~CddbServer() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    ::shutdown(listener_, SHUT_RDWR);
    ::shutdown(client_, SHUT_RDWR);
  }
  thread_.join();
  ::close(listener_);
}

void CddbServer::Knows(const std::string& category, const std::string& id,
                       const std::string& lines) {
  discs_[id] = {category, lines};
}

void CddbServer::Serve() {
  for (int served = 0; served < connections_; ++served) {
    const int client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    {
      const std::lock_guard lock(mutex_);
      client_ = client;
      if (stopped_) ::shutdown(client, SHUT_RDWR);
    }
    if (client < 0) return;
    for (const int option : {SO_RCVTIMEO, SO_SNDTIMEO}) {
      ::setsockopt(client, SOL_SOCKET, option, &kLongest, sizeof kLongest);
    }
    ServeOne(client);
    const std::lock_guard lock(mutex_);
    client_ = -1;
    ::close(client);
  }
}

void CddbServer::ServeOne(int client) {
  const std::string request = Received(client, "\r\n\r\n");
  const auto since = std::chrono::steady_clock::now();
  ++requests_;
  if (Faults.Silent) Received(client, "never");
  std::string answer = Faults.Instead.empty() ? Answer(request) : Faults.Instead;
  if (Faults.CloseAt >= 0) answer.resize(std::min<std::size_t>(answer.size(), Faults.CloseAt));
  ::send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
  busyNs_ += std::chrono::nanoseconds(std::chrono::steady_clock::now() - since).count();
}

std::string CddbServer::Answer(const std::string& request) const {
  const std::string command = Between(request, "GET /~cddb/cddb.cgi?cmd=cddb+", "&hello=");
  const bool read = command.starts_with("read+");
  const std::string id =
      read ? command.substr(command.rfind('+') + 1) : Between(command, "query+", "+");
  const auto disc = discs_.find(id);
  if (!read && !similar_.empty() && similar_ == id) {
    return Page("211 Found inexact matches, list follows (until terminating `.')\r\nrock " + id +
                " Alguien / Algo\r\n.\r\n");
  }
  if (disc == discs_.end()) return Page(read ? "401 not found\r\n" : "202 No match found\r\n");
  const auto& [category, lines] = disc->second;
  if (!read) return Page("200 " + category + " " + id + " " + "Alguien / Algo\r\n");
  if (command != "read+" + category + "+" + id) return Page("401 not found\r\n");
  return Page("210 " + category + " " + id + " CD database entry follows\r\n" + lines + ".\r\n");
}

}  // namespace vantora::test
