#include <gtest/gtest.h>

#include "main/windows.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

TEST(Start, TheScreenDecidesWhetherAndHowTheMainWindowStands) {
  struct Fall {
    int Breite, Hoehe;
    double Twips;
    int Meldung;  // 0: the window opens
    Text Bild;
  };
  for (const Fall& fall : {Fall{640, 480, 15, 8012, L""},
                           {800, 600, 15, 0, L"PICBACK_800"},
                           {1024, 768, 15, 0, L"PICBACK_1000"},
                           {1024, 1024, 15, 8083, L""},
                           {1024, 768, 12, 0, L"PICBACK_1000"},
                           {1280, 1024, 15, 8083, L""},
                           {1280, 720, 12, 8083, L""},
                           {1920, 1080, 15, 0, L"PICBACK_1000"}}) {
    SCOPED_TRACE(fall.Breite * 10000 + fall.Hoehe);
    Buehne b;
    b.platform.display.PixelWidth = fall.Breite;
    b.platform.display.PixelHeight = fall.Hoehe;
    b.platform.display.TwipsPerPixel = fall.Twips;
    b.Antwortet(kNein);
    b.Start();
    EXPECT_EQ(b.platform.loop.Ended(), fall.Meldung != 0);
    if (fall.Meldung != 0) {
      EXPECT_EQ(b.Gesagt(), std::vector<Text>{b.prog.Text(fall.Meldung)});
    } else {
      EXPECT_TRUE(b.Haupt().Visible());
      EXPECT_EQ(b.Haupt().Picture(), fall.Bild);
      EXPECT_LE(b.Haupt().Window.Width(), b.platform.display.Width());
    }
  }
}

TEST(Start, ASecondInstanceAndTooFewColoursEndIt) {
  for (const bool zweite : {true, false}) {
    Buehne b;
    b.platform.system.OtherInstance = zweite;
    b.platform.display.Bits = zweite ? 24 : 8;
    b.Antwortet(kNein);
    b.Start();
    EXPECT_EQ(b.Gesagt(),
              std::vector<Text>{zweite ? L"Ya se ha iniciado el programa" : b.prog.Text(8011)});
    EXPECT_TRUE(b.platform.loop.Ended());
  }
}

TEST(Start, TheWizardStartsWhatWasChosen) {
  Buehne b;
  SaveSetting(b.platform.bundle, L"Show_Start_Assistant", L"1");
  b.Macht([&](Form& front) {
     auto& assistent = dynamic_cast<frmStartAssistent&>(front);
     b.platform.hands.Press(assistent.StartOptionen(3));
     b.platform.hands.Press(assistent.imgOK);
   }).WaehltDatei({});  // the start's option that opens a catalog: shows the file dialog
  b.Start();
  EXPECT_EQ(b.user.Left(), 0U);
  EXPECT_EQ(GetSetting(b.platform.bundle, L"Show_Start_Assistant", L"?"), L"1");
}

TEST(Start, AnErrorOnTheWayAsksToEndToRetryOrToGoOn) {
  Buehne b;
  b.Datei(L"C:\\Vantora\\Wavs", "a file where a folder is meant");
  SaveSetting(b.platform.bundle, L"Wave_Export_Dir", L"");
  b.Macht([&](Form& front) {
    EXPECT_EQ(
        b.Gesagt().back(),
        L"An Error Occurred In: \r\nNumber: 75\r\nDescription: Error de acceso a la ruta o al "
        L"archivo\r\nLocation: frmHauptForm, Init_Prog");
    std::filesystem::remove(b.home.Path() / "Vantora/Wavs");
    b.platform.hands.Press(*front.Find(L"picMboxButton", 1));  // the button "retry"
  });
  b.Start();
  EXPECT_TRUE(b.Haupt().Visible());
  EXPECT_EQ(b.prog.Wave_Export_Dir, L"C:\\Vantora\\Wavs\\");
}

TEST(Start, GoingOnBehindAFolderThatCannotBeMadeKeepsAllOthers) {
  Buehne b;
  b.Datei(L"C:\\Vantora\\Wavs", "a file where a folder is meant");
  b.Antwortet(kNein);  // the last button, "ignore"
  b.Start();
  b.prog.LastDirSave();
  const std::pair<const wchar_t*, const wchar_t*> alle[] = {
      {L"Wave_Import_Dir", L"C:\\"},
      {L"Wave_Export_Dir", L"C:\\Vantora\\Wavs\\"},
      {L"Songs_Import_Dir", L"C:\\Vantora\\"},
      {L"Catalogue_Open_Dir", L"C:\\Vantora\\Catálogo"},
      {L"Catalogue_Save_Dir", L"C:\\Vantora\\Catálogo"},
      {L"Picture_Save_Dir", L"C:\\Vantora\\Pictures"}};
  for (const auto& [schluessel, wert] : alle) {
    EXPECT_EQ(GetSetting(b.platform.bundle, schluessel, L"?"), wert);
  }
  EXPECT_TRUE(std::filesystem::is_directory(b.home.Path() / "Vantora/Pictures"));
}

TEST(Start, ATextThatIsMissingEndsItWithAMessageThatNamesTheFile) {
  const TemporaryHome home, ressourcen;
  test::Put(ressourcen() / "strings.tsv", "0\tVantora\n");
  HeadlessPlatform platform(home(), ressourcen());
  ScriptedUser user;
  platform.loop.TheUser = &user;
  user.Then([&](Form& front) { platform.hands.Key(front, L"Return"); });
  Programm prog(platform.bundle, AllWindows);
  EXPECT_FALSE(prog.Laufen());
  ASSERT_EQ(user.Said.size(), 1U);
  EXPECT_TRUE(Enthaelt(user.Said[0], L"strings.tsv"));
}

TEST(Start, TheTraceIsWrittenWhenF12WasPressedOnTheSplashWindow) {
  Buehne b;
  b.Datei(L"C:\\Vantora\\vantora.APL", "an older run\r\n");
  b.platform.loop.Post([&] { b.prog.frmStartUp().Form_KeyDown(kKeyF12, false); });
  b.Start();
  const std::string spur = b.Lies(L"C:\\Vantora\\vantora.APL");
  EXPECT_EQ(spur.find("an older run"), std::string::npos);
  std::size_t vorher = 0;  // the log's numbers rise from line to line
  for (const char* zeile :
       {" : Startup... > Version 1.0.0\r\n", " : Init_Prog > TS_CUT found.\r\n"}) {
    const std::size_t stelle = spur.find(zeile);
    ASSERT_NE(stelle, std::string::npos) << zeile;
    const std::size_t nummer = std::stoul(spur.substr(stelle - 4, 4));
    EXPECT_GT(nummer, vorher);
    vorher = nummer;
  }
}

TEST(Ende, ASecondPressWhileTheFarewellWaitsDoesNothingAndDirectoriesAreSaved) {
  Buehne b;
  b.Start();
  b.Antwortet(kJa).Antwortet(kNein);
  b.platform.loop.PostAfter(
      300, [&] { EXPECT_THROW(b.platform.hands.Press(b.Haupt().imgÜberblenden), Unreachable); });
  b.Tu([&] { b.Haupt().imgÜberblenden_MouseUp(); });
  EXPECT_TRUE(b.platform.loop.Ended());
  EXPECT_EQ(b.user.Left(), 1U);
  EXPECT_EQ(GetSetting(b.platform.bundle, L"Picture_Save_Dir", L""), L"C:\\Vantora\\Pictures");
}

}  // namespace
}  // namespace vantora
