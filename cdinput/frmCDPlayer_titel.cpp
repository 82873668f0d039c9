// The names of the tracks: asked from a CDDB server, or typed over a line of the list.

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

// What the user is told of a look-up that failed; 0 for nothing.
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

// The name under which a track that a server knows is shown; blank for one without a title.
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
    // Whoever cancels in this pause must not get titles from a server that is quick to answer.
    cddbStatus_ = kCDDBAbbruch;
    if (!prog.GrabAbbruch) {
      ccd.CDDBAbfrage(CDDBAnfrageAusEinstellungen(prog), cddbStatus_, ergebnis);
    }
    while (ergebnis == 0 && cddbStatus_ != kCDDBFertig) prog.plattform.schleife.DoEvents();
  } catch (const Laufzeitfehler& fehler) {
    // The answer breaks the rules of the protocol, so it tells nothing about the disc.
    prog.AppLog(L"CDDB", ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
    ergebnis = 1;
    cddbStatus_ = kCDDBNichtGefunden;
  }
  tmrCDDB.Enabled = false;
  if (prog.GrabAbbruch) {  // the timer may not have seen it yet
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

// The cancel button of the progress window reaches the client through its status.
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

// Files the disc that a server knows with the names that are shown. One that nobody has typed over
// keeps its performer apart from its title. Of a disc whose titles were not fetched now, the file
// may hold those that were fetched before: they stay.
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

// Whoever goes on without Return has typed his name all the same; one that he has only looked at
// stays as it is.
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
  // Before the field goes, which would leave the focus to the next control, a button.
  if (namenZeile_ >= 0) prog.plattform.schleife.SetFocus(lstTracks);
  namenZeile_ = -1;
  txtSongname.Visible = false;
  lblSongname.Visible = false;
  txtCDInfo.Visible = true;
}

}  // namespace vantora
