#include "recorder/frmAufnehmen.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kUmdrehMs = 15000;
constexpr int kStatusMs = 500;
constexpr int kLeerlaufStatusMs = 1000;
constexpr int kPegelMs = 150;
constexpr std::int32_t kMultiSchwelle = 2000;
// Percent; close to the default for several takes.
constexpr const wchar_t* kUeblicheSchwelle = L"6";
constexpr int kErsterTipp = 2605, kLetzterTipp = 2609;

}  // namespace

frmAufnehmen::frmAufnehmen(Programm& programm) : VtrFenster(programm, L"frmAufnehmen") {
  tmrUmdrehen.Enabled = false;
  tmrUmdrehen.Interval = kUmdrehMs;
  tmrStatus.Enabled = false;
  tmrStatus.Interval = kStatusMs;
  tmrAutoRecord.Enabled = false;
  tmrAutoRecord.Interval = kPegelMs;
  tmrUmdrehen.OnTimer = [this] { tmrUmdrehen_Timer(); };
  tmrStatus.OnTimer = [this] { tmrStatus_Timer(); };
  tmrAutoRecord.OnTimer = [this] { tmrAutoRecord_Timer(); };
  Knopf(imgNeueAufnahme, [this] { imgNeueAufnahme_MouseUp(); });
  Knopf(imgAufnehmen, [this] { imgAufnehmen_MouseUp(); });
  imgRecordStop.MouseUp = [this](int taste) { imgRecordStop_MouseUp(taste); };
  Knopf(imgAufnahmeWiedergeben, [this] { imgAufnahmeWiedergeben_MouseUp(); });
  Knopf(imgOkay, [this] { imgOkay_MouseUp(); });
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  Knopf(imgTipp(0), [this] { TippZeigen(tipp_ - 1); });
  Knopf(imgTipp(1), [this] { TippZeigen(tipp_ + 1); });
  for (int i = 0; i < optInput.Count(); ++i) {
    optInput(i).Click = [this, i] { optInput_Click(i); };
    lbInputCaption(i).Click = [this, i] { lbInputCaption_Click(i); };
  }
  optAuto.Click = [this] { optAuto_Click(); };
  optManuell.Click = [this] { optManuell_Click(); };
  for (int i = 0; i < imgSliderKnopf.Count(); ++i) {
    imgSliderKnopf(i).Vertical = true;
    imgSliderKnopf(i).Upwards = true;
    imgSliderKnopf(i).Change = [this, i] { imgSliderKnopf_Change(i); };
  }
  imgSliderKnopf(1).Min = 1;
  imgSliderKnopf(1).Max = 10;
  imgSliderKnopf(2).Min = 1;
  imgSliderKnopf(2).Max = 99;
  for (TextBox* feld : {&txtMinPause, &txtMaxVolume}) {
    feld->MaxLength = 2;
    feld->KeyPress = [](int taste) { return NurZiffern(taste); };
  }
  txtMinPause.LostFocus = [this] { txtMinPause_LostFocus(); };
  txtMaxVolume.LostFocus = [this] { txtMaxVolume_LostFocus(); };
  txtMinPause.Change = [this] {
    if (!Trim(txtMinPause.Text).empty()) txtMinPause_LostFocus();
  };
  txtMaxVolume.Change = [this] {
    if (!Trim(txtMaxVolume.Text).empty()) txtMaxVolume_LostFocus();
  };
  cbxMultiTrack.Click = [this] { cbxMultiTrack_Click(); };
  lvwAufnehmen.ItemClick = [this](int zeile) { lvwAufnehmen_ItemClick(zeile); };
  lvwAufnehmen.DblClick = [this] { lvwAufnehmen_DblClick(); };
  lvwAufnehmen.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) lvwAufnehmen_DblClick();
  };
  Verdrahten();
}

// Each buffer passes from the input through the level meter and the connector into the take's file.
void frmAufnehmen::Verdrahten() {
  MMTools& tools = prog.plattform.mmtools;
  WaveIn = tools.NewWaveIn();
  Peak = tools.NewPeakDetect();
  MMConnectorX1 = tools.NewConnector();
  WaveOUt = tools.NewWaveFileX();
  WaveOUt->Wave.FileMustExist = false;
  MMConnectorX1->EnterIdle = true;
  Peak->SetInput(WaveIn.get());
  MMConnectorX1->SetInput(Peak.get());
  WaveOUt->SetInput(MMConnectorX1.get());
  MMConnectorX1->Speed = 0;
  MMConnectorX1->OnLevel = [this](int links, int rechts) { BalkenZeigen(links, rechts); };
  MMConnectorX1->OnTrigger = [this] { MMConnectorX1_OnTrigger(); };
  WaveIn->OnOverrun = [this](std::int64_t ms) { Verlust(ms); };
  WaveIn->OnError = [this](const Laufzeitfehler& fehler) { TakeAbbrechen(FehlerText(fehler)); };
  WaveIn->OnLost = [this] { EingangVerloren(); };
}

