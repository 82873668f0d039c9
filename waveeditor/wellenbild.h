// The picture of the sound, with a trace for each ear, and the ruler of the times above it. The
// points of the traces are read from the file once and serve every zoom. This class draws on
// picture boxes and knows no window.
#pragma once

#include "klang/klang_frame.h"

#include "platform/display.h"
#include "platform/form.h"
#include "platform/mmchain.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace vantora {

class WellenBild {
 public:
  struct Punkt {
    std::int16_t Links = 0, Rechts = 0;  // twips from the top of the picture
  };

  explicit WellenBild(Display& bildschirm) : bildschirm_(bildschirm) {}

  // ---- reading ----
  // These two functions begin and end a scan. ScanBeginnen clears the flag of an earlier stop.
  void ScanBeginnen();
  void ScanBeenden() { ScanLaeuft_ = false; }
  // Reads the points for a picture of that size in twips, and reports its progress by `melden`. A
  // file that is not open counts as silent. Returns false when the scan has been stopped; the other
  // points are 0 then.
  bool Lesen(MMWaveObject& quelle, int breite, int hoehe,
             const std::function<void(double prozent)>& melden);
  void Abbrechen() { ScanAbbruch_ = true; }
  bool ScanLaeuft() const { return ScanLaeuft_; }
  bool ScanAbbruch() const { return ScanAbbruch_; }  // the last scan has been stopped
  const std::vector<Punkt>& WellenPunkte() const { return WellenPunkte_; }
  void Vergessen();  // frees the memory of the points

  // ---- drawing, at a zoom of 1 to 16 ----
  void Zeichnen(PictureBox& flaeche, float zoom);
  // Draws the times of a sound of `laenge` frames.
  static void LinealZeichnen(PictureBox& lineal, float zoom, std::int32_t laenge);

 private:
  struct Pixel {
    std::int32_t X = 0, Y = 0;
  };
  Pixel PixelTwips() const;  // the size of a pixel
  void BlockLesen(MMWaveObject& quelle, std::int64_t frame);
  void SegmentZeichnen(PictureBox& flaeche, std::size_t punkte);

  Display& bildschirm_;
  bool ScanLaeuft_ = false, ScanAbbruch_ = false;
  std::vector<Punkt> WellenPunkte_;
  std::vector<Pixel> LinkePunkte, RechtePunkte;  // one segment of a trace
  std::vector<KlangFrame> BlockPuffer;           // one block of the scan
};

}  // namespace vantora
