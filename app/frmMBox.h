// The message box: one text, one or two buttons, and on request a check box that switches the
// message off.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmMBox final : public VtrFenster {
 public:
  explicit frmMBox(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { picMboxButton_MouseUp(1); }

  // `flags` chooses buttons and icon; an unknown value leaves them unchanged.
  void Vorbereiten(const Text& text, int flags, const Text& titel, bool nichtMehrZeigen);
  void picMboxButton_MouseUp(int index);

  Label lblMbTitel{*this, L"lblMbTitel"};
  PictureButton imgBoxType{*this, L"imgBoxType"};
  Label lblMbMeldung{*this, L"lblMbMeldung"};
  CheckBox cbxNotShow{*this, L"cbxNotShow"};
  TextBox txtEingabe{*this, L"txtEingabe"};
  ControlArray<PictureButton, 3> picMboxButton{*this, L"picMboxButton"};
  ControlArray<Label, 3> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  void KnopfZeigen(int index, bool sichtbar);
  int ZeilenVon(const Text& text) const;
  void HoeheAnpassen();
  // Opens the help page of the window behind, because the message is about that window.
  void HilfeZeigen();

  Text dahinter_;  // name of the window behind; blank when there is none
};

}  // namespace vantora
