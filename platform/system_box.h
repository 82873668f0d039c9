// The plain box of the desktop for messages that can come before the program's own windows stand: a
// form without pictures, so that it needs nothing but the event loop. Its words are the desktop's.
#pragma once

#include "platform/event_loop.h"

namespace vantora {

class SystemBox final : public Form {
 public:
  // `flags` as for EventLoop::SystemBox.
  SystemBox(EventLoop& loop, const Text& text, int flags, const Text& title);

  int Ask();  // shows the box and returns the code of the answer

  // Return is left to the button with the focus, the first one at the beginning.
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
