#include "main/windows.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

using Start = VorDemStart;
using Ende = VorDemStart;

TEST_F(Start, TheScreenAndAnotherInstanceDecideWhetherAndHowTheMainWindowStands) {
  const Text zweite = L"Ya se ha iniciado el programa";
  const struct {
    int Breite, Hoehe;
    double Twips;
    Text Meldung;  // blank: the window opens
    Text Bild = {};
    int Farben = 24;
  } faelle[] = {{640, 480, 15, Sagt(8012)},
                {800, 600, 15, L"", L"PICBACK_800"},
                {1024, 768, 15, L"", L"PICBACK_1000"},
                {1024, 768, 15, Sagt(8011), L"", 8},
                {1024, 768, 15, zweite},
                {1024, 1024, 15, Sagt(8083)},
                {1024, 768, 12, L"", L"PICBACK_1000"},
                {1280, 720, 12, Sagt(8083)},
                {1920, 1080, 15, L"", L"PICBACK_1000"}};
  for (const auto& fall : faelle) {
    SCOPED_TRACE(&fall - faelle);
    Buehne start;
    HeadlessDisplay& schirm = start.platform.display;
    schirm.PixelWidth = fall.Breite;
    schirm.PixelHeight = fall.Hoehe;
    schirm.TwipsPerPixel = fall.Twips;
    schirm.Bits = fall.Farben;
    start.platform.system.OtherInstance = fall.Meldung == zweite;
    start.Antwortet(kNein);
    start.Start();
    EXPECT_EQ(start.platform.loop.Ended(), !fall.Meldung.empty());
    if (!fall.Meldung.empty()) {
      EXPECT_EQ(start.Gesagt(), std::vector<Text>{fall.Meldung});
      continue;
    }
    EXPECT_EQ(start.Haupt().Picture(), fall.Bild);
    EXPECT_LE(start.Haupt().Window.Width(), schirm.Width());
  }
}

TEST_F(Start, ADoubleClickOnACaptionPressesItsButtonOnce) {
  b.Start();
  const auto fenster = b.prog.frmAbout.Holen();
  b.prog.Zeigen(*fenster);
  auto& schild = dynamic_cast<Label&>(*fenster->Find(L"lblButtCaption", 0));
  int mal = 0;
  dynamic_cast<PictureButton&>(*fenster->Find(L"imgOK")).MouseUp = [&mal](int) { ++mal; };
  b.platform.loop.Post(schild.Click);
  schild.Click();
  EXPECT_EQ(mal, 1);
}

TEST_F(Start, AClosedWindowLivesUntilNoHandlerIsRunning) {
  b.Start();
  std::weak_ptr<VtrFenster> zu;
  for (int box = 0; box < 20; ++box) b.Antwortet(kNein);
  b.platform.loop.Post([&] {
    zu = b.prog.frmAbout.Holen();
    b.prog.frmAbout.Entladen();
    for (int box = 0; box < 20; ++box) b.prog.MsgBoxen(L"?", kHinweis);
    EXPECT_FALSE(zu.expired());
  });
  b.platform.loop.Run();
  EXPECT_TRUE(zu.expired());
}

TEST_F(Start, AClickThatComesWithTheAnswerReachesNoWindow) {
  b.Start();
  std::vector<bool> nimmt;
  const auto fragen = [&] { nimmt.push_back(b.platform.loop.TakesInput(b.Haupt())); };
  b.Macht([&](Form& box) {
    b.platform.loop.Post(fragen);
    b.platform.hands.Press(*box.Find(L"picMboxButton", 2));
  });
  b.prog.MsgBoxen(L"?", kHinweis);
  fragen();
  EXPECT_EQ(nimmt, (std::vector{false, true}));
  // A message that comes while another one is open is shown by the same window.
  b.Macht([&](Form& box) {
    b.Antwortet(kNein);
    b.prog.MsgBoxen(L"!", kHinweis);
    EXPECT_TRUE(box.Window.Enabled);
  });
  b.prog.MsgBoxen(L"?", kHinweis);
  fragen();
  EXPECT_TRUE(nimmt.back());
}

TEST_F(Start, AnErrorOnTheWayAsksToEndToRetryOrToGoOn) {
  b.Datei(L"C:\\Vantora\\Wavs", "a file where a folder is meant");
  b.Setze(L"Wave_Export_Dir", L"");
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

TEST_F(Start, GoingOnBehindAFolderThatCannotBeMadeKeepsAllOthers) {
  b.Datei(L"C:\\Vantora\\Wavs", "a file where a folder is meant");
  b.Antwortet(kNein);  // the last button, "ignore"
  b.Start();
  b.prog.LastDirSave();
  EXPECT_EQ(b.Einstellung(L"Wave_Export_Dir"), L"C:\\Vantora\\Wavs\\");
  EXPECT_EQ(b.Einstellung(L"Wave_Import_Dir"), L"C:\\");
  EXPECT_EQ(b.Einstellung(L"Songs_Import_Dir"), L"C:\\Vantora\\");
  for (const Text art : {L"Open", L"Save"}) {
    EXPECT_EQ(b.Einstellung(L"Catalogue_" + art + L"_Dir"), L"C:\\Vantora\\Catálogo");
  }
  EXPECT_TRUE(std::filesystem::is_directory(b.home.Path() / "Vantora/Pictures"));
}

TEST_F(Start, ATextThatIsMissingEndsItWithAMessageThatNamesTheFile) {
  const TemporaryHome home, ressourcen;
  test::Put(ressourcen() / "strings.tsv", "0\tVantora\n");
  HeadlessPlatform platform(home(), ressourcen());
  ScriptedUser user;
  platform.loop.TheUser = &user;
  user.Then([&](Form& front) { platform.hands.Key(front, L"Return"); });
  Programm prog(platform.bundle, AllWindows);
  EXPECT_FALSE(prog.Laufen());
  EXPECT_TRUE(Enthaelt(user.Said.at(0), L"strings.tsv"));
}

TEST_F(Start, TheTraceIsWrittenWhenF12WasPressedOnTheSplashWindow) {
  b.Datei(L"C:\\Vantora\\vantora.APL", "an older run\r\n");
  b.platform.loop.Post([&] { b.prog.frmStartUp().Form_KeyDown(kKeyF12, false); });
  b.Start();
  const std::string spur = b.Lies(L"C:\\Vantora\\vantora.APL");
  EXPECT_EQ(spur.find("an older run"), std::string::npos);
  const auto nummer = [&](const char* zeile) {
    return std::stoul(spur.substr(spur.find(zeile) - 4, 4));
  };
  EXPECT_LT(nummer(" : Startup... > Version 1.0.0\r\n"),
            nummer(" : Init_Prog > TS_CUT found.\r\n"));
}

TEST_F(Ende, ASecondPressWhileTheFarewellWaitsDoesNothingAndDirectoriesAreSaved) {
  b.Start();
  b.Antwortet(kJa).Antwortet(kNein);
  b.platform.loop.PostAfter(
      300, [&] { EXPECT_THROW(b.platform.hands.Press(b.Haupt().imgÜberblenden), Unreachable); });
  b.Tu([&] { b.Haupt().imgÜberblenden_MouseUp(); });
  EXPECT_TRUE(b.platform.loop.Ended());
  EXPECT_EQ(b.user.Left(), 1U);
  EXPECT_EQ(b.Einstellung(L"Picture_Save_Dir"), L"C:\\Vantora\\Pictures");
}

}  // namespace
}  // namespace vantora
