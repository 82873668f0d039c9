#include "tests/qt/stage.h"

#include <QImage>
#include <QWidget>

#include <fstream>

namespace vantora {

void Stage::WritePicture(const std::string& name, const std::string& svg) const {
  std::ofstream(pictures_ / (name + ".svg")) << svg;
}

QImage Stage::Look(const Control& control) {
  loop.DoEvents();
  const QWidget* widget = loop.WidgetOf(control);
  return Look(control.Owner()).copy(widget->geometry());
}

QImage Stage::Look(const Form& form) {
  loop.Sync();
  return loop.WindowOf(form)->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

std::string Stage::Refusal(const std::function<void()>& act) {
  try {
    act();
  } catch (const Unreachable& refused) {
    return refused.what();
  }
  return {};
}

}  // namespace vantora
