// Printers, fonts and pictures through the toolkit. Needs no screen, and no QApplication before its
// first use.
#pragma once

#include "backends/qt/print/qt_font_book.h"
#include "backends/qt/print/qt_images.h"
#include "backends/qt/print/qt_printers.h"

namespace vantora {

// `Queues` is the class of the machine's printer queues.
template <typename Queues>
struct QtPrintShop {
  explicit QtPrintShop(Dateien& files) : images(files), printers(files, fonts, queues) {}

  Queues queues;
  QtFontBook fonts;
  QtImages images;
  QtPrinters printers;
};

}  // namespace vantora
