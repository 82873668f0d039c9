#include "robot/robot_scene.h"

#include "backends/linux/utf8.h"

#include <filesystem>

namespace vantora {

RobotScene::RobotScene(RobotStage& stage, std::string folder)
    : stage_(stage), folder_(std::move(folder)), turns_(stage) {}

// A window may have been unloaded and loaded again, so only the visible form is used.
Form& RobotScene::FindForm(const Text& name) const {
  for (Form* form : stage_.Loop().Forms()) {
    if (form->Name == name && form->Visible()) return *form;
  }
  throw Unreachable(ToUtf8(name) + " was to be shown, in front stands " +
                    Describe(stage_.Loop().Front()));
}

Control& RobotScene::FindControl(const Target& target) const {
  const Form& form = FindForm(target.Form);
  Control* element =
      target.Index.size() == 1 ? form.Find(target.Control, target.Index.front()) : nullptr;
  if (element != nullptr) return *element;
  Control* control = form.Find(target.Control);
  if (control == nullptr) {
    std::string name = ToUtf8(target.Control);
    if (target.Index.size() == 1) name += "(" + std::to_string(target.Index.front()) + ")";
    throw Unreachable(ToUtf8(target.Form) + " was to have the control " + name + ", it has none");
  }
  return *control;
}

std::string RobotScene::HostPath(const Text& name) const {
  if (!ParsePath(name).Drive.empty()) return stage_.Files().SystemPath(name).string();
  return (std::filesystem::path(folder_) / ToUtf8(name)).lexically_normal().string();
}

Text RobotScene::ProductPath(const Text& name) const {
  if (!ParsePath(name).Drive.empty()) return name;
  Text path = FromUtf8(HostPath(name));
  for (wchar_t& c : path) c = c == L'/' ? L'\\' : c;
  return L"Z:" + path;
}

std::optional<Text> TextOfBox(const Form* front) {
  const Control* message = front == nullptr ? nullptr : front->Find(L"lblMbMeldung");
  return message == nullptr ? std::nullopt : message->Read(L"Caption");
}

std::string Describe(const Form* front) {
  if (front == nullptr) return "no window";
  const std::optional<Text> said = TextOfBox(front);
  return ToUtf8(front->Name) + (said ? ", which says \"" + ToUtf8(*said) + "\"" : "");
}

}  // namespace vantora
