// Checks without waiting whether a message bus answers at an address. The toolkit's own connection
// would wait for a silent bus for ever and block the interface thread.
#pragma once

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>

namespace vantora {

class QtBusProbe {
 public:
  // `answered` is called once, from an event, when the bus answers; never after the destruction. A
  // bus whose address is not a Unix socket is assumed to answer.
  QtBusProbe(const QByteArray& address, std::function<void()> answered);
  ~QtBusProbe();
  QtBusProbe(const QtBusProbe&) = delete;
  QtBusProbe& operator=(const QtBusProbe&) = delete;

 private:
  void Knock(const QByteArray& place);

  std::function<void()> answered_;
  std::unique_ptr<QObject> ear_;  // receives the signals; destroying it ends all connections
  int socket_ = -1;
};

}  // namespace vantora
