// The dialog before a print: the printer, the file for a PDF, and the copies for paper. It also
// shows the paper in the printer.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmDrucken final : public VtrFenster {
 public:
  explicit frmDrucken(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { pbButton_MouseUp(1); }

  bool Gewaehlt = false;  // set by OK; the printer object is then set as well

  void cbxDrucker_Click();
  void pbButton_MouseUp(int index);  // 0 OK, 1 cancel, 2 another file

  Label lblTitel{*this, L"lblTitel"};
  Label lblDrucker{*this, L"lblDrucker"};
  ComboBox cbxDrucker{*this, L"cbxDrucker"};
  Label lblPapier{*this, L"lblPapier"};
  Label lblPapierName{*this, L"lblPapierName"};
  Label lblDatei{*this, L"lblDatei"};
  TextBox txtDatei{*this, L"txtDatei"};
  Label lblKopien{*this, L"lblKopien"};
  TextBox txtKopien{*this, L"txtKopien"};
  ControlArray<PictureButton, 3> pbButton{*this, L"pbButton"};
  ControlArray<Label, 3> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  bool InDatei() const;
  Text Vorschlag() const;
  bool DateiBestaetigt();
  bool KopienGueltig();
  void AndereDatei();
  void Uebernehmen();
};

}  // namespace vantora
