#include "cdinput/frmCDPlayer.h"

#include "app/frmKomponenten.h"
#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/clsCCd.h"
#include "cdinput/grab_lauf.h"
#include "cdwriting/fortschritt.h"

namespace vantora {

namespace {

constexpr const wchar_t* kLuecke = L"     ";
constexpr const wchar_t* kAnfang = L"(00:00)";
constexpr int kBrauchbar = 500;  // lowest mode of a usable device
constexpr int kAnzeigeMs = 100;
constexpr int kPositionMs = 500;

}  // namespace

frmCDPlayer::frmCDPlayer(Programm& programm) : VtrFenster(programm, L"frmCDPlayer") {
  lstTracks.MultiSelect = true;
  tmrCDAudio.Enabled = false;
  tmrCDAudio.Interval = kPositionMs;
  tmrCDDB.Enabled = false;
  tmrCDDB.Interval = kAnzeigeMs;
  lstDriveLetter.Click = [this] { lstDriveLetter_Click(); };
  lstTracks.Click = [this] { lstTracks_Click(); };
  lstTracks.DblClick = [this] { lstTracks_DblClick(); };
  // The text field lies over a line of the list, so scrolling closes it.
  lstTracks.Scroll = [this] { NameBeenden(); };
  lstTracks.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) lstTracks_DblClick();
  };
  txtSongname.KeyPress = [this](int taste) { return txtSongname_KeyPress(taste); };
  Knopf(imgPlay, [this] { imgPlay_MouseUp(); });
  Knopf(imgPause, [this] { imgPause_MouseUp(); });
  Knopf(imgStop, [this] { imgStop_MouseUp(); });
  Knopf(cmdNextSong, [this] { cmdNextSong_Click(); });
  Knopf(cmdLetztesLied, [this] { cmdLetztesLied_Click(); });
  Knopf(imgAllesWaehlen, [this] { imgAllesWaehlen_MouseUp(); });
  Knopf(imgDBAufnahme, [this] { imgDBAufnahme_MouseUp(); });
  Knopf(imgSpeichern, [this] { imgSpeichern_MouseUp(); });
  Knopf(imgSchliessen, [this] { imgSchliessen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  tmrCDAudio.OnTimer = [this] { tmrCDAudio_Timer(); };
  tmrCDDB.OnTimer = [this] { tmrCDDB_Timer(); };
}

vantora::frmKomponenten& frmCDPlayer::Komponenten() const {
  return prog.frmKomponenten();
}

void frmCDPlayer::Form_Load() {
  FensterEinrichten();
  SetTexte();
}

void frmCDPlayer::SetTexte() {
  Caption = LoadResString(5217);
  lblTitel.Caption = LoadResString(5217);
  lblLaufwerk.Caption = LoadResString(5206);
  lblHinweis.Caption = LoadResString(5219);
  lblSongname.Caption = LoadResString(5218);
  for (int i = 0; i < lblFeld.Count(); ++i) lblFeld(i).Caption = LoadResString(5207 + i);
  Beschriften(lblButtCaption(0), imgAllesWaehlen, LoadResString(5215));
  Beschriften(lblButtCaption(1), imgSpeichern, LoadResString(5216));
  Beschriften(lblButtCaption(2), imgDBAufnahme, LoadResString(5214));
  Beschriften(lblButtCaption(3), imgSchliessen, LoadResString(5205));
  cmdNextSong.AccessibleName = LoadResString(30032);
  cmdLetztesLied.AccessibleName = LoadResString(30033);
  txtSongname.AccessibleName = LoadResString(5218);
  lstDriveLetter.AccessibleName = lblLaufwerk.Caption;
  lblStatus.Caption = L"";
  AnzeigeLeeren();
  NameFertig();
  const auto hinweis = [this](Control& control, int nummer) {
    control.ToolTipText = LoadResString(nummer);
  };
  hinweis(lblHinweis, 5400);
  hinweis(lblStatus, 5401);
  hinweis(txtCDInfo, 5402);
  hinweis(lstTracks, 5403);
  hinweis(imgPlay, 5404);
  hinweis(imgPause, 5405);
  hinweis(imgStop, 5406);
  hinweis(cmdNextSong, 30032);
  hinweis(cmdLetztesLied, 30033);
  hinweis(txtSongname, 5218);
  hinweis(imgDBAufnahme, 5407);
  hinweis(imgAllesWaehlen, 5408);
  hinweis(imgSpeichern, 5409);
  hinweis(imgSchliessen, 5410);
  hinweis(imgHelp, 5411);
  hinweis(lstDriveLetter, 5412);
  hinweis(txtCDLengthMs, 5413);
  hinweis(txtAnzahlTracks, 5414);
  hinweis(txtCDLengthMB, 5415);
  hinweis(txtTrackNr, 5416);
  hinweis(txtZeit, 5417);
  hinweis(txtMB, 5418);
  hinweis(txtPosition, 5419);
}

bool frmCDPlayer::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  if (txtSongname.Visible) {
    NameFertig();
  } else {
    imgSchliessen_MouseUp();
  }
  return true;
}

