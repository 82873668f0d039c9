// Counts who wants the machine awake; a machine without a screen never sleeps.
#pragma once

#include "platform/inhibitor.h"

namespace vantora {

class HeadlessInhibitor final : public Inhibitor {
 public:
  std::unique_ptr<Inhibition> Inhibit(const Text& why) override {
    Last = why;
    return std::make_unique<Held>(count_);
  }
  int Awake() const { return *count_; }  // how many hold it
  Text Last;                             // the reason given last

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
