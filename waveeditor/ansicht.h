// How much of the sound the window shows. The picture lies on a surface that is scrolled behind the
// window. At a zoom of 4 it is four times as wide as the window. Widths and places are twips.
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
  // False when a button has no effect: the zoom is at its end, or the whole file is in sight.
  bool Zoomen(int knopf);

  int Breite(int fenster) const;   // of the surface
  int RollWeg(int fenster) const;  // the greatest distance that it can be scrolled

  // How far the surface has to be scrolled to bring a place into the middle of the window, or as
  // near as `rollWeg` allows. Nothing when the place is in sight already.
  static std::optional<int> Zeigen(int stelle, int gerollt, int fenster, int rollWeg);
  // The surface in pages as wide as the window: how far it has to be scrolled to show the page that
  // holds a place.
  static int Seite(int stelle, int fenster, int rollWeg);

 private:
  float ZoomFaktor_ = 1;
};

}  // namespace vantora
