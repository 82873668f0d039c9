// The order of the shown windows: which one is in front, which ones are minimized, and which ones
// are blocked by a modal window. The stack runs no handlers and draws nothing.
#pragma once

#include "platform/form.h"

#include <set>
#include <vector>

namespace vantora {

class WindowStack {
 public:
  void Raise(Form& form);       // to the front, and no longer minimized
  void Drop(const Form& form);  // no longer shown; ends its modal call
  void Minimize(const Form& form);

  // The frontmost window that is not minimized; nothing when there is none.
  Form* Front() const;
  bool Minimized(const Form& form) const { return minimized_.count(&form) != 0; }
  // True if a modal window is in front of it, even a minimized one.
  bool Blocked(const Form& form) const;

  // A modal call ends with EndModal or when its window is dropped. Showing the window again is a
  // new call, so every call has its own number.
  int BeginModal(const Form& form);
  void EndModal(int call);
  bool ModalOpen(int call) const;

 private:
  struct Modal {
    const Form* Window;
    int Call;
  };

  std::vector<Form*> stack_;  // the front last
  std::vector<Modal> modals_;
  std::set<const Form*> minimized_;
  int calls_ = 0;
};

}  // namespace vantora
