// The options of the program, its two working folders, and the free space there. Options change
// only with OK; a folder chosen by its button is changed at once.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmExtrasMenue final : public VtrFenster {
 public:
  explicit frmExtrasMenue(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  void WahlBeschriften();
  void KnoepfeBeschriften();
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }
  void imgOK_MouseUp();
  void imgAbbrechen_MouseUp();
  void cmdShowOldLog_Click();
  void cmdTempDirEdit_Click();
  void cmdWaveDirEdit_Click();
  void chkHintergrundBild_Click();
  void cbxAskTrackInfo_Click();
  void cbxKatalogCheck_Click();

  ControlArray<Shape, 6> picPanel{*this, L"picPanel"};
  Label lblTitel{*this, L"lblTitel"};
  // ---- the program ----
  Label lblAllgemein{*this, L"lblAllgemein"};
  CheckBox chkStartAssistentZeigen{*this, L"chkStartAssistentZeigen"};
  CheckBox chkHintergrundBild{*this, L"chkHintergrundBild"};
  CheckBox chk3DAnalyse{*this, L"chk3DAnalyse"};
  CheckBox chkUndo{*this, L"chkUndo"};
  TextBox txtUndoMB{*this, L"txtUndoMB"};
  // ---- the catalog ----
  Label lblKatalog{*this, L"lblKatalog"};
  CheckBox cbxLastCatLoad{*this, L"cbxLastCatLoad"};
  CheckBox cbxAskTrackInfo{*this, L"cbxAskTrackInfo"};
  CheckBox cbxKatalogCheck{*this, L"cbxKatalogCheck"};
  // ---- the databases of CDs: local and on the Internet ----
  Label lblDatenbank{*this, L"lblDatenbank"};
  CheckBox cbxFertigCDinDB{*this, L"cbxFertigCDinDB"};
  Label lblCDDB{*this, L"lblCDDB"};
  CheckBox cCDDBaktiv{*this, L"cCDDBaktiv"};
  Label lblProxy{*this, L"lblProxy"};
  TextBox tProxyServer{*this, L"tProxyServer"};
  TextBox tProxyPort{*this, L"tProxyPort"};
  // ---- burning ----
  Label lblBrennen{*this, L"lblBrennen"};
  Label lblTempo{*this, L"lblTempo"};
  ComboBox cmbWriteSpeed{*this, L"cmbWriteSpeed"};
  Label lblCDGroesse{*this, L"lblCDGroesse"};
  OptionButton optCDGroesse74{*this, L"optCDGroesse74", -1, 1};
  OptionButton optCDGroesse80{*this, L"optCDGroesse80", -1, 1};
  CheckBox cbxCopySaveDoc{*this, L"cbxCopySaveDoc"};
  Label lblBrennvorgaenge{*this, L"lblBrennvorgaenge"};
  PictureButton cmdShowOldLog{*this, L"cmdShowOldLog"};
  // ---- folders ----
  Label lblOrdner{*this, L"lblOrdner"};
  Label lblTempDir{*this, L"lblTempDir"};
  TextBox txtTempDir{*this, L"txtTempDir"};
  PictureButton cmdTempDirEdit{*this, L"cmdTempDirEdit"};
  Label lblWaveDir{*this, L"lblWaveDir"};
  TextBox txtWaveDir{*this, L"txtWaveDir"};
  PictureButton cmdWaveDirEdit{*this, L"cmdWaveDirEdit"};
  // Free space of the folder for temporary files (0) and of the folder for waves (1).
  ControlArray<Label, 2> lblPlatz{*this, L"lblPlatz"};
  ControlArray<Label, 2> lblPlatzZahl{*this, L"lblPlatzZahl"};
  ControlArray<Label, 2> lblDauer{*this, L"lblDauer"};
  // ---- the components that access the drives ----
  Label lblAspi{*this, L"lblAspi"};
  ControlArray<Label, 3> lblAspiVersion{*this, L"lblAspiVersion"};

  PictureButton imgOK{*this, L"imgOK"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 5> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  enum Ordner : int { kTemp, kWaves };
  void TempoZeigen();
  void PlatzZeigen(Ordner welcher, const Text& ordner);
  Text OrdnerFragen(const Text& bisher);
  void OrdnerWaehlen(Ordner welcher);
  void OrdnerMerken(Ordner welcher, const Text& ordner);
  bool IstOrdner(const Text& ordner) const;
  // Returns the reason why a folder cannot be used, as a text; blank when it can.
  Text OrdnerEinwand(Ordner welcher, const Text& ordner) const;
  bool Beschreibbar(const Text& ordner) const;
  bool GetippteOrdnerGut();
  void Uebernehmen();
};

}  // namespace vantora
