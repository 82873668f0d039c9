#include "catalog/katalog_ablage.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmLiedAusKatalog.h"
#include "catalog/katalog_datei.h"
#include "catalog/katalog_liste.h"
#include "catalog/katalog_rechnung.h"
#include "catalog/katalog_zeiten.h"
#include "catalog/vorschau.h"
#include "dialogs/datei_holen.h"

namespace vantora {

namespace {

constexpr const wchar_t* kKatalogEndung = L".vtr";

}  // namespace

KatalogAblage::KatalogAblage(Programm& programm, KatalogListe& liste, KatalogZeiten& zeiten,
                             Vorschau& vorschau)
    : prog(programm), liste_(liste), zeiten_(zeiten), vorschau_(vorschau) {}

void KatalogAblage::KatalogInitialisieren() {
  liste_.KatalogLastStepSave();
  liste_.KatalogNeu();
  prog.Katalog = LeererKatalog(prog.Text(8440), prog.Text(8441));
  prog.KatalogGeaendert = false;
}

void KatalogAblage::NeuerKatalog() {
  KatalogGeaendertFragen();
  KatalogInitialisieren();
  liste_.TitelWaehlen(0);
  prog.KatalogDatei.clear();
  prog.LetzterKatalog.clear();
  prog.Last_Catalogue_Name = L"";
}

// A mistake in the dialog must not lose the user's changes, so the dialog comes again until the
// catalog is saved or the dialog is cancelled.
void KatalogAblage::KatalogGeaendertFragen() {
  if (!prog.KatalogGeaendert) return;
  if (prog.MsgBoxen(prog.Text(8006), kFrage, prog.Text(0)) != kJa) return;
  while (KatalogSichern() == Sicherung::Abgelehnt) {
  }
}

bool KatalogAblage::KatalogSpeichern(const Text& datei) {
  if (prog.DateiExistiert(datei) && prog.MsgBoxen(prog.Text(8005), kFrage) != kJa) return false;
  KatalogSchreiben(prog.plattform.dateien, datei, prog.Katalog);
  prog.KatalogGeaendert = false;
  return true;
}

KatalogAblage::KatalogNamen KatalogAblage::Namen() const {
  return {prog.KatalogDatei, prog.LetzterKatalog};
}

void KatalogAblage::NamenSetzen(const KatalogNamen& namen) {
  prog.KatalogDatei = namen.Datei;
  prog.LetzterKatalog = namen.Letzter;
  liste_.DateiNameZeigen(namen.Datei);
}

// The file dialog makes the chosen name the catalog's own. Here the old name is kept until reading
// or writing has succeeded, so that a refusal or an error leaves the catalog its name.
KatalogAblage::KatalogNamen KatalogAblage::KatalogDialog(int modus) {
  const KatalogNamen vorher = Namen();
  DateiHolen(prog, kTypKatalog, modus);
  KatalogNamen gewaehlt = Namen();
  NamenSetzen(vorher);
  return gewaehlt;
}

KatalogAblage::Sicherung KatalogAblage::KatalogSichern() {
  const KatalogNamen gewaehlt = KatalogDialog(kModusSichern);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return Sicherung::Abgebrochen;
  }
  if (!DateiNameGueltig(DateiNameOhnePfad(prog.GewaehlteDatei))) {
    prog.MsgBoxen(prog.Text(8038), kHinweis);
    return Sicherung::Abgelehnt;
  }
  if (!KatalogSpeichern(prog.GewaehlteDatei)) return Sicherung::Abgelehnt;
  NamenSetzen(gewaehlt);
  return Sicherung::Fertig;
}

void KatalogAblage::Speichern() {
  vorschau_.PlayWaveNormal(L"");
  if (liste_.Leer()) {
    prog.MsgBoxen(prog.Text(8037), kHinweis);
    return;
  }
  KatalogSichern();
}

