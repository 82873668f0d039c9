#include "dialogs/frmExtrasMenue.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "dialogs/frmLoadSave.h"

#include "platform/cd_sound.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kTempi[] = {L"1", L"2", L"4", L"6", L"8"};
constexpr std::int32_t kCDGroesse[] = {74, 80};  // minutes
constexpr double kMeisteMegabyte = 32767;        // highest limit of the undo store
constexpr int kMegabyteStellen = 5;

struct AspiZeile {
  const wchar_t* Schild;
  const wchar_t* Datei;  // in the system directory
};
constexpr AspiZeile kAspi[] = {
    {L"wnaspi32.dll: ", L"wnaspi32.dll"},
    {L"winaspi.dll:  ", L"winaspi.dll"},
    {L"apix.vxd:     ", L"iosubsys/apix.vxd"},
};

// Users may type both kinds of separators; file names in the program have only "\".
Text GetippterOrdner(const TextBox& feld) {
  Text ordner = Trim(feld.Text);
  std::replace(ordner.begin(), ordner.end(), L'/', L'\\');
  return ordner;
}

}  // namespace

frmExtrasMenue::frmExtrasMenue(Programm& programm) : VtrFenster(programm, L"frmExtrasMenue") {
  Knopf(imgOK, [this] { imgOK_MouseUp(); });
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  Knopf(cmdShowOldLog, [this] { cmdShowOldLog_Click(); });
  Knopf(cmdTempDirEdit, [this] { cmdTempDirEdit_Click(); });
  Knopf(cmdWaveDirEdit, [this] { cmdWaveDirEdit_Click(); });
  chkHintergrundBild.Click = [this] { chkHintergrundBild_Click(); };
  cbxAskTrackInfo.Click = [this] { cbxAskTrackInfo_Click(); };
  cbxKatalogCheck.Click = [this] { cbxKatalogCheck_Click(); };
  txtUndoMB.KeyPress = [](int taste) { return NurZiffern(taste); };
  txtUndoMB.MaxLength = kMegabyteStellen;
  tProxyServer.MaxLength = static_cast<int>(decltype(prog.Proxy_Server)::kBreite);
  tProxyPort.MaxLength = static_cast<int>(decltype(prog.Proxy_Port)::kBreite);
  txtTempDir.MaxLength = static_cast<int>(decltype(prog.Temporary_Directory)::kBreite);
  txtWaveDir.MaxLength = static_cast<int>(decltype(prog.Standard_Wave_Name)::kBreite);
}

void frmExtrasMenue::Form_Load() {
  const Text ort = L"Loading";
  FensterEinrichten();
  SetTexte();
  prog.AppLog(ort, L"Loading Extra Sets");
  chk3DAnalyse.Value = prog.Show3DAnalysis ? 1 : 0;
  chkHintergrundBild.Value = prog.BackgroundPic ? 1 : 0;
  chkStartAssistentZeigen.Value = prog.Show_Start_Assistant ? 1 : 0;
  cbxKatalogCheck.Value = prog.Catalog_Check == 1 ? 1 : 0;
  cbxAskTrackInfo.Value = prog.Ask_Track_Info == 1 ? 1 : 0;
  cbxFertigCDinDB.Value = prog.Auto_Database == 1 ? 1 : 0;
  cbxCopySaveDoc.Value = prog.Auto_Save_Log == 1 ? 1 : 0;
  chkUndo.Value = prog.Undo ? 1 : 0;
  txtUndoMB.Text = ZahlText(prog.UndoMB);
  cCDDBaktiv.Value = prog.CDDBactive ? 1 : 0;
  tProxyServer.Text = prog.Proxy_Server.Getrimmt();
  tProxyPort.Text = prog.Proxy_Port.Getrimmt();
  TempoZeigen();
  lblBrennvorgaenge.Caption = LoadResString(7606) + ZahlText(prog.Number_Burned_CD);
  prog.AppLog(ort, L"LastCatalog");
  cbxLastCatLoad.Value = prog.Last_Catalog_Load == 1 ? 1 : 0;
  prog.AppLog(ort, L"Get Temp Folder");
  txtTempDir.Text = prog.Temporary_Directory.Getrimmt();
  txtWaveDir.Text = prog.Wave_Export_Dir;
  prog.AppLog(ort, L"Getting free space on HD");
  PlatzZeigen(kTemp, txtTempDir.Text);
  PlatzZeigen(kWaves, txtWaveDir.Text);
  for (int i = 0; i < lblAspiVersion.Count(); ++i) {
    lblAspiVersion(i).Caption = kAspi[i].Schild + prog.DateiVersion(kAspi[i].Datei);
  }
  optCDGroesse74.SetValue(prog.LängeCD == kCDGroesse[0]);
  optCDGroesse80.SetValue(prog.LängeCD == kCDGroesse[1]);
  prog.plattform.schleife.SetFocus(chkStartAssistentZeigen);
  prog.AppLog(ort, L"End Loading Extras -> Show");
}

