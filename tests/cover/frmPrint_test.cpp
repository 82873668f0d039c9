#include "cover/frmPrint.h"

#include <gtest/gtest.h>

#include "cover/frmPrintStart.h"
#include "tests/support/buehne.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace vantora {

namespace {

using What = PrintItem::What;
using Ort = CoverZustand::Ort;

class Cover : public testing::Test {
 protected:
  void SetUp() override {
    b.Start();
    b.prog.BildschirmBreite = 800;
  }
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
  Hands& hand() { return b.platform.hands; }
  std::vector<PrintJob>& Jobs() { return b.platform.shop.printers.Jobs; }
  Buehne b;
};

// The items of a page: "text@x,y", and the rectangles of boxes, pictures and circles.
std::vector<std::string> Seitenbild(const PrintJob& job) {
  std::vector<std::string> alle;
  const auto zahl = [](double wert) { return std::to_string(std::lround(wert)); };
  for (const PrintItem& item : job.Items) {
    std::string was;
    if (item.Kind == What::Points || item.Content.empty() == (item.Kind == What::Words)) continue;
    if (item.Kind == What::Words) {
      was = std::string(item.Content.begin(), item.Content.end());
      if (item.Font.Escapement != 0) was += "/" + std::to_string(item.Font.Escapement / 10);
    }
    if (item.Kind == What::FilledBox) was = "box";
    if (item.Kind == What::Picture) was = "picture";
    if (item.Kind == What::Circle) was = "circle " + zahl(item.Radius);
    for (const PrintPoint& punkt : item.Points) was += "@" + zahl(punkt.X) + "," + zahl(punkt.Y);
    alle.push_back(was);
  }
  return alle;
}

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
  const auto zeilen = [](int anzahl) {
    Text alle;
    for (int i = 1; i <= anzahl; ++i) alle += std::to_wstring(i) + L"\r\n";
    return alle;
  };
  start().txtPrev.Text = zeilen(51);
  b.Antwortet(kNein);
  b.Tu([&] { start().imgReady_MouseUp(); });
  ASSERT_EQ(b.Gesagt().size(), 1U);
  EXPECT_NE(b.Gesagt().front().find(L"(9)"), Text::npos) << "the number of the error";
  EXPECT_TRUE(start().Window.Enabled() && start().Visible());
  start().txtPrev.Text = zeilen(50);
  Weitergehen([](frmPrint&) {});
  EXPECT_EQ(b.prog.CoverZeilen[50], L"50");
}

