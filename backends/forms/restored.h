// Sets a value for as long as this object lives.
#pragma once

#include <utility>

namespace vantora {

template <typename T>
class RestoredValue {
 public:
  RestoredValue(T& value, T meanwhile)
      : value_(value), before_(std::exchange(value, std::move(meanwhile))) {}
  ~RestoredValue() { value_ = std::move(before_); }
  RestoredValue(const RestoredValue&) = delete;
  RestoredValue& operator=(const RestoredValue&) = delete;

 private:
  T& value_;
  T before_;
};

}  // namespace vantora
