#include "waveeditor/ansicht.h"

#include "app/werte/zahlen.h"

#include <algorithm>
#include <cmath>

namespace vantora {

bool Ansicht::Zoomen(int knopf) {
  if (knopf == kNaeher ? ZoomFaktor_ >= kMaxZoom : Ganz()) return false;
  if (knopf == kNaeher) ZoomFaktor_ = std::min(ZoomFaktor_ * 2, kMaxZoom);
  if (knopf == kFerner) ZoomFaktor_ = std::max(std::floor(ZoomFaktor_ / 2), 1.0F);
  if (knopf == kAlles) ZoomFaktor_ = 1;
  return true;
}

int Ansicht::Breite(int fenster) const {
  return Ganz32(ZoomFaktor_ * static_cast<float>(fenster));
}

int Ansicht::RollWeg(int fenster) const {
  return Ganz32((ZoomFaktor_ - 1) * static_cast<float>(fenster));
}

std::optional<int> Ansicht::Zeigen(int stelle, int gerollt, int fenster, int rollWeg) {
  if (stelle >= gerollt && stelle <= gerollt + fenster) return {};
  return std::clamp(stelle - fenster / 2, 0, rollWeg);
}

int Ansicht::Seite(int stelle, int fenster, int rollWeg) {
  return std::min(fenster * (stelle / fenster), rollWeg);
}

}  // namespace vantora
