#include "backends/forms/window_stack.h"

#include <algorithm>

namespace vantora {

void WindowStack::Raise(Form& form) {
  minimized_.erase(&form);
  std::erase(stack_, &form);
  stack_.push_back(&form);
}

void WindowStack::Drop(const Form& form) {
  minimized_.erase(&form);
  std::erase(stack_, &form);
  std::erase_if(modals_, [&form](const Modal& modal) { return modal.Window == &form; });
}

void WindowStack::Minimize(const Form& form) {
  minimized_.insert(&form);
}

Form* WindowStack::Front() const {
  const auto front = std::find_if(stack_.rbegin(), stack_.rend(),
                                  [this](const Form* form) { return !Minimized(*form); });
  return front == stack_.rend() ? nullptr : *front;
}

bool WindowStack::Blocked(const Form& form) const {
  const auto modal = [this](const Form* shown) {
    return std::any_of(modals_.begin(), modals_.end(),
                       [shown](const Modal& open) { return open.Window == shown; });
  };
  return std::any_of(stack_.rbegin(), std::find(stack_.rbegin(), stack_.rend(), &form), modal);
}

int WindowStack::BeginModal(const Form& form) {
  modals_.push_back({&form, ++calls_});
  return calls_;
}

void WindowStack::EndModal(int call) {
  std::erase_if(modals_, [call](const Modal& modal) { return modal.Call == call; });
}

bool WindowStack::ModalOpen(int call) const {
  return std::any_of(modals_.begin(), modals_.end(),
                     [call](const Modal& modal) { return modal.Call == call; });
}

}  // namespace vantora
