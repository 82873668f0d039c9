#include "catalog/cd_kopie.h"

#include "app/frmKomponenten.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/haupt_fenster.h"
#include "catalog/katalog_ablage.h"
#include "catalog/katalog_liste.h"
#include "catalog/vorschau.h"
#include "cdinput/grab_lauf.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"

namespace vantora {

namespace {

constexpr int kEinlegeMs = 1500;  // time until the drive notices a new disc
constexpr int kAnlaufMs = 500;
constexpr int kBrauchbar = 500;  // lowest mode of a usable device

}  // namespace

CDKopie::CDKopie(Programm& programm, Teile teile, HauptFenster& fenster)
    : prog(programm), t_(teile), fenster_(fenster) {}

// Chooses the reading device: the drive of the settings. Returns its root.
Text CDKopie::QuellLaufwerk() {
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
bool CDKopie::QuellDiscOeffnen(const Text& laufwerk) {
  EventLoop& schleife = prog.plattform.schleife;
  vantora::frmKomponenten& k = prog.frmKomponenten();
  const Text ort = L"CDKopieren:";
  const auto frage = [&](const Text& text) {
    schleife.MousePointer(Pointer::Normal);
    return prog.MsgBoxen(text, kJaNein) == kJa;
  };
  const auto ohneDisc = [&k] { return k.CDModus == kMciReady && !k.CD_Check(); };
  for (;;) {
    if (!frage(prog.Text(8019) + laufwerk + prog.Text(8020) + kZeilenEnde + prog.Text(8021))) {
      return false;
    }
    schleife.MousePointer(Pointer::Hourglass);
    prog.Pausieren(kEinlegeMs);
    k.CD_Open(laufwerk);
    prog.Pausieren(kAnlaufMs);
    if (k.CDModus < kBrauchbar) {
      prog.AppLog(ort, L"Can't open Device. Result:" + ZahlText(k.CDModus));
      if (!frage(prog.Text(8022) + laufwerk + prog.Text(8023) + kZeilenEnde + prog.Text(8024) +
                 kZeilenEnde + prog.Text(8025))) {
        return false;
      }
    } else if (ohneDisc()) {
      prog.AppLog(ort, L"No CD in CDROM. Result CDMode:" + ZahlText(k.CDModus));
      const Text fehler = k.ImageFehler();
      k.CD_Close();
      const Text grund = fehler.empty() ? prog.Text(8026) : fehler;
      if (!frage(grund + kZeilenEnde + prog.Text(8025))) return false;
    } else if (ohneDisc()) {
      // A disc was there a moment ago, so the drive cannot read it.
      if (frage(prog.Text(8026) + kZeilenEnde + prog.Text(8027))) return false;
    } else if (k.CD_Check()) {
      return true;
    }
  }
}

// Chooses target files for all tracks in the temporary folder. Returns false when they do not fit
// there, or when their paths are too long for the catalog.
bool CDKopie::KopieVorbereiten() {
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
    prog.GrabDateien.push_back(prog.Text(8600) + Format(i, L"00") + L".wav");
    groesse += prog.GrabTrackMB.back();
  }
  prog.AppLog(ort, L"CD Size MB:" + ZahlText(groesse));
  const std::int64_t frei = Abgeschnitten(prog.FreierPlatz(Links(ordner, 2)) / kMB);
  prog.AppLog(ort, L"Bytes free on temp drive Size MB:" + ordner + L": " + ZahlText(frei));
  prog.AppLog(ort, L"Check IF enough place.");
  if (groesse > frei) {
    prog.plattform.schleife.MousePointer(Pointer::Normal);
    prog.MsgBoxen(prog.Text(8028) + kZeilenEnde + prog.Text(8029), kOk);
    return false;
  }
  for (Text& datei : prog.GrabDateien) datei.insert(0, ordner);
  return ZielePassen(prog);
}

// Reads the disc into the catalog without questions; returns false when a part of it is missing.
bool CDKopie::KopieLesen() {
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
void CDKopie::KopieBrennen() {
  t_.Liste.ZeilenLeeren();
  t_.Liste.KatalogShow();
  prog.CDKopieAktiv = true;
  prog.KopieDateien = prog.GrabDateien;
  const bool dao =
      prog.frmCDBrennen().optDiscAtOnce.Enabled && prog.MsgBoxen(prog.Text(8086), kJaNein) == kJa;
  if (dao) {
    for (KatalogEintrag& e : prog.Katalog) e.Pause = 0;
    t_.Liste.KatalogShow();
    prog.frmCDBrennen().optDiscAtOnce.SetValue(true);
  }
  fenster_.imgBrennen_MouseUp();
  // Opening the window chooses the method by the catalog, so the user's earlier choice is set
  // again.
  const bool offen = prog.frmCDBrennen.Geladen() && prog.frmCDBrennen().Visible();
  if (dao && offen) prog.frmCDBrennen().optDiscAtOnce.SetValue(true);
}

void CDKopie::CDKopieren() {
  Weiter([&] { prog.AppLog(L"imgCDKopieren_MouseUp", L"CD-Kopieren"); });
  std::vector<Text> alte;  // files of an earlier copy that was not burnt
  Weiter(
      [&] { alte = prog.plattform.dateien.List(prog.Temporary_Directory.Getrimmt(), L"*.wav"); });
  if (!alte.empty() && prog.MsgBoxen(prog.Text(8084), kJaNein) != kJa) return;
  t_.Vorschau.Stop();
  prog.GrabTrackSektoren = 0;
  prog.CDPlayerSchliessen();
  if (!prog.BrennerBereit) {
    prog.AppLog(L"CDKopieren:", L"No burner available!");
    prog.MsgBoxen(prog.Text(8013) + prog.Text(8014) + kZeilenEnde + prog.Text(8015), kStopp);
    return;
  }
  t_.Ablage.NeuerKatalog();
  vantora::frmKomponenten& k = prog.frmKomponenten();
  const Text laufwerk = QuellLaufwerk();
  k.CD_Close();
  fenster_.FreiSetzen(false);  // no other job may begin while the program waits for the disc
  const bool bereit = QuellDiscOeffnen(laufwerk) && KopieVorbereiten();
  k.CD_Close();
  const bool gelesen = bereit && KopieLesen();
  fenster_.FreiSetzen(true);
  if (!bereit) return;
  if (gelesen) {
    KopieBrennen();
    return;
  }
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  k.CD_Close();
  prog.MsgBoxen(prog.Text(8030) + laufwerk + prog.Text(8031) + kZeilenEnde + prog.Text(8032), kOk);
  t_.Liste.KatalogNeu();
}

// An error ends the copy, and the main window can be used again. The event loop reports the error.
void CDKopie::Kopieren() {
  if (KopieLaeuft) return;
  KopieLaeuft = true;
  try {
    CDKopieren();
  } catch (const Laufzeitfehler& fehler) {
    KopieLaeuft = false;
    prog.AppLog(L"CDKopieren:", ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
    prog.frmSchreibFortschritt.Entladen();
    fenster_.FreiSetzen(true);
    throw;
  } catch (...) {
    KopieLaeuft = false;
    fenster_.FreiSetzen(true);
    throw;
  }
  KopieLaeuft = false;
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

}  // namespace vantora
