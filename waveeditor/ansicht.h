// How much of the sound the window shows. The picture lies on a surface that is as many times as
// wide as the window as the zoom says, and is scrolled behind it. Widths and places are twips.
#pragma once

#include <cstdint>
#include <optional>

namespace vantora {

class Ansicht {
 public:
  static constexpr float kMaxZoom = 16;
  enum Knopf { kNaeher = 0, kFerner = 1, kAlles = 2 };  // the buttons of the zoom

  float ZoomFaktor() const { return ZoomFaktor_; }  // 1, 2, 4, 8 or 16
  bool Ganz() const { return ZoomFaktor_ <= 1; }    // the whole file is in sight
  // False when it cannot be seen any closer, or is seen as a whole already.
  bool Zoomen(int knopf);

  int Breite(int fenster) const;   // of the surface
  int RollWeg(int fenster) const;  // by how much it can be scrolled

  // How far it is scrolled so that a place on the surface is in sight: the place in the middle of
  // the window, within `rollWeg`. Nothing when it is in sight already.
  static std::optional<int> Zeigen(int stelle, int gerollt, int fenster, int rollWeg);
  // How far it is scrolled to show the page, as wide as the window, that holds a place.
  static int Seite(int stelle, int fenster, int rollWeg);

 private:
  float ZoomFaktor_ = 1;
};

}  // namespace vantora
