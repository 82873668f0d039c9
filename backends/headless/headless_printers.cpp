#include "backends/headless/headless_printers.h"

#include "platform/laufzeitfehler.h"

#include <cmath>

namespace vantora {

namespace {

// Shares of the height of the letters.
constexpr double kLetterWidth = 0.5, kLineHeight = 7.0 / 6, kAscent = 0.9;

[[noreturn]] void Gone() {
  throw Laufzeitfehler(kFehlerDrucker, L"La impresora no responde");
}

}  // namespace

TextExtent HeadlessFontBook::Measure(const LogicalFont& font, const Text& text) {
  const double letters = font.Height < 0 ? -font.Height : font.Height / kLineHeight;
  return {letters * kLetterWidth * static_cast<double>(text.size()), letters * kLineHeight,
          letters * kAscent};
}

HeadlessPrinters::HeadlessPrinters(Dateien& files, FontBook& fonts)
    : files_(files), printer_(*this, fonts) {}

Text HeadlessPrinters::Name(int index) {
  return WritesFile(index) ? Text(L"PDF") : Queues.at(static_cast<std::size_t>(index));
}

PaperSize HeadlessPrinters::Paper(int /*index*/) {
  return Setup.Paper == L"Letter" ? kPaperLetter : kPaperA4;
}

PrintSheet HeadlessPrinters::Sheet() {
  return {Paper(Current()), Setup.MarginX, Setup.MarginY};
}

Printer& HeadlessPrinters::Printer() {
  if (Count() == 0) Gone();
  return printer_;
}

Text HeadlessPrinters::SuggestedFile() {
  return L"C:\\Vantora\\Portadas\\" + std::to_wstring(Jobs.size() + 1) + L".pdf";
}

void HeadlessPrinters::Begin() {
  if (Count() == 0 || Broken) Gone();
}

void HeadlessPrinters::Deliver(const PrintJob& job) {
  Begin();
  // If the file cannot be made in its folder, the job fails, as on a real machine.
  if (WritesFile(Current()) && !job.OutputFile.empty()) {
    files_.Open(job.OutputFile, Zugriff::Neu);
  }
  Jobs.push_back(job);
}

}  // namespace vantora
