#include "backends/qt/print/qt_image.h"
#include "backends/qt/print/qt_print_shop.h"
#include "tests/backends/linux/home.h"
#include "tests/qt/pdf_reader.h"

#include "platform/laufzeitfehler.h"

#include <QBuffer>
#include <QElapsedTimer>

#include <cstring>

namespace vantora {
namespace {

using test::ErrorOf, test::Get, test::Put;

constexpr double kTolerance = 0.1 / 25.4 * 1440;  // a tenth of a millimetre, in twips
constexpr double k5mm = 5 / 25.4 * 1440;

// A system with two queues. One of the queues can disappear.
class FakeQueues final : public PrintQueues {
 public:
  std::vector<std::string> Names() override {
    return Gone ? std::vector<std::string>{"laser"} : std::vector<std::string>{"laser", "tinta"};
  }
  std::string Default() override { return "tinta"; }
  PrintSheet Sheet(const std::string& /*name*/) override { return {kPaperLetter, 240, 300}; }
  void Send(const std::string& name, const std::filesystem::path& pdf, int copies) override {
    Sent.push_back(name + " " + std::to_string(copies));
    EXPECT_TRUE(Get(pdf).starts_with("%PDF-"));
    Scratch = pdf;
  }
  bool Gone = false;
  std::vector<std::string> Sent;
  std::filesystem::path Scratch;
};

class Printing : public testing::Test {
 protected:
  Text File(const char* name) { return L"C:\\" + Text(name, name + std::strlen(name)); }
  std::string Host(const char* name) { return (home / name).string(); }
  // Returns the printer, set up for a page of this paper.
  Printer& Page(const Text& paper, double margin, int orientation = kPortrait) {
    shop.printers.Setup.Paper = paper;
    shop.printers.Setup.MarginX = shop.printers.Setup.MarginY = margin;
    Printer& printer = shop.printers.Printer();
    printer.Orientation = orientation;
    printer.OutputFile = File("page.pdf");
    printer.FontName = L"Liberation Sans";
    return printer;
  }