// ---- drives ----

void frmCDPlayer::Init_CDPlayer() {
  Initialisierung = true;
  SetTexte();
  prog.CDPlayerSchliessen();
  Komponenten().ACD_INIT();
  LaufwerkListeFuellen();
  lstDriveLetter_Click();
  Initialisierung = false;
  tmrCDAudio.Enabled = true;
  prog.plattform.schleife.SetFocus(lstTracks);
}

void frmCDPlayer::LaufwerkListeFuellen() {
  vantora::frmKomponenten& k = Komponenten();
  std::vector<Text> wurzeln;
  k.CDLaufwerkeLesen(wurzeln);
  lstDriveLetter.Clear();
  const int anzahl = k.ACD.DriveCount();
  for (int i = 1; i <= anzahl; ++i) {
    const Text name = k.ACD.DriveDescription(i) + Text(32, L' ');
    Text buchstabe =
        Links(k.SCSILaufwerkSuchen(name.substr(0, 16), name.substr(20, 2), name.substr(23, 2)), 1);
    const auto platz = static_cast<std::size_t>(i);
    // A drive that the registry does not know gets the letter of the CD drive at its position.
    if (buchstabe.empty() && platz < wurzeln.size()) buchstabe = Links(wurzeln[platz], 1);
    lstDriveLetter.AddItem(Trim(Trim(buchstabe) + L":\\ " + Trim(name)));
  }
}

Text frmCDPlayer::Laufwerk() const {
  const int zeile = lstDriveLetter.ListIndex;
  return zeile < 0 ? Text() : Links(lstDriveLetter.List(zeile), 1) + L":\\";
}

void frmCDPlayer::lstDriveLetter_Click() {
  tmrCDAudio.Enabled = false;
  Spielt = Pausiert = false;
  NameFertig();
  const int zeilen = lstDriveLetter.ListCount();
  if (Initialisierung) {
    const int letzte = GetZahl(prog.plattform, L"LastAudioCDSelected", L"0");
    if (zeilen > 0) lstDriveLetter.ListIndex = letzte >= 0 && letzte < zeilen ? letzte : 0;
    Komponenten().CD_Close();
  } else {
    SaveSetting(prog.plattform, L"LastAudioCDSelected", ZahlText(lstDriveLetter.ListIndex));
  }
  if (lstDriveLetter.ListIndex < 0) {
    Freigeben(false);
    return;
  }
  Komponenten().AktCDDevice = Ganz16(lstDriveLetter.ListIndex + 1.0);
  Komponenten().AktCDDrive = Laufwerk();
  Window.Enabled = false;  // until the drive has answered, no other can be chosen
  try {
    DiscOeffnen();
  } catch (...) {
    Window.Enabled = true;
    throw;
  }
  Window.Enabled = true;
}

// Tries the drive until a disc is open or the user gives up.
void frmCDPlayer::DiscOeffnen() {
  vantora::frmKomponenten& k = Komponenten();
  EventLoop& schleife = prog.plattform.schleife;
  const auto nochmal = [&](const Text& meldung) {
    schleife.MousePointer(Pointer::Normal);
    return prog.MsgBoxen(meldung + kZeilenEnde + LoadResString(5009), kJaNein) == kJa;
  };
  for (;;) {
    AnzeigeLeeren();
    schleife.MousePointer(Pointer::Hourglass);
    schleife.DoEvents();
    k.CD_Open(Laufwerk());
    Text meldung;
    if (k.CDModus < kBrauchbar) {
      prog.AppLog(L"lstDriveLetter", L"Can't open Device. Result:" + ZahlText(k.CDModus));
      meldung = LoadResString(5005) + Links(Laufwerk(), 1) + LoadResString(5006) + kZeilenEnde +
                LoadResString(5007);
    } else if (k.CD_Check()) {
      GetCDInfo();
      tmrCDAudio.Enabled = true;
      schleife.MousePointer(Pointer::Normal);
      return;
    } else {
      const Text fehler = k.ImageFehler();
      k.CD_Close();
      prog.AppLog(L"lstDriveLetter:", L"No CD in CDROM. Result CDMode:" + ZahlText(k.CDModus));
      meldung = fehler.empty() ? LoadResString(5008) : fehler;
    }
    if (nochmal(meldung)) continue;
    Freigeben(false);
    return;
  }
}

// ---- the disc ----

