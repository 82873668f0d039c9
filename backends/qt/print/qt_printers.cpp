#include "backends/qt/print/qt_printers.h"

#include "backends/qt/look/look.h"
#include "backends/qt/print/page_painter.h"
#include "backends/qt/print/whole_file.h"

#include "platform/laufzeitfehler.h"

#include <QString>

#include <algorithm>

namespace vantora {

namespace {

[[noreturn]] void Gone(const std::string& why) {
  throw Laufzeitfehler(kFehlerDrucker, L"La impresora no responde",
                       QString::fromStdString(why).toStdWString());
}

}  // namespace

QtPrinters::QtPrinters(Dateien& files, FontBook& fonts, PrintQueues& queues)
    : files_(files), system_(queues), printer_(*this, fonts) {}

const std::vector<std::string>& QtPrinters::Queues() {
  if (!queues_) queues_ = system_.Names();
  return *queues_;
}

int QtPrinters::Count() {
  return Setup.Present ? static_cast<int>(Queues().size()) + 1 : 0;
}

bool QtPrinters::WritesFile(int index) {
  return index == static_cast<int>(Queues().size());
}

Text QtPrinters::Name(int index) {
  if (WritesFile(index)) return L"PDF";
  return look::ToText(QString::fromStdString(Queues().at(static_cast<std::size_t>(index))));
}

PrintSheet QtPrinters::SheetOf(int index) {
  if (!sheet_ || sheet_->first != index) {
    sheet_ = {index, WritesFile(index) || index < 0
                         ? PrintSheet{PaperOfCountry(), 0, 0}
                         : system_.Sheet(Queues().at(static_cast<std::size_t>(index)))};
  }
  PrintSheet sheet = sheet_->second;
  if (!Setup.Paper.empty())
    sheet.Paper = Setup.Paper == kPaperLetter.Name ? kPaperLetter : kPaperA4;
  sheet.MarginX = std::max(sheet.MarginX, Setup.MarginX);
  sheet.MarginY = std::max(sheet.MarginY, Setup.MarginY);
  return sheet;
}

PaperSize QtPrinters::Paper(int index) {
  return SheetOf(index).Paper;
}

int QtPrinters::Current() {
  if (Count() == 0) return -1;
  if (current_ < 0) {
    const auto& names = Queues();
    const auto standard = std::find(names.begin(), names.end(), system_.Default());
    // Without a default printer, this is the PDF printer.
    current_ = static_cast<int>(standard - names.begin());
  }
  return current_;
}

void QtPrinters::Select(int index) {
  if (index >= 0 && index < Count()) current_ = index;
}

Printer& QtPrinters::Printer() {
  if (Count() == 0) Gone("there is no printer");
  return printer_;
}

// Returns the product path with the first number for which there is no file.
Text QtPrinters::SuggestedFile() {
  if (Setup.PdfFolder.empty()) return {};
  for (int number = 1;; ++number) {
    std::string name = std::to_string(number) + ".pdf";
    name.insert(0, std::string(name.size() < 7 ? 7 - name.size() : 0, '0'));
    const std::filesystem::path path = std::filesystem::absolute(Setup.PdfFolder) / name;
    if (std::filesystem::exists(path)) continue;
    Text file = look::ToText(QString::fromStdString(path.string()));
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return L"Z:" + file;
  }
}

// A printer may have been removed, so the system is asked again. The indexes of the collection stay
// as they were.
void QtPrinters::Begin() {
  if (Count() == 0) Gone("there is no printer");
  if (WritesFile(Current())) return;
  const std::string& name = Queues().at(static_cast<std::size_t>(Current()));
  const std::vector<std::string> now = system_.Names();
  if (std::find(now.begin(), now.end(), name) == now.end()) Gone(name + " is gone");
}

void QtPrinters::Deliver(const PrintJob& job) {
  Begin();
  if (!WritesFile(Current())) {
    const ScratchFile pdf(PdfOf(job));
    return system_.Send(Queues().at(static_cast<std::size_t>(Current())), pdf.Path(), job.Copies);
  }
  const Text file = job.OutputFile.empty() ? SuggestedFile() : job.OutputFile;
  if (file.empty()) throw Laufzeitfehler(kFehlerPfadFehlt, L"Falta el nombre del archivo");
  if (!Setup.PdfFolder.empty()) std::filesystem::create_directories(Setup.PdfFolder);
  WriteWhole(files_.SystemPath(file), PdfOf(job));
}

}  // namespace vantora
