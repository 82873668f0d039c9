#include "backends/qt/print/print_queues.h"

#include "backends/qt/look/look.h"
#include "backends/qt/print/offscreen_app.h"

#include "platform/laufzeitfehler.h"
#include "platform/twips.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>

#include <clocale>
#include <langinfo.h>

namespace vantora {

namespace {

constexpr int kSendMs = 60'000;
constexpr int kLetterMillimetres = 216;

[[noreturn]] void Gone(const QString& why) {
  throw Laufzeitfehler(kFehlerDrucker, L"La impresora no responde", look::ToText(why));
}

}  // namespace

PaperSize PaperOfCountry() {
  const locale_t country = newlocale(LC_PAPER_MASK, "", nullptr);
  if (country == nullptr) return kPaperA4;
  // For these items nl_langinfo returns a number in place of the pointer.
  const auto width = reinterpret_cast<std::intptr_t>(nl_langinfo_l(_NL_PAPER_WIDTH, country));
  freelocale(country);
  return static_cast<int>(width) == kLetterMillimetres ? kPaperLetter : kPaperA4;
}

PrintSheet NoQueues::Sheet(const std::string& /*name*/) {
  return {PaperOfCountry(), 0, 0};
}

void NoQueues::Send(const std::string& name, const std::filesystem::path& /*pdf*/, int /*copies*/) {
  Gone(QStringLiteral("there is no printer ") + QString::fromStdString(name));
}

std::vector<std::string> SystemQueues::Names() {
  NeedToolkit();
  std::vector<std::string> names;
  for (const QString& name : QPrinterInfo::availablePrinterNames()) {
    names.push_back(name.toStdString());
  }
  return names;
}

std::string SystemQueues::Default() {
  NeedToolkit();
  return QPrinterInfo::defaultPrinterName().toStdString();
}

PrintSheet SystemQueues::Sheet(const std::string& name) {
  NeedToolkit();
  const QPrinterInfo info = QPrinterInfo::printerInfo(QString::fromStdString(name));
  if (info.isNull()) return {PaperOfCountry(), 0, 0};
  const QPrinter printer(info, QPrinter::HighResolution);
  const QPageLayout layout = printer.pageLayout();
  const QPageSize size = layout.pageSize();
  const QMarginsF margins = layout.minimumMargins();  // in portrait, in the layout's unit
  PrintSheet sheet;
  sheet.Paper =
      size.id() == QPageSize::A4 ? kPaperA4
      : size.id() == QPageSize::Letter
          ? kPaperLetter
          : PaperSize{look::ToText(size.name()), size.size(QPageSize::Inch).width() * kTwipsPerInch,
                      size.size(QPageSize::Inch).height() * kTwipsPerInch};
  // Both sides get the wider margin, so that the printable area is centred on the sheet.
  sheet.MarginX = std::max(margins.left(), margins.right()) * kTwipsPerPoint;
  sheet.MarginY = std::max(margins.top(), margins.bottom()) * kTwipsPerPoint;
  return sheet;
}

void SystemQueues::Send(const std::string& name, const std::filesystem::path& pdf, int copies) {
  QProcess lp;
  lp.setProcessChannelMode(QProcess::MergedChannels);
  lp.start(QStringLiteral("lp"),
           {QStringLiteral("-d"), QString::fromStdString(name), QStringLiteral("-n"),
            QString::number(copies), QStringLiteral("-t"), QStringLiteral("Vantora"),
            QStringLiteral("-o"), QStringLiteral("print-scaling=none"), QStringLiteral("--"),
            QString::fromStdString(pdf.string())});
  if (!lp.waitForFinished(kSendMs)) {
    lp.kill();
    lp.waitForFinished();
    Gone(QStringLiteral("lp: ") + lp.errorString());
  }
  if (lp.exitStatus() != QProcess::NormalExit || lp.exitCode() != 0) {
    Gone(QString::fromLocal8Bit(lp.readAll()).trimmed());
  }
}

}  // namespace vantora
