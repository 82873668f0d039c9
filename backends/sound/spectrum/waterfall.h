// Draws a spectrum as a landscape of levels, seen in perspective from above its front edge.
// Frequency runs to the right, with equal widths for octaves. Time runs away from the viewer, the
// first block in front. Height and colour show the level, from dark blue over teal and amber to
// white.
#pragma once

#include "backends/sound/spectrum/spectrum.h"

#include "platform/controls.h"

namespace vantora {

// Adds the drawing to `picture`, in an area of `width` by `height` twips. The background must be
// red 16, green 19, blue 31. The scale ends at the next multiple of 10 dB above the highest level,
// at 0 dB at most. Draws nothing without blocks.
void DrawWaterfall(const Spectrum& spectrum, PictureBox& picture, int width, int height,
                   const Text& xText, const Text& yText);

}  // namespace vantora
