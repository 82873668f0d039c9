// Asks whether somebody answers at the address of a message bus, without waiting: the toolkit's own
// connection waits for a silent bus for ever, and the interface thread with it.
#pragma once

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>

namespace vantora {

class QtBusKnock {
 public:
  // `answered` comes once, out of an event, when the bus answers, and not after the destruction. A
  // bus whose address is no socket of this machine counts as one that answers.
  QtBusKnock(const QByteArray& address, std::function<void()> answered);
  ~QtBusKnock();
  QtBusKnock(const QtBusKnock&) = delete;
  QtBusKnock& operator=(const QtBusKnock&) = delete;

 private:
  void Knock(const QByteArray& place);

  std::function<void()> answered_;
  std::unique_ptr<QObject> ear_;  // with it goes what was connected
  int socket_ = -1;
};

}  // namespace vantora
