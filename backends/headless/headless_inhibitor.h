// Counts the requests to keep the machine awake. The requests have no other effect, because a
// machine without a screen never sleeps.
#pragma once

#include "platform/inhibitor.h"

namespace vantora {

class HeadlessInhibitor final : public Inhibitor {
 public:
  std::unique_ptr<Inhibition> Inhibit(const Text& why) override {
    Last = why;
    return std::make_unique<Held>(count_);
  }
  int Awake() const { return *count_; }  // number of requests that are held
  Text Last;                             // reason of the last request

 private:
  class Held final : public Inhibition {
   public:
    explicit Held(std::shared_ptr<int> count) : count_(std::move(count)) { ++*count_; }
    ~Held() override { --*count_; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

   private:
    std::shared_ptr<int> count_;
  };

  std::shared_ptr<int> count_ = std::make_shared<int>(0);
};

}  // namespace vantora
