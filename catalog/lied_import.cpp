#include "catalog/lied_import.h"

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/haupt_fenster.h"
#include "catalog/katalog_bearbeitung.h"
#include "catalog/katalog_liste.h"
#include "catalog/vorschau.h"
#include "catalog/wave_pruefung.h"
#include "cdwriting/frmSchreibFortschritt.h"
#include "dialogs/datei_holen.h"

namespace vantora {

namespace {

constexpr const wchar_t* kMusikEndungen = L".wav;*.mp3";
constexpr std::size_t kLaengsterPfad = 100;
constexpr std::size_t kMeisteTitel = 100;
constexpr double kMindestLaengeMs = 2000.0;
constexpr double kMindestLaengeMp3Ms = 2001.0;
constexpr int kAbfrageMs = 500;

}  // namespace

LiedImport::LiedImport(Programm& programm, Teile teile, HauptFenster& fenster)
    : prog(programm), t_(teile), fenster_(fenster) {}

void LiedImport::Importieren() {
  const Text ort = L"Lied importieren";
  prog.AppLog(ort, L"");
  prog.AppLog(ort, L"DateiHolen:");
  t_.Vorschau.PlayWaveNormal(L"");
  DateiHolen(prog, kTypMusik, kModusOeffnen);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return;
  }
  if (!prog.MehrfachAuswahl) {
    DateienGesamt_ = DateienOffen_ = 1;
    const Text datei = prog.GewaehlteDatei;  // another may be chosen before the import has ended
    EineDatei(datei, false);
    return;
  }
  VieleDateien();
}