TEST_F(Cover, WithoutTracksOrWithoutAPrinterThereIsNoCover) {
  b.Antwortet(kNein).Antwortet(kNein);
  b.Tu([&] { b.Haupt().imgPrintCover_MouseUp(); });
  b.platform.shop.printers.Setup.Present = false;
  Oeffnen({L"uno"});
  EXPECT_EQ(b.Gesagt(), (std::vector<Text>{b.prog.Text(8059), b.prog.Text(8081)}));
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

TEST_F(Cover, TextsAreMovedByMouseAndByArrowsOnTheGridOfTheSide) {
  Oeffnen({L"uno", L"dos"});
  Weitergehen([&](frmPrint& w) {
    hand().Press(w.imgControl(2));
    Label& zwei = w.lblBeschriftung(1);
    auto& ort = b.prog.ZeilenPos[kLabel][2];
    const double mal = 1.0 * w.Lead2.Width / w.Lead1.Width;
    const int mausX = zwei.Left + zwei.Width / 2, mausY = zwei.Top + zwei.Height / 2;
    hand().Pull(zwei, 2000, 1500);
    EXPECT_NEAR(ort[0], (mausX + 2000 - 500) / mal, 70);
    EXPECT_NEAR(ort[1], (mausY + 1500 - 200) / mal, 45);
    EXPECT_EQ(ort[0] % 100 + ort[1] % 50, 0);
    EXPECT_NEAR(zwei.Left, ort[0] * mal, 1);
    hand().Pull(zwei, -9000, 0);
    EXPECT_EQ(ort[0], 0);
    // Without a selection, the arrow keys do not move texts.
    const Ort vorher = ort;
    hand().Key(w, L"Right");
    EXPECT_EQ(ort, vorher);
    hand().ShiftPress(zwei);
    EXPECT_EQ(zwei.Tag + L"/" + std::to_wstring(zwei.BorderStyle), L"1/1");
    EXPECT_EQ(ort, vorher) << "Shift selects and does not move";
    EXPECT_NE(w.Text1.Text().find(L"dos"), Text::npos);
    hand().Key(w, L"Right");
    EXPECT_EQ(ort, (Ort{100, vorher[1]}));
    hand().ShiftPress(zwei);
    EXPECT_EQ(zwei.Tag, L"0");
    hand().Key(w, L"Ctrl+A");
    hand().Key(w, L"Down");
    EXPECT_EQ(b.prog.ZeilenPos[kLabel][1], (Ort{600, 750}));
    EXPECT_EQ(b.prog.TitelPos[kLabel], (Ort{600, 250}));
    hand().Press(w.Lead2);
    EXPECT_EQ(w.lblBeschriftung(0).Tag + w.lblCDTitel.Tag, L"00");
    EXPECT_EQ(b.prog.ZeilenPos[kRueckseite][1], (Ort{600, 650})) << "each side has its own places";
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
    hand().Type(w.Text1, L"x");
    EXPECT_EQ(w.Text1.Text(), vorher) << "nothing is written into it";
  });
}

TEST_F(Cover, APictureIsKeptUntilTheUserAgreesAndABadFileChangesNothing) {
  Oeffnen({L"uno"});
  const std::string bmp(
      "BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0"
      "\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\0",
      58);
  b.Datei(L"C:\\Vantora\\Pictures\\eins.bmp", bmp);
  b.Datei(L"C:\\Vantora\\Pictures\\leer.jpg", "");
  Weitergehen([&](frmPrint& w) {
    b.WaehltDatei({L"C:\\Vantora\\Pictures\\eins.bmp"});
    w.imgLoadPic_MouseUp();
    ASSERT_NE(w.picSource[kTeilRueckseite], nullptr);
    b.WaehltDatei({L"C:\\Vantora\\Pictures\\leer.jpg"}).Antwortet(kNein);
    w.imgLoadPic_MouseUp();
    b.WaehltDatei({});
    w.imgLoadPic_MouseUp();
    EXPECT_NE(w.picSource[kTeilRueckseite], nullptr) << "a bad file, and a cancelled dialog";
    EXPECT_TRUE(w.Window.Enabled());
    EXPECT_EQ(b.Gesagt().size(), 1U);
    b.Antwortet(kNein);
    w.imgClearPic_MouseUp();
    EXPECT_NE(w.picSource[kTeilRueckseite], nullptr);
    b.Antwortet(kJa);
    w.imgClearPic_MouseUp();
    EXPECT_EQ(w.picSource[kTeilRueckseite], nullptr);
  });
  // The loop of the dialogs ran inside the window, so its messages come after the picture's.
  EXPECT_EQ(b.Gesagt().back(), b.prog.Text(16000));
}

TEST_F(Cover, CenteredEachSideStandsInTheMiddleWithItsFoldsFrameAndMarks) {
  Oeffnen({L"uno"});
  b.platform.shop.printers.Setup.Paper = L"A4";
  b.prog.CoverTitel = L"Lomo";
  Weitergehen([&](frmPrint& w) {
    for (int knopf = 0; knopf < 3; ++knopf) {
      w.imgControl_MouseUp(knopf);
      w.PrintCentered();
      const PrintJob& job = Jobs().back();
      EXPECT_EQ(job.Orientation, kLandscape);
      const Mass mass = MassDerSeite(w.Seite);
      const auto mitte = [](double papier, int seite) {
        return static_cast<int>(std::lround((papier - seite) / 2));
      };
      const int x = mitte(job.Sheet.PaperWidth(kLandscape), mass.Breite);
      const int y = mitte(job.Sheet.PaperHeight(kLandscape), mass.Hoehe);
      std::vector<std::string> bild = Seitenbild(job);
      const auto bei = [](const std::string& was, int dort, int hoch) {
        return was + "@" + std::to_string(dort) + "," + std::to_string(hoch);
      };
      EXPECT_EQ(bild.front(), bei(bei("box", x, y), x + mass.Breite, y + mass.Hoehe));
      if (knopf == 0) {
        EXPECT_EQ(bild.at(1), bei("Lomo/90", x + 100, y + mass.Hoehe - 200));
        EXPECT_EQ(bild.at(2), bei("Lomo/270", x + mass.Breite - 100, y + 200));
      }
      if (knopf == 2) {
        EXPECT_EQ(bild.at(1), bei("circle 3405", x + 3405, y + 3405));
      }
      // Fold marks are the points to the left, right, above and below the side.
      double links = 1e9, rechts = 0, oben = 1e9, unten = 0;
      std::size_t falz = 0;
      for (const PrintItem& item : job.Items) {
        if (item.Kind != What::Points) continue;
        for (const PrintPoint& p : item.Points) {
          links = std::min(links, p.X);
          rechts = std::max(rechts, p.X);
          oben = std::min(oben, p.Y);
          unten = std::max(unten, p.Y);
          const double faltet = knopf == 0 ? x + 385 : x + mass.Breite / 2;
          if (p.X == faltet && p.Y > y && p.Y < y + mass.Hoehe) ++falz;
        }
      }
      EXPECT_NEAR(links, x - 900, 10);
      EXPECT_NEAR(rechts, x + mass.Breite + 900, 10);
      EXPECT_NEAR(oben, y - 900, 10);
      EXPECT_NEAR(unten, y + mass.Hoehe + 900, 10);
      EXPECT_EQ(falz > 3000, knopf != 2) << falz;
    }
  });
}

TEST_F(Cover, OnPreCutPaperOneSheetTakesCoverAndBackWhateverTheMargin) {
  Oeffnen({L"uno"});
  b.platform.shop.printers.Setup.MarginX = 283;
  b.platform.shop.printers.Setup.MarginY = 200;
  b.prog.CoverTitel = L"Lomo";
  Weitergehen([&](frmPrint& w) {
    hand().Press(w.chkPaper(kPapierQM));
    w.imgControl_MouseUp(1);
    w.PrintQMPaper();
    EXPECT_EQ(w.Seite, kRueckseitePapier) << "the back is the side that is shown then";
    EXPECT_EQ(Jobs().back().Orientation, kPortrait);
    const std::vector<std::string> bild = Seitenbild(Jobs().back());
    const auto hat = [&](const std::string& was) {
      return std::count(bild.begin(), bild.end(), was) == 1;
    };
    const int x = 1644 - 283, y = 8781 - 200;
    EXPECT_TRUE(hat("box@3119,1161@9921,7971")) << testing::PrintToString(bild);
    EXPECT_TRUE(hat("box@" + std::to_string(x) + "," + std::to_string(y) + "@" +
                    std::to_string(x + 8565) + "," + std::to_string(y + 6690)));
    EXPECT_TRUE(hat("Lomo/90@" + std::to_string(x + 100) + "," + std::to_string(y + 6490)));
    EXPECT_TRUE(hat("Lomo/270@" + std::to_string(x + 8465) + "," + std::to_string(y + 200)));
    EXPECT_TRUE(hat("1   uno   Voz@3719,1811"));
    EXPECT_TRUE(hat("1   uno   Voz@" + std::to_string(x + 600) + "," + std::to_string(y + 650)));
    w.imgControl_MouseUp(2);
    for (const auto& [pos, oben] : std::map<int, int>{{0, 963}, {1, 9327}}) {
      hand().Press(w.optLabelPos(pos));
      w.PrintQMPaper();
      EXPECT_EQ(
          Seitenbild(Jobs().back()).front(),
          "box@2325," + std::to_string(oben - 200) + "@9135," + std::to_string(oben - 200 + 6810));
    }
  });
}

TEST_F(Cover, AJobThatFailsIsReportedAndTheWindowGoesOn) {
  Oeffnen({L"uno"});
  Weitergehen([&](frmPrint& w) {
    b.platform.shop.printers.Broken = true;
    EXPECT_THROW(w.PrintCentered(), Laufzeitfehler);
    EXPECT_TRUE(Jobs().empty());
    b.platform.shop.printers.Broken = false;
    w.PrintCentered();
    EXPECT_EQ(Jobs().size(), 1U);
  });
}

}  // namespace vantora
