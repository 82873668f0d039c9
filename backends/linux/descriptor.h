// A file descriptor that closes itself.
#pragma once

#include <unistd.h>
#include <utility>

namespace vantora {

class Descriptor final {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() { Close(); }
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }

  int operator()() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }
  // Returns false when close() reports an earlier failed write, as network folders do.
  bool Close() { return fd_ < 0 || ::close(std::exchange(fd_, -1)) == 0; }

 private:
  int fd_;
};

}  // namespace vantora
