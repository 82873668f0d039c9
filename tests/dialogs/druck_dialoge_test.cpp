#include "dialogs/druck_dialoge.h"

#include "dialogs/frmDrucken.h"
#include "dialogs/frmFarbe.h"
#include "dialogs/frmSchrift.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

class Druckdialoge : public MitProgramm {
 protected:
  template <typename Dialog>
  void Macht(std::function<void(Dialog&)> was) {
    b.Macht([was = std::move(was)](Form& front) { was(dynamic_cast<Dialog&>(front)); });
  }
  HeadlessPrinters& drucker() { return b.platform.shop.printers; }
  // Runs the print dialog. Returns false when it was cancelled.
  bool Druckt() {
    bool gewaehlt = true;
    b.Tu([&] {
      try {
        DruckerHolen(b.prog);
      } catch (const Laufzeitfehler& fehler) {
        EXPECT_EQ(fehler.Nummer, kFehlerAbbruch);
        gewaehlt = false;
      }
    });
    return gewaehlt;
  }
};

TEST_F(Druckdialoge, TheFontComesBackAsItWasChosenAndAFamilyThatIsNotThereKeepsItsName) {
  Schriftart schrift{L"Arial", 10, false, false};
  Macht<frmSchrift>([&](frmSchrift& d) {
    EXPECT_EQ(d.lstName.List(d.lstName.ListIndex), L"Liberation Sans");
    EXPECT_EQ(d.lstGroesse.List(d.lstGroesse.ListIndex), L"10");
    hand().Select(d.lstGroesse, {9});
    hand().Press(d.chkFett);
    const DrawItem muster = d.picMuster.Drawing().front();
    EXPECT_EQ(muster.FontName, L"Arial");
    EXPECT_TRUE(muster.Bold);
    EXPECT_EQ(muster.FontTwips, 16 * 20);
    hand().Press(d.pbButton(0));
  });
  b.Tu([&] { EXPECT_TRUE(SchriftHolen(b.prog, schrift)); });
  EXPECT_EQ(schrift, (Schriftart{L"Arial", 16, true, false}));

  Macht<frmSchrift>([&](frmSchrift& d) {
    hand().Select(d.lstName, {1});
    hand().Type(d.txtGroesse, L"3");  // refused
    hand().Press(d.pbButton(0));
    hand().Type(d.txtGroesse, L"13");
    EXPECT_EQ(d.lstGroesse.ListIndex(), -1);
    hand().Press(d.chkKursiv);
    hand().Key(d, L"Return");
  });
  b.Antwortet(kNein);
  b.Tu([&] { EXPECT_TRUE(SchriftHolen(b.prog, schrift)); });
  EXPECT_TRUE(Enthaelt(b.Gesagt().at(0), L"4 – 96"));
  EXPECT_EQ(schrift, (Schriftart{L"DejaVu Sans", 13, true, true}));
}

TEST_F(Druckdialoge, AColourIsChosenByItsFieldByKeysAndByItsShares) {
  Color farbe = 0;
  Macht<frmFarbe>([&](frmFarbe& d) {
    EXPECT_EQ(d.Caption(), L"Fondo");
    hand().Key(d, L"Down");   // pale red
    hand().Key(d, L"Right");  // pale orange
    EXPECT_EQ(d.Wahl(), 0xFFE8CCU);
    EXPECT_EQ(d.txtAnteil(1).Text(), L"232");
    hand().Type(d.txtAnteil(2), L"7");
    EXPECT_EQ(d.sldAnteil(2).Value(), 7);
    EXPECT_EQ(d.shpMuster.FillColor(), Rgb(255, 232, 7));
    hand().Type(d.txtAnteil(0), L"999");
    hand().Press(d.pbButton(0));
  });
  b.Tu([&] { EXPECT_TRUE(FarbeHolen(b.prog, L"Fondo", farbe)); });
  EXPECT_EQ(farbe, Rgb(255, 232, 7));
  Macht<frmFarbe>([&](frmFarbe& d) {
    EXPECT_EQ(d.Caption(), b.prog.Text(17206));
    hand().PressAt(d.picFelder, 500);
    EXPECT_NE(d.Wahl(), Rgb(255, 232, 7));
    hand().Close(d);
  });
  b.Tu([&] { EXPECT_FALSE(FarbeHolen(b.prog, {}, farbe)); });
  EXPECT_EQ(farbe, Rgb(255, 232, 7));
}

