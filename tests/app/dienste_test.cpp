#include "app/dienste.h"

#include "tests/support/buehne.h"

namespace vantora {
namespace {

TEST(Dienste, ANameWithAPointIsAFileOrAFolderAndOneWithoutIsAFolder) {
  Buehne b;
  b.Datei(L"C:\\leer.wav", "");
  b.Datei(L"C:\\ohnepunkt", "x");
  std::filesystem::create_directories(b.home.Path() / "v1.0");
  std::filesystem::create_directories(b.home.Path() / "Música");
  for (const wchar_t* da : {L"C:\\leer.wav", L"  C:\\LEER.WAV  ", L"C:\\leer.wav\\", L"C:\\v1.0",
                            L"C:\\Música", L"C:\\Música\\", L"C:\\"}) {
    EXPECT_TRUE(b.prog.DateiExistiert(da)) << da;
  }
  for (const wchar_t* fehlt : {L"C:\\ohnepunkt", L"Q:\\", L"", L"   "}) {
    EXPECT_FALSE(b.prog.DateiExistiert(fehlt)) << fehlt;
  }
  EXPECT_EQ(b.prog.FreierPlatz(L"Q:\\"), 2147483648.0);
  EXPECT_GT(b.prog.FreierPlatz(L"C:\\"), 0.0);
}

TEST(Dienste, PathsAndNamesKeepTheirRules) {
  EXPECT_EQ(DateiNameOhnePfad(L"b.wav"), L"");
  Text name = L"disco.vtr";
  ExtensionSicher(name, L".VTR");
  EXPECT_EQ(name, L"disco.vtr");
  for (const wchar_t* schlecht : {L"", L".wav", L"a*b", L"a/b", L"a:b", L"a|b", L"a\\b", L"a?"}) {
    EXPECT_FALSE(DateiNameGueltig(schlecht));
  }
  std::vector<Text> teile;
  EXPECT_EQ(Split(L"a/b/", L"/", teile), L"");
  EXPECT_EQ(teile, (std::vector<Text>{L"a", L"b", L""}));
  for (const int taste : {L'0', L'9', L'.', L'-', wchar_t{13}, wchar_t{8}, wchar_t{27}}) {
    EXPECT_TRUE(NurZiffern(taste));
  }
  EXPECT_FALSE(NurZiffern(L'a'));
  EXPECT_FALSE(NurZiffern(L' '));
}

TEST(Dienste, TimesCountIn25thsOfTheirOwnKind) {
  int h = 0, m = 0, s = 0, f = 0;
  MsNachHMSF(3723999, h, m, s, f);
  EXPECT_EQ(HMSFText(h, m, s, f), L"01:02:03:09");  // in steps of 25 ms, of which 25 count as 1
  EXPECT_EQ(MinutenText(5 * 60000 + 23999), L"05:23");
  EXPECT_EQ(RestText(80 * 60000), L"80:00");
  EXPECT_EQ(RestText(-61000), L"-01:01");
  EXPECT_EQ(BytesNachMs(176400), 1000);
}

using Meldung = MitProgramm;

TEST_F(Meldung, TheWordsOfALibraryAreForTheLogAlone) {
  b.prog.LogAktiv = true;
  b.Antwortet(kNein);
  b.Tu([] { throw Laufzeitfehler(kFehlerEinAusgabe, L"No responde.", L"no such device"); });
  EXPECT_EQ(b.Gesagt().back().find(L"no such device"), Text::npos);
  EXPECT_NE(b.Lies(L"C:\\Vantora\\vantora.APL").find("57 No responde.: no such device"),
            std::string::npos);
}

TEST_F(Meldung, AListOfFilesFitsIntoTheBox) {
  Text text = L"Estas pistas no coinciden:";
  for (int lines = 1; lines <= 22; ++lines) {
    b.Macht([&](Form& front) {
      auto& box = dynamic_cast<frmMBox&>(front);
      constexpr int kLine = 210;  // twips
      EXPECT_GE(box.lblMbMeldung.Height, lines * kLine);
      EXPECT_LE(box.lblMbMeldung.Top + box.lblMbMeldung.Height, box.picMboxButton(2).Top);
      EXPECT_LT(box.picMboxButton(2).Top + box.picMboxButton(2).Height, box.Window.Height);
      b.platform.hands.Key(front, L"Return");
    });
    b.Tu([&] { b.prog.MsgBoxen(text, kHinweis); });
    text += L"\r\n" + std::to_wstring(lines) + L". C:\\Música\\" + Text(20, L'W') + L".wav";
  }
}

TEST_F(Meldung, TheFocusStaysOnWhatReturnDoes) {
  b.Macht([&](Form& front) {
    auto& box = dynamic_cast<frmMBox&>(front);
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(b.platform.loop.Focus(box), &box.picMboxButton(0)) << i;
      b.platform.hands.Key(box, L"Tab");
    }
    b.platform.hands.Press(box.picMboxButton(1));
  });
  b.Tu([&] { EXPECT_EQ(b.prog.MsgBoxen(L"¿Borrar?", kFrage), kNein); });
  // The plain box has no default button: Return presses the button that has the focus.
  b.Macht([&](Form& front) {
    b.platform.hands.Key(front, L"Tab");
    b.platform.hands.Key(front, L"Return");
  });
  b.Tu([&] { EXPECT_EQ(b.platform.loop.SystemBox(L"?", 2, L""), 4); });
}

}  // namespace
}  // namespace vantora
