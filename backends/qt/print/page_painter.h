// Draws a page that was written down.
#pragma once

#include "backends/printing/print_job.h"

#include <QByteArray>

namespace vantora {

// The job as the bytes of a PDF with one page: text that can be searched, in embedded fonts, and
// pictures in all their points.
QByteArray PdfOf(const PrintJob& job);

}  // namespace vantora
