#include "platform/event_loop.h"

#include <exception>
#include <string>

namespace vantora {

void EventLoop::Dispatch(const std::function<void()>& handler) {
  try {
    handler();
  } catch (const ProgrammEnde&) {
    ended_ = true;
  } catch (const Laufzeitfehler& fehler) {
    ReportError(fehler);
  } catch (const std::exception& error) {
    const std::string what = error.what();
    ReportError(Laufzeitfehler(kFehlerUngueltigerAufruf, Text(what.begin(), what.end())));
  }
}

void EventLoop::ReportError(const Laufzeitfehler& fehler) {
  if (!OnError) return;
  try {
    OnError(fehler);
  } catch (const ProgrammEnde&) {
    ended_ = true;
  }
}

void EventLoop::Attach(Form& form) {
  forms_.push_back(&form);
}

void EventLoop::Detach(Form& form) {
  std::erase(forms_, &form);
}

void EventLoop::SetVisible(Form& form, bool visible) {
  form.visible_ = visible;
}

void EventLoop::LeaveIfEnded() const {
  if (ended_) throw ProgrammEnde{};
}

// ---- forms ----

Form::Form(EventLoop& loop, Text name)
    : Name(std::move(name)), Window(*this, L"Window"), loop_(loop) {
  Controls.clear();  // the frame is no control of the window
  loop_.Attach(*this);
}

Form::~Form() {
  loop_.Detach(*this);
}

Control* Form::Find(const Text& name, int index) const {
  for (Control* control : Controls) {
    if (control->Name == name && control->Index == index) return control;
  }
  return nullptr;
}

Menu* Form::FindMenu(const Text& name) {
  for (Menu& menu : Menus) {
    if (menu.Name == name) return &menu;
  }
  return nullptr;
}

// ---- buttons ----

// Handlers are copied before they run: one that destroys its own form must not destroy itself.
void Press(PictureButton& button, int mouseButton) {
  if (!button.PicturePressed.empty()) button.Picture = button.PicturePressed;
  if (const auto down = button.MouseDown) down(mouseButton);
}

void Release(PictureButton& button, int mouseButton) {
  if (!button.PictureReleased.empty()) button.Picture = button.PictureReleased;
  if (const auto up = button.MouseUp) up(mouseButton);
}

}  // namespace vantora
