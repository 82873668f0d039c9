#include "dialogs/frmLoadSave.h"

#include "dialogs/datei_holen.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

class Dateidialog : public MitProgramm {
 protected:
  Dateidialog() {
    for (const wchar_t* datei : {L"C:\\Música\\a.wav", L"C:\\Música\\b.MP3", L"C:\\Música\\c.txt",
                                 L"C:\\Música\\Vieja\\d.wav", L"C:\\Vantora\\Catálogo\\uno.vtr"}) {
      b.Datei(datei, "x");
    }
    b.prog.Songs_Import_Dir = L"C:\\Música";
  }
  // Runs the dialog and calls `was` in it.
  void Fragt(int typ, int modus, std::function<void(frmLoadSave&)> was,
             const Text& vorschlag = {}) {
    b.Macht([was = std::move(was)](Form& front) { was(dynamic_cast<frmLoadSave&>(front)); });
    b.Tu([&] { DateiHolen(b.prog, typ, modus, vorschlag); });
  }
};

TEST_F(Dateidialog, ShowsDrivesFoldersAndTheFilesOfItsPattern) {
  Fragt(kTypMusik, kModusOeffnen, [&](frmLoadSave& d) {
    EXPECT_EQ(d.Caption(), b.prog.Text(11602));
    EXPECT_EQ(d.cbxLaufwerk.List(d.cbxLaufwerk.ListIndex), L"c:");
    EXPECT_EQ(d.lstVerzeichnis.Items(), (std::vector<Text>{L"C:\\", L"  Música", L"    Vieja"}));
    EXPECT_EQ(d.lstDatei.Items(), (std::vector<Text>{L"a.wav", L"b.MP3"}));
    EXPECT_EQ(d.txtDateiName.Text(), L".wav;*.mp3");
    EXPECT_FALSE(d.pbButton(0).Enabled());
    hand().Select(d.lstDatei, {1});
    EXPECT_TRUE(d.pbButton(0).Enabled());
    hand().Select(d.lstVerzeichnis, {3});
    hand().Key(d, L"Return");  // enters the folder
    EXPECT_EQ(d.lstDatei.Items(), std::vector<Text>{L"d.wav"});
    hand().Select(d.lstVerzeichnis, {1});
    hand().Key(d, L"Return");  // returns to the root
    EXPECT_EQ(d.lblPfad.Caption(), L"C:\\");
    hand().Key(d, L"Escape");
  });
  EXPECT_TRUE(b.prog.DialogAbbruch);
  EXPECT_EQ(b.prog.Songs_Import_Dir, L"C:\\Música");
  EXPECT_EQ(b.prog.DialogPfad, L"C:\\");
}

TEST_F(Dateidialog, AFileThatIsTakenOutOfTheSelectionIsNotTheOneThatComesBack) {
  Fragt(kTypMusik, kModusOeffnen, [&](frmLoadSave& d) {
    hand().Select(d.lstDatei, {1});
    d.lstDatei.Select(1, true);
    d.lstDatei.Select(1, false);  // after a click with Ctrl the line is current but not selected
    d.lstDatei.ListIndex = 1;
    d.lstDatei_Click();
    EXPECT_EQ(d.txtDateiName.Text(), L"a.wav");
    hand().Press(d.pbButton(1));
  });
  EXPECT_EQ(b.prog.GewaehlteDatei, L"C:\\Música\\a.wav");
}

TEST_F(Dateidialog, NamesThatTheCatalogCannotHoldAreRefusedAndTheDialogStays) {
  b.Datei(L"C:\\日本\\a.wav", "x");
  b.prog.Songs_Import_Dir = L"C:\\日本";
  const auto lehntAb = [&](int typ, int modus, const std::function<void(frmLoadSave&)>& nennen) {
    Fragt(typ, modus, [&](frmLoadSave& d) {
      nennen(d);
      b.Antwortet(kNein);
      hand().Press(d.pbButton(1));
      hand().Key(d, L"Escape");
    });
    EXPECT_EQ(b.Gesagt().back(), Sagt(8038));
  };
  for (const wchar_t* name : {L"日本.vtr", L"a\\b.vtr"}) {
    lehntAb(kTypKatalog, kModusSichern, [&](frmLoadSave& d) { hand().Type(d.txtDateiName, name); });
  }
  lehntAb(kTypMusik, kModusOeffnen, [&](frmLoadSave& d) { hand().Select(d.lstDatei, {1}); });
}

TEST_F(Dateidialog, ThePreviewPlaysAndStopsWithTheDialog) {
  b.Wave(L"C:\\Música\\a.wav", 10 * 44100);
  Fragt(kTypMusik, kModusOeffnen, [&](frmLoadSave& d) {
    hand().Select(d.lstDatei, {1});
    hand().Press(d.pbButton(0));
    EXPECT_TRUE(b.Haupt().SpielerLaeuft());
    hand().Press(d.pbButton(2));
  });
  EXPECT_FALSE(b.Haupt().SpielerLaeuft());
}

}  // namespace
}  // namespace vantora