void frmCDPlayer::AnzeigeLeeren() {
  CDDaten = CDDatenSatz{};
  gefunden_.reset();
  TrackName.assign(1, Text());
  lstTracks.Clear();
  GrabAuswahl = 0;
  GesamtMB = 0;
  for (Label* feld : {&txtCDInfo, &txtCDLengthMs, &txtAnzahlTracks, &txtCDLengthMB, &txtTrackNr,
                      &txtZeit, &txtMB, &txtPosition}) {
    feld->Caption = L"";
  }
}

void frmCDPlayer::Freigeben(bool mitDisc) {
  lstTracks.Enabled = mitDisc;
  for (PictureButton* knopf :
       {&imgAllesWaehlen, &imgDBAufnahme, &imgPlay, &imgSpeichern, &imgStop, &imgPause}) {
    knopf->Enabled = mitDisc;
  }
  lblStatus.Caption = LoadResString(mitDisc ? 5223 : 5222);
}

Text frmCDPlayer::StandardName(int track) const {
  return LoadResString(5015) + Format(track, L"00");
}

void frmCDPlayer::GetCDInfo() {
  vantora::frmKomponenten& k = Komponenten();
  AnzeigeLeeren();
  const bool disc = k.CD_Check();
  Freigeben(disc);
  if (!disc) return;
  DatenLesen();
  k.CD_Close();
  CDDaten.DiscID = DiscIDLesen(prog, Laufwerk());
  k.CD_Open(Laufwerk());
  lblStatus.Caption = LoadResString(5224);
  txtCDInfo.Visible = true;
  prog.Pausieren(kAnzeigeMs);
  lblStatus.Caption = LoadResString(5225);
  prog.Pausieren(kAnzeigeMs);
  txtCDInfo.Caption = L"";
  lstTracks.Clear();
  if (prog.CDDBactive && prog.MsgBoxen(LoadResString(5011), kJaNein) == kJa) TitelHolen();
  TracksZeigen();
}

void frmCDPlayer::DatenLesen() {
  vantora::frmKomponenten& k = Komponenten();
  k.CD_SetFormatMS();
  CDDaten.Laenge = k.GetCDLength();
  CDDaten.GroesseMB = MBVonMs(CDDaten.Laenge);
  CDDaten.TrackAnzahl = Ganz16(k.GetNumTracks());
  CDDaten.TrackLaenge.assign(1, 0);
  CDDaten.TrackMB.assign(1, 0);
  for (int i = 1; i <= CDDaten.TrackAnzahl; ++i) {
    CDDaten.TrackLaenge.push_back(k.GetTrackLength(i));
    CDDaten.TrackMB.push_back(MBVonMs(CDDaten.TrackLaenge.back()));
    TrackName.push_back(StandardName(i));
  }
}

bool frmCDPlayer::AndereDisc() {
  vantora::frmKomponenten& k = Komponenten();
  k.CD_SetFormatMS();
  bool gleich = k.GetNumTracks() == CDDaten.TrackAnzahl && k.GetCDLength() == CDDaten.Laenge;
  for (int i = 1; gleich && i <= CDDaten.TrackAnzahl; ++i) {
    gleich = k.GetTrackLength(i) == CDDaten.TrackLaenge[static_cast<std::size_t>(i)];
  }
  k.CD_SetFormatTMSF();
  return !gleich;
}

Text frmCDPlayer::Zeile(int track) const {
  const auto i = static_cast<std::size_t>(track);
  return TrackName[i] + kLuecke + RestText(CDDaten.TrackLaenge[i]) + kLuecke +
         ZahlText(CDDaten.TrackMB[i]) + LoadResString(5019) + L"  ";
}

// Writes all lines again and keeps the selection.
void frmCDPlayer::ZeilenSchreiben() {
  const std::vector<int> vorher = Auswahl();
  const int zeile = lstTracks.ListIndex;
  lstTracks.Clear();
  for (int i = 1; i <= CDDaten.TrackAnzahl; ++i) lstTracks.AddItem(Zeile(i));
  for (const int track : vorher) lstTracks.Select(track - 1, true);
  lstTracks.ListIndex = zeile;
}

void frmCDPlayer::TracksZeigen() {
  lblStatus.Caption = LoadResString(5227);
  ZeilenSchreiben();
  txtAnzahlTracks.Caption = ZahlText(CDDaten.TrackAnzahl);
  txtCDLengthMs.Caption = RestText(CDDaten.Laenge);
  txtCDLengthMB.Caption = ZahlText(CDDaten.GroesseMB);
  txtPosition.Caption = kAnfang;
  Komponenten().CD_SetFormatTMSF();
  if (lstTracks.ListCount() > 0) lstTracks.Select(0, true);
  AuswahlZaehlen();
  ShowData();
  lblStatus.Caption = LoadResString(5228);
}

