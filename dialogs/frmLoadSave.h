// The program's own file dialog: drives, folders, files and a name. The dialog fields of the
// program hold the request and the result.
#pragma once

#include "app/fenster.h"
#include "dialogs/klang_laengen.h"

namespace vantora {

class frmLoadSave final : public VtrFenster {
 public:
  explicit frmLoadSave(Programm& programm);

  void Form_Load() override;
  void Form_Unload() override;
  void Form_Activate() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { pbButton_MouseUp(2); }

  // Chooses the drive of a path; an unknown letter changes nothing.
  void LaufwerkSetzen(const Text& pfad);
  void pbButton_MouseUp(int index);  // 0 preview, 1 OK, 2 cancel
  void cbxLaufwerk_Click();
  void lstVerzeichnis_DblClick();
  void lstDatei_Click();

  Label lblTitel{*this, L"lblTitel"};
  Label lblLaufwerk{*this, L"lblLaufwerk"};
  ComboBox cbxLaufwerk{*this, L"cbxLaufwerk"};
  Label lblVerzeichnis{*this, L"lblVerzeichnis"};
  ListBox lstVerzeichnis{*this, L"lstVerzeichnis"};
  Label lblDatei{*this, L"lblDatei"};
  Label lblAuswahl{*this, L"lblAuswahl"};
  ListBox lstDatei{*this, L"lstDatei"};
  Label lblName{*this, L"lblName"};
  TextBox txtDateiName{*this, L"txtDateiName"};
  Label lblPfad{*this, L"lblPfad"};
  ControlArray<PictureButton, 3> pbButton{*this, L"pbButton"};
  ControlArray<Label, 3> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Timer tmrLaenge{*this, L"tmrLaenge"};

 private:
  void Oeffne(const Text& verzeichnis);
  void VerzeichnisseZeigen();
  void DateienZeigen();
  void Uebernehmen();
  void Abbrechen();
  void Vorhoeren();
  bool OrdnerGetippt();
  std::vector<Text> Gewaehlte() const;
  bool NamenGueltig(const std::vector<Text>& namen) const;
  Text Voll(const Text& name) const;  // the name with its folder

  std::vector<Text> Markierte() const;  // the names of the selected files
  bool NurZaehlen() const;              // the files have no length
  void AuswahlZeigen();
  void tmrLaenge_Timer();  // measures one more selected file

  KlangLaengen laengen_;
  Text verzeichnis_;  // with a backslash at the end
  bool aktiviert_ = false;
};

}  // namespace vantora
