// The second step to a cover: each printed side as it will come out, with its picture and its
// texts, which are moved here; and printing.
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
  void InitLabelPrint();        // takes over what frmPrintStart has left
  void imgBack_MouseUp();       // to frmPrintStart; what was laid out here stays
  void imgAbbrechen_MouseUp();  // to the catalog
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
  // `winkel` in degrees, against the clock.
  static void DrawRotatedText(Device& ziel, const Text& text, double x, double y, int winkel);

  int Seite = kRueckseite;
  int PapierArt = kZentriert;
  int LabelPos = 0;                         // 0 top, 1 bottom
  std::array<Bild, kCoverTeile> picSource;  // the picture of each part, at its own resolution

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  Label lblHilfe{*this, L"lblHilfe"};
  PictureBox Lead1{*this, L"Lead1"};  // has the size in which the side is printed; never shown
  PictureBox Lead2Container{*this, L"Lead2Container"};
  PictureBox Lead2{*this, L"Lead2"};
  ControlArray<PictureBox, 2> picRotText{*this, L"picRotText"};
  ControlArray<Shape, 2> Line1{*this, L"Line1"};  // the folds
  ControlArray<Label, kCoverZeilen> lblBeschriftung{*this, L"lblBeschriftung"};
  Label lblCDTitel{*this, L"lblCDTitel"};
  Label lblInterPret{*this, L"lblInterPret"};
  TextBox Text1{*this, L"Text1"};  // says which text is selected, and where it stands
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

  // A text that can be moved: a line of the titles, or one of the two others.
  struct Beweglich {
    Label& Schild;
    Ort& Platz;
  };
  std::vector<Beweglich> Texte();  // that are in sight, of the present side
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
  bool deckend_ = false;  // the texts hide what lies behind them: a picture was taken away
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

  Rechteck platz_{};     // that the window has for a side
  double massstab_ = 1;  // twips of the window for one of the side
  Text gesagt_;          // in Text1
};

}  // namespace vantora
