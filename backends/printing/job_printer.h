// A printer that collects the items of a job and delivers them to a PrintTarget at the end. All
// printers use it.
#pragma once

#include "backends/printing/print_job.h"

#include <optional>

namespace vantora {

class JobPrinter final : public Printer {
 public:
  JobPrinter(PrintTarget& target, FontBook& fonts) : target_(target), fonts_(fonts) {}

  double TwipsPerPixelX() const override { return kPrintTwipsPerPixel; }
  double TwipsPerPixelY() const override { return kPrintTwipsPerPixel; }
  DeviceContext& hDC() override { return context_; }
  void Print(const Text& text) override;
  double TextWidth(const Text& text) override;
  double TextHeight(const Text& text) override;

  double Width() override;
  double Height() override;
  double DeviceCaps(DeviceCap what) override;
  PaperSize Paper() override { return Sheet().Paper; }
  void Line(double x1, double y1, double x2, double y2, Color color, LineKind kind) override;
  void Circle(double x, double y, double radius, Color color) override;
  void PSet(double x, double y, Color color) override;
  void PaintPicture(const Bild& picture, double x, double y, double width, double height) override;
  void EndDoc() override;
  void KillDoc() override { job_.reset(); }

 private:
  class Context final : public DeviceContext {
   public:
    explicit Context(JobPrinter& printer) : printer_(printer) {}
    void TextOut(double x, double y, const Text& text) override;

   private:
    JobPrinter& printer_;
  };

  PrintSheet Sheet();
  int Turned() const { return job_ ? job_->Orientation : Orientation; }
  PrintJob& Job();
  PrintItem& Add(PrintItem::What kind, std::vector<PrintPoint> points, Color ink);
  void Write(double x, double y, const Text& text, Color color);

  PrintTarget& target_;
  FontBook& fonts_;
  Context context_{*this};
  std::optional<PrintJob> job_;
};

}  // namespace vantora
