// The options of the program, and the two folders that it works in, with the room that is left
// there. Options change with OK alone; a folder that was chosen by its button counts at once.
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
  // ---- the database of CDs, here and in the net ----
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
  // Of the folder for temporary files, then of the one for waves.
  ControlArray<Label, 2> lblPlatz{*this, L"lblPlatz"};
  ControlArray<Label, 2> lblPlatzZahl{*this, L"lblPlatzZahl"};
  ControlArray<Label, 2> lblDauer{*this, L"lblDauer"};
  // ---- the parts that the drives are reached with ----
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
  // What keeps a folder from being used, as a text; blank for none.
  Text OrdnerEinwand(Ordner welcher, const Text& ordner) const;
  bool Beschreibbar(const Text& ordner) const;
  bool GetippteOrdnerGut();
  void Uebernehmen();
};

}  // namespace vantora
