#include "backends/qt/print/qt_image.h"
#include "backends/qt/print/qt_print_shop.h"
#include "tests/backends/linux/home.h"

#include "platform/laufzeitfehler.h"

#include <QBuffer>

#include <cstring>

namespace vantora {
namespace {

using test::ErrorOf, test::Get, test::Put;

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
  // Returns the printer, set up for a page.
  Printer& Page() {
    shop.printers.Setup.Paper = L"A4";
    Printer& printer = shop.printers.Printer();
    printer.OutputFile = File("page.pdf");
    printer.FontName = L"Liberation Sans";
    return printer;
  }

  test::Home home;
  QtPrintShop<NoQueues> shop{home.Files};
};

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
  for (const Case& c :
       {Case{"a jpg", Jpeg({64, 48}), 0, 64, 48, 0},
        Case{"one that lies on its side", Turned(Jpeg({64, 48}), 6), 0, 48, 64, 0},
        Case{"one that is upside down", Turned(Jpeg({64, 48}), 3), 0, 64, 48, 0},
        Case{"colours of print", CmykJpeg(), 0, 8, 6, qRgb(255, 0, 0)},
        Case{"text", "not a picture at all", kFehlerBild, 0, 0, 0},
        Case{"a page", "<svg xmlns='http://www.w3.org/2000/svg'/>", kFehlerBild, 0, 0, 0},
        Case{"20,000 by 20,000 points", BmpHead(20'000, 20'000), kFehlerSpeicher, 0, 0, 0},
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

// ---- errors ----

TEST_F(Printing, AFileThatCannotBeWrittenIsReported) {
  std::filesystem::create_directory(Host("folder.pdf"));
  const std::pair<const wchar_t*, int> cases[] = {{L"Z:\\sys\\page.pdf", kFehlerZugriff},
                                                  {L"C:\\missing\\page.pdf", kFehlerPfadFehlt},
                                                  {L"C:\\folder.pdf", kFehlerPfadZugriff},
                                                  {L"", kFehlerPfadFehlt}};
  for (const auto& [file, error] : cases) {
    Printer& printer = Page();
    printer.OutputFile = file;
    printer.Print(L"texto");
    EXPECT_EQ(ErrorOf([&] { printer.EndDoc(); }), error);
    printer.EndDoc();  // the failed job is gone, so this raises nothing
  }
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