void LiedImport::VieleDateien() {
  prog.AppLog(L"Lied importieren", L"Splitting WaveFiles");
  std::vector<Text> namen;
  Split(prog.GewaehlteDatei, L"/", namen);
  namen.pop_back();  // the empty part behind the last name
  if (namen.size() > kMeisteTitel) {
    prog.MsgBoxen(prog.Text(8039), kHinweis);
    return;
  }
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  DateienGesamt_ = DateienOffen_ = Ganz16(static_cast<double>(namen.size()));
  prog.KatalogGeaendert = true;
  t_.Liste.KatalogLastStepSave();
  for (DateiNummer = 0; DateiNummer < DateienGesamt_; ++DateiNummer) {
    if (EineDatei(namen[static_cast<std::size_t>(DateiNummer)], true) == Einfuhr::Ende) break;
  }
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

LiedImport::Einfuhr LiedImport::EineDatei(const Text& datei, bool mehrere) {
  if (datei.size() > kLaengsterPfad) {
    prog.MsgBoxen(prog.Text(8085), kHinweis);
    return Einfuhr::Ende;
  }
  const bool keinName = Trim(datei).empty() || (!mehrere && prog.DialogName == kMusikEndungen);
  if (keinName) {
    prog.MsgBoxen(prog.Text(8034), kHinweis);
    return Einfuhr::Weiter;
  }
  if (!prog.DateiExistiert(datei)) {
    prog.MsgBoxen(prog.Text(8035), kHinweis);
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
    t_.Liste.KatalogLastStepSave();
  }
  Aufnehmen(fertig);
  return Einfuhr::Fertig;
}

LiedImport::Einfuhr LiedImport::WaveDatei(const Text& datei, bool mehrere, Text& fertig) {
  // If one of several files fails, the user decides whether to go on with the rest. The title of
  // the question names the file.
  const auto frage = [&](int text) {
    const int antwort = prog.MsgBoxen(prog.Text(text), kJaNein, DateiNameOhnePfad(datei));
    return antwort == kJa ? Einfuhr::Weiter : Einfuhr::Ende;
  };
  // A file whose edit could not be finished looks damaged.
  Weiter([&] { prog.plattform.edits.Ready(datei); });
  if (!CheckWaveValid(prog.plattform, t_.Wave, datei)) {
    if (mehrere) return frage(8049);
    prog.MsgBoxen(prog.Text(8067), kHinweis, prog.Text(8057));
    return Einfuhr::Weiter;
  }
  if (WaveLaenge(t_.Wave, datei) <= kMindestLaengeMs) {
    if (mehrere) return frage(8048);
    prog.MsgBoxen(prog.Text(8040), kHinweis, prog.Text(8029));
    return Einfuhr::Weiter;
  }
  fertig = datei;
  const bool vonCD = prog.plattform.laufwerke.GetDriveType(Links(datei, 3)) == kDriveCdRom;
  if (vonCD && !VonCDKopieren(fertig)) return Einfuhr::Weiter;
  return Einfuhr::Fertig;
}

// A track's file must not stay on a CD-ROM, so the user chooses a place on the disk for a copy.
bool LiedImport::VonCDKopieren(Text& datei) {
  const Text quelle = datei;
  if (prog.MsgBoxen(prog.Text(8050) + quelle + prog.Text(8051) + kZeilenEnde + prog.Text(8052),
                    kFrage) != kJa) {
    return false;
  }
  const bool mehrere = prog.MehrfachAuswahl;
  DateiHolen(prog, kTypWave, kModusSichern, DateiNameOhnePfad(quelle));
  prog.MehrfachAuswahl = mehrere;  // the import that goes on still has several files
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return false;
  }
  const Text ziel = prog.GewaehlteDatei;
  if (ziel.size() > kLaengsterPfad) {
    prog.MsgBoxen(prog.Text(8085), kHinweis);
    return false;
  }
  if (Trim(ziel).empty()) {
    prog.MsgBoxen(prog.Text(8053), kHinweis);
    return false;
  }
  if (!DateiNameGueltig(DateiNameOhnePfad(ziel))) {
    prog.MsgBoxen(prog.Text(8038), kHinweis);
    return false;
  }
  if (prog.plattform.laufwerke.GetDriveType(Links(ziel, 3)) == kDriveCdRom) {
    prog.MsgBoxen(prog.Text(8054), kHinweis);
    return false;
  }
  if (prog.DateiExistiert(ziel)) {
    if (prog.MsgBoxen(prog.Text(8055), kFrage) != kJa) return false;
    const auto bedarf = static_cast<double>(prog.plattform.dateien.FileLen(quelle));
    if (prog.FreierPlatz(ziel) < bedarf) {
      prog.MsgBoxen(prog.Text(8056), kHinweis);
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

LiedImport::Einfuhr LiedImport::Mp3Datei(const Text& datei, Text& fertig) {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Qm3Play& mp3 = prog.plattform.mp3;
  komponenten.MP3_Init();
  mp3.Open(datei, L"");
  // A file that is no MP3 file has no length, so it is reported by the second test.
  const bool lesbar = mp3.State() != kMp3Unusable;
  if (lesbar && mp3.LengthMs() < kMindestLaengeMp3Ms) {
    prog.MsgBoxen(prog.Text(8040), kHinweis, DateiNameOhnePfad(datei));
    return Einfuhr::Weiter;
  }
  if (!lesbar) {
    prog.MsgBoxen(prog.Text(8067), kHinweis, prog.Text(8057));
    return Einfuhr::Weiter;
  }
  Text ziel;
  const Einfuhr platz = Mp3Ziel(datei, ziel);
  if (platz != Einfuhr::Fertig) return platz;
  fertig = ziel;
  try {
    return Mp3Konvertieren(datei, ziel);
  } catch (const Laufzeitfehler&) {  // it must not keep the window locked
    Weiter([&] { mp3.Close(); });
    prog.frmSchreibFortschritt.Entladen();
    fenster_.FreiSetzen(true);
    throw;
  }
}

LiedImport::Einfuhr LiedImport::Mp3Ziel(const Text& datei, Text& ziel) {
  Text name = DateiNameOhnePfad(datei);
  name = Links(name, name.size() - 4);
  ExtensionSicher(name, L".wav");
  ZeichenErsetzen(name, L' ', L'_');
  ziel = AddBackslash(prog.Wave_Export_Dir) + name;
  if (ziel.size() > kLaengsterPfad) {
    prog.MsgBoxen(prog.Text(8085), kHinweis);
    return Einfuhr::Ende;
  }
  const Text laufwerk = Links(ziel, 3);
  if (prog.FreierPlatz(laufwerk) / kMB < prog.frmKomponenten().MP3_GetMBSize(datei)) {
    prog.MsgBoxen(prog.Text(8041) + kZeilenEnde + laufwerk + kZeilenEnde + prog.Text(8042) +
                      kZeilenEnde + prog.Text(8043) + kZeilenEnde + prog.Text(8044),
                  kHinweis);
    return Einfuhr::Ende;
  }
  if (!prog.DateiExistiert(ziel)) return Einfuhr::Fertig;
  const Text frage = prog.Text(8045) + kZeilenEnde + ziel + kZeilenEnde + prog.Text(8046) +
                     kZeilenEnde + prog.Text(8047);
  if (prog.MsgBoxen(frage, kJaNein) != kJa) return Einfuhr::Ende;
  prog.AppLog(L"Lied importieren", L"if exists kill it:" + ziel);
  prog.plattform.dateien.Kill(ziel);
  return Einfuhr::Fertig;
}

// When the user cancels or the decoder fails, the target file is deleted.
LiedImport::Einfuhr LiedImport::Mp3Konvertieren(const Text& quelle, const Text& ziel) {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Qm3Play& mp3 = prog.plattform.mp3;
  const Text ort = L"Lied importieren";
  prog.FortschrittModus = kModusMp3;
  const std::shared_ptr<vantora::frmSchreibFortschritt> fortschritt =
      prog.frmSchreibFortschritt.Laden();
  fortschritt->lblSonstiges.Caption = prog.Text(8444) + DateiNameOhnePfad(quelle);
  fortschritt->shpAktKopie.Width = 0;
  fortschritt->shpInsgKopie.Width = 0;
  prog.Zeigen(*fortschritt);
  komponenten.KonvertierungsStart = prog.plattform.uhr.Ticks();
  prog.AppLog(ort, L"Open the MP3 File");
  if (mp3.Open(quelle, ziel) != 0) {  // the file was removed since it was examined
    mp3.Close();
    prog.frmSchreibFortschritt.Entladen();
    prog.MsgBoxen(prog.Text(8067), kHinweis, prog.Text(8057));
    return Einfuhr::Weiter;
  }
  prog.AppLog(ort, L"coding");
  fenster_.FreiSetzen(false);
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
    prog.MsgBoxen(prog.Text(8029), kHinweis);
    fenster_.FreiSetzen(true);
    return Einfuhr::Ende;
  }
  prog.plattform.schleife.DoEvents();  // while the window is still locked: more files may follow
  fenster_.FreiSetzen(true);
  prog.frmSchreibFortschritt.Entladen();
  return Einfuhr::Fertig;
}

void LiedImport::Aufnehmen(const Text& datei) {
  const Text name = DateiNameOhnePfad(datei);
  t_.Bearbeitung.Katalog_AddWaveFile(datei, name.substr(0, name.find(L'.')));
  const int letzte = t_.Liste.Zeilen();
  const bool dabei =
      letzte > 0 && Ucase(prog.Katalog.back().Datei.Getrimmt()) == Ucase(Trim(datei));
  if (dabei) {
    t_.Liste.Zeile(letzte).SetSelected(true);
    t_.Bearbeitung.NeuenTrackBearbeiten(letzte);
    if (letzte <= t_.Liste.Zeilen()) t_.Liste.Zeile(letzte).SetSelected(false);
  }
  --DateienOffen_;
}

bool LiedImport::NurMusik(const std::vector<Text>& dateien) {
  for (const Text& datei : dateien) {
    if (!Endet(datei, L".wav") && !Endet(datei, L".mp3")) return false;
  }
  return true;
}

}  // namespace vantora
