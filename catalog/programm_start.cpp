#include "catalog/programm_start.h"

#include "app/frmKomponenten.h"
#include "app/frmStartUp.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "catalog/haupt_fenster.h"
#include "catalog/katalog_ablage.h"
#include "catalog/katalog_liste.h"
#include "catalog/katalog_rechnung.h"
#include "catalog/vorschau.h"
#include "cdwriting/frmCDBrennen.h"
#include "mixer/frmMixer.h"

#include <utility>

namespace vantora {

namespace {

constexpr const wchar_t* kOrt = L"Init_Prog";
constexpr int kAbbrechen = 3, kWiederholen = 4;  // answers of the box with three choices
constexpr int kFehlerBox = 50;

}  // namespace

ProgrammStart::ProgrammStart(Programm& programm, Teile teile, HauptFenster& fenster)
    : prog(programm), t_(teile), fenster_(fenster) {}

// Runs one statement of the start. On an error the user may end the program, repeat the statement,
// or go on with the next one.
void ProgrammStart::Schritt(const std::function<void()>& anweisung) {
  for (;;) {
    try {
      anweisung();
      return;
    } catch (const Laufzeitfehler& fehler) {
      if (!NochmalNachFehler(fehler.Nummer, fehler.Beschreibung)) return;
    } catch (const std::exception& fehler) {  // a library error, not translated
      const std::string was = fehler.what();
      if (!NochmalNachFehler(kFehlerUngueltigerAufruf, Text(was.begin(), was.end()))) return;
    }
  }
}

bool ProgrammStart::NochmalNachFehler(int nummer, const Text& beschreibung) {
  const Text meldung = L"An Error Occurred In: \r\nNumber: " + ZahlText(nummer) +
                       L"\r\nDescription: " + beschreibung +
                       L"\r\nLocation: frmHauptForm, Init_Prog";
  const int wahl = prog.plattform.schleife.SystemBox(meldung, kFehlerBox, prog.Text(0));
  if (wahl == kAbbrechen) throw ProgrammEnde{};
  return wahl == kWiederholen;
}

void ProgrammStart::Status(int text) {
  if (prog.frmStartUp.Geladen()) prog.frmStartUp().lblStatus.Caption = prog.Text(text);
  prog.plattform.schleife.DoEvents();
}

void ProgrammStart::Init_Prog() {
  Display& bildschirm = prog.plattform.bildschirm;
  Schritt([&] { fenster_.SetTexte(); });
  Schritt([&] {
    prog.AppLog(L"Init:Prog", L"Screen.TwipsperpixelX: " + ZahlText(bildschirm.TwipsPerPixelX()));
  });
  Schritt([&] { prog.CDPlayerSchliessen(); });
  Komponenten();
  Optionen();
  Brenner();
  Schritt([&] { t_.Liste.KatalogShow(); });
}

void ProgrammStart::Komponenten() {
  System& system = prog.plattform.system;
  Schritt([&] { Status(1100); });
  Schritt([&] { prog.AppLog(L"HEADER", L""); });
  Schritt([&] {
    prog.AppLog(L"Startup...", L"Version " + ZahlText(system.Major()) + L"." +
                                   ZahlText(system.Minor()) + L"." + ZahlText(system.Revision()));
  });
  Schritt([&] { prog.frmKomponenten().ACD_INIT(); });
  Schritt([&] {
    prog.AppLog(kOrt, ZahlText(prog.plattform.acd.DriveCount()) + L" CD-Laufwerke im Rechner");
  });
  Soundkarte();
  Schritt([&] { prog.AppLog(kOrt, L"Searching for TS_CUT"); });
  if (!Weiter([&] { prog.plattform.tsCut.Cut(L"", 0, 0); })) {
    Schritt([&] { prog.AppLog(kOrt, L"TS_CUT not found"); });
    prog.plattform.schleife.SystemBox(L"TS_CUT.DLL not found.", kWarnung, prog.Text(0));
    throw ProgrammEnde{};
  }
  Schritt([&] { prog.AppLog(kOrt, L"TS_CUT found."); });
  prog.AppPfad = system.Path();
  Schritt([&] { prog.AppLog(kOrt, L"Path:" + prog.AppPfad); });
  prog.Katalog = LeererKatalog(prog.Text(8440), prog.Text(8441));
}

void ProgrammStart::Soundkarte() {
  Schritt([&] { prog.AppLog(kOrt, L"Checking wavedevices"); });
  std::vector<Text> namen;
  Schritt([&] { prog.WaveGeraete(namen); });
  t_.Vorschau.SoundkarteSetzen(!namen.empty());
  if (!t_.Vorschau.Soundkarte()) {
    Schritt([&] { prog.AppLog(kOrt, L"no soundcard"); });
    prog.plattform.schleife.SystemBox(prog.Text(8082), kWarnung, prog.Text(0));
    return;
  }
  Schritt([&] { prog.AppLog(kOrt, L"FoundSoundcard"); });
  Schritt([&] { t_.Vorschau.PlayWaveNormal(L""); });
}

void ProgrammStart::Optionen() {
  Schritt([&] { Status(1101); });
  Schritt([&] { prog.AppLog(kOrt, L"Go Load frmKomponenten"); });
  Schritt([&] { prog.frmKomponenten(); });
  Schritt([&] { Status(1102); });
  Schritt([&] { prog.AppLog(kOrt, L"LoadExtrasSet"); });
  Schritt([&] { prog.LoadExtrasSet(); });
  Schritt([&] { Status(1103); });
  Schritt([&] { prog.AppLog(kOrt, L"LoadLastDir"); });
  Schritt([&] { prog.LoadLastDir(); });
  // Unfinished edits are mended before any of the user's files is examined.
  Schritt([&] { Ausgebessert_ = prog.plattform.edits.Mend(); });
  Schritt([&] { prog.AppLog(kOrt, L"LoadLastCatalog"); });
  Schritt([&] { t_.Ablage.LoadLastCat(); });
}

void ProgrammStart::Brenner() {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Schritt([&] { Status(1104); });
  Schritt([&] { prog.AppLog(kOrt, L"SetBurnerDevices"); });
  prog.DialogBestaetigt = false;
  Schritt([&] { prog.AppLog(kOrt, L"Check CD Audio Hardware"); });
  Schritt([&] { komponenten.LaufwerkeMelden(); });
  Schritt([&] { prog.LängeCD = GetZahl(prog.plattform, L"LängeCD", L"80"); });
  Schritt([&] { prog.AppLog(kOrt, L"Get Last CDDevices from registry"); });
  Schritt([&] { komponenten.AktCDDevice = GetZahl16(prog.plattform, L"AudioCDROMDevice", L"0"); });
  Schritt([&] { komponenten.AktCDDrive = GetSetting(prog.plattform, L"AudioCDROMDrive", L""); });
  Schritt([&] {
    if (Trim(komponenten.AktCDDrive).empty()) komponenten.CheckAudioCDRomDevices();
  });
  fenster_.KnoepfeZeigen();
  Schritt([&] { Status(1106); });
  Schritt([&] { prog.frmCDBrennen(); });
  prog.BrennerGeladen = true;
  Schritt([&] { Status(1107); });
  Schritt([&] { prog.frmMixer(); });
  Schritt([&] { Status(1108); });
  prog.JobAbbruch = false;
  Schritt([&] {
    const Text zeiger = AddBackslash(prog.AppPfad) + L"hourglas.ani";
    if (prog.DateiExistiert(zeiger)) prog.plattform.bildschirm.SetSystemCursor(zeiger);
  });
  Schritt([&] {
    if (komponenten.AutoInsertAktiv()) {
      prog.MsgBoxen(prog.Text(8000) + prog.Text(8001) + prog.Text(8002), kHinweis);
    }
  });
}

void ProgrammStart::AusgebessertZeigen() {
  const MendedEdits fund = std::exchange(Ausgebessert_, {});
  const std::pair<int, const std::vector<Text>&> listen[] = {{30092, fund.Finished},
                                                             {30126, fund.RunReport},
                                                             {30093, fund.SilenceTaken},
                                                             {30094, fund.Left},
                                                             {30095, fund.Failed}};
  for (const auto& [text, dateien] : listen) {
    for (const Text& datei : dateien) prog.AppLog(kOrt, prog.Text(text) + L" " + datei);
    if (dateien.empty()) continue;
    const bool gelungen = &dateien == &fund.Finished || &dateien == &fund.SilenceTaken;
    prog.MsgBoxen(prog.Text(text) + ZeilenListe(dateien), gelungen ? kErfolg : kWarnung);
  }
}

}  // namespace vantora