void frmAufnehmen::Form_Load() {
  FensterEinrichten();
  SetTexte();
  cbxAutoTrennen.Value = GetZahl16(prog.plattform, L"AutoCut", L"0") != 0 ? 1 : 0;
  cbxPauseAus.Value = GetZahl16(prog.plattform, L"Pauseoff", L"0") != 0 ? 1 : 0;
  cbxAutoTrennen.Enabled = false;
  cbxPauseAus.Enabled = false;
  const Text pause = Trim(GetSetting(prog.plattform, L"MinPauseLength", L"2"));
  txtMinPause.Text = Weiter([&] { Val(pause); }) ? pause : Text(L"2");  // a number without bounds
  txtMaxVolume.Text = Text(kUeblicheSchwelle);
  txtMinPause_LostFocus();
  txtMaxVolume_LostFocus();
  Level1.Shown = Ears::Left;
  Level2.Shown = Ears::Right;
  lblPausenzeit.Visible = false;
  lblAufnahme.Visible = false;
  imgAufnahmeBild.Picture = Text();
  imgAufnahmeBild.State = Lamp::Off;
  optManuell.SetValue(true);
  TippZeigen(0);
}

// Player and input stop with the window, in whichever way it is closed.
void frmAufnehmen::Form_Unload() {
  for (Timer* uhr : {&tmrAutoRecord, &tmrStatus, &tmrUmdrehen}) uhr->Enabled = false;
  WaveIn->Stop();
  WaveIn->Close();
  Weiter([&] { WaveOUt->Wave.Close(); });
  wach_.reset();
}

void frmAufnehmen::SetTexte() {
  const struct {
    Label& Schild;
    int Text;
  } schilder[] = {
      {lblTitel, 2020},     {lblEingang, 2024},    {lblSlider(0), 2023}, {lblSlider(1), 2034},
      {lblSlider(2), 2015}, {lblEinheit(0), 2022}, {lblSeite(0), 30105}, {lblSeite(1), 30106},
      {lblLED, 30107},      {lblFeld(0), 30108},   {lblFeld(1), 30109},  {lblAufnahmeArt, 2029},
      {lblPlatz, 2030},     {lblStatus, 2031},     {lblAufnahme, 2029},  {lblTippTitel, 2620},
  };
  Caption = LoadResString(2020);
  for (const auto& s : schilder) s.Schild.Caption = LoadResString(s.Text);
  lblEinheit(1).Caption = L"%";
  optAuto.Caption = LoadResString(2025);
  optManuell.Caption = LoadResString(2026);
  cbxMultiTrack.Caption = LoadResString(2048);
  cbxAutoTrennen.Caption = LoadResString(2027);
  cbxPauseAus.Caption = LoadResString(2028);
  lblRecZeit.Caption = HMSFText(0, 0, 0, 0);
  lblRecSize.Caption = Format(0, L"0.00");
  for (Label* leer : {&lblPausenzeit, &lbldb, &lblMB, &lblMinuten, &lblStatusanzeige}) {
    leer->Caption = L"";
  }
  for (int i = 0; i < lbInputCaption.Count(); ++i) lbInputCaption(i).Caption = L"";
  for (int i = 0; i < optInput.Count(); ++i) optInput(i).Caption = L"";
  lvwAufnehmen.SetColumns(
      {{LoadResString(2052), 480}, {LoadResString(2053), 1500}, {LoadResString(2054), 1440}});
  Beschriften(lblButtCaption(0), imgOkay, LoadResString(2033));
  Beschriften(lblButtCaption(1), imgAbbrechen, LoadResString(2032));
  Beschriften(lblButtCaption(2), imgAufnehmen, LoadResString(2047));
  imgTipp(0).AccessibleName = LoadResString(30110);
  imgTipp(1).AccessibleName = LoadResString(30111);
  Beschriften(lblTippKnopf(0), imgTipp(0), L"<<");
  Beschriften(lblTippKnopf(1), imgTipp(1), L">>");
  HinweiseSetzen();
}

