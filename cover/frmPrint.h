// The second step to a cover: each printed side is shown as it will be printed, with its picture
// and its texts, which the user moves here. Printing starts here as well.
#pragma once

#include "app/fenster.h"
#include "cover/seiten.h"

#include "platform/box_device.h"
#include "platform/images.h"
#include "platform/printer.h"

#include <array>

namespace vantora {

class frmPrint final : public VtrFenster {
 public:
  explicit frmPrint(Programm& programm);

  // ---- window ----
  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgBack_MouseUp(); }
  void InitLabelPrint();        // takes over the settings of frmPrintStart
  void imgBack_MouseUp();       // back to frmPrintStart; the layout stays
  void imgAbbrechen_MouseUp();  // back to the catalog
  bool Text1_KeyPress(int zeichen);

  // ---- sides ----
  void imgControl_MouseUp(int index);  // 0 and 4 back, 1 and 3 cover, 2 label
  void ShowPic(int seite);
  void chkPaper_Click();
  void optLabelPos_Click();
  void imgLoadPic_MouseUp();
  void imgClearPic_MouseUp();
  void PutRotText(const Text& text);

  // ---- texts ----
  void lblBeschriftung_MouseDown(int index);
  void lblBeschriftung_MouseMove(int index, int taste);
  void lblBeschriftung_MouseUp(int index);
  void lblCDTitel_MouseDown();
  void lblCDTitel_MouseMove(int taste);
  void lblInterPret_MouseDown();
  void lblInterPret_MouseMove(int taste);
  void Lead2_Click();

  // ---- printing ----
  void imgPrintMe_MouseUp();
  void PrintCentered();
  void PrintQMPaper();
  void PrintBeschriftung(double x0, double y0, double sx, double sy);
  void PrintRotatedText(const Text& text, int winkel, double x, double y);
  // `winkel` in degrees, counter-clockwise.
  static void DrawRotatedText(Device& ziel, const Text& text, double x, double y, int winkel);

  int Seite = kRueckseite;
  int PapierArt = kZentriert;
  int LabelPos = 0;                         // 0 top, 1 bottom
  std::array<Bild, kCoverTeile> picSource;  // the picture of each part, at its own resolution

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  Label lblHilfe{*this, L"lblHilfe"};
  PictureBox Lead1{*this, L"Lead1"};  // has the printed size of the side; never shown
  PictureBox Lead2Container{*this, L"Lead2Container"};
  PictureBox Lead2{*this, L"Lead2"};
  ControlArray<PictureBox, 2> picRotText{*this, L"picRotText"};
  ControlArray<Shape, 2> Line1{*this, L"Line1"};  // the folds
  ControlArray<Label, kCoverZeilen> lblBeschriftung{*this, L"lblBeschriftung"};
  Label lblCDTitel{*this, L"lblCDTitel"};
  Label lblInterPret{*this, L"lblInterPret"};
  TextBox Text1{*this, L"Text1"};  // names the selected text and its position
  ControlArray<PictureButton, 3> imgControl{*this, L"imgControl"};
  ControlArray<Label, 2> lblGruppe{*this, L"lblGruppe"};
  ControlArray<OptionButton, 2> chkPaper{*this, L"chkPaper", 1};
  ControlArray<OptionButton, 2> optLabelPos{*this, L"optLabelPos", 2};
  PictureButton imgLoadPic{*this, L"imgLoadPic"};
  PictureButton imgClearPic{*this, L"imgClearPic"};
  PictureButton imgPrintMe{*this, L"imgPrintMe"};
  PictureButton imgBack{*this, L"imgBack"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 8> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  using Ort = CoverZustand::Ort;

  // A text that the user can move: a line of the titles, the title or the performer.
  struct Beweglich {
    Label& Schild;
    Ort& Platz;
  };
  std::vector<Beweglich> Texte();  // the visible texts of the current side
  Beweglich Zeile(int index);
  Beweglich Titel();
  Beweglich Interpret();

  void TextEinrichten(Label& schild);
  void SeiteMalen();
  void FalzeZeigen(const Mass& mass);
  void TextZeigen(const Beweglich& text, const Text& inhalt);
  void Stellen(const Beweglich& text);
  Mass TextMass(const Label& schild) const;
  void Greifen(const Beweglich& text);
  void Ziehen(const Beweglich& text, int taste);
  void Umschalten(Label& schild);
  void Markieren(Label& schild, bool gewaehlt);
  bool Verschieben(int taste);
  Text Beschreibung(const Beweglich& text) const;
  void Sagen();
  // The texts have an opaque background, because the picture behind them was removed.
  bool deckend_ = false;
  Bild& Hintergrundbild() { return picSource.at(static_cast<std::size_t>(TeilDerSeite(Seite))); }

  struct Faktoren {
    double X, Y;
  };
  Faktoren DruckFaktoren() const;
  void SeiteDrucken(int x, int y);
  void BildDrucken(int x, int y);
  void RueckenDrucken(int x, int y);
  void RahmenDrucken(int x, int y);
  void HilfslinienDrucken(int x, int y);
  void SchriftSetzen();

  Rechteck platz_{};     // the part of the window that shows the side
  double massstab_ = 1;  // twips of the window for one twip of the side
  Text gesagt_;          // the words that Text1 shows
};

}  // namespace vantora
