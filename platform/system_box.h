// The plain message box for the time before the program's windows exist: a form without pictures
// that needs only the event loop. Its captions are the desktop's usual ones.
#pragma once

#include "platform/event_loop.h"

namespace vantora {

class SystemBox final : public Form {
 public:
  SystemBox(EventLoop& loop, const Text& text, int flags, const Text& title)
      : Form(loop, L"SystemBox"), loop_(loop) {
    Caption = title;
    Place(Window, 0, 0, 6900, 3000);
    Window.BackColor = Rgb(53, 55, 99);
    Place(lblMbMeldung, 240, 180, 6420, 2040);
    lblMbMeldung.Caption = text;
    lblMbMeldung.WordWrap = true;
    const std::vector<Answer> answers = AnswersFor(flags);
    const int count = static_cast<int>(answers.size());
    for (int i = 0; i < picMboxButton.Count(); ++i) {
      PictureButton& button = picMboxButton(i);
      button.Visible = i < count;
      if (i >= count) continue;
      const Answer answer = answers[static_cast<std::size_t>(i)];
      Place(button, 6900 / 2 - count * 930 + i * 1860, 2340, 1740, 450);
      button.AccessibleName = answer.Caption;
      button.MouseUp = [this, answer](int) { Leave(answer.Code); };
    }
    last_ = answers.back().Code;
  }

  int Ask() {
    loop_.ShowModal(*this);
    return answer_;
  }

  // Return presses the focused button, initially the first one.
  bool Form_KeyDown(int key, bool /*control*/) override {
    if (key != kKeyEscape) return false;
    Leave(last_);
    return true;
  }
  void Form_Close() override { Leave(last_); }

 private:
  struct Answer {
    int Code;
    const wchar_t* Caption;
  };
  static std::vector<Answer> AnswersFor(int flags) {
    switch (flags & 15) {
      case 2:
        return {{3, L"Anular"}, {4, L"Reintentar"}, {5, L"Omitir"}};
      case 4:
        return {{6, L"Sí"}, {7, L"No"}};
      default:
        return {{1, L"Aceptar"}};
    }
  }
  static void Place(Control& control, int left, int top, int width, int height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
  }
  void Leave(int answer) {
    answer_ = answer;
    loop_.Hide(*this);
  }

  EventLoop& loop_;
  Label lblMbMeldung{*this, L"lblMbMeldung"};
  ControlArray<PictureButton, 3> picMboxButton{*this, L"picMboxButton"};
  int answer_ = 0, last_ = 0;
};

inline int EventLoop::SystemBox(const Text& text, int flags, const Text& title) {
  return vantora::SystemBox(*this, text, flags, title).Ask();
}

}  // namespace vantora
