// The marker on the picture of the sound, which the mouse or the keyboard draws, and the line of
// the place that is heard. Places on the picture are twips, places in the sound frames.
#pragma once

#include "waveeditor/auswahl.h"

#include "platform/display.h"
#include "platform/form.h"

#include <cstdint>

namespace vantora {

class Marker {
 public:
  // `flaeche` is the surface on which both lie.
  Marker(Shape& shpMarker, Shape& linPosition, const PictureBox& flaeche, Display& bildschirm)
      : shpMarker_(shpMarker),
        linPosition_(linPosition),
        flaeche_(flaeche),
        bildschirm_(bildschirm) {}

  // ---- drawing it; a place beyond an edge is taken for the edge ----
  void Druecken(int x);  // a cursor there, in sight
  void Ziehen(int x);    // from where the drag began to there
  void Alles();          // over the whole picture, in sight
  void Zuruecksetzen();  // a cursor at the beginning; in sight or out of sight as before
  void Aufheben();       // the same, out of sight
  void Einblenden() { shpMarker_.Visible = true; }
  int ZugX() const { return ZugX_; }  // where the drag is now

  // ---- between the picture and a sound of `laenge` frames ----
  // Selects what the marker covers. A marker of one pixel is a cursor.
  void InFrames(std::int32_t laenge, Auswahl& auswahl) const;
  // Covers what is selected, after the width of the picture has changed.
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
  float MarkerStartX = 0;  // where the drag began
  int ZugX_ = 0;
};

}  // namespace vantora
