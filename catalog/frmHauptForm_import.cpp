// Import of audio files into the catalog.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmHauptForm.h"
#include "catalog/wave_pruefung.h"
#include "cdinput/frmKomponenten.h"
#include "cdwriting/frmSchreibFortschritt.h"

namespace vantora {

namespace {

constexpr const wchar_t* kMusikEndungen = L".wav;*.mp3";
constexpr std::size_t kLaengsterPfad = 100;
constexpr std::size_t kMeisteTitel = 100;
constexpr double kMindestLaengeMs = 2000.0;
constexpr double kMindestLaengeMp3Ms = 2001.0;
constexpr int kAbfrageMs = 500;

}  // namespace

void frmHauptForm::imgLiedImport_MouseUp() {
  const Text ort = L"Lied importieren";
  prog.AppLog(ort, L"");
  prog.AppLog(ort, L"DateiHolen:");
  PlayWaveNormal(L"");
  prog.DateiHolen(kTypMusik, kModusOeffnen);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return;
  }
  if (!prog.MehrfachAuswahl) {
    DateienGesamt = DateienOffen = 1;
    EineDatei(prog.GewaehlteDatei, false);
    return;
  }
  prog.AppLog(ort, L"Splitting WaveFiles");
  std::vector<Text> namen;
  Split(prog.GewaehlteDatei, L"/", namen);
  namen.pop_back();  // the empty part behind the last name
  if (namen.size() > kMeisteTitel) {
    prog.MsgBoxen(LoadResString(8039), kHinweis);
    return;
  }
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  DateienGesamt = DateienOffen = Ganz16(static_cast<double>(namen.size()));
  prog.KatalogGeaendert = true;
  KatalogLastStepSave();
  for (DateiNummer = 0; DateiNummer < DateienGesamt; ++DateiNummer) {
    if (EineDatei(namen[static_cast<std::size_t>(DateiNummer)], true) == Einfuhr::Ende) break;
  }
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

frmHauptForm::Einfuhr frmHauptForm::EineDatei(const Text& datei, bool mehrere) {
  if (datei.size() > kLaengsterPfad) {
    prog.MsgBoxen(LoadResString(8085), kHinweis);
    return Einfuhr::Ende;
  }
  const bool keinName = Trim(datei).empty() || (!mehrere && prog.DialogName == kMusikEndungen);
  if (keinName) {
    prog.MsgBoxen(LoadResString(8034), kHinweis);
    return Einfuhr::Weiter;
  }
  if (!prog.DateiExistiert(datei)) {
    prog.MsgBoxen(LoadResString(8035), kHinweis);
    return Einfuhr::Weiter;
  }
  prog.frmKomponenten().Abgebrochen = false;
  Text fertig;
  const bool mp3 = Ucase(Rechts(datei, 3)) == L"MP3";
  const Einfuhr ergebnis = mp3 ? Mp3Datei(datei, fertig) : WaveDatei(datei, mehrere, fertig);
  if (ergebnis != Einfuhr::Fertig) return ergebnis;
  prog.AppLog(L"Lied importieren", mp3 ? L"mp3 decoding ready" : L"Wave Import ready");
  if (prog.frmKomponenten().Abgebrochen) return Einfuhr::Ende;
  if (!mehrere) {
    prog.KatalogGeaendert = true;
    KatalogLastStepSave();
  }
  Aufnehmen(fertig);
  return Einfuhr::Fertig;
}

frmHauptForm::Einfuhr frmHauptForm::WaveDatei(const Text& datei, bool mehrere, Text& fertig) {
  // If one of several files fails, the user decides whether to go on with the rest.
  const auto frage = [this](int text) {
    return prog.MsgBoxen(LoadResString(text), kJaNein) == kJa ? Einfuhr::Weiter : Einfuhr::Ende;
  };
  // A file whose edit could not be finished looks damaged.
  Weiter([&] { prog.plattform.edits.Ready(datei); });
  if (!CheckWaveValid(prog.plattform, *MMWaveFileX1, datei)) {
    if (mehrere) return frage(8049);
    prog.MsgBoxen(LoadResString(8067), kHinweis, LoadResString(8057));
    return Einfuhr::Weiter;
  }
  if (WaveLaenge(*MMWaveFileX1, datei) <= kMindestLaengeMs) {
    if (mehrere) return frage(8048);
    prog.MsgBoxen(LoadResString(8040), kHinweis, LoadResString(8029));
    return Einfuhr::Weiter;
  }
  fertig = datei;
  const bool vonCD = prog.plattform.laufwerke.GetDriveType(Links(datei, 3)) == kDriveCdRom;
  if (vonCD && !VonCDKopieren(fertig)) return Einfuhr::Weiter;
  return Einfuhr::Fertig;
}

// A track's file must not stay on a CD-ROM, so the user chooses a place on the disk for a copy.
bool frmHauptForm::VonCDKopieren(Text& datei) {
  const Text quelle = datei;
  if (prog.MsgBoxen(
          LoadResString(8050) + quelle + LoadResString(8051) + kZeilenEnde + LoadResString(8052),
          kFrage) != kJa) {
    return false;
  }
  const bool mehrere = prog.MehrfachAuswahl;
  prog.DateiHolen(kTypWave, kModusSichern, DateiNameOhnePfad(quelle));
  prog.MehrfachAuswahl = mehrere;  // the import that goes on still has several files
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return false;
  }
  const Text ziel = prog.GewaehlteDatei;
  if (ziel.size() > kLaengsterPfad) {
    prog.MsgBoxen(LoadResString(8085), kHinweis);
    return false;
  }
  if (Trim(ziel).empty()) {
    prog.MsgBoxen(LoadResString(8053), kHinweis);
    return false;
  }
  if (!DateiNameGueltig(DateiNameOhnePfad(ziel))) {
    prog.MsgBoxen(LoadResString(8038), kHinweis);
    return false;
  }
  if (prog.plattform.laufwerke.GetDriveType(Links(ziel, 3)) == kDriveCdRom) {
    prog.MsgBoxen(LoadResString(8054), kHinweis);
    return false;
  }
  if (prog.DateiExistiert(ziel)) {
    if (prog.MsgBoxen(LoadResString(8055), kFrage) != kJa) return false;
    const auto bedarf = static_cast<double>(prog.plattform.dateien.FileLen(quelle));
    if (prog.FreierPlatz(ziel) < bedarf) {
      prog.MsgBoxen(LoadResString(8056), kHinweis);
      return false;
    }
    prog.plattform.dateien.Kill(ziel);
  }
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.plattform.dateien.FileCopy(quelle, ziel);
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  datei = ziel;
  return true;
}

