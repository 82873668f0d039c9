// The picture of a spectrum: a landscape of levels seen in perspective from above its front edge.
// Frequency runs to the right, one octave as wide as the next; time runs away from the eye, the
// first block in front; height and colour are the level, from night blue over teal and amber to
// white.
#pragma once

#include "backends/sound/spectrum/spectrum.h"

#include "platform/controls.h"

namespace vantora {

// Adds the picture to what `picture` shows, in `width` by `height` twips; it is made for a ground
// of night, red 16, green 19, blue 31. The range begins at the next multiple of 10 dB over the
// highest level, at the most at 0 dB. No blocks: nothing.
void DrawWaterfall(const Spectrum& spectrum, PictureBox& picture, int width, int height,
                   const Text& xText, const Text& yText);

}  // namespace vantora
