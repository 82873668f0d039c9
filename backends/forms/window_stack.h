// Which windows are shown and which of them is in front, which are minimized, and which wait behind
// a modal one. It knows the order alone: it runs no handler and brings nothing onto a screen.
#pragma once

#include "platform/form.h"

#include <set>
#include <vector>

namespace vantora {

class WindowStack {
 public:
  void Raise(Form& form);       // to the front, and no longer minimized
  void Drop(const Form& form);  // it is shown no longer, and a modal call for it is over
  void Minimize(const Form& form);

  // The frontmost window that is not minimized; nothing when there is none.
  Form* Front() const;
  bool Minimized(const Form& form) const { return minimized_.count(&form) != 0; }
  // A modal window stands in front of it, minimized or not.
  bool Blocked(const Form& form) const;

  // A modal call lasts until its window is dropped or the call is ended. A window that is dropped
  // and shown anew is another call, so each has a number of its own.
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