frmHauptForm::Einfuhr frmHauptForm::Mp3Datei(const Text& datei, Text& fertig) {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Qm3Play& mp3 = prog.plattform.mp3;
  komponenten.MP3_Init();
  mp3.Open(datei, L"");
  // A file that is no MP3 file has no length, so it is reported by the second test.
  const bool lesbar = mp3.State() != kMp3Unusable;
  if (lesbar && mp3.LengthMs() < kMindestLaengeMp3Ms) {
    prog.MsgBoxen(LoadResString(8040), kHinweis);
    return Einfuhr::Weiter;
  }
  if (!lesbar) {
    prog.MsgBoxen(LoadResString(8067), kHinweis, LoadResString(8057));
    return Einfuhr::Weiter;
  }
  Text ziel;
  const Einfuhr platz = Mp3Ziel(datei, ziel);
  if (platz != Einfuhr::Fertig) return platz;
  fertig = ziel;
  return Mp3Konvertieren(datei, ziel);
}

frmHauptForm::Einfuhr frmHauptForm::Mp3Ziel(const Text& datei, Text& ziel) {
  Text name = DateiNameOhnePfad(datei);
  name = Links(name, name.size() - 4);
  ExtensionSicher(name, L".wav");
  ZeichenErsetzen(name, L' ', L'_');
  ziel = AddBackslash(prog.Wave_Export_Dir) + name;
  if (ziel.size() > kLaengsterPfad) {
    prog.MsgBoxen(LoadResString(8085), kHinweis);
    return Einfuhr::Ende;
  }
  const Text laufwerk = Links(ziel, 3);
  if (prog.FreierPlatz(laufwerk) / kMB < prog.frmKomponenten().MP3_GetMBSize(datei)) {
    prog.MsgBoxen(LoadResString(8041) + kZeilenEnde + laufwerk + kZeilenEnde + LoadResString(8042) +
                      kZeilenEnde + LoadResString(8043) + kZeilenEnde + LoadResString(8044),
                  kHinweis);
    return Einfuhr::Ende;
  }
  if (!prog.DateiExistiert(ziel)) return Einfuhr::Fertig;
  const Text frage = LoadResString(8045) + kZeilenEnde + ziel + kZeilenEnde + LoadResString(8046) +
                     kZeilenEnde + LoadResString(8047);
  if (prog.MsgBoxen(frage, kJaNein) != kJa) return Einfuhr::Ende;
  prog.AppLog(L"Lied importieren", L"if exists kill it:" + ziel);
  prog.plattform.dateien.Kill(ziel);
  return Einfuhr::Fertig;
}

