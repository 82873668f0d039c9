// The collection of printers: the queues of the system, and a printer that writes PDF files.
#pragma once

#include "backends/printing/job_printer.h"
#include "backends/qt/print/print_queues.h"

#include "platform/files.h"

#include <optional>

namespace vantora {

class QtPrinters final : public Printers, private PrintTarget {
 public:
  QtPrinters(Dateien& files, FontBook& fonts, PrintQueues& queues);

  int Count() override;
  Text Name(int index) override;
  bool WritesFile(int index) override;
  PaperSize Paper(int index) override;
  int Current() override;
  void Select(int index) override;
  vantora::Printer& Printer() override;
  Text SuggestedFile() override;

  PrinterSetup Setup;

 private:
  const std::vector<std::string>& Queues();
  PrintSheet SheetOf(int index);
  PrintSheet Sheet() override { return SheetOf(Current()); }
  void Begin() override;
  void Deliver(const PrintJob& job) override;

  Dateien& files_;
  PrintQueues& system_;
  // The queues as they were at the first use of the collection, so that indexes stay valid.
  std::optional<std::vector<std::string>> queues_;
  int current_ = -1;
  std::optional<std::pair<int, PrintSheet>> sheet_;  // of the printer asked for last
  JobPrinter printer_;
};

}  // namespace vantora
