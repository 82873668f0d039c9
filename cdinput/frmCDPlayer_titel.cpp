// The names of the tracks: fetched from a CDDB server, or typed over a line of the list.

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "cdinput/clsCCd.h"
#include "cdinput/frmCDPlayer.h"
#include "cdwriting/frmSchreibFortschritt.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kAnlaufMs = 500;
constexpr wchar_t kApostroph = L'\'', kAkut = L'´';

// The number of the message for a failed look-up; 0 for no message.
int Meldung(std::uint8_t status) {
  switch (status) {
    case kCDDBMehrere:
    case kCDDBNichtGefunden:
      return 5012;
    case kCDDBKeinProxy:
      return 5013;
    case kCDDBKeinServer:
      return 5014;
    default:
      return 0;
  }
}

// The shown name of a track that a server knows; blank for a track without a title.
Text NameAus(const CDDBInfo& info, std::size_t track) {
  const Text titel = Trim(info.TrackTitel[track]), interpret = Trim(info.TrackInterpret[track]);
  return titel.empty() || interpret.empty() ? titel : titel + L": " + interpret;
}

}  // namespace

void frmCDPlayer::TitelHolen() {
  vantora::frmKomponenten& k = Komponenten();
  k.CD_Close();
  clsCCd ccd(prog.plattform);
  ccd.Init(Laufwerk());
  prog.FortschrittModus = kModusGrab;
  prog.GrabAbbruch = false;
  cddbStatus_ = kCDDBAbfrageVerbinden;
  const std::shared_ptr<vantora::frmSchreibFortschritt> f = prog.frmSchreibFortschritt.Laden();
  f->init_frmSchreibFortschritt();
  f->lblSonstiges.Caption = LoadResString(5017);
  f->lblInsgKopie.Caption = LoadResString(5018);
  f->TrackZeigen(false);
  f->bKnightRider = true;
  f->KnightRider(f->imgKnightRider, *f);
  prog.Zeigen(*f);
  tmrCDDB.Enabled = true;
  std::int16_t ergebnis = 1;
  try {
    prog.Pausieren(kAnlaufMs);
    // A cancel during this pause must prevent the look-up, even if the server answers fast.
    cddbStatus_ = kCDDBAbbruch;
    if (!prog.GrabAbbruch) {
      ccd.CDDBAbfrage(CDDBAnfrageAusEinstellungen(prog), cddbStatus_, ergebnis);
    }
    while (ergebnis == 0 && cddbStatus_ != kCDDBFertig) prog.plattform.schleife.DoEvents();
  } catch (const Laufzeitfehler& fehler) {
    // An answer that breaks the protocol is treated as one that does not know the disc.
    prog.AppLog(L"CDDB", ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
    ergebnis = 1;
    cddbStatus_ = kCDDBNichtGefunden;
  }
  tmrCDDB.Enabled = false;
  if (prog.GrabAbbruch) {  // the timer may not have noticed the cancel yet
    ergebnis = 1;
    cddbStatus_ = kCDDBAbbruch;
  }
  const int meldung = ergebnis == 0 ? 0 : Meldung(cddbStatus_);
  if (meldung != 0) prog.MsgBoxen(LoadResString(meldung), kOk);
  prog.frmSchreibFortschritt.Entladen();
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.GrabAbbruch = false;
  if (ergebnis == 0) {
    CDDBInfo info = ccd.CDDBGetInfo();
    AkuteErsetzen(info);
    CDPlayerIniSchreiben(prog, k.AktCDDrive, info);
    TitelUebernehmen(info);
  }
  k.CD_Open(Laufwerk());
}

void frmCDPlayer::TitelUebernehmen(const CDDBInfo& info) {
  gefunden_ = info;
  CDDaten.Interpret = Trim(info.Interpret);
  const Text titel = Trim(info.Titel);
  txtCDInfo.Caption = CDDaten.Interpret.empty() ? titel : CDDaten.Interpret + L": " + titel;
  for (std::size_t i = 1; i < TrackName.size() && i < info.TrackTitel.size(); ++i) {
    const Text name = NameAus(info, i);
    if (!name.empty()) TrackName[i] = name;
  }
}

// Passes a cancel in the progress window on to the client, by the client's status.
void frmCDPlayer::tmrCDDB_Timer() {
  if (prog.GrabAbbruch) {
    cddbStatus_ = kCDDBAbbruch;
    return;
  }
  const std::optional<CDDBFortschritt> stand = CDDBFortschrittZu(cddbStatus_);
  if (!stand || !prog.frmSchreibFortschritt.Geladen()) return;
  prog.frmSchreibFortschritt().lblSonstiges.Caption = LoadResString(stand->TextNummer);
  prog.frmSchreibFortschritt().shpInsgKopie.Width = stand->Breite;
}

// Writes the disc to cdplayer.ini with the shown names. A name that was not typed keeps performer
// and title apart. If no titles were fetched this time, an earlier entry of the file stays
// unchanged.
void frmCDPlayer::imgDBAufnahme_MouseUp() {
  NameBeenden();
  if (!DiscDa()) return;
  if (AndereDisc()) {
    lstDriveLetter_Click();
    return;
  }
  if (!gefunden_) {
    prog.MsgBoxen(LoadResString(30030), kOk);
    return;
  }
  CDDBInfo info = *gefunden_;
  for (std::size_t i = 1; i < TrackName.size() && i < info.TrackTitel.size(); ++i) {
    if (TrackName[i] == NameAus(info, i)) continue;
    info.TrackTitel[i] = TrackName[i];
    info.TrackInterpret[i].clear();
  }
  CDPlayerIniSchreiben(prog, Komponenten().AktCDDrive, info);
  lblStatus.Caption = LoadResString(30031);
}

// ---- typing ----

void frmCDPlayer::lstTracks_DblClick() {
  const int track = Gewaehlt();
  if (track == 0) return;
  NameBeenden();
  namenZeile_ = track - 1;
  const int letzteOberste = namenZeile_ - lstTracks.Height / kListLine + 1;
  lstTracks.TopIndex = std::clamp(lstTracks.TopIndex(), letzteOberste, namenZeile_);
  txtSongname.Top = lstTracks.Top + (namenZeile_ - lstTracks.TopIndex) * kListLine;
  txtSongname.Text = TrackName[static_cast<std::size_t>(track)];
  txtCDInfo.Visible = false;
  lblSongname.Visible = true;
  txtSongname.Visible = true;
  prog.plattform.schleife.SetFocus(txtSongname);
}

bool frmCDPlayer::txtSongname_KeyPress(int taste) {
  if (taste != kKeyReturn) return true;
  const int naechste = namenZeile_ + 1;
  NameUebernehmen();
  lstTracks.ListIndex = std::min(naechste, lstTracks.ListCount() - 1);
  return false;
}

void frmCDPlayer::NameUebernehmen() {
  const int track = namenZeile_ + 1;
  if (track > 0 && track <= CDDaten.TrackAnzahl) {
    Text name = Trim(txtSongname.Text);
    ZeichenErsetzen(name, kApostroph, kAkut);
    TrackName[static_cast<std::size_t>(track)] = name.empty() ? StandardName(track) : name;
    ZeilenSchreiben();
  }
  NameFertig();
}

// Leaving the field without Return takes the text as well, if it was changed.
void frmCDPlayer::NameBeenden() {
  if (namenZeile_ < 0) return;
  const auto track = static_cast<std::size_t>(namenZeile_) + 1;
  if (track < TrackName.size() && txtSongname.Text() != TrackName[track]) {
    NameUebernehmen();
  } else {
    NameFertig();
  }
}

void frmCDPlayer::NameFertig() {
  // The list gets the focus before the field is hidden; otherwise the next control, a button, would
  // get it.
  if (namenZeile_ >= 0) prog.plattform.schleife.SetFocus(lstTracks);
  namenZeile_ = -1;
  txtSongname.Visible = false;
  lblSongname.Visible = false;
  txtCDInfo.Visible = true;
}

}  // namespace vantora
