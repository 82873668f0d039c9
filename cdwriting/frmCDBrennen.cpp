#include "cdwriting/frmCDBrennen.h"

#include "app/einstellungen.h"
#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdwriting/pausen.h"

namespace vantora {

namespace {

constexpr int kPuffer = 200;
constexpr int kGeduld = 50;
constexpr int kErsterTyp = 1, kLetzterTyp = 99, kTypMitDAO = 10;
constexpr Color kTafel = Rgb(53, 55, 99);
constexpr const wchar_t* kTempo[] = {L"1", L"2", L"4", L"6", L"8"};
constexpr int kAbschiedMs = 1500;
constexpr int kSpaltenRand = 75;  // twips between the edge of a column and its words

Text FlaggeText(bool flagge) {
  return flagge ? L"True" : L"False";
}

}  // namespace

frmCDBrennen::frmCDBrennen(Programm& programm) : VtrFenster(programm, L"frmCDBrennen") {
  Knopf(imgBrennen, [this] { imgBrennen_MouseUp(); });
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  lstCDRecorder.Click = [this] { lstCDRecorder_Click(); };
  for (int i = 0; i < optBurnSpeed.Count(); ++i) optBurnSpeed(i).Tag = kTempo[i];
  txtKopienAnzahl.KeyPress = [](int taste) { return NurZiffern(taste); };
  txtKopienAnzahl.LostFocus = [this] { txtKopienAnzahl_LostFocus(); };
  txtKopienAnzahl.MaxLength = 4;
}

void frmCDBrennen::Form_Load() {
  FensterEinrichten();
  for (int i = 0; i < lblKopf.Count(); ++i) {
    lstCDRecorder.TabStops.push_back(lblKopf(i).Left - lstCDRecorder.Left - kSpaltenRand);
  }
  bool gefunden = false;
  const bool geladen = Weiter([&] {
    lstCDRecorder.Clear();
    SetTexte();
    LadeBrennOptionen();
    AblageZeigen();
    gefunden = Init_Brenner();
    for (int i = 0; i < picPanel.Count(); ++i) picPanel(i).FillColor = kTafel;
  });
  if (!geladen) return;
  if (gefunden) {
    prog.BrennerFensterGeschlossen = false;
    prog.BrennerFensterGeladen = true;
    return;
  }
  prog.AppLog(L"Loading CDBurner", L"Error Init.");
  if (prog.Katalogfenster().Sichtbar()) {
    prog.Katalogfenster().FreiSetzen(true);
    prog.Katalogfenster().FokusAufListe();
  }
  prog.BrennerBereit = false;
  if (Visible()) prog.plattform.schleife.Hide(*this);
  prog.MsgBoxen(LoadResString(4000) + kZeilenEnde + LoadResString(4001), kStopp);
}

void frmCDBrennen::SetTexte() {
  Caption = LoadResString(4210);
  lblTitel.Caption = LoadResString(8216);
  lblHinweis.Caption = LoadResString(4207);
  lblRecorder.Caption = LoadResString(4213);
  for (int i = 0; i < lblKopf.Count(); ++i) lblKopf(i).Caption = LoadResString(30060 + i);
  lblMethode.Caption = LoadResString(4208);
  lblGeschwindigkeit.Caption = LoadResString(4209);
  lblKopien.Caption = LoadResString(4212);
  lstCDRecorder.AccessibleName = lblRecorder.Caption;
  txtKopienAnzahl.AccessibleName = lblKopien.Caption;
  lblStatusBurner.Caption = LoadResString(4214);
  optTrackAtOnce.Caption = LoadResString(4205);
  optDiscAtOnce.Caption = LoadResString(4206);
  for (int i = 0; i < optBurnSpeed.Count(); ++i) {
    optBurnSpeed(i).Caption = i < 4 ? LoadResString(4201 + i) : L"8x";
    optBurnSpeed(i).ToolTipText = LoadResString(4404);
  }
  chkSimulation.Caption = LoadResString(4200);
  Beschriften(lblButtCaption(0), imgBrennen, LoadResString(4210));
  Beschriften(lblButtCaption(1), imgAbbrechen, LoadResString(4211));
  const auto hinweis = [this](Control& control, int nummer) {
    control.ToolTipText = LoadResString(nummer);
  };
  hinweis(lstCDRecorder, 4400);
  hinweis(lblHinweis, 4401);
  hinweis(optTrackAtOnce, 4402);
  hinweis(optDiscAtOnce, 4403);
  hinweis(chkSimulation, 4405);
  hinweis(txtKopienAnzahl, 4406);
  hinweis(lblStatusBurner, 4407);
  hinweis(imgAbbrechen, 4408);
  hinweis(imgBrennen, 4409);
  hinweis(imgHelp, 4410);
}

// The methods are saved as words, and the words read as the number 0. So after a first burn neither
// method is chosen here, and the catalog decides.
void frmCDBrennen::LadeBrennOptionen() {
  Plattform& p = prog.plattform;
  for (int i = 0; i < optBurnSpeed.Count(); ++i) {
    optBurnSpeed(i).SetValue(Val(optBurnSpeed(i).Tag) == prog.BrennGeschwindigkeit);
  }
  optDiscAtOnce.SetValue(GetZahl(p, L"WriteDAO", L"0") != 0);
  optTrackAtOnce.SetValue(GetZahl(p, L"WriteTAO", L"0") != 0);
  txtKopienAnzahl.Text = ZahlText(GetZahl(p, L"Copies", L"1"));
  prog.ZeigeTAOHinweis = GetZahl(p, L"Show_TAO_Message", L"1") != 0;
}

bool frmCDBrennen::Init_Brenner() {
  const Text ort = L"Init_Brenner";
  Mcd& mcd = prog.plattform.mcd;
  mcd.BufferSize(kPuffer);
  prog.AppLog(ort, L"Init_Prog");
  if (mcd.Init_Prog() > 0) {
    prog.AppLog(ort, L"ASPI Error");
    prog.MsgBoxen(LoadResString(4003) + kZeilenEnde, kStopp);
    return false;
  }
  mcd.TimeOut(kGeduld);
  lstCDRecorder.Clear();
  geraete_.clear();
  const int anzahl = mcd.BurnerCount();
  prog.AppLog(ort, L"BurnerCount:" + ZahlText(anzahl));
  for (int i = 0; i < anzahl; ++i) BrennerAufnehmen(i);
  if (lstCDRecorder.ListCount() == 0) {
    prog.MsgBoxen(LoadResString(4004), kStopp);
    return false;
  }
  lstCDRecorder.ListIndex = 0;
  BrennerWaehlen();
  SetBurnerParameter();
  prog.BrennerBereit = true;
  return true;
}

void frmCDBrennen::BrennerAufnehmen(int index) {
  const Text ort = L"Init_Brenner";
  Mcd& mcd = prog.plattform.mcd;
  mcd.SelectBurner(index);
  const int typ = mcd.DetermineDrive();
  prog.AppLog(ort, L"fnc Determine Drive : " + ZahlText(typ));
  const Text beschreibung = mcd.GetDescription(index);
  prog.AppLog(ort, L"fnc GetDescription : " + beschreibung);
  if (typ >= kErsterTyp && typ <= kLetzterTyp) {
    mcd.SetDriveType(typ);
    lstCDRecorder.AddItem(beschreibung);
    lstCDRecorder.SetNote(lstCDRecorder.ListCount() - 1,
                          LoadResString(mcd.MakesFiles(index) ? 30066 : 30065));
    geraete_.push_back(index);
    prog.AppLog(ort, L"AddBurner:" + beschreibung + L" IC:" + ZahlText(index));
  }
  bool dao = false;
  if (typ == kTypMitDAO) {
    dao = mcd.CanDAO();
    prog.AppLog(L"SetBurnerParameter", L"Can DAO? :" + FlaggeText(dao));
    prog.AppLog(L"SetBurnerParameter", L"CanRAW:not available");
  }
  optDiscAtOnce.Enabled = dao;
  if (!dao) optTrackAtOnce.SetValue(true);
}

void frmCDBrennen::AblageZeigen() {
  const Text bild = prog.plattform.mcd.LastImage();
  const bool da = !bild.empty() && prog.DateiExistiert(bild);
  lblAblage.Caption = da ? LoadResString(30067) + bild : Text();
}

// Every pass of a burn looks for the devices again and takes the first, so the chosen device is
// made the first.
void frmCDBrennen::lstCDRecorder_Click() {
  BrennerWaehlen();
  const int index = Geraet(lstCDRecorder.ListIndex);
  if (index >= 0) prog.plattform.mcd.PreferBurner(index);
}

void frmCDBrennen::BrennerWaehlen() {
  const int index = Geraet(lstCDRecorder.ListIndex);
  if (index >= 0) prog.plattform.mcd.SelectBurner(index);
}

int frmCDBrennen::Geraet(int zeile) const {
  const auto platz = static_cast<std::size_t>(zeile);
  return zeile >= 0 && platz < geraete_.size() ? geraete_[platz] : -1;
}

void frmCDBrennen::SetBurnerParameter() {
  const Text ort = L"SetBurnerParameter";
  Mcd& mcd = prog.plattform.mcd;
  prog.AppLog(ort, L"Set TestMode :" + ZahlText(chkSimulation.Value));
  mcd.TestMode(chkSimulation.Value == 1);
  Simulation = chkSimulation.Value != 0;
  mcd.Eject(false);
  mcd.Fixate(!Simulation);
  mcd.VerifyDiscs(GetZahl(prog.plattform, L"Verify_Burn", L"0") == 1);
  prog.AppLog(ort, L"Set Simulation :" + FlaggeText(Simulation));
  for (int i = 0; i < optBurnSpeed.Count(); ++i) {
    if (!optBurnSpeed(i).Value()) continue;
    mcd.Speed(Ganz32(Val(optBurnSpeed(i).Tag)));
    prog.BrennGeschwindigkeit = Ganz16(mcd.Speed());
  }
  prog.AppLog(ort, L"Set Speed :" + ZahlText(prog.BrennGeschwindigkeit));
  if (Simulation) txtKopienAnzahl.Text = L"1";
}

bool frmCDBrennen::NumCDWriter() const {
  for (int i = 0; i < lstCDRecorder.ListCount(); ++i) {
    if (lstCDRecorder.Selected(i)) return true;
  }
  return false;
}

void frmCDBrennen::CloseMe() {
  EventLoop& schleife = prog.plattform.schleife;
  prog.BrennerFensterGeschlossen = true;
  Window.Enabled = false;  // until this window is gone, nothing else can be pressed
  Zeiger(L"hourglas.ani");
  schleife.DoEvents();
  schleife.MousePointer(Pointer::Hourglass);
  prog.Pausieren(kAbschiedMs);
  prog.Katalogfenster().FreiSetzen(true);
  Window.Enabled = true;
  schleife.Hide(*this);
  prog.Katalogfenster().FokusAufListe();
  schleife.MousePointer(Pointer::Normal);
}

void frmCDBrennen::imgAbbrechen_MouseUp() {
  KnopfBild(imgAbbrechen);
  CloseMe();
}

bool frmCDBrennen::Form_KeyDown(int taste, bool strg) {
  if (taste == kKeyEscape) {
    imgAbbrechen_MouseUp();
    return true;
  }
  return VtrFenster::Form_KeyDown(taste, strg);
}

void frmCDBrennen::txtKopienAnzahl_LostFocus() {
  if (Trim(txtKopienAnzahl.Text).empty()) txtKopienAnzahl.Text = ZahlText(1);
}

void frmCDBrennen::imgBrennen_MouseUp() {
  KnopfBild(imgBrennen);
  prog.AppLog(L"imgBrenner_MouseUp", L"Start burning CD");
  txtKopienAnzahl_LostFocus();
  if (!NumCDWriter()) {
    prog.MsgBoxen(LoadResString(4002), kOk);
    return;
  }
  if (optDiscAtOnce.Value() && chkSimulation.Value == 0) PausenAnhaengen(prog);
  if (optTrackAtOnce.Value() && prog.ZeigeTAOHinweis) {
    const int antwort = prog.MsgBoxen(LoadResString(4021), kJaNein, LoadResString(0), true);
    if (antwort == kNein) return;
  }
  SaveSetting(prog.plattform, L"Show_TAO_Message", FlaggeText(prog.ZeigeTAOHinweis));
  BurnCD();
}

}  // namespace vantora
