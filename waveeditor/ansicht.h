// The zoom, which decides how much of the sound the window shows. The picture lies on a surface
// that is scrolled behind the window. At a zoom of 4 the surface is four times as wide as the
// window. Widths and places are in twips.
#pragma once

#include <cstdint>
#include <optional>

namespace vantora {

class Ansicht {
 public:
  static constexpr float kMaxZoom = 16;
  enum Knopf { kNaeher = 0, kFerner = 1, kAlles = 2 };  // the buttons of the zoom

  float ZoomFaktor() const { return ZoomFaktor_; }  // 1, 2, 4, 8 or 16
  bool Ganz() const { return ZoomFaktor_ <= 1; }    // the whole file is visible
  // Returns false when a button has no effect, because the zoom is at its end or the whole file is
  // visible.
  bool Zoomen(int knopf);

  int Breite(int fenster) const;   // width of the surface
  int RollWeg(int fenster) const;  // greatest distance by which the surface can be scrolled

  // Returns the distance by which the surface has to be scrolled to bring a place into the middle
  // of the window, or as near to it as `rollWeg` allows. Returns nothing if the place is visible
  // already.
  static std::optional<int> Zeigen(int stelle, int gerollt, int fenster, int rollWeg);
  // Divides the surface into pages as wide as the window. Returns the distance by which the surface
  // has to be scrolled to show the page with a place.
  static int Seite(int stelle, int fenster, int rollWeg);

 private:
  float ZoomFaktor_ = 1;
};

}  // namespace vantora
