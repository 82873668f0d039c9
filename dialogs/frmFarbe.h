// The dialog for a colour: one from a field of colours, or any other by its shares of red, green
// and blue. It begins with a given colour and holds the chosen one.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmFarbe final : public VtrFenster {
 public:
  explicit frmFarbe(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { pbButton_MouseUp(1); }

  void Beginnen(const Text& titel, Color farbe);  // a blank title stands for the dialog's own
  bool Gewaehlt = false;                          // set by OK
  Color Wahl() const;

  void picFelder_MouseDown();
  void picFelder_KeyDown(int taste);
  void sldAnteil_Change(int index);
  void txtAnteil_Change(int index);
  void pbButton_MouseUp(int index);  // 0 OK, 1 cancel

  Label lblTitel{*this, L"lblTitel"};
  Label lblFelder{*this, L"lblFelder"};
  PictureBox picFelder{*this, L"picFelder"};
  ControlArray<Label, 3> lblAnteil{*this, L"lblAnteil"};
  ControlArray<Slider, 3> sldAnteil{*this, L"sldAnteil"};
  ControlArray<TextBox, 3> txtAnteil{*this, L"txtAnteil"};
  Label lblMuster{*this, L"lblMuster"};
  Shape shpMuster{*this, L"shpMuster"};
  ControlArray<PictureButton, 2> pbButton{*this, L"pbButton"};
  ControlArray<Label, 2> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  void Setzen(Color farbe);
  void FeldWaehlen(int feld);
  void FelderZeichnen();
  void MusterZeigen();

  int feld_ = -1;        // index in the field, row by row; -1 if the field lacks this colour
  bool stellt_ = false;  // the program sets the controls, so their events are ignored
};

}  // namespace vantora