void frmExtrasMenue::SetTexte() {
  struct Eintrag {
    Label* Schild;
    int Text;
  };
  Caption = LoadResString(7200);
  for (const Eintrag& eintrag : {
           Eintrag{&lblTitel, 7235},
           {&lblAllgemein, 7216},
           {&lblKatalog, 7222},
           {&lblDatenbank, 7219},
           {&lblCDDB, 7226},
           {&lblProxy, 7210},
           {&lblBrennen, 7213},
           {&lblTempo, 7238},
           {&lblCDGroesse, 7244},
           {&lblOrdner, 7217},
           {&lblTempDir, 7236},
           {&lblWaveDir, 7237},
           {&lblAspi, 7225},
           {&lblPlatz(kTemp), 7212},
           {&lblPlatz(kWaves), 7234},
       }) {
    eintrag.Schild->Caption = LoadResString(eintrag.Text);
  }
  WahlBeschriften();
  KnoepfeBeschriften();
}

void frmExtrasMenue::WahlBeschriften() {
  const auto wahl = [this](auto& feld, int text, int hinweis) {
    feld.Caption = LoadResString(text);
    feld.ToolTipText = LoadResString(hinweis);
  };
  wahl(chkStartAssistentZeigen, 7230, 7407);
  wahl(chkHintergrundBild, 7239, 7423);
  wahl(chk3DAnalyse, 7240, 7424);
  wahl(chkUndo, 7211, 7408);
  wahl(cbxLastCatLoad, 7204, 7405);
  wahl(cbxAskTrackInfo, 7201, 7401);
  wahl(cbxKatalogCheck, 7229, 7404);
  wahl(cbxFertigCDinDB, 7203, 7403);
  wahl(cCDDBaktiv, 7205, 7406);
  wahl(cbxCopySaveDoc, 7202, 7402);
  wahl(optCDGroesse74, 7245, 7427);
  wahl(optCDGroesse80, 7243, 7425);
  const auto eingabe = [this](Control& feld, const Text& name, int hinweis) {
    feld.AccessibleName = name;
    feld.ToolTipText = LoadResString(hinweis);
  };
  eingabe(txtUndoMB, LoadResString(7211), 7421);
  eingabe(tProxyServer, LoadResString(7210), 7419);
  eingabe(tProxyPort, LoadResString(30170), 7418);
  eingabe(cmbWriteSpeed, LoadResString(7238), 4404);
  eingabe(txtTempDir, LoadResString(7236), 7420);
  eingabe(txtWaveDir, LoadResString(7237), 7422);
  lblCDGroesse.ToolTipText = LoadResString(7426);
}