TEST_F(Druckdialoge, TheChosenPrinterIsTheOneThatIsPrintedOn) {
  drucker().Queues = {L"Láser"};
  drucker().Setup.Paper = L"Letter";
  Macht<frmDrucken>([&](frmDrucken& d) {
    EXPECT_EQ(d.cbxDrucker.List(0), L"Láser");
    EXPECT_EQ(d.cbxDrucker.List(1), L"PDF");
    EXPECT_EQ(d.lblPapierName.Caption(), L"Letter (216 × 279 mm)");
    EXPECT_FALSE(d.txtDatei.Enabled());
    hand().Type(d.txtKopien, L"0");
    hand().Press(d.pbButton(0));
    hand().Type(d.txtKopien, L"3");
    hand().Press(d.pbButton(0));
  });
  b.Antwortet(7);
  EXPECT_TRUE(Druckt());
  EXPECT_EQ(b.Gesagt().size(), 1U);
  drucker().Printer().Print(L"texto");
  drucker().Printer().EndDoc();
  ASSERT_EQ(drucker().Jobs.size(), 1U);
  EXPECT_EQ(drucker().Jobs[0].Copies, 3);
  EXPECT_EQ(drucker().Jobs[0].OutputFile, L"");

  Macht<frmDrucken>([&](frmDrucken& d) { hand().Press(d.pbButton(1)); });
  EXPECT_FALSE(Druckt());
  EXPECT_EQ(drucker().Current(), 0);
}

TEST_F(Druckdialoge, AFileThatIsThereIsAskedAboutAndANameIsNeeded) {
  b.Datei(L"C:\\Vantora\\mía.pdf", "x");
  Macht<frmDrucken>([&](frmDrucken& d) {
    EXPECT_FALSE(d.txtKopien.Enabled());
    hand().Type(d.txtDatei, L"mía");
    hand().Press(d.pbButton(0));  // the folder does not exist: refused
    hand().Type(d.txtDatei, L"C:\\Vantora\\a:b");
    hand().Press(d.pbButton(0));  // not a valid file name
    hand().Type(d.txtDatei, L"C:\\Vantora\\mía");
    hand().Press(d.pbButton(0));  // the file exists: do not replace it
    EXPECT_TRUE(d.Visible());
    hand().Press(d.pbButton(0));  // replace it
  });
  b.Antwortet(7).Antwortet(7).Antwortet(7).Antwortet(6);
  EXPECT_TRUE(Druckt());
  EXPECT_EQ(b.Gesagt(), (std::vector{Sagt(8038), Sagt(8038), Sagt(8055), Sagt(8055)}));
  EXPECT_EQ(drucker().Printer().OutputFile, L"C:\\Vantora\\mía.pdf");
  EXPECT_EQ(b.prog.PdfOrdner, L"C:\\Vantora\\");
}

TEST_F(Druckdialoge, AnotherFileIsChosenInTheFileDialogAndAPrinterThatGoesIsLeftToTheJob) {
  for (const bool bleibt : {true, false}) {
    Macht<frmDrucken>([&](frmDrucken& d) {
      hand().Press(d.pbButton(2));
      EXPECT_EQ(d.txtDatei.Text(), L"C:\\Vantora\\disco.pdf");
      drucker().Setup.Present = bleibt;
      hand().Press(d.pbButton(0));
    });
    b.WaehltDatei({L"C:\\Vantora\\disco"});
    EXPECT_TRUE(Druckt());
  }
  EXPECT_TRUE(b.Gesagt().empty());
}

TEST_F(Druckdialoge, AJobThatFailsIsReportedInTheProgramsWords) {
  drucker().Broken = true;
  const auto druckt = [&](const Text& datei) {
    b.Antwortet(7).Tu([&] {
      try {
        Printer& blatt = drucker().Printer();
        blatt.OutputFile = datei;
        blatt.Print(L"texto");
        blatt.EndDoc();
        ADD_FAILURE() << "nothing was raised";
      } catch (const Laufzeitfehler& fehler) {
        b.prog.DruckFehlerMelden(fehler);
      }
    });
    return b.Gesagt().back();
  };
  EXPECT_EQ(druckt({}), Sagt(30156));
  drucker().Broken = false;
  const Text gesagt = druckt(L"C:\\no\\hay\\a.pdf");
  EXPECT_EQ(gesagt.substr(0, 20), Sagt(30157).substr(0, 20));
  EXPECT_GT(gesagt.size(), Sagt(30157).size() + 5);
}

}  // namespace
}  // namespace vantora