  test::Home home;
  QtPrintShop<NoQueues> shop{home.Files};
};

// ---- places on paper ----

TEST_F(Printing, WhatIsOnThePageStandsWhereItWasPutWithinATenthOfAMillimetre) {
  struct Case {
    Text Paper;
    double Margin;
    int Orientation;
    double Width, Height;  // of the paper, in millimetres
  };
  for (const Case& c :
       {Case{L"A4", 0, kPortrait, 210, 297}, Case{L"A4", k5mm, kPortrait, 210, 297},
        Case{L"A4", k5mm, kLandscape, 297, 210}, Case{L"Letter", 0, kLandscape, 279.4, 215.9},
        Case{L"Letter", k5mm, kPortrait, 215.9, 279.4}}) {
    SCOPED_TRACE(testing::Message() << "margin " << c.Margin << ", width " << c.Width);
    Printer& printer = Page(c.Paper, c.Margin, c.Orientation);
    const double x0 = printer.DeviceCaps(DeviceCap::PhysicalOffsetX) * printer.TwipsPerPixelX();
    const double y0 = printer.DeviceCaps(DeviceCap::PhysicalOffsetY) * printer.TwipsPerPixelY();
    EXPECT_NEAR(x0, c.Margin, 1);
    EXPECT_NEAR(printer.Width(), c.Width / 25.4 * 1440 - 2 * c.Margin, 1);
    EXPECT_NEAR(printer.Height(), c.Height / 25.4 * 1440 - 2 * c.Margin, 1);

    printer.FontSize = 20;
    const LogicalFont font = FontInUse(printer);
    const double ascent = shop.fonts.Measure(font, L"H").Ascent * printer.TwipsPerPixelY();
    TextOut(printer.hDC(), (3402 - x0) / printer.TwipsPerPixelX(),
            (1361 - y0) / printer.TwipsPerPixelY(), L"HH");
    LogicalFont turned = font;
    turned.Escapement = 900;
    const FontHandle before = SelectObject(printer.hDC(), CreateFontIndirectA(turned));
    printer.CurrentX = 1644 - x0;
    printer.CurrentY = 8781 - y0;
    printer.Print(L"HH");
    turned.Escapement = 2700;
    SelectObject(printer.hDC(), CreateFontIndirectA(turned));
    printer.CurrentX = 4000 - x0;
    printer.CurrentY = 7000 - y0;
    printer.Print(L"HH");
    SelectObject(printer.hDC(), before);
    printer.Line(6000 - x0, 5000 - y0, 8000 - x0, 5600 - y0, Rgb(0, 0, 0), LineKind::FilledBox);
    for (int y = 2000; y < 4000; ++y) printer.PSet(9000 - x0, y - y0, 0);
    printer.Circle(7000 - x0, 8000 - y0, 1000, 0);
    printer.EndDoc();

    const PdfPage page(Host("page.pdf"));
    EXPECT_NEAR(page.Width(), c.Width / 25.4 * 1440, 10);  // the page is measured in whole points
    EXPECT_NEAR(page.FirstWord(), 3402, kTolerance);
    // The baselines of the letters: below an upright letter, and beside turned letters.
    EXPECT_NEAR(page.InkIn(3300, 1300, 4500, 2000).Bottom, 1361 + ascent, kTolerance);
    EXPECT_NEAR(page.InkIn(1600, 7500, 2300, 8900).Right, 1644 + ascent, kTolerance);
    EXPECT_NEAR(page.InkIn(3300, 6900, 4100, 8500).Left, 4000 - ascent, kTolerance);
    const PdfPage::Ink box = page.InkIn(5800, 4800, 8200, 5800);
    EXPECT_NEAR(box.Left, 6000, kTolerance);
    EXPECT_NEAR(box.Top, 5000, kTolerance);
    EXPECT_NEAR(box.Right, 8000, kTolerance);
    EXPECT_NEAR(box.Bottom, 5600, kTolerance);
    const PdfPage::Ink line = page.InkIn(8800, 1800, 9200, 4200);
    EXPECT_NEAR(line.Left, 9000, kTolerance);
    EXPECT_NEAR(line.Top, 2000, kTolerance);
    EXPECT_NEAR(line.Bottom, 4000, kTolerance);
    const PdfPage::Ink circle = page.InkIn(5900, 6900, 8100, 9100);
    EXPECT_NEAR(circle.Left, 6000, kTolerance);
    EXPECT_NEAR(circle.Bottom, 9000, kTolerance);
  }
}

TEST_F(Printing, PointsAreSquaresOfWholePixelsWithTheirGaps) {
  Printer& printer = Page(L"A4", 0);
  QElapsedTimer clock;
  clock.start();
  // A dotted frame: along each side, ten twips with points follow ten twips without points.
  for (int i = 1000; i <= 9000; ++i) {
    if (i % 20 == 0) i += 10;
    printer.PSet(i, 2000, 0);
    printer.PSet(i, 9000, 0);
    printer.PSet(1000, i + 1000, 0);
  }
  printer.EndDoc();
  EXPECT_LT(clock.elapsed(), 2000);
  EXPECT_LT(std::filesystem::file_size(Host("page.pdf")), 60'000U);
  const PdfPage page(Host("page.pdf"));
  EXPECT_NEAR(page.InkIn(5011, 1900, 5019, 2100).Top, 2000, 1.5);
  EXPECT_FALSE(page.InkIn(5003, 1900, 5007, 2100).Found);
  EXPECT_FALSE(page.InkIn(900, 6003, 1100, 6007).Found);
  EXPECT_TRUE(page.InkIn(900, 6011, 1100, 6019).Found);
}

TEST_F(Printing, TextIsTextAndItsFontsAreInTheFile) {
  Printer& printer = Page(L"A4", 0);
  printer.FontItalic = true;
  printer.Print(L"Canción de otoño\tŽ");
  printer.FontBold = true;
  printer.Print(L"segunda línea");
  printer.EndDoc();
  const PdfPage page(Host("page.pdf"));
  EXPECT_EQ(page.Text(), "Canción de otoño Ž\nsegunda línea\n");
  EXPECT_EQ(page.FontsOutside(), 0);
}

// ---- pictures ----

QByteArray Jpeg(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < size.width(); ++x) line[x] = qRgb(x * 7 % 256, y * 3 % 256, x * y % 251);
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "jpeg", 85);
  return bytes;
}

// The same picture, with an orientation: the entry 0x112 of the camera's own segment.
QByteArray Turned(QByteArray jpeg, char orientation) {
  const char segment[] =
      "\xFF\xE1\0\x22"
      "Exif\0\0"
      "MM\0*\0\0\0\x08"
      "\0\x01"
      "\x01\x12\0\x03\0\0\0\x01\0?\0\0\0\0\0\0";
  QByteArray bytes(segment, 36);
  bytes[29] = orientation;
  return jpeg.insert(2, bytes);
}

// Eight by six red points, in the four colours of print.
QByteArray CmykJpeg() {
  return QByteArray::fromBase64(
      "/9j/7gAOQWRvYmUAZAAAAAAA/9sAQwANCQoLCggNCwoLDg4NDxMgFRMSEhMnHB4XIC4pMTAuKS0sMzpKPjM2RjcsLUBX"
      "QUZMTlJTUjI+WmFaUGBKUVJP/8AAFAgABgAIBEMRAE0RAFkRAEsRAP/EABQAAQAAAAAAAAAAAAAAAAAAAAf/xAAUEAEA"
      "AAAAAAAAAAAAAAAAAAAA/9oADgRDAE0AWQBLAAA/AE4YDAnP/9k=");
}

// Two frames of one point each: black, then white.
QByteArray AnimatedGif() {
  const char bytes[] =
      "GIF89a\x01\0\x01\0\x80\0\0\0\0\0\xff\xff\xff"
      "!\xf9\x04\0\x0a\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0"
      "!\xf9\x04\0\x0a\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02\x4c\x01\0;";
  return {bytes, sizeof bytes - 1};
}

// The header of a bmp of this size, without pixels.
QByteArray BmpHead(std::int32_t width, std::int32_t height) {
  QByteArray bytes("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0", 18);
  bytes.append(reinterpret_cast<const char*>(&width), 4);
  bytes.append(reinterpret_cast<const char*>(&height), 4);
  return bytes + QByteArray("\x01\0\x18\0", 4) + QByteArray(24, '\0');
}

TEST_F(Printing, PicturesStandUprightAndWhatIsNoneIsRefused) {
  struct Case {
    const char* What;
    QByteArray Bytes;
    int Error, Width, Height;
    QRgb First;  // its upper left point; 0: the point is not checked
  };
  QByteArray huge = Jpeg({64, 48});
  const qsizetype frame = huge.indexOf("\xFF\xC0");
  for (int i = 5; i <= 8; ++i) huge[frame + i] = i % 2 == 0 ? '\x20' : '\x4E';  // 20,000 each
  const QByteArray cut = Jpeg({640, 480});
  for (const Case& c :
       {Case{"a jpg", Jpeg({64, 48}), 0, 64, 48, 0},
        Case{"one that lies on its side", Turned(Jpeg({64, 48}), 6), 0, 48, 64, 0},
        Case{"one that is upside down", Turned(Jpeg({64, 48}), 3), 0, 64, 48, 0},
        Case{"colours of print", CmykJpeg(), 0, 8, 6, qRgb(255, 0, 0)},
        Case{"frames", AnimatedGif(), 0, 1, 1, qRgb(0, 0, 0)},
        Case{"nothing", {}, kFehlerBild, 0, 0, 0},
        Case{"text", "not a picture at all", kFehlerBild, 0, 0, 0},
        Case{"a page", "<svg xmlns='http://www.w3.org/2000/svg'/>", kFehlerBild, 0, 0, 0},
        Case{"a head alone", cut.left(100), kFehlerBild, 0, 0, 0},
        Case{"20,000 by 20,000 points in a jpg", huge, kFehlerSpeicher, 0, 0, 0},
        Case{"20,000 by 20,000 in a bmp", BmpHead(20'000, 20'000), kFehlerSpeicher, 0, 0, 0},
        Case{"a bmp from the top", BmpHead(1, -2) + QByteArray("\1\2\3\0\4\5\6\0", 8), 0, 1, 2,
             qRgb(3, 2, 1)},
        Case{"a bmp that is cut off", BmpHead(1, 2) + QByteArray(4, '\0'), kFehlerBild, 0, 0, 0}}) {
    SCOPED_TRACE(c.What);
    Put(home / "picture", c.Bytes.toStdString());
    Bild picture;
    EXPECT_EQ(ErrorOf([&] { picture = shop.images.Load(File("picture")); }), c.Error);
    if (!picture) continue;
    EXPECT_EQ(picture->Width(), c.Width);
    EXPECT_EQ(picture->Height(), c.Height);
    const auto& read = dynamic_cast<const QtImage&>(*picture);
    EXPECT_EQ(read.Upright().mapRect(QRectF({}, read.Whole().size())).size(),
              QSizeF(c.Width, c.Height));
    EXPECT_EQ(read.Scaled({30, 20}).size(), QSize(30, 20));
    if (c.First != 0) {
      EXPECT_EQ(read.Whole().pixel(0, 0) & 0xFFFFFF, c.First & 0xFFFFFF);
    }
  }
  EXPECT_EQ(ErrorOf([&] { shop.images.Load(File("missing.jpg")); }), kFehlerDateiFehlt);
}

// A rotated copy of a photograph would need as much memory again, so the page rotates the
// photograph.
TEST_F(Printing, APhotographKeepsAllItsPointsAlsoWhenItIsTurned) {
  const QByteArray photo = Jpeg({1200, 800});
  for (const auto& [bytes, size] :
       {std::pair(photo, QSize(6000, 4000)), std::pair(Turned(photo, 6), QSize(4000, 6000))}) {
    Printer& printer = Page(L"A4", 0);
    printer.PaintPicture(std::make_shared<QtImage>(bytes), 1000, 1000, size.width(), size.height());
    printer.EndDoc();
    const PdfPage page(Host("page.pdf"));
    EXPECT_EQ(page.Pictures(), (std::vector<std::string>{"1200x800 jpeg"}));
    const PdfPage::Ink ink = page.InkIn(500, 500, 7500, 7500);
    EXPECT_NEAR(ink.Left, 1000, kTolerance);
    EXPECT_NEAR(ink.Right, 1000 + size.width(), kTolerance);
    EXPECT_NEAR(ink.Top, 1000, kTolerance);
    EXPECT_NEAR(ink.Bottom, 1000 + size.height(), kTolerance);
  }
}

// ---- errors ----

TEST_F(Printing, AFileThatCannotBeWrittenIsReportedAndLeavesNoPart) {
  std::filesystem::create_directory(Host("folder.pdf"));
  const std::pair<const wchar_t*, int> cases[] = {{L"Z:\\sys\\page.pdf", kFehlerZugriff},
                                                  {L"C:\\missing\\page.pdf", kFehlerPfadFehlt},
                                                  {L"C:\\folder.pdf", kFehlerPfadZugriff},
                                                  {L"", kFehlerPfadFehlt}};
  for (const auto& [file, error] : cases) {
    Printer& printer = Page(L"A4", 0);
    printer.OutputFile = file;
    printer.Print(L"texto");
    EXPECT_EQ(ErrorOf([&] { printer.EndDoc(); }), error);
    printer.EndDoc();  // the failed job is gone, so this raises nothing
  }

  Printer& printer = Page(L"A4", 0);
  printer.Print(L"primera");
  printer.EndDoc();
  const auto earlier = std::filesystem::file_size(Host("page.pdf"));
  {
    const test::FullDisk full(1000);
    printer.Print(L"segunda");
    EXPECT_EQ(ErrorOf([&] { printer.EndDoc(); }), kFehlerPlattenVoll);
  }
  EXPECT_EQ(std::filesystem::file_size(Host("page.pdf")), earlier);
  EXPECT_EQ(home.Files.List(L"C:\\", L"*.pdf*"), (std::vector<Text>{L"page.pdf"}));
}

TEST_F(Printing, APrinterThatGoesBetweenChoiceAndJobIsReported) {
  QtPrintShop<FakeQueues> system(home.Files);
  ASSERT_EQ(system.printers.Count(), 3);
  EXPECT_EQ(system.printers.Name(system.printers.Current()), L"tinta");
  Printer& printer = system.printers.Printer();
  printer.Copies = 2;
  printer.Print(L"texto");
  EXPECT_NEAR(printer.Width(), 8.5 * 1440 - 2 * 240, 1);
  printer.EndDoc();
  EXPECT_EQ(system.queues.Sent, (std::vector<std::string>{"tinta 2"}));
  EXPECT_FALSE(std::filesystem::exists(system.queues.Scratch));

  printer.Print(L"texto");
  system.queues.Gone = true;
  EXPECT_EQ(ErrorOf([&] { printer.EndDoc(); }), kFehlerDrucker);
  EXPECT_EQ(ErrorOf([&] { printer.Print(L""); }), kFehlerDrucker);
  EXPECT_EQ(system.queues.Sent.size(), 1U);

  system.printers.Setup.Present = false;
  EXPECT_EQ(ErrorOf([&] { system.printers.Printer(); }), kFehlerDrucker);
}

// A script takes the place of the system's print command.
TEST_F(Printing, ThePageGoesToTheSystemsCommandAndItsRefusalIsReported) {
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", QByteArray::fromStdString(home.Folder().string()) + ":" + path);
  const auto command = [&](const std::string& lines) {
    Put(home / "lp", "#!/bin/sh\n" + lines);
    std::filesystem::permissions(home / "lp", std::filesystem::perms::owner_all);
  };
  SystemQueues queues;
  command("echo \"$@\" > \"$(dirname \"$0\")/said\"\n");
  queues.Send("laser color", "/tmp/a b.pdf", 3);
  EXPECT_EQ(Get(home / "said"),
            "-d laser color -n 3 -t Vantora -o print-scaling=none -- /tmp/a b.pdf\n");
  command("echo 'lp: The printer or class does not exist.'; exit 1\n");
  Text why;
  try {
    queues.Send("laser", "/tmp/a.pdf", 1);
  } catch (const Laufzeitfehler& error) {
    why = error.Grund;
  }
  EXPECT_EQ(why, L"lp: The printer or class does not exist.");
  qputenv("PATH", path);
}

}  // namespace
}  // namespace vantora
