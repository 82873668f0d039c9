// The plain message box for the time before the program's windows exist: a form without pictures
// that needs only the event loop. Its captions are the desktop's usual ones.
#pragma once

#include "platform/event_loop.h"

namespace vantora {

class SystemBox final : public Form {
 public:
  // `flags` as for EventLoop::SystemBox.
  SystemBox(EventLoop& loop, const Text& text, int flags, const Text& title);

  int Ask();  // shows the box and returns the code of the answer

  // Return presses the focused button, initially the first one.
  bool Form_KeyDown(int key, bool control) override;
  void Form_Close() override;

 private:
  void Leave(int answer);

  EventLoop& loop_;
  Label lblMbMeldung{*this, L"lblMbMeldung"};
  ControlArray<PictureButton, 3> picMboxButton{*this, L"picMboxButton"};
  int answer_ = 0, last_ = 0;
};

}  // namespace vantora
