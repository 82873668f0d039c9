// The marker that the user draws on the picture of the sound, and the line at the place that is
// heard. Places on the picture are in twips, places in the sound in frames.
#pragma once

#include "waveeditor/auswahl.h"

#include "platform/display.h"
#include "platform/form.h"

#include <cstdint>

namespace vantora {

class Marker {
 public:
  // Marker and line lie on `flaeche`.
  Marker(Shape& shpMarker, Shape& linPosition, const PictureBox& flaeche, Display& bildschirm)
      : shpMarker_(shpMarker),
        linPosition_(linPosition),
        flaeche_(flaeche),
        bildschirm_(bildschirm) {}

  // ---- drawing it; a place beyond an edge counts as the edge ----
  void Druecken(int x);  // sets a cursor and shows it
  void Ziehen(int x);    // covers the range from the beginning of the drag to this place
  void Alles();          // covers the whole picture and shows it
  void Zuruecksetzen();  // sets a cursor at the beginning
  void Aufheben();       // sets a cursor at the beginning and hides the marker
  void Einblenden() { shpMarker_.Visible = true; }
  int ZugX() const { return ZugX_; }  // the place at which the drag ends

  // ---- between the picture and a sound of `laenge` frames ----
  // Selects the range that the marker covers. A marker of one pixel is a cursor.
  void InFrames(std::int32_t laenge, Auswahl& auswahl) const;
  // Covers the selection with the marker, after the width of the picture has changed.
  void Zeigen(const Auswahl& auswahl, std::int32_t laenge);

  void PositionSetzen(double x);
  void PositionZumMarker() { PositionSetzen(shpMarker_.Left); }
  int Position() const { return linPosition_.Left; }

 private:
  void Setzen(int links, int breite);
  int Pixel() const;

  Shape& shpMarker_;
  Shape& linPosition_;
  const PictureBox& flaeche_;
  Display& bildschirm_;
  float MarkerStartX = 0;  // the place at which the drag began
  int ZugX_ = 0;
};

}  // namespace vantora
