#include "backends/qt/desktop/qt_bus_probe.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstddef>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace vantora {

namespace {

// The value of a key in "unix:path=/run/bus,guid=…"; blank when the key is missing.
QByteArray ValueOf(const QByteArray& address, const QByteArray& key) {
  const qsizetype colon = address.indexOf(':');
  for (const QByteArray& pair : address.mid(colon + 1).split(',')) {
    if (pair.startsWith(key + '='))
      return QByteArray::fromPercentEncoding(pair.mid(key.size() + 1));
  }
  return {};
}

}  // namespace

QtBusProbe::QtBusProbe(const QByteArray& address, std::function<void()> answered)
    : answered_(std::move(answered)), ear_(std::make_unique<QObject>()) {
  const QByteArray first = address.split(';').value(0);
  const QByteArray path = ValueOf(first, "path"), abstract = ValueOf(first, "abstract");
  if (!first.startsWith("unix:") || (path.isEmpty() && abstract.isEmpty())) {
    auto* soon = new QTimer(ear_.get());
    soon->setSingleShot(true);
    QObject::connect(soon, &QTimer::timeout, ear_.get(), [this] { answered_(); });
    soon->start(0);
    return;
  }
  Knock(path.isEmpty() ? QByteArray(1, '\0') + abstract : path);
}

QtBusProbe::~QtBusProbe() {
  ear_.reset();
  if (socket_ >= 0) close(socket_);
}

// A bus that is dead or has no room for another connection is treated as one that does not answer.
void QtBusProbe::Knock(const QByteArray& place) {
  sockaddr_un to{};
  to.sun_family = AF_UNIX;
  if (static_cast<std::size_t>(place.size()) >= sizeof to.sun_path) return;
  std::copy(place.begin(), place.end(), to.sun_path);
  const std::size_t size = offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(place.size());
  socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  const auto* name = reinterpret_cast<const sockaddr*>(&to);
  if (socket_ < 0 || connect(socket_, name, static_cast<socklen_t>(size)) != 0) return;
  const QByteArray user = QByteArray::number(getuid()).toHex();
  const QByteArray hello = QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n";
  if (send(socket_, hello.data(), static_cast<std::size_t>(hello.size()), MSG_NOSIGNAL) < 0) return;
  auto* notifier = new QSocketNotifier(socket_, QSocketNotifier::Read, ear_.get());
  QObject::connect(notifier, &QSocketNotifier::activated, ear_.get(), [this, notifier] {
    notifier->setEnabled(false);
    std::array<char, 64> answer{};
    if (recv(socket_, answer.data(), answer.size(), 0) > 0) answered_();
  });
}

}  // namespace vantora