void frmExtrasMenue::KnoepfeBeschriften() {
  const auto knopf = [this](int schild, PictureButton& taste, const Text& text, int hinweis) {
    Beschriften(lblButtCaption(schild), taste, text);
    taste.ToolTipText = LoadResString(hinweis);
  };
  knopf(0, imgOK, LoadResString(7214), 7414);
  knopf(1, imgAbbrechen, LoadResString(7215), 7412);
  knopf(2, cmdShowOldLog, LoadResString(7206) + L" " + LoadResString(7207), 7409);
  knopf(3, cmdTempDirEdit, LoadResString(7208), 7410);
  knopf(4, cmdWaveDirEdit, LoadResString(7209), 7411);
  cmdTempDirEdit.AccessibleName = LoadResString(7208) + L": " + LoadResString(7236);
  cmdWaveDirEdit.AccessibleName = LoadResString(7209) + L": " + LoadResString(7237);
  imgHelp.ToolTipText = LoadResString(7413);
  lblBrennvorgaenge.ToolTipText = LoadResString(7415);
}

// Shows the speeds of the burn window that the writer has; the writer replaces the other speeds.
void frmExtrasMenue::TempoZeigen() {
  Mcd& mcd = prog.plattform.mcd;
  const int bisher = mcd.Speed();
  for (const wchar_t* tempo : kTempi) {
    const int faktor = Ganz32(Val(tempo));
    mcd.Speed(faktor);
    if (mcd.Speed() != faktor && faktor != prog.BrennGeschwindigkeit) continue;
    cmbWriteSpeed.AddItem(tempo);
    if (faktor == prog.BrennGeschwindigkeit) {
      cmbWriteSpeed.ListIndex = cmbWriteSpeed.ListCount() - 1;
    }
  }
  mcd.Speed(bisher);
}

void frmExtrasMenue::PlatzZeigen(Ordner welcher, const Text& ordner) {
  constexpr double kSchritt = 1024;
  constexpr int kBytes = 7601, kGigabytes = 7604;
  const double frei = prog.FreierPlatz(ordner);
  double zahl = frei;
  int einheit = kBytes;
  for (; zahl >= kSchritt && einheit < kGigabytes; ++einheit) zahl /= kSchritt;
  lblPlatzZahl(welcher).Caption = Format(zahl, L"#,##0.00") + L" " + LoadResString(einheit);
  const std::int64_t gesamt = Abgeschnitten(frei / kBytesPerSecond);
  const auto stellen = [](std::int64_t wert, const wchar_t* muster) {
    return Format(static_cast<double>(wert), muster);
  };
  const std::int64_t stunden = gesamt / 3600, minuten = gesamt / 60 % 60, sekunden = gesamt % 60;
  lblDauer(welcher).Caption = LoadResString(7605) + L" = " + stellen(stunden, L"##00") + L":" +
                              stellen(minuten, L"00") + L":" + stellen(sekunden, L"00");
}

// ---- folders ----

// If the folder does not exist, the file dialog chooses where to begin. Blank when cancelled.
Text frmExtrasMenue::OrdnerFragen(const Text& bisher) {
  prog.DialogModus = kModusOeffnen;
  prog.DialogName = L"";
  prog.DialogMuster = L"*";
  prog.DialogPfad = prog.UNCAufLaufwerk(prog.DateiExistiert(bisher) ? bisher : prog.AppPfad);
  prog.GewaehlteDatei.clear();
  prog.DialogAbbruch = false;
  prog.MehrfachAuswahl = false;
  const std::shared_ptr<vantora::frmLoadSave> fenster = prog.frmLoadSave.Laden();
  fenster->LaufwerkSetzen(prog.DialogPfad);
  prog.ZeigeModal(fenster);
  if (prog.DialogAbbruch) return {};
  // A typed name that is no file is taken for a folder, even if the folder does not exist.
  const Text& gewaehlt = prog.GewaehlteDatei;
  const bool getippt = !gewaehlt.empty() && !prog.MehrfachAuswahl && !prog.DateiExistiert(gewaehlt);
  return AddBackslash(getippt ? gewaehlt : prog.DialogPfad);
}

