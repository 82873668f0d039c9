#include "dialogs/frmExtrasMenue.h"

#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

class Extras : public MitProgramm {
 protected:
  void Offen(const std::function<void(frmExtrasMenue&)>& was) {
    b.Macht([was](Form& front) { was(dynamic_cast<frmExtrasMenue&>(front)); });
    b.Tu([&] { b.Haupt().imgExtras_MouseUp(); });
  }
};

TEST_F(Extras, AFolderThatCannotBeUsedIsRefusedAndTheOldOneStays) {
  const Text lang = L"C:\\" + Text(60, L'x') + L"\\" + Text(60, L'y');
  b.prog.plattform.dateien.MkDir(lang);
  b.Datei(L"C:\\Discoteca\\a.txt", "x");
  Offen([&](frmExtrasMenue& f) {
    b.WaehltDatei(lang + L"\\nuevo.txt").Antwortet(kNein);
    f.cmdTempDirEdit_Click();
    EXPECT_EQ(b.Gesagt().back(), Sagt(7006)) << "too long for the settings";
    b.WaehltDatei(L"C:\\Discoteca\\a.txt");
    f.cmdTempDirEdit_Click();
    const auto abgelehnt = [&](TextBox& feld, const Text& ordner) {
      feld.Text = ordner;
      b.Antwortet(kNein);
      f.imgOK_MouseUp();
      EXPECT_TRUE(b.prog.frmExtrasMenue.Geladen());
      return b.Gesagt().back();
    };
    EXPECT_EQ(abgelehnt(f.txtWaveDir, lang), b.prog.Text(30171));
    EXPECT_NE(abgelehnt(f.txtWaveDir, L"Z:\\proc"), b.prog.Text(30171));
    for (const wchar_t* nirgends : {L"", L".", L"\\Discoteca"}) {
      EXPECT_EQ(abgelehnt(f.txtWaveDir, nirgends), b.prog.Text(7006));
      EXPECT_EQ(abgelehnt(f.txtTempDir, nirgends), b.prog.Text(7001));
      f.txtTempDir.Text = b.prog.Temporary_Directory.Getrimmt();
    }
    f.imgAbbrechen_MouseUp();
  });
  EXPECT_EQ(b.Einstellung(L"Temporary_Directory"), L"C:\\Discoteca\\");  // saved in spite of Cancel
}

TEST_F(Extras, TheCatalogTurnsRedWhenTheDiscsAreTooShortForIt) {
  // A sparse file with 76 minutes of silence takes no disk space.
  constexpr std::uint32_t kBytes = 76 * 60 * 176400;
  std::string kopf = test::Wave("");
  kopf.replace(4, 4, test::Number(kBytes + 36, 4)).replace(40, 4, test::Number(kBytes, 4));
  b.Datei(L"C:\\larga.wav", kopf);
  std::filesystem::resize_file(b.home.Path() / "larga.wav", kBytes + 44);
  b.Haupt().Katalog_AddWaveFile(L"C:\\larga.wav", L"Larga");
  b.Haupt().KatalogShow();
  EXPECT_EQ(b.Haupt().lblKatalogLaenge.ForeColor(), Rgb(0, 255, 0));
  Offen([&](frmExtrasMenue& f) {
    f.optCDGroesse74.SetValue(true);
    f.imgOK_MouseUp();
  });
  EXPECT_EQ(b.Haupt().lblKatalogLaenge.ForeColor(), Rgb(255, 0, 0));
  EXPECT_EQ(b.Einstellung(L"LängeCD"), L"74");
}

TEST_F(Extras, TheProtocolOpensInTheViewerOrAMessageSaysWhyNot) {
  b.Datei(L"C:\\Vantora\\VTRBurn.log", "x");
  Offen([&](frmExtrasMenue& f) {
    f.cmdShowOldLog_Click();
    b.platform.system.Viewer = false;
    b.Antwortet(kNein);
    f.cmdShowOldLog_Click();
    f.imgAbbrechen_MouseUp();
  });
  ASSERT_EQ(b.platform.system.FilesOpened.size(), 1U);
  EXPECT_EQ(b.platform.system.FilesOpened[0].filename(), "VTRBurn.log");
  EXPECT_EQ(b.Gesagt().back(), b.prog.Text(8058));
}

TEST_F(Extras, ASpeedThatNoLineOfTheListHasStays) {
  b.prog.BrennGeschwindigkeit = 16;
  Offen([](frmExtrasMenue& f) { f.imgOK_MouseUp(); });
  EXPECT_EQ(b.Einstellung(L"Write_Speed"), L"16");
}

}  // namespace
}  // namespace vantora
