// The buttons for discs and records: copying an audio CD, saving its tracks, and opening the
// recorder.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmHauptForm.h"
#include "cdinput/frmCDPlayer.h"
#include "cdinput/frmKomponenten.h"
#include "cdinput/grab_lauf.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"
#include "recorder/frmAufnehmen.h"

namespace vantora {

namespace {

constexpr int kEinlegeMs = 1500;  // until the drive has noticed its disc
constexpr int kAnlaufMs = 500;
constexpr int kBrauchbar = 500;  // lowest mode of a usable device

}  // namespace

// Chooses the reading device: the drive of the settings. Returns its root.
Text frmHauptForm::QuellLaufwerk() {
  vantora::frmKomponenten& k = prog.frmKomponenten();
  k.ACD_INIT();
  k.AktCDDevice = GetZahl16(prog.plattform, L"AudioCDROMDevice", L"1");
  k.AktCDDrive = Trim(GetSetting(prog.plattform, L"AudioCDROMDrive", L""));
  const int anzahl = k.ACD.DriveCount();
  for (int i = 1; i <= anzahl; ++i) {
    const Text name = k.ACD.DriveDescription(i) + Text(32, L' ');
    const Text buchstabe =
        k.SCSILaufwerkSuchen(name.substr(0, 16), name.substr(20, 2), name.substr(23, 2));
    if (Ucase(Links(buchstabe, 1)) + L":\\" != Ucase(k.AktCDDrive)) continue;
    k.AktCDDevice = Ganz16(i);
    break;
  }
  return k.AktCDDrive;
}

// Asks for a disc until one with tracks lies in the drive; returns false when the user gives up.
bool frmHauptForm::QuellDiscOeffnen(const Text& laufwerk) {
  EventLoop& schleife = prog.plattform.schleife;
  vantora::frmKomponenten& k = prog.frmKomponenten();
  const Text ort = L"CDKopieren:";
  const auto frage = [&](const Text& text) {
    schleife.MousePointer(Pointer::Normal);
    return prog.MsgBoxen(text, kJaNein) == kJa;
  };
  const auto ohneDisc = [&k] { return k.CDModus == kMciReady && !k.CD_Check(); };
  for (;;) {
    if (!frage(LoadResString(8019) + laufwerk + LoadResString(8020) + kZeilenEnde +
               LoadResString(8021))) {
      return false;
    }
    schleife.MousePointer(Pointer::Hourglass);
    prog.Pausieren(kEinlegeMs);
    k.CD_Open(laufwerk);
    prog.Pausieren(kAnlaufMs);
    if (k.CDModus < kBrauchbar) {
      prog.AppLog(ort, L"Can't open Device. Result:" + ZahlText(k.CDModus));
      if (!frage(LoadResString(8022) + laufwerk + LoadResString(8023) + kZeilenEnde +
                 LoadResString(8024) + kZeilenEnde + LoadResString(8025))) {
        return false;
      }
    } else if (ohneDisc()) {
      prog.AppLog(ort, L"No CD in CDROM. Result CDMode:" + ZahlText(k.CDModus));
      const Text fehler = k.ImageFehler();
      k.CD_Close();
      const Text grund = fehler.empty() ? LoadResString(8026) : fehler;
      if (!frage(grund + kZeilenEnde + LoadResString(8025))) return false;
    } else if (ohneDisc()) {
      // A disc was there a moment ago, so the drive cannot read it.
      if (frage(LoadResString(8026) + kZeilenEnde + LoadResString(8027))) return false;
    } else if (k.CD_Check()) {
      return true;
    }
  }
}

// Chooses target files for all tracks in the temporary folder. Returns false when they do not fit
// there, or when their paths are too long for the catalog.
bool frmHauptForm::KopieVorbereiten() {
  const Text ort = L"imgCDKopieren";
  vantora::frmKomponenten& k = prog.frmKomponenten();
  const Text ordner = AddBackslash(prog.Temporary_Directory.Getrimmt());
  k.CD_SetFormatMS();
  const int anzahl = k.GetNumTracks();
  prog.GrabTracks.clear();
  prog.GrabTrackMB.clear();
  prog.GrabDateien.clear();
  prog.CDKopieAktiv = false;
  prog.GrabNamen.clear();
  prog.GrabInterpret.clear();
  std::int32_t groesse = 0;
  for (int i = 1; i <= anzahl; ++i) {
    prog.GrabTracks.push_back(Ganz16(i));
    prog.GrabTrackMB.push_back(MBVonMs(k.GetTrackLength(i)));
    prog.GrabDateien.push_back(LoadResString(8600) + Format(i, L"00") + L".wav");
    groesse += prog.GrabTrackMB.back();
  }
  prog.AppLog(ort, L"CD Size MB:" + ZahlText(groesse));
  const std::int64_t frei = Abgeschnitten(prog.FreierPlatz(Links(ordner, 2)) / kMB);
  prog.AppLog(ort, L"Bytes free on temp drive Size MB:" + ordner + L": " + ZahlText(frei));
  prog.AppLog(ort, L"Check IF enough place.");
  if (groesse > frei) {
    prog.plattform.schleife.MousePointer(Pointer::Normal);
    prog.MsgBoxen(LoadResString(8028) + kZeilenEnde + LoadResString(8029), kOk);
    return false;
  }
  for (Text& datei : prog.GrabDateien) datei.insert(0, ordner);
  return ZielePassen(prog);
}

// Reads the disc into the catalog without questions; returns false when a part of it is missing.
bool frmHauptForm::KopieLesen() {
  const std::shared_ptr<vantora::frmSchreibFortschritt> fortschritt =
      prog.frmSchreibFortschritt.Laden();
  prog.Zeigen(*fortschritt);
  const bool vorher = prog.GrabOhneNachfrage;
  prog.GrabOhneNachfrage = true;
  int ergebnis = 1;
  try {
    ergebnis = SaveWave(prog);
  } catch (...) {
    prog.GrabOhneNachfrage = vorher;
    throw;
  }
  prog.GrabOhneNachfrage = vorher;
  return ergebnis == 0;
}

// Burns the catalog that was read, as the burn button does.
void frmHauptForm::KopieBrennen() {
  lvwKatalog.ListItems.Clear();
  KatalogShow();
  prog.CDKopieAktiv = true;
  prog.KopieDateien = prog.GrabDateien;
  const bool dao = prog.frmCDBrennen().optDiscAtOnce.Enabled &&
                   prog.MsgBoxen(LoadResString(8086), kJaNein) == kJa;
  if (dao) {
    for (KatalogEintrag& e : prog.Katalog) e.Pause = 0;
    KatalogShow();
    prog.frmCDBrennen().optDiscAtOnce.SetValue(true);
  }
  imgBrennen_MouseUp();
  // Opening the window chooses the method by the catalog, so the user's earlier choice is set
  // again.
  const bool offen = prog.frmCDBrennen.Geladen() && prog.frmCDBrennen().Visible();
  if (dao && offen) prog.frmCDBrennen().optDiscAtOnce.SetValue(true);
}

void frmHauptForm::CDKopieren() {
  Weiter([&] { prog.AppLog(L"imgCDKopieren_MouseUp", L"CD-Kopieren"); });
  std::vector<Text> alte;  // files of an earlier copy that was not burnt
  Weiter(
      [&] { alte = prog.plattform.dateien.List(prog.Temporary_Directory.Getrimmt(), L"*.wav"); });
  if (!alte.empty() && prog.MsgBoxen(LoadResString(8084), kJaNein) != kJa) return;
  PlayWaveNormal(L"");
  Abspielen = false;
  prog.GrabTrackSektoren = 0;
  prog.CDPlayerSchliessen();
  if (!prog.BrennerBereit) {
    prog.AppLog(L"CDKopieren:", L"No burner available!");
    prog.MsgBoxen(LoadResString(8013) + LoadResString(8014) + kZeilenEnde + LoadResString(8015),
                  kStopp);
    return;
  }
  NeuerKatalog();
  vantora::frmKomponenten& k = prog.frmKomponenten();
  const Text laufwerk = QuellLaufwerk();
  k.CD_Close();
  Window.Enabled = false;  // no other job may begin while the drive is awaited
  const bool bereit = QuellDiscOeffnen(laufwerk) && KopieVorbereiten();
  k.CD_Close();
  const bool gelesen = bereit && KopieLesen();
  Window.Enabled = true;
  if (!bereit) return;
  if (gelesen) {
    KopieBrennen();
    return;
  }
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  k.CD_Close();
  prog.MsgBoxen(
      LoadResString(8030) + laufwerk + LoadResString(8031) + kZeilenEnde + LoadResString(8032),
      kOk);
  KatalogNeu();
}

// An error ends the copy, and the main window can be used again.
void frmHauptForm::imgCDKopieren_MouseUp() {
  if (KopieLaeuft) return;
  KopieLaeuft = true;
  try {
    CDKopieren();
  } catch (const Laufzeitfehler& fehler) {
    prog.AppLog(L"CDKopieren:", ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
    prog.frmSchreibFortschritt.Entladen();
    Window.Enabled = true;
  } catch (...) {
    KopieLaeuft = false;
    Window.Enabled = true;
    throw;
  }
  KopieLaeuft = false;
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

void frmHauptForm::imgCDAuslesen_MouseUp() {
  EventLoop& schleife = prog.plattform.schleife;
  prog.AppLog(L"imgCDAuslesen_MouseUp", L"CD-Auslesen");
  PlayWaveNormal(L"");
  Abspielen = false;
  Window.Enabled = false;
  schleife.MousePointer(Pointer::Hourglass);
  ZeigeLaengeNachOeffnen();
  const std::shared_ptr<vantora::frmCDPlayer> player = prog.frmCDPlayer.Laden();
  prog.Zeigen(*player);
  schleife.DoEvents();
  player->Init_CDPlayer();
  schleife.MousePointer(Pointer::Normal);
}

void frmHauptForm::imgLPKopieren_MouseUp() {
  prog.AppLog(L"imgLPKopieren_MouseUp", L"LP-Kopieren");
  if (Soundkarte) AufnahmeOeffnen(-1);
}

void frmHauptForm::imgLPAufnehmen_MouseUp() {
  prog.AppLog(L"imgLPAufnehmen_MouseUp", L"LP-Aufnehmen");
  if (Soundkarte) AufnahmeOeffnen(0);
}

void frmHauptForm::AufnahmeOeffnen(std::int16_t lpModus) {
  EventLoop& schleife = prog.plattform.schleife;
  PlayWaveNormal(L"");
  Abspielen = false;
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  prog.LPModus = lpModus;
  Jedenfalls([&] { prog.frmAufnehmen.Laden()->Init_Aufnehmen(); },
             [&] {
               // If the recorder could not open, the main window is enabled again, so that the user
               // can go on.
               if (!prog.frmAufnehmen.Geladen() || !prog.frmAufnehmen().Visible()) {
                 Window.Enabled = true;
               }
               schleife.MousePointer(Pointer::Normal);
             });
}

}  // namespace vantora
