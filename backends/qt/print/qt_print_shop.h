// Paper, fonts and pictures by the toolkit. Needs no screen, and no application before its first
// use.
#pragma once

#include "backends/qt/print/qt_font_book.h"
#include "backends/qt/print/qt_images.h"
#include "backends/qt/print/qt_printers.h"

namespace vantora {

// Of a machine whose printers are `Queues`.
template <typename Queues>
struct QtPrintShop {
  explicit QtPrintShop(Dateien& files) : images(files), printers(files, fonts, queues) {}

  Queues queues;
  QtFontBook fonts;
  QtImages images;
  QtPrinters printers;
};

}  // namespace vantora
