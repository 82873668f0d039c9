// Printers that print nothing. The jobs that are sent to them are kept for tests, with measures in
// twips.
#pragma once

#include "backends/printing/job_printer.h"

#include "platform/files.h"

#include <vector>

namespace vantora {

// Every letter is half as wide as it is high. A line is higher than its letters by a sixth.
class HeadlessFontBook final : public FontBook {
 public:
  std::vector<Text> Families() override {
    return {L"DejaVu Sans", L"Liberation Mono", L"Liberation Sans", L"Liberation Serif"};
  }
  Text Substitute(const Text& family) override {
    return family == L"Arial" ? L"Liberation Sans" : family;
  }
  TextExtent Measure(const LogicalFont& font, const Text& text) override;
};

class HeadlessPrinters final : public Printers, private PrintTarget {
 public:
  HeadlessPrinters(Dateien& files, FontBook& fonts);

  int Count() override { return static_cast<int>(Queues.size()) + (Setup.Present ? 1 : 0); }
  Text Name(int index) override;
  bool WritesFile(int index) override { return index == static_cast<int>(Queues.size()); }
  PaperSize Paper(int index) override;
  int Current() override { return current_ < Count() ? current_ : Count() - 1; }
  void Select(int index) override { current_ = index; }
  vantora::Printer& Printer() override;
  Text SuggestedFile() override;

  PrinterSetup Setup;
  std::vector<Text> Queues;    // all printers except the one that writes files
  bool Broken = false;         // every job fails
  std::vector<PrintJob> Jobs;  // the jobs that were sent

 private:
  PrintSheet Sheet() override;
  void Begin() override;
  void Deliver(const PrintJob& job) override;

  Dateien& files_;
  int current_ = 0;
  JobPrinter printer_;
};

}  // namespace vantora
