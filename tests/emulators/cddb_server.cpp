#include "tests/emulators/cddb_server.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace vantora::test {

namespace {

constexpr int kTurnMs = 20;
constexpr std::int64_t kLongestMs = 10000;

std::int64_t NowMs() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

bool Readable(int socket) {
  pollfd entry{socket, POLLIN, 0};
  return ::poll(&entry, 1, kTurnMs) > 0;
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
  sockaddr general{};
  std::memcpy(&general, &place, sizeof general);
  socklen_t size = sizeof general;
  if (listener_ < 0 || ::bind(listener_, &general, size) != 0 || ::listen(listener_, 8) != 0 ||
      ::getsockname(listener_, &general, &size) != 0) {
    throw std::runtime_error("no port for a server");
  }
  std::memcpy(&place, &general, sizeof place);
  port_ = ntohs(place.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

CddbServer::~CddbServer() {
  stopped_ = true;
  thread_.join();
  ::close(listener_);
}

void CddbServer::Knows(const std::string& category, const std::string& id,
                       const std::string& lines) {
  discs_[id] = {category, lines};
}

std::vector<std::string> CddbServer::Requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

void CddbServer::Serve() {
  for (int served = 0; !stopped_ && served < connections_;) {
    if (!Readable(listener_)) continue;
    const int client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) continue;
    ServeOne(client);
    ::close(client);
    ++served;
  }
}

void CddbServer::ServeOne(int client) {
  const std::string request = ReadRequest(client);
  const auto since = std::chrono::steady_clock::now();
  bool faulty = false;
  {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
    faulty = static_cast<int>(requests_.size()) > Faults.FromRequest;
  }
  if (faulty && Faults.Silent) {
    WaitForEnd(client);
  } else {
    Send(client, Answer(request), faulty);
  }
  busyNs_ += std::chrono::nanoseconds(std::chrono::steady_clock::now() - since).count();
}

std::string CddbServer::ReadRequest(int client) const {
  std::string request;
  const std::int64_t since = NowMs();
  while (request.find("\r\n\r\n") == std::string::npos && Patient(since)) {
    if (!Readable(client)) continue;
    char bytes[512];
    const auto count = ::recv(client, bytes, sizeof bytes, 0);
    if (count <= 0) break;
    request.append(bytes, static_cast<std::size_t>(count));
  }
  return request;
}

std::string CddbServer::Answer(const std::string& request) const {
  const std::string target = Between(request, "GET ", " HTTP/1.1\r\n");
  if (!upstream_) return target.starts_with('/') ? Direct(target) : Page("500 no path\r\n");
  const std::string site = "http://" + upstream_->Address();
  if (!target.starts_with(site) ||
      request.find("\r\nHost: " + upstream_->Address() + "\r\n") == std::string::npos) {
    return "HTTP/1.1 400 Bad Request\r\n\r\nnot for a proxy\r\n";
  }
  return upstream_->Direct(target.substr(site.size()));
}

std::string CddbServer::Direct(const std::string& path) const {
  const std::string command = Between(path, "/~cddb/cddb.cgi?cmd=cddb+", "&hello=");
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

std::string CddbServer::Faulty(std::string answer) const {
  if (!Faults.Instead.empty()) answer = Faults.Instead;
  if (Faults.CloseAt >= 0) answer.resize(std::min<std::size_t>(answer.size(), Faults.CloseAt));
  return answer;
}

// Ends early when the client closes the connection.
void CddbServer::Send(int client, const std::string& answer, bool faulty) const {
  const std::string bytes = faulty ? Faulty(answer) : answer;
  const std::size_t piece = faulty && Faults.PieceBytes > 0
                                ? static_cast<std::size_t>(Faults.PieceBytes)
                                : std::max<std::size_t>(bytes.size(), 1);
  const std::int64_t since = NowMs();
  for (std::size_t sent = 0; sent < bytes.size();) {
    if (!Patient(since)) return;
    const std::size_t end = std::min(bytes.size(), (sent / piece + 1) * piece);
    const auto count = ::send(client, bytes.data() + sent, end - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0 && errno != EAGAIN) return;
    if (count < 0) {
      pollfd entry{client, POLLOUT, 0};
      ::poll(&entry, 1, kTurnMs);
      continue;
    }
    sent += static_cast<std::size_t>(count);
    if (faulty && Faults.PieceMs > 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(Faults.PieceMs));
    }
  }
}

// Waits until the client gives up and closes.
void CddbServer::WaitForEnd(int client) const {
  const std::int64_t since = NowMs();
  while (Patient(since)) {
    if (!Readable(client)) continue;
    char byte = 0;
    if (::recv(client, &byte, 1, 0) <= 0) return;
  }
}

bool CddbServer::Patient(std::int64_t since) const {
  return !stopped_ && NowMs() - since < kLongestMs;
}

}  // namespace vantora::test