// The path must begin with its drive or share: a blank or relative path would lead to another place
// than the user means.
bool frmExtrasMenue::IstOrdner(const Text& ordner) const {
  const bool ganz = ordner.find(L':') == 1 || ordner.starts_with(L"\\\\");
  return ganz && prog.plattform.dateien.IsDirectory(ordner);
}

Text frmExtrasMenue::OrdnerEinwand(Ordner welcher, const Text& ordner) const {
  constexpr double kMindestens = 10240.0 * 1024;
  const std::size_t laengster = welcher == kTemp ? decltype(prog.Temporary_Directory)::kBreite
                                                 : decltype(prog.Standard_Wave_Name)::kBreite;
  if (prog.plattform.laufwerke.GetDriveType(Links(ordner, 3)) == kDriveCdRom)
    return LoadResString(7004);
  if (!IstOrdner(ordner)) return LoadResString(7006);
  if (prog.FreierPlatz(ordner) < kMindestens) return LoadResString(7005);
  if (ordner.size() > laengster) return LoadResString(30171);
  if (!Beschreibbar(ordner)) return LoadResString(30172);
  return {};
}

bool frmExtrasMenue::Beschreibbar(const Text& ordner) const {
  const Text stamm = AddBackslash(ordner) + L"vantora.";
  Text probe;
  for (int nummer = 1; probe.empty() || prog.DateiExistiert(probe); ++nummer) {
    probe = stamm + ZahlText(nummer);
  }
  return Weiter([&] {
    prog.plattform.dateien.Open(probe, Zugriff::Neu);
    prog.plattform.dateien.Kill(probe);
  });
}

void frmExtrasMenue::OrdnerWaehlen(Ordner welcher) {
  TextBox& feld = welcher == kTemp ? txtTempDir : txtWaveDir;
  const Text ordner = OrdnerFragen(Trim(feld.Text));
  if (ordner.empty()) return;
  if (const Text einwand = OrdnerEinwand(welcher, ordner); !einwand.empty()) {
    prog.MsgBoxen(einwand, kHinweis);
    return;
  }
  feld.Text = ordner;
  OrdnerMerken(welcher, ordner);
  if (welcher == kTemp) {
    SaveSetting(prog.plattform, L"Temporary_Directory", ordner);
  } else {
    prog.LastDirSave();
  }
  PlatzZeigen(welcher, ordner);
}

void frmExtrasMenue::OrdnerMerken(Ordner welcher, const Text& ordner) {
  if (welcher == kTemp) {
    prog.Temporary_Directory = ordner;
    return;
  }
  prog.Wave_Export_Dir = ordner;
  prog.Standard_Wave_Name = ordner;
}

void frmExtrasMenue::cmdTempDirEdit_Click() {
  OrdnerWaehlen(kTemp);
}

void frmExtrasMenue::cmdWaveDirEdit_Click() {
  OrdnerWaehlen(kWaves);
}

// ---- the other controls ----

void frmExtrasMenue::cmdShowOldLog_Click() {
  const Text protokoll = AddBackslash(prog.AppPfad) + LoadResString(4600);
  if (!prog.DateiExistiert(protokoll)) {
    prog.MsgBoxen(LoadResString(30173), kHinweis);
    return;
  }
  Plattform& p = prog.plattform;
  if (!p.system.OpenFile(p.dateien.SystemPath(protokoll))) {
    prog.MsgBoxen(LoadResString(8058), kHinweis);
  }
}

void frmExtrasMenue::chkHintergrundBild_Click() {
  prog.Katalogfenster().Hintergrund(chkHintergrundBild.Value == 1);
}

void frmExtrasMenue::cbxAskTrackInfo_Click() {
  if (cbxAskTrackInfo.Value == 0 || cbxKatalogCheck.Value == 0) return;
  prog.MsgBoxen(LoadResString(7000), kHinweis);
  cbxAskTrackInfo.Value = 0;
}

