// Saving the selected tracks: their file names, the free space, and the files to replace.

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/frmCDPlayer.h"
#include "cdinput/grab_lauf.h"
#include "dialogs/frmLoadSave.h"

#include <algorithm>
#include <set>

namespace vantora {

namespace {

constexpr const wchar_t* kEndung = L".wav";

// Makes a file name of a title; characters that no file name may have become "_".
Text AlsDateiName(Text name) {
  for (wchar_t& zeichen : name) {
    const bool verboten = zeichen < L' ' || Text(L"\"*\\/:?<>|").find(zeichen) != Text::npos;
    if (verboten || !Hat1252(zeichen)) zeichen = L'_';
  }
  if (!name.empty() && name.front() == L'.') name.front() = L'_';
  return Trim(name);
}

// Two targets are the same file when only blanks or the case of letters differ.
Text AlsDatei(Text name) {
  ZeichenErsetzen(name, L' ', L'_');
  return Ucase(name);
}

}  // namespace

std::vector<int> frmCDPlayer::Auswahl() const {
  std::vector<int> tracks;
  for (int i = 0; i < lstTracks.ListCount(); ++i) {
    if (lstTracks.Selected(i)) tracks.push_back(i + 1);
  }
  return tracks;
}

bool frmCDPlayer::HatNamen(int track) const {
  return TrackName[static_cast<std::size_t>(track)] != StandardName(track);
}

Text frmCDPlayer::ZielName(int track) const {
  if (!HatNamen(track)) return StandardName(track) + kEndung;
  const std::size_t ordner = AddBackslash(prog.Wave_Export_Dir).size() + Text(kEndung).size();
  const std::size_t platz = ordner < kLaengsterPfad ? kLaengsterPfad - ordner : 1;
  return Trim(Links(AlsDateiName(TrackName[static_cast<std::size_t>(track)]), platz)) + kEndung;
}

// Returns the file name of a track and enters it in `vergeben`. If the track's own name is taken,
// the track gets the default name, with a number when that is taken too.
Text frmCDPlayer::FreierName(int track, std::set<Text>& vergeben) const {
  Text name = ZielName(track);
  if (!HatNamen(track)) return name;
  for (int n = 1; !vergeben.insert(AlsDatei(name)).second; ++n) {
    name = StandardName(track) + (n == 1 ? Text() : L"_" + ZahlText(n)) + kEndung;
  }
  return name;
}

void frmCDPlayer::imgSpeichern_MouseUp() {
  KnopfBild(imgSpeichern);
  NameBeenden();
  // The names belong to the disc that was here before, so the tracks of another disc are not saved
  // under them. A window without a disc says so when the drive is read again.
  const bool discDa = Komponenten().CD_Check();
  if (discDa && lstTracks.SelCount() == 0) return;
  if (!discDa || AndereDisc()) {
    lstDriveLetter_Click();
    return;
  }
  prog.FortschrittModus = kModusGrab;
  tmrCDAudio.Enabled = false;
  bool bereit = false;
  try {
    bereit = ZieleBestimmen();
    if (bereit) Grabben();
  } catch (...) {
    NachGrab();
    throw;
  }
  if (bereit) {
    NachGrab();
  } else {
    tmrCDAudio.Enabled = true;
  }
}

void frmCDPlayer::Grabben() {
  Spielt = Pausiert = false;
  Komponenten().CD_Close();
  SaveWave(prog);
}

// Opens the disc for playing again. If the window was closed while a cancelled read was ending, the
// drive stays closed, because nothing would close it later.
void frmCDPlayer::NachGrab() {
  if (!Visible()) return;
  Komponenten().CD_Open(Laufwerk());
  txtPosition.Caption = L"(00:00)";
  tmrCDAudio.Enabled = true;
}

// Returns false when there is no room or the user declines.
bool frmCDPlayer::ZieleBestimmen() {
  AuswahlZaehlen();
  prog.GrabTracks.clear();
  prog.GrabDateien.clear();
  prog.GrabNamen.clear();
  prog.GrabInterpret = CDDaten.Interpret;
  std::set<Text> vergeben;
  for (const int track : Auswahl()) {
    if (!HatNamen(track)) vergeben.insert(AlsDatei(ZielName(track)));
  }
  for (const int track : Auswahl()) {
    prog.GrabTracks.push_back(Ganz16(track));
    prog.GrabDateien.push_back(FreierName(track, vergeben));
    prog.GrabNamen.push_back(HatNamen(track) ? TrackName[static_cast<std::size_t>(track)] : Text());
  }
  if (prog.FreierPlatz(Links(prog.Wave_Export_Dir, 3)) <= GesamtMB * kMB) {
    prog.MsgBoxen(LoadResString(5002), kOk);
    return false;
  }
  return prog.GrabTracks.size() == 1 ? EinZiel() : MehrereZiele();
}

// In the end the file gets "_" for each blank of its name, so a file of that name counts as well.
bool frmCDPlayer::ErsetzenFragen(const Text& pfad) {
  if (!prog.DateiExistiert(pfad) && !prog.DateiExistiert(OhneLeerzeichen(pfad))) return true;
  return prog.MsgBoxen(
             LoadResString(5003) + DateiNameOhnePfad(pfad) + kZeilenEnde + LoadResString(5004),
             kJaNein) == kJa;
}

bool frmCDPlayer::MehrereZiele() {
  const Text ordner = AddBackslash(prog.Wave_Export_Dir);
  for (Text& datei : prog.GrabDateien) datei.insert(0, ordner);
  if (!ZielePassen(prog)) return false;
  return std::all_of(prog.GrabDateien.begin(), prog.GrabDateien.end(),
                     [this](const Text& datei) { return ErsetzenFragen(datei); });
}

// Runs the file dialog; returns false when it was cancelled.
bool frmCDPlayer::DateiFragen(const Text& vorschlag) {
  prog.DialogModus = kModusSichern;
  prog.DialogMuster = Text(L"*") + kEndung;
  prog.DialogName = vorschlag;
  prog.DialogPfad = prog.UNCAufLaufwerk(prog.Wave_Export_Dir);
  prog.GewaehlteDatei.clear();
  prog.DialogAbbruch = false;
  prog.MehrfachAuswahl = false;
  prog.ZeigeModal(prog.frmLoadSave.Laden());
  prog.plattform.schleife.DoEvents();
  const bool abbruch = prog.DialogAbbruch;
  prog.DialogAbbruch = false;
  return !abbruch;
}

bool frmCDPlayer::EinZiel() {
  const Text vorschlag = prog.GrabDateien.front();
  for (;;) {
    if (!DateiFragen(vorschlag)) return false;
    Text datei = prog.GewaehlteDatei;
    Text name = DateiNameOhnePfad(datei);
    if (!name.empty() && name.find(L'.') == Text::npos) {
      datei += kEndung;
      name += kEndung;
    }
    if (!DateiNameGueltig(name)) {
      prog.MsgBoxen(LoadResString(5229) + LoadResString(5230), kOk);
    } else if (datei.size() > kLaengsterPfad) {
      prog.MsgBoxen(LoadResString(8085), kHinweis);
    } else if (ErsetzenFragen(datei)) {
      prog.GrabDateien.front() = datei;
      prog.Wave_Export_Dir = Links(datei, datei.size() - name.size());
      return true;
    }
  }
}

}  // namespace vantora
