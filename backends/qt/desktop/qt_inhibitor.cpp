#include "backends/qt/desktop/qt_inhibitor.h"

#include "backends/qt/desktop/qt_bus_probe.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QString>

namespace vantora {

namespace {

// The D-Bus interface of one kind of desktop. Its reply is a cookie that ends the inhibition.
struct Desk {
  const char *Service, *Path, *Interface, *Release;
  bool Session;  // a session manager, which also wants a window and flags
};

constexpr Desk kDesks[] = {
    {"org.freedesktop.PowerManagement", "/org/freedesktop/PowerManagement/Inhibit",
     "org.freedesktop.PowerManagement.Inhibit", "UnInhibit", false},
    {"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
     "Uninhibit", true},
};
constexpr uint kNoSleepNoIdle = 4 | 8;

QDBusMessage Call(const Desk& desk, const char* method) {
  QDBusMessage call =
      QDBusMessage::createMethodCall(desk.Service, desk.Path, desk.Interface, method);
  call.setAutoStartService(false);
  return call;
}

// An inhibition that is granted after this object has been destroyed is released at once. Nothing
// is sent to a bus that does not answer.
class Held final : public Inhibition {
 public:
  Held(const QByteArray& address, const QString& why)
      : knock_(address, [this, why] {
          for (const Desk& desk : kDesks) Ask(desk, why);
        }) {}
  ~Held() override {
    *wanted_ = false;
    for (const auto& [desk, cookie] : *cookies_) {
      Release(QDBusConnection::sessionBus(), *desk, cookie);
    }
  }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

 private:
  using Cookies = QList<std::pair<const Desk*, uint>>;

  void Ask(const Desk& desk, const QString& why) {
    QDBusMessage call = Call(desk, "Inhibit");
    call << QStringLiteral("Vantora");
    if (desk.Session) call << uint{0};
    call << why;
    if (desk.Session) call << kNoSleepNoIdle;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [bus, &desk, wanted = wanted_, cookies = cookies_, watcher] {
                       const QDBusPendingReply<uint> reply = *watcher;
                       watcher->deleteLater();
                       if (reply.isError()) return;  // this kind of desktop is not running
                       if (*wanted) {
                         cookies->append({&desk, reply.value()});
                       } else {
                         Release(bus, desk, reply.value());
                       }
                     });
  }
  static void Release(const QDBusConnection& bus, const Desk& desk, uint cookie) {
    QDBusMessage call = Call(desk, desk.Release);
    call << cookie;
    bus.send(call);
  }

  std::shared_ptr<bool> wanted_ = std::make_shared<bool>(true);
  std::shared_ptr<Cookies> cookies_ = std::make_shared<Cookies>();
  QtBusProbe knock_;
};

class Nothing final : public Inhibition {};

}  // namespace

std::unique_ptr<Inhibition> QtInhibitor::Inhibit(const Text& why) {
  const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  if (address.isEmpty()) return std::make_unique<Nothing>();
  return std::make_unique<Held>(address, QString::fromStdWString(why));
}

}  // namespace vantora
