#include "platform/system_box.h"

namespace vantora {

namespace {

struct Answer {
  int Code;
  const wchar_t* Caption;
};

std::vector<Answer> AnswersFor(int flags) {
  switch (flags & 15) {
    case 2:
      return {{3, L"Anular"}, {4, L"Reintentar"}, {5, L"Omitir"}};
    case 4:
      return {{6, L"Sí"}, {7, L"No"}};
    default:
      return {{1, L"Aceptar"}};
  }
}

void Place(Control& control, int left, int top, int width, int height) {
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

}  // namespace

SystemBox::SystemBox(EventLoop& loop, const Text& text, int flags, const Text& title)
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
    Place(button, 6900 / 2 - (count * 1860 - 120) / 2 + i * 1860, 2340, 1740, 450);
    button.AccessibleName = answer.Caption;
    button.MouseUp = [this, answer](int) { Leave(answer.Code); };
  }
  last_ = answers.back().Code;
}

int SystemBox::Ask() {
  loop_.ShowModal(*this);
  return answer_;
}

bool SystemBox::Form_KeyDown(int key, bool /*control*/) {
  if (key != kKeyEscape) return false;
  Leave(last_);
  return true;
}

void SystemBox::Form_Close() {
  Leave(last_);
}

void SystemBox::Leave(int answer) {
  answer_ = answer;
  loop_.Hide(*this);
}

int EventLoop::SystemBox(const Text& text, int flags, const Text& title) {
  return vantora::SystemBox(*this, text, flags, title).Ask();
}

}  // namespace vantora
