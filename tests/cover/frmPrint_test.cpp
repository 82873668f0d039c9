#include "cover/frmPrint.h"

#include "cover/frmPrintStart.h"
#include "tests/support/buehne.h"

namespace vantora {

namespace {

using Ort = CoverZustand::Ort;

class Cover : public MitProgramm {
 protected:
  Cover() { b.prog.BildschirmBreite = 800; }
  void Oeffnen(const std::vector<Text>& titel) {
    b.Katalog(titel);
    b.Tu([&] { b.Haupt().imgPrintCover_MouseUp(); });
  }
  // Continues to the sides and runs `was` there.
  void Weitergehen(const std::function<void(frmPrint&)>& was) {
    b.Macht([was](Form& front) {
      auto& sides = dynamic_cast<frmPrint&>(front);
      was(sides);
      sides.imgBack_MouseUp();
    });
    b.Tu([&] { start().imgReady_MouseUp(); });
  }
  frmPrintStart& start() { return b.prog.frmPrintStart(); }
};

}  // namespace

TEST_F(Cover, TextsCrossOverToTheirGlobalsWhenTheirBoxIsLeft) {
  Oeffnen({L"uno", L"dos"});
  EXPECT_FALSE(b.Haupt().Window.Enabled());
  EXPECT_EQ(start().txtPrev.Text(), L"1   uno   Voz\r\n2   dos   Voz\r\n");
  EXPECT_EQ(start().txtTitel(0).Text(), L"Disco");
  EXPECT_EQ(start().txtTitel(1).Text(), L"Grupo");
  Weitergehen([](frmPrint&) {});
  EXPECT_EQ(b.prog.CoverTitel, L"Título del CD") << "no box was left yet";
  EXPECT_EQ(b.prog.CoverInterpret, L"Intérprete");
  // The Tab key leaves a box without a change; the button leaves a box after typing.
  hand().Press(start().txtTitel(1));
  hand().Key(start(), L"Tab");
  EXPECT_EQ(b.prog.CoverTitel, L"Grupo");
  EXPECT_EQ(b.prog.CoverInterpret, L"Disco") << "the first box had the focus until then";
  hand().Type(start().txtTitel(0), L" Otro ");
  EXPECT_EQ(b.prog.CoverInterpret, L"Disco");
  Weitergehen([](frmPrint&) {});
  EXPECT_EQ(b.prog.CoverInterpret, L"Otro");
  EXPECT_EQ(b.prog.CoverZeilen[2], L"2   dos   Voz");
  EXPECT_EQ(b.prog.CoverZeilen[3], L"");
  start().imgDruckEnde_MouseUp();
  EXPECT_TRUE(b.Haupt().Window.Enabled());
  EXPECT_FALSE(b.prog.frmPrint.Geladen() || b.prog.frmPrintStart.Geladen());
}

TEST_F(Cover, AFiftyFirstLineIsAnErrorAndTheWindowStaysUsable) {
  Oeffnen({L"uno"});
  Text zeilen;
  for (int i = 1; i <= 50; ++i) zeilen += std::to_wstring(i) + L"\r\n";
  start().txtPrev.Text = zeilen + L"51\r\n";
  b.Antwortet(kNein);
  b.Tu([&] { start().imgReady_MouseUp(); });
  EXPECT_TRUE(Enthaelt(b.Gesagt().at(0), L"más de 50 líneas"));
  EXPECT_TRUE(b.Gesagt().at(0).ends_with(L"(9)")) << "the number of the error";
  EXPECT_TRUE(start().Window.Enabled() && start().Visible());
  start().txtPrev.Text = zeilen;
  Weitergehen([](frmPrint&) {});
  EXPECT_EQ(b.prog.CoverZeilen[50], L"50");
}

TEST_F(Cover, WithoutTracksOrWithoutAPrinterThereIsNoCover) {
  b.Antwortet(kNein).Antwortet(kNein);
  b.Tu([&] { b.Haupt().imgPrintCover_MouseUp(); });
  b.platform.shop.printers.Setup.Present = false;
  Oeffnen({L"uno"});
  EXPECT_EQ(b.Gesagt(), (std::vector{Sagt(8059), Sagt(8081)}));
  EXPECT_TRUE(b.Haupt().Window.Enabled());
}

TEST_F(Cover, ALabelStandsAtItsPlaceTimesThePreviewsScale) {
  Oeffnen({L"uno", L"dos"});
  Weitergehen([&](frmPrint& w) {
    for (int papier : {kZentriert, kPapierQM}) {
      hand().Press(w.chkPaper(papier));
      for (int knopf = 0; knopf < 3; ++knopf) {
        hand().Press(w.imgControl(knopf));
        const double mal = 1.0 * w.Lead2.Width / w.Lead1.Width;
        const Ort ort = b.prog.ZeilenPos.at(static_cast<std::size_t>(w.Seite))[2];
        EXPECT_NEAR(w.lblBeschriftung(1).Left, ort[0] * mal, 1);
        EXPECT_NEAR(w.lblBeschriftung(1).Top, ort[1] * mal, 1);
        EXPECT_NEAR(w.lblBeschriftung(1).FontScale, mal, 0.001);
        EXPECT_NEAR(1.0 * w.Lead2.Height / w.Lead1.Height, mal, 0.001);
        EXPECT_FALSE(w.lblBeschriftung(2).Visible()) << "there is no third line";
        EXPECT_EQ(w.optLabelPos(1).Enabled(), w.Seite == kLabel && papier == kPapierQM);
        EXPECT_EQ(w.picRotText(0).Visible(), knopf == 0);
      }
    }
  });
}

TEST_F(Cover, ByKeyboardATextIsFoundSelectedMovedAndHeard) {
  Oeffnen({L"uno"});
  Weitergehen([&](frmPrint& w) {
    b.platform.loop.SetFocus(w.lblBeschriftung(0));
    hand().Key(w, L"Space");
    hand().Key(w, L"Right");
    EXPECT_EQ(w.lblBeschriftung(0).AccessibleName(),
              L"1   uno   Voz (seleccionado): a 12 mm del borde izquierdo y a 11 mm del borde "
              L"superior");
    EXPECT_EQ(w.Text1.Text(), w.lblBeschriftung(0).AccessibleName());
    const Text vorher = w.Text1.Text;
    b.platform.loop.SetFocus(w.Text1);
    hand().Key(w, L"x");
    EXPECT_EQ(w.Text1.Text(), vorher) << "nothing is written into it";
  });
}

}  // namespace vantora