void frmCDPlayer::ShowData() {
  const int track = Gewaehlt();
  const auto i = static_cast<std::size_t>(track);
  if (track == 0 || i >= CDDaten.TrackLaenge.size()) return;
  txtTrackNr.Caption = ZahlText(track);
  txtZeit.Caption = DauerText(CDDaten.TrackLaenge[i]);
  txtMB.Caption = ZahlText(CDDaten.TrackMB[i]);
}

// ---- playing ----

bool frmCDPlayer::DiscDa() {
  if (Komponenten().CD_Check()) return true;
  prog.MsgBoxen(LoadResString(5001), kOk);
  return false;
}

int frmCDPlayer::Gewaehlt() const {
  if (lstTracks.Selected(lstTracks.ListIndex)) return lstTracks.ListIndex + 1;
  for (int i = 0; i < lstTracks.ListCount(); ++i) {
    if (lstTracks.Selected(i)) return i + 1;
  }
  return 0;
}

void frmCDPlayer::TrackSpielen(int track) {
  Komponenten().CD_SetTrack(track);
  Komponenten().CD_Play();
  Spielt = true;
  Pausiert = false;
}

void frmCDPlayer::imgPlay_MouseUp() {
  if (!DiscDa()) return;
  const int track = Gewaehlt();
  if (track > 0) TrackSpielen(track);
}

void frmCDPlayer::imgPause_MouseUp() {
  if (!DiscDa()) return;
  if (Pausiert) {
    Komponenten().CD_Play();
  } else {
    Komponenten().CD_Pause();
  }
  Pausiert = Spielt && !Pausiert;
}

void frmCDPlayer::imgStop_MouseUp() {
  if (!DiscDa()) return;
  Komponenten().CD_Stop();
  Spielt = Pausiert = false;
  txtPosition.Caption = kAnfang;
}

void frmCDPlayer::Bewegen(int schritt) {
  NameBeenden();
  if (!DiscDa()) return;
  const int ziel = Gewaehlt() + schritt;
  if (ziel < 1 || ziel > lstTracks.ListCount()) return;
  for (int i = 0; i < lstTracks.ListCount(); ++i) lstTracks.Select(i, i == ziel - 1);
  lstTracks.ListIndex = ziel - 1;
  AuswahlZaehlen();
  ShowData();
  if (Spielt) TrackSpielen(ziel);
}

void frmCDPlayer::cmdNextSong_Click() {
  Bewegen(1);
}
void frmCDPlayer::cmdLetztesLied_Click() {
  Bewegen(-1);
}

void frmCDPlayer::AuswahlZaehlen() {
  GrabAuswahl = 0;
  GesamtMB = 0;
  for (const int track : Auswahl()) {
    ++GrabAuswahl;
    GesamtMB += CDDaten.TrackMB[static_cast<std::size_t>(track)];
  }
}

void frmCDPlayer::lstTracks_Click() {
  // A double click has opened the name field already when its second click arrives.
  if (Gewaehlt() != namenZeile_ + 1) NameBeenden();
  if (!Komponenten().CD_Check()) {
    prog.MsgBoxen(LoadResString(5001), kOk);
    AnzeigeLeeren();
    return;
  }
  AuswahlZaehlen();
  if (lstTracks.SelCount() == 0) {
    prog.MsgBoxen(LoadResString(5010), kOk);
    return;
  }
  ShowData();
  if (!Spielt) return;
  Komponenten().CD_Stop();
  TrackSpielen(Gewaehlt());
}

void frmCDPlayer::ListBoxAllesClicken() {
  const int zeile = lstTracks.ListIndex;
  for (int i = 0; i < lstTracks.ListCount(); ++i) lstTracks.Select(i, true);
  lstTracks.ListIndex = zeile;
  AuswahlZaehlen();
}

void frmCDPlayer::imgAllesWaehlen_MouseUp() {
  if (!DiscDa()) return;
  ListBoxAllesClicken();
  ShowData();
}

void frmCDPlayer::tmrCDAudio_Timer() {
  vantora::frmKomponenten& k = Komponenten();
  if (!Window.Enabled || !k.CD_Check()) return;
  if (k.CD.Mode() == kMciStop) Spielt = Pausiert = false;  // the disc was played to its end
  int track = 0, minute = 0, sekunde = 0;
  k.CD_GetPositionTMS(track, minute, sekunde);
  txtPosition.Caption = L"(" + Format(minute, L"00") + L":" + Format(sekunde, L"00") + L")";
}

void frmCDPlayer::imgSchliessen_MouseUp() {
  tmrCDAudio.Enabled = false;
  Komponenten().CD_Close();
  KatalogDienst& haupt = prog.Katalogfenster();
  haupt.FreiSetzen(true);
  prog.frmCDPlayer.Entladen();
  haupt.KatalogShow();
  haupt.FokusAufListe();
}

}  // namespace vantora