void frmExtrasMenue::cbxKatalogCheck_Click() {
  if (cbxAskTrackInfo.Value == 0 || cbxKatalogCheck.Value == 0) return;
  prog.MsgBoxen(LoadResString(7000), kHinweis);
  cbxKatalogCheck.Value = 0;
}

// ---- closing the window ----

// A missing folder for temporary files has its own message; otherwise the folders are checked as
// when they are chosen.
bool frmExtrasMenue::GetippteOrdnerGut() {
  const auto ablehnen = [this](TextBox& feld, const Text& grund) {
    prog.MsgBoxen(grund, kHinweis);
    prog.plattform.schleife.SetFocus(feld);
    return false;
  };
  const Text temp = GetippterOrdner(txtTempDir), waves = GetippterOrdner(txtWaveDir);
  if (!IstOrdner(temp)) return ablehnen(txtTempDir, LoadResString(7001));
  if (temp != prog.Temporary_Directory.Getrimmt()) {
    const Text einwand = OrdnerEinwand(kTemp, temp);
    if (!einwand.empty()) return ablehnen(txtTempDir, einwand);
  }
  if (waves != prog.Wave_Export_Dir) {
    const Text einwand = OrdnerEinwand(kWaves, AddBackslash(waves));
    if (!einwand.empty()) return ablehnen(txtWaveDir, einwand);
  }
  return true;
}

void frmExtrasMenue::Uebernehmen() {
  prog.Show3DAnalysis = chk3DAnalyse.Value == 1;
  prog.BackgroundPic = chkHintergrundBild.Value == 1;
  prog.Show_Start_Assistant = chkStartAssistentZeigen.Value == 1;
  prog.Catalog_Check = static_cast<std::int16_t>(cbxKatalogCheck.Value);
  prog.Ask_Track_Info = static_cast<std::int16_t>(cbxAskTrackInfo.Value);
  prog.Last_Catalog_Load = static_cast<std::int16_t>(cbxLastCatLoad.Value);
  prog.Auto_Database = static_cast<std::int16_t>(cbxFertigCDinDB.Value);
  prog.Auto_Save_Log = static_cast<std::int16_t>(cbxCopySaveDoc.Value);
  prog.Undo = chkUndo.Value == 1;
  prog.UndoMB = Ganz16(std::clamp(Val(txtUndoMB.Text), 0.0, kMeisteMegabyte));
  prog.CDDBactive = cCDDBaktiv.Value == 1;
  prog.Proxy_Server = Trim(tProxyServer.Text);
  prog.Proxy_Port = Trim(tProxyPort.Text);
  if (cmbWriteSpeed.ListIndex >= 0) {
    prog.BrennGeschwindigkeit = Ganz16(Val(cmbWriteSpeed.List(cmbWriteSpeed.ListIndex)));
  }
  prog.LängeCD = kCDGroesse[optCDGroesse74.Value() ? 0 : 1];
  OrdnerMerken(kTemp, GetippterOrdner(txtTempDir));
  OrdnerMerken(kWaves, AddBackslash(GetippterOrdner(txtWaveDir)));
}

void frmExtrasMenue::imgOK_MouseUp() {
  if (!GetippteOrdnerGut()) return;
  Uebernehmen();
  prog.LastDirSave();
  prog.SaveExtrasSet();
  prog.frmExtrasMenue.Entladen();
  prog.Katalogfenster().KatalogShow();
}

void frmExtrasMenue::imgAbbrechen_MouseUp() {
  prog.Katalogfenster().Hintergrund(prog.BackgroundPic);
  prog.frmExtrasMenue.Entladen();
}

// Return presses the button that has the focus.
bool frmExtrasMenue::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgAbbrechen_MouseUp();
  return true;
}

}  // namespace vantora
