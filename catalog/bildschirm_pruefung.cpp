#include "catalog/bildschirm_pruefung.h"

#include "app/programm.h"
#include "app/werte/zahlen.h"

#include "platform/twips.h"

namespace vantora {

namespace {

constexpr int kKleinsteFarbtiefe = 16;  // bits per pixel

[[noreturn]] void Ablehnen(Programm& prog, int text) {
  prog.MsgBoxen(prog.Text(text), kStopp);
  throw ProgrammEnde{};
}

}  // namespace

void FarbenPruefen(Programm& prog) {
  if (prog.plattform.bildschirm.BitsPerPixel() < kKleinsteFarbtiefe) Ablehnen(prog, 8011);
}

FensterGroesse BildschirmPruefen(Programm& prog) {
  Display& bildschirm = prog.plattform.bildschirm;
  // Divides the height by the horizontal and the width by the vertical size of a pixel. Both sizes
  // are equal on square pixels, and the limits below were set for this division.
  prog.BildschirmHoehe = Ganz32(bildschirm.Height() / bildschirm.TwipsPerPixelX());
  prog.BildschirmBreite = Ganz32(bildschirm.Width() / bildschirm.TwipsPerPixelY());
  const bool hoch = prog.BildschirmHoehe == 1024;
  const bool grosseSchrift = bildschirm.TwipsPerPixelX() == kLargeFontTwipsPerPixel;
  if (prog.BildschirmBreite == 640) Ablehnen(prog, 8012);
  if (prog.BildschirmBreite == 800) return FensterGroesse::Klein;
  if (prog.BildschirmBreite < 1024) return FensterGroesse::OhneBild;
  const bool breit = prog.BildschirmBreite > 1024;
  if (hoch || (breit && grosseSchrift)) Ablehnen(prog, 8083);
  return FensterGroesse::Gross;
}

}  // namespace vantora
