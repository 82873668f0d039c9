// Draws the page of a print job.
#pragma once

#include "backends/printing/print_job.h"

#include <QByteArray>

namespace vantora {

// The job as a PDF with one page. Text stays searchable with embedded fonts, and pictures keep all
// their pixels.
QByteArray PdfOf(const PrintJob& job);

}  // namespace vantora
