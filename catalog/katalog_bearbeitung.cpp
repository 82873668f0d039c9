#include "catalog/katalog_bearbeitung.h"

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/katalog_liste.h"
#include "catalog/katalog_rechnung.h"
#include "catalog/katalog_zeiten.h"
#include "catalog/neuer_track.h"
#include "catalog/vorschau.h"
#include "dialogs/frmNeuerInterpret.h"

namespace vantora {

KatalogBearbeitung::KatalogBearbeitung(Programm& programm, KatalogListe& liste,
                                       KatalogZeiten& zeiten, Vorschau& vorschau, MMWave& wave)
    : prog(programm), liste_(liste), zeiten_(zeiten), vorschau_(vorschau), MMWaveFileX1(wave) {}

// ---- tracks ----

void KatalogBearbeitung::Katalog_AddWaveFile(const Text& dateiName, const Text& vorschlag) {
  const Text datei = Trim(dateiName);
  prog.KatalogGeaendert = true;
  if (!prog.DateiExistiert(datei)) return;
  if (!Weiter([&] { UBound(prog.Katalog); })) prog.Katalog.assign(2, KatalogEintrag{});
  if (!Weiter([&] { prog.plattform.dateien.Open(datei, Zugriff::Anhaengen); })) return;
  KatalogEintrag neu = NeuerTrack(prog, MMWaveFileX1, datei, vorschlag);
  if (neu.KatalogTitel.Getrimmt().empty()) neu.KatalogTitel = liste_.KatalogTitel();
  if (neu.KatalogInterpret.Getrimmt().empty()) neu.KatalogInterpret = liste_.KatalogInterpret();
  prog.Katalog.push_back(std::move(neu));
  liste_.KatalogShow();
  zeiten_.Pruefen();
}

void KatalogBearbeitung::LiedAusKatalogImport() {
  for (const std::int16_t nummer : prog.QuellAuswahl) {
    TrackAnfuegen(prog.Katalog, Element(prog.QuellKatalog, nummer));
  }
  liste_.KatalogNeu();
  liste_.KatalogShow();
}

void KatalogBearbeitung::SetNewPos(std::int16_t von, std::int16_t nach) {
  std::swap(Element(prog.Katalog, von), Element(prog.Katalog, nach));
  liste_.KatalogNeu();
  liste_.KatalogShow();
}

bool KatalogBearbeitung::Beweglich(int nummer) const {
  return nummer >= 1 && nummer <= UBound(prog.Katalog) &&
         Element(prog.Katalog, nummer).Ueberblendet == 0;
}

bool KatalogBearbeitung::KannVerschieben(int schritt) const {
  const int alt = liste_.AktuellerTitel();
  return Beweglich(alt) && ZielDesSchritts(prog.Katalog, alt, schritt) != 0;
}

void KatalogBearbeitung::Verschieben(int schritt) {
  const int alt = liste_.AktuellerTitel();
  if (!Beweglich(alt)) return;
  vorschau_.PlayWaveNormal(L"");
  prog.KatalogGeaendert = true;
  liste_.KatalogLastStepSave();
  const int neu = ZielDesSchritts(prog.Katalog, alt, schritt);
  if (neu == 0) return;
  SetNewPos(Ganz16(alt), Ganz16(neu));
  liste_.TitelWaehlen(neu);
  for (const int zeile : {1, alt, neu}) {
    // A row is removed when its file is missing, so it may not exist any more.
    Weiter([&] { liste_.Zeile(zeile).SetSelected(zeile == neu); });
  }
}

// ---- properties ----

void KatalogBearbeitung::AngabenVergessen() {
  prog.NeuInterpret.clear();
  prog.NeuTitel.clear();
  prog.NeuPause.clear();
}

void KatalogBearbeitung::TrackDatenAendern(bool ohneUndo) {
  const int gewaehlt = liste_.AktuellerTitel();
  if (gewaehlt <= 0 || gewaehlt > liste_.Zeilen()) return;
  const KatalogEintrag gemeint = Element(prog.Katalog, gewaehlt);
  const std::shared_ptr<vantora::frmNeuerInterpret> fenster = prog.frmNeuerInterpret.Laden();
  const ListItem& gezeigt = liste_.Zeile(gewaehlt);
  fenster->TrackZeigen(gewaehlt, gezeigt.SubItems(2), gezeigt.SubItems(3));
  fenster->KeepClear = &liste_.Tabelle();
  AngabenVergessen();
  prog.DialogBestaetigt = false;
  prog.ZeigeModal(fenster);
  // Rows may have lost their files and been removed meanwhile, so the other rows may have moved up.
  const int nummer = Wiederfinden(prog.Katalog, gemeint, liste_.AktuellerTitel());
  if (fenster->Abbruch || nummer == 0) return;
  liste_.TitelWaehlen(nummer);
  if (prog.DialogBestaetigt) {
    prog.KatalogGeaendert = true;
    if (!ohneUndo) liste_.KatalogLastStepSave();
  }
  TrackUebernehmen();
  liste_.KatalogShow();
}

void KatalogBearbeitung::TrackUebernehmen() {
  ListItem& zeile = liste_.Zeile(liste_.AktuellerTitel());
  if (!Trim(prog.NeuInterpret).empty()) zeile.SetSubItems(3, prog.NeuInterpret);
  if (!Trim(prog.NeuTitel).empty()) zeile.SetSubItems(2, prog.NeuTitel);
  if (!Trim(prog.NeuPause).empty()) zeile.SetSubItems(6, prog.NeuPause + prog.Text(8070));
  AngabenVergessen();
  KatalogEintrag& e = Element(prog.Katalog, liste_.AktuellerTitel());
  e.Interpret = zeile.SubItems(3);
  e.Titel = zeile.SubItems(2);
  e.Pause = Ganz16(Val(zeile.SubItems(6)));
}

void KatalogBearbeitung::KatalogDatenAendern(bool ohneUndo) {
  const std::shared_ptr<vantora::frmNeuerInterpret> fenster = prog.frmNeuerInterpret.Laden();
  fenster->KatalogZeigen(Trim(liste_.KatalogTitel()), Trim(liste_.KatalogInterpret()));
  prog.DialogBestaetigt = false;
  prog.ZeigeModal(fenster);
  if (fenster->Abbruch) return;
  if (prog.DialogBestaetigt) {
    prog.KatalogGeaendert = true;
    if (!ohneUndo) liste_.KatalogLastStepSave();
  }
  const Text titel = prog.NeuTitel, interpret = prog.NeuInterpret;
  AngabenVergessen();
  if (!Trim(interpret).empty()) {
    liste_.InterpretZeigen(interpret);
    for (KatalogEintrag& e : prog.Katalog) e.KatalogInterpret = interpret;
  }
  if (!Trim(titel).empty()) {
    liste_.TitelZeigen(titel);
    for (KatalogEintrag& e : prog.Katalog) e.KatalogTitel = titel;
  }
}

void KatalogBearbeitung::Eigenschaften() {
  if (liste_.Leer()) return;
  prog.KatalogGeaendert = true;
  if (liste_.GewaehlteZeilen().empty()) {
    KatalogDatenAendern();
  } else {
    TrackDatenAendern();
  }
}

void KatalogBearbeitung::NeuenTrackBearbeiten(int nummer) {
  for (int i = 1; i < nummer; ++i) liste_.Zeile(i).SetSelected(false);
  liste_.TitelWaehlen(nummer);
  prog.DialogBestaetigt = true;
  TrackDatenAendern(true);
}

}  // namespace vantora