// When the user cancels or the decoder fails, the target file is deleted.
frmHauptForm::Einfuhr frmHauptForm::Mp3Konvertieren(const Text& quelle, const Text& ziel) {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Qm3Play& mp3 = prog.plattform.mp3;
  const Text ort = L"Lied importieren";
  prog.FortschrittModus = kModusMp3;
  const std::shared_ptr<vantora::frmSchreibFortschritt> fortschritt =
      prog.frmSchreibFortschritt.Laden();
  fortschritt->lblSonstiges.Caption = LoadResString(8444) + DateiNameOhnePfad(quelle);
  fortschritt->shpAktKopie.Width = 0;
  fortschritt->shpInsgKopie.Width = 0;
  prog.Zeigen(*fortschritt);
  komponenten.KonvertierungsStart = prog.plattform.uhr.Ticks();
  prog.AppLog(ort, L"Open the MP3 File");
  if (mp3.Open(quelle, ziel) != 0) {  // the file was removed since it was examined
    mp3.Close();
    prog.frmSchreibFortschritt.Entladen();
    prog.MsgBoxen(LoadResString(8067), kHinweis, LoadResString(8057));
    return Einfuhr::Weiter;
  }
  prog.AppLog(ort, L"coding");
  Window.Enabled = false;
  komponenten.KonvertierungAktiv = true;
  mp3.Decode();
  while (komponenten.KonvertierungAktiv) prog.Pausieren(kAbfrageMs, komponenten.KonvertierungAktiv);
  prog.AppLog(ort, L"Stop");
  mp3.Stop();
  prog.AppLog(ort, L"Close");
  mp3.Close();
  if (komponenten.Abgebrochen) {
    mp3.Open(L"", L"");
    if (prog.DateiExistiert(ziel)) prog.plattform.dateien.Kill(ziel);
    mp3.Close();
    prog.frmSchreibFortschritt.Entladen();
    prog.MsgBoxen(LoadResString(8029), kHinweis);
    Window.Enabled = true;
    return Einfuhr::Ende;
  }
  Window.Enabled = true;
  prog.plattform.schleife.DoEvents();
  prog.frmSchreibFortschritt.Entladen();
  return Einfuhr::Fertig;
}

void frmHauptForm::Aufnehmen(const Text& datei) {
  const Text name = DateiNameOhnePfad(datei);
  Katalog_AddWaveFile(datei, name.substr(0, name.find(L'.')));
  const int letzte = lvwKatalog.ListItems.Count();
  const bool dabei =
      letzte > 0 && Ucase(prog.Katalog.back().Datei.Getrimmt()) == Ucase(Trim(datei));
  if (dabei) {
    for (int i = 1; i < letzte; ++i) lvwKatalog.ListItems(i).SetSelected(false);
    lvwKatalog.ListItems(letzte).SetSelected(true);
    AktuellerTitel = Ganz16(letzte);
    prog.DialogBestaetigt = true;
    TrackDatenAendern(true);
    if (letzte <= lvwKatalog.ListItems.Count()) lvwKatalog.ListItems(letzte).SetSelected(false);
  }
  --DateienOffen;
}

bool frmHauptForm::lvwKatalog_OLEDragOver(const std::vector<Text>& dateien) const {
  for (const Text& datei : dateien) {
    if (!Endet(datei, L".wav") && !Endet(datei, L".mp3")) return false;
  }
  return true;
}

void frmHauptForm::lvwKatalog_OLEDragDrop(const std::vector<Text>& dateien) {
  for (std::size_t i = 0; i < dateien.size(); ++i) {
    // Nothing is added here: files enter by the import button, where the user is asked about them.
  }
}

}  // namespace vantora