// Asks for a catalog that can be read; returns false when none was chosen. A missing file is
// reported, with text number `mehrere` when several files were chosen.
bool KatalogAblage::KatalogWaehlen(int mehrere, KatalogNamen& gewaehlt) {
  gewaehlt = KatalogDialog(kModusOeffnen);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return false;
  }
  if (prog.DialogName == kKatalogEndung || Trim(prog.GewaehlteDatei).empty()) {
    prog.MsgBoxen(prog.Text(8034), kHinweis);
    return false;
  }
  if (!prog.DateiExistiert(prog.GewaehlteDatei)) {
    prog.MsgBoxen(prog.Text(prog.MehrfachAuswahl ? mehrere : 8035), kHinweis);
    return false;
  }
  return true;
}

void KatalogAblage::Oeffnen() {
  vorschau_.PlayWaveNormal(L"");
  KatalogNamen gewaehlt;
  if (!KatalogWaehlen(8036, gewaehlt)) return;
  const Text datei = prog.GewaehlteDatei;
  KatalogGeaendertFragen();  // may change GewaehlteDatei by the file dialog
  prog.GewaehlteDatei = datei;
  // The file is read before the present catalog is dropped, so an unreadable file loses nothing.
  KatalogFeld katalog;
  KatalogLesen(prog.plattform.dateien, datei, katalog);
  KatalogInitialisieren();
  liste_.TitelWaehlen(0);
  prog.Katalog = std::move(katalog);
  NamenSetzen(gewaehlt);
  liste_.KatalogShow();
  zeiten_.NachOeffnen();
}

void KatalogAblage::Anhaengen() {
  vorschau_.PlayWaveNormal(L"");
  if (liste_.Leer()) {
    prog.MsgBoxen(prog.Text(8033), kHinweis);
    return;
  }
  prog.KatalogGeaendert = true;
  liste_.KatalogLastStepSave();
  KatalogNamen gewaehlt;
  if (!KatalogWaehlen(8035, gewaehlt)) return;
  KatalogFeld quelle;
  KatalogLesen(prog.plattform.dateien, prog.GewaehlteDatei, quelle);
  KatalogAnfuegen(prog.Katalog, quelle);
  NamenSetzen(gewaehlt);
  liste_.KatalogShow();
  zeiten_.Pruefen();
}

void KatalogAblage::LoadLastCat() {
  liste_.KatalogNeu();
  const Text name = prog.Last_Catalogue_Name.Getrimmt();
  if (prog.Last_Catalog_Load != 1 || name.empty()) return;
  if (!prog.DateiExistiert(name) || Rechts(name, 3) != L"vtr") return;
  prog.LetzterKatalog = name;
  prog.KatalogDatei = name;
  KatalogLesen(prog.plattform.dateien, name, prog.Katalog);
  liste_.KatalogShow();
  zeiten_.ObInZeitGrenzen(0);
}

void KatalogAblage::LiedKatalog() {
  vorschau_.PlayWaveNormal(L"");
  KatalogNamen quelle;  // names of the other catalog; the open catalog keeps its own
  if (!KatalogWaehlen(8035, quelle)) return;
  prog.KatalogGeaendert = true;
  liste_.DateiNameBehalten();
  liste_.KatalogLastStepSave();
  KatalogLesen(prog.plattform.dateien, prog.GewaehlteDatei, prog.QuellKatalog);
  const std::shared_ptr<vantora::frmLiedAusKatalog> fenster = prog.frmLiedAusKatalog.Laden();
  LiedAusKatalogAnzeige();
  prog.ZeigeModal(fenster);
}

void KatalogAblage::LiedAusKatalogAnzeige() {
  ListBox& liste = prog.frmLiedAusKatalog().lstLiedAusKatalog;
  liste.Clear();
  for (std::size_t i = 1; i < prog.QuellKatalog.size(); ++i) {
    const KatalogEintrag& e = prog.QuellKatalog[i];
    Text laenge = MinutenText(0);
    Weiter([&] { laenge = MinutenText(Abgeschnitten(Val(e.Laenge.Ganz()))); });
    liste.AddItem(ZahlText(static_cast<std::int64_t>(i)) + L". " + e.Titel.Getrimmt() + L" " +
                  e.Interpret.Getrimmt() + L" " + laenge + L" " + e.Datei.Getrimmt());
  }
}

}  // namespace vantora