// A control without a caption gets its hint as its name for screen readers. The labels of time and
// size keep their captions as names, because a screen reader must read the values.
void frmAufnehmen::HinweiseSetzen() {
  const struct {
    Control& Feld;
    int Text;
  } hinweise[] = {
      {lvwAufnehmen, 2000},
      {imgNeueAufnahme, 2003},
      {imgAufnahmeWiedergeben, 2004},
      {imgAufnehmen, 2005},
      {imgRecordStop, 2006},
      {optAuto, 2008},
      {optManuell, 2009},
      {imgSliderKnopf(0), 2010},
      {imgSliderKnopf(1), 2011},
      {imgSliderKnopf(2), 2012},
      {txtMinPause, 2014},
      {txtMaxVolume, 2015},
      {cbxMultiTrack, 2049},
      {cbxAutoTrennen, 2021},
      {cbxPauseAus, 2028},
      {Level1, 2050},
      {Level2, 2051},
      {gauFreeHD, 2016},
      {imgAbbrechen, 2017},
      {imgOkay, 2018},
      {imgHelp, 2019},
      {imgTipp(0), 30110},
      {imgTipp(1), 30111},
  };
  for (const auto& h : hinweise) {
    h.Feld.ToolTipText = LoadResString(h.Text);
    if (h.Feld.AccessibleName().empty()) h.Feld.AccessibleName = LoadResString(h.Text);
  }
  imgAufnahmeBild.AccessibleName = LoadResString(2029);
  lblRecZeit.ToolTipText = LoadResString(2001);
  lblRecSize.ToolTipText = LoadResString(2002);
  for (int i = 0; i < optInput.Count(); ++i) optInput(i).ToolTipText = LoadResString(2007);
}

// Asks for the kind of recording, shows the window and opens the input, so that the meters move
// before any recording.
void frmAufnehmen::Init_Aufnehmen() {
  MultiTrack = prog.LPModus != 0;
  MaxPegel = GetZahl(prog.plattform, L"MaxPegel", L"4");
  MaxPegel = Pegelautomatik::kGrenze;
  EingaengeZeigen();
  if (MultiTrack || prog.MsgBoxen(LoadResString(2044), kJaNein) == kJa) {
    cbxMultiTrack.Value = 1;
    cbxMultiTrack_Click();
  } else {
    cbxMultiTrack.Value = 0;
    imgNeueAufnahme.Picture = imgNeueAufnahme.PicturePressed;
  }
  prog.Zeigen(*this);
  tmrStatus.Interval = kLeerlaufStatusMs;
  tmrStatus.Enabled = true;
  if (MultiTrack) {
    Pegelschwelle = kMultiSchwelle;
    Wartet = false;
  }
  schwelleAus_ = txtMaxVolume.Text;
  SchwelleZeigen();
  Level1.Active = true;
  Level2.Active = true;
  imgRecordStop_MouseUp(kLeftButton);
  tmrStatus_Timer();
  lblStatusanzeige.Caption = L"";
  prog.plattform.schleife.SetFocus(imgAufnehmen);
}

void frmAufnehmen::TippZeigen(int schritt) {
  tipp_ = std::clamp(schritt, 0, kLetzterTipp - kErsterTipp);
  lblTipp.Caption = LoadResString(kErsterTipp + tipp_);
  imgTipp(0).Enabled = tipp_ > 0;
  imgTipp(1).Enabled = tipp_ < kLetzterTipp - kErsterTipp;
}

bool frmAufnehmen::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  if (imgAbbrechen.Enabled) imgAbbrechen_MouseUp();
  return true;
}

void frmAufnehmen::Melden(const Text& text) {
  Programm& programm = prog;
  prog.plattform.schleife.Post([&programm, text] {
    programm.plattform.schleife.MousePointer(Pointer::Normal);
    programm.MsgBoxen(text, kHinweis);
  });
}

Text frmAufnehmen::FehlerText(const Laufzeitfehler& fehler) const {
  if (fehler.Nummer == kFehlerPlattenVoll) return LoadResString(2043);
  const Text grund = fehler.Grund.empty() ? L"" : kZeilenEnde + fehler.Grund;
  return LoadResString(30102) + kZeilenEnde + fehler.Beschreibung + grund;
}

// The computer must not sleep during a take or while the next one is awaited.
void frmAufnehmen::WachBleiben() {
  const bool noetig = NimmtAuf || Sitzung;
  if (!noetig) wach_.reset();
  if (noetig && !wach_) wach_ = prog.plattform.wachhalter.Inhibit(LoadResString(2020));
}

void frmAufnehmen::CloseMe() {
  SaveSettings(prog.plattform, {{L"MinPauseLength", txtMinPause.Text},
                                {L"MaxVolume", txtMaxVolume.Text},
                                {L"AutoCut", ZahlText(cbxAutoTrennen.Value())},
                                {L"Pauseoff", ZahlText(cbxPauseAus.Value())}});
  prog.Katalogfenster().PlayWaveNormal(L"");
  tmrAutoRecord.Enabled = false;
  prog.Katalogfenster().FreiSetzen(true);
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  prog.frmAufnehmen.Entladen();
}

}  // namespace vantora
