#include "waveeditor/marker.h"

#include "app/werte/zahlen.h"

#include <algorithm>

namespace vantora {

int Marker::Pixel() const {
  return Ganz32(bildschirm_.TwipsPerPixelX());
}

// The marker is at least a pixel wide.
void Marker::Setzen(int links, int breite) {
  shpMarker_.Left = links;
  shpMarker_.Width = std::max(breite, Pixel());
  MarkerStartX = static_cast<float>(links);
  ZugX_ = links + breite;
}

void Marker::Druecken(int x) {
  Setzen(std::clamp(x, 0, flaeche_.Width()), 0);
  Einblenden();
}

void Marker::Ziehen(int x) {
  const int stelle = std::clamp(x, 0, flaeche_.Width());
  const int anfang = Ganz32(MarkerStartX);
  if (stelle > anfang) Setzen(anfang, stelle - anfang);
  if (stelle < anfang) Setzen(stelle, anfang - stelle);
  MarkerStartX = static_cast<float>(anfang);
  ZugX_ = stelle;
}

void Marker::Alles() {
  Setzen(0, flaeche_.Width);
  Einblenden();
}

void Marker::Zuruecksetzen() {
  Setzen(0, 0);
}

void Marker::Aufheben() {
  shpMarker_.Visible = false;
  Zuruecksetzen();
}

void Marker::InFrames(std::int32_t laenge, Auswahl& auswahl) const {
  const auto r = static_cast<float>(Quotient(laenge, flaeche_.Width));
  // In a long file the single precision of the ratio could reach a few frames behind its end.
  const auto frames = [&](int x) { return std::min(Ganz32(static_cast<double>(x) * r), laenge); };
  auswahl.NurCursor = shpMarker_.Width == Pixel();
  if (auswahl.NurCursor) {
    auswahl.CursorPos = frames(shpMarker_.Left);
    auswahl.MarkerAnfang = auswahl.MarkerEnde = 0;
  } else {
    auswahl.MarkerAnfang = frames(shpMarker_.Left);
    auswahl.MarkerEnde = frames(shpMarker_.Left + shpMarker_.Width);
  }
}

void Marker::Zeigen(const Auswahl& auswahl, std::int32_t laenge) {
  if (laenge == 0) return;
  const double verhaeltnis = 1.0 * flaeche_.Width / laenge;
  const auto x = [&](std::int32_t frames) { return Ganz32(verhaeltnis * frames); };
  if (auswahl.NurCursor) {
    Setzen(x(auswahl.CursorPos), 1);
  } else {
    Setzen(x(auswahl.MarkerAnfang), x(auswahl.MarkerEnde - auswahl.MarkerAnfang));
  }
  PositionZumMarker();
}

void Marker::PositionSetzen(double x) {
  linPosition_.Left = Ganz32(x);
}

}  // namespace vantora
