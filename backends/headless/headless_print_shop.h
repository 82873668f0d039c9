// The fonts, the pictures and the printers of the headless back end.
#pragma once

#include "backends/headless/headless_images.h"
#include "backends/headless/headless_printers.h"

namespace vantora {

struct HeadlessPrintShop {
  explicit HeadlessPrintShop(Dateien& files) : images(files), printers(files, fonts) {}

  HeadlessFontBook fonts;
  HeadlessImages images;
  HeadlessPrinters printers;
};

}  // namespace vantora
