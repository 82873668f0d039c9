#include "backends/qt/print/qt_image.h"
#include "backends/qt/print/qt_print_shop.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"

#include "platform/laufzeitfehler.h"

#include <cstring>

namespace vantora {
namespace {

using test::ErrorOf, test::Get, test::Number, test::Put;

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

std::string Seed(const char* name) {
  return Get(VANTORA_SOURCE_DIR "/tests/fuzz/corpus/fuzz_picture/" + std::string(name));
}

// The header of a bmp of this size, without pixels. A height below zero means rows from the top.
std::string BmpHead(std::uint64_t width, std::uint64_t height) {
  return "BM" + Number(0, 8) + Number(54, 4) + Number(40, 4) + Number(width, 4) +
         Number(height, 4) + Number(1, 2) + Number(24, 2) + Number(0, 24);
}

TEST_F(Printing, PicturesStandUprightAndWhatIsNoneIsRefused) {
  struct Case {
    const char* What;
    std::string Bytes;
    int Error, Width, Height;
    QRgb First;  // its upper left point; 0: the point is not checked
  };
  for (const Case& c :
       {Case{"a jpg", Seed("rgb.jpg"), 0, 9, 7, 0},
        Case{"one that lies on its side", Seed("turned.jpg"), 0, 7, 9, 0},
        Case{"colours of print", Seed("cmyk.jpg"), 0, 8, 6, qRgb(255, 0, 0)},
        Case{"text", "not a picture at all", kFehlerBild, 0, 0, 0},
        Case{"a page", "<svg xmlns='http://www.w3.org/2000/svg'/>", kFehlerBild, 0, 0, 0},
        Case{"20,000 by 20,000 points", BmpHead(20'000, 20'000), kFehlerSpeicher, 0, 0, 0},
        Case{"a bmp from the top", BmpHead(1, 0xFFFFFFFE) + std::string("\1\2\3\0\4\5\6\0", 8), 0,
             1, 2, qRgb(3, 2, 1)},
        Case{"a bmp that is cut off", BmpHead(1, 2) + Number(0, 4), kFehlerBild, 0, 0, 0}}) {
    SCOPED_TRACE(c.What);
    Put(home / "picture", c.Bytes);
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
