#include "catalog/neuer_track.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/katalog_datei.h"
#include "catalog/wave_pruefung.h"

namespace vantora {

namespace {

constexpr std::int16_t kUeblichePause = 2;  // seconds

void TitelUndInterpret(Programm& prog, const Text& datei, const Text& datum, const Text& vorschlag,
                       Text& titel, Text& interpret) {
  if (Trim(prog.NeuInterpret).empty()) {
    interpret = prog.Katalog[0].KatalogInterpret.Getrimmt();
    if (interpret.empty()) interpret = prog.Text(8441);
  }
  if (prog.Catalog_Check == 1) {
    Text gefundenerTitel, gefundenerInterpret, pause;
    KatalogTitelSuchen(prog, datei, datum, gefundenerTitel, gefundenerInterpret, pause);
    titel = gefundenerTitel.empty() ? prog.Text(8440) : gefundenerTitel;
    if (!gefundenerInterpret.empty()) interpret = gefundenerInterpret;
  } else {
    titel = prog.Ask_Track_Info == 1 ? vorschlag : prog.Text(8440);
  }
}

}  // namespace

void KatalogTitelSuchen(Programm& prog, const Text& datei, const Text& datum, Text& titel,
                        Text& interpret, Text& pause) {
  Dateien& dateien = prog.plattform.dateien;
  Text ordner = prog.Catalogue_Open_Dir;
  std::vector<Text> namen;
  try {
    namen = dateien.List(ordner, L"*.vtr");
  } catch (const Laufzeitfehler& fehler) {
    if (fehler.Nummer != kFehlerPfadFehlt) throw;
    ordner = L"C:\\";
    namen = dateien.List(ordner, L"*.vtr");
  }
  for (const Text& name : namen) {
    KatalogFeld katalog;
    // A file that is no catalog is skipped, because another file may still hold the track.
    Weiter([&] { KatalogLesen(dateien, AddBackslash(ordner) + name, katalog); });
    for (std::size_t i = 1; i < katalog.size(); ++i) {
      const KatalogEintrag& e = katalog[i];
      if (Ucase(e.Datei.Getrimmt()) != Ucase(Trim(datei))) continue;
      if (Ucase(Trim(e.DateiDatum)) != Ucase(Trim(datum))) continue;
      titel = e.Titel.Getrimmt();
      interpret = e.Interpret.Getrimmt();
      pause = ZahlText(e.Pause);
      return;
    }
  }
}

KatalogEintrag NeuerTrack(Programm& prog, MMWave& wave, const Text& datei, const Text& vorschlag) {
  KatalogEintrag neu;
  const double ms = Runden(WaveLaenge(wave, datei));
  const auto bytes = static_cast<double>(prog.plattform.dateien.FileLen(datei));
  KatalogEintrag& kopf = prog.Katalog[0];
  kopf.KatalogTitel = TextErsetzen(kopf.KatalogTitel.Ganz(), Text(1, L'\0'), L" ");
  kopf.KatalogInterpret = TextErsetzen(kopf.KatalogInterpret.Ganz(), Text(1, L'\0'), L" ");
  neu.DateiDatum = Trim(prog.plattform.dateien.FileDateTime(datei));
  Text titel, interpret;
  TitelUndInterpret(prog, datei, neu.DateiDatum, vorschlag, titel, interpret);
  neu.Titel = Trim(titel);
  neu.Interpret = Trim(interpret);
  neu.GroesseMB = Ganz16(Val(Format(bytes / kMB, L"00")));
  neu.Pause = kUeblichePause;
  neu.Datei = datei;
  neu.Laenge = ZahlText(ms);
  neu.Ueberblendet = 0;
  neu.KatalogTitel = kopf.KatalogTitel.Getrimmt();
  neu.KatalogInterpret = kopf.KatalogInterpret.Getrimmt();
  return neu;
}

}  // namespace vantora
