// The tests start a bus of their own. A test object on this bus answers in place of the desktop.
#include "backends/qt/desktop/qt_inhibitor.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vantora {

namespace {

// A desktop that records each call and grants it with a number.
class Desk final : public QDBusVirtualObject {
 public:
  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (const auto call = std::exchange(Before, {})) call();
    Asked << message.member() + QStringLiteral(" ") + message.arguments().value(0).toString();
    bus.send(message.createReply(QVariant(uint{42})));
    return true;
  }
  QStringList Asked;
  std::function<void()> Before;  // runs before the next answer
};

// Handles events until the desktop has received this number of calls. The time limit is long,
// because the machine may be busy.
void TurnUntil(const Desk& desk, qsizetype calls) {
  QElapsedTimer timer;
  timer.start();
  while (desk.Asked.size() < calls && timer.elapsed() < 20'000) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  }
}

}  // namespace

TEST(QtInhibitor, ABusThatTakesCallsAndNeverAnswersHoldsNothingUp) {
  const QTemporaryDir folder;
  const QByteArray path = (folder.path() + "/bus").toUtf8();
  const int deaf = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un at{};
  at.sun_family = AF_UNIX;
  std::copy(path.begin(), path.end(), at.sun_path);
  ASSERT_EQ(bind(deaf, reinterpret_cast<const sockaddr*>(&at), sizeof at), 0);
  ASSERT_EQ(listen(deaf, 1), 0);
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
  QtInhibitor inhibitor;
  QElapsedTimer timer;
  timer.start();
  // These are more connections than the bus has room for.
  std::vector<std::unique_ptr<Inhibition>> awake(4);
  for (auto& one : awake) one = inhibitor.Inhibit(L"Grabación");
  QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
  awake.clear();
  EXPECT_LT(timer.elapsed(), 5000);
  close(deaf);
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(QtInhibitor, TheDesktopIsAskedAndReleasedWhereThereIsABus) {
  QtInhibitor inhibitor;
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  EXPECT_NE(inhibitor.Inhibit(L"Grabación"), nullptr);

  QProcess bus;
  bus.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
  ASSERT_TRUE(bus.waitForReadyRead(5000)) << "dbus-daemon is needed";
  const QByteArray address = bus.readLine().trimmed();
  qputenv("DBUS_SESSION_BUS_ADDRESS", address);
  QDBusConnection desktop = QDBusConnection::connectToBus(QString::fromUtf8(address), "desktop");
  Desk desk;
  ASSERT_TRUE(desktop.registerVirtualObject("/", &desk, QDBusConnection::SubPath));
  ASSERT_TRUE(desktop.registerService("org.freedesktop.PowerManagement"));

  std::unique_ptr<Inhibition> awake = inhibitor.Inhibit(L"Grabación");
  TurnUntil(desk, 1);
  EXPECT_EQ(desk.Asked, QStringList{"Inhibit Vantora"});
  awake.reset();
  TurnUntil(desk, 2);
  EXPECT_EQ(desk.Asked, (QStringList{"Inhibit Vantora", "UnInhibit 42"}));
  // The inhibition is dropped before the desktop grants it, so it is released at once.
  desk.Asked.clear();
  awake = inhibitor.Inhibit(L"Grabación");
  desk.Before = [&] { awake.reset(); };
  TurnUntil(desk, 2);
  EXPECT_EQ(desk.Asked, (QStringList{"Inhibit Vantora", "UnInhibit 42"}));
  QDBusConnection::disconnectFromBus("desktop");
  bus.kill();
  bus.waitForFinished();
}

}  // namespace vantora
