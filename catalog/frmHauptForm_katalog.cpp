// The operations on the catalog: new, open, append, save, add, delete, move, undo.

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmHauptForm.h"
#include "catalog/katalog_datei.h"
#include "catalog/wave_pruefung.h"

namespace vantora {

namespace {

constexpr const wchar_t* kKatalogEndung = L".vtr";
constexpr const wchar_t* kGeloescht = L"DEL";  // title of a record to be deleted
constexpr int kKnappeMinuten = 74;
constexpr std::int16_t kUeblichePause = 2;  // seconds

}  // namespace

void frmHauptForm::KatalogInitialisieren() {
  KatalogLastStepSave();
  KatalogNeu();
  prog.Katalog.assign(1, KatalogEintrag{});
  prog.Katalog[0].KatalogTitel = LoadResString(8440);
  prog.Katalog[0].KatalogInterpret = LoadResString(8441);
  prog.KatalogGeaendert = false;
}

void frmHauptForm::imgNeuerKatalog_MouseUp() {
  PlayWaveNormal(L"");
  NeuerKatalog();
}

void frmHauptForm::NeuerKatalog() {
  KatalogGeaendertFragen();
  KatalogInitialisieren();
  AktuellerTitel = 0;
  prog.KatalogDatei.clear();
  prog.LetzterKatalog.clear();
  prog.Last_Catalogue_Name = L"";
}

// A mistake in the dialog must not lose the user's changes, so the dialog comes again until the
// catalog is saved or the dialog is cancelled.
void frmHauptForm::KatalogGeaendertFragen() {
  if (!prog.KatalogGeaendert) return;
  if (prog.MsgBoxen(LoadResString(8006), kFrage, LoadResString(0)) != kJa) return;
  while (KatalogSichern() == Sicherung::Abgelehnt) {
  }
}

bool frmHauptForm::KatalogSpeichern(const Text& datei) {
  if (prog.DateiExistiert(datei) && prog.MsgBoxen(LoadResString(8005), kFrage) != kJa) return false;
  KatalogSchreiben(prog.plattform.dateien, datei, prog.Katalog);
  prog.KatalogGeaendert = false;
  return true;
}

frmHauptForm::KatalogNamen frmHauptForm::Namen() const {
  return {prog.KatalogDatei, prog.LetzterKatalog};
}

void frmHauptForm::NamenSetzen(const KatalogNamen& namen) {
  prog.KatalogDatei = namen.Datei;
  prog.LetzterKatalog = namen.Letzter;
  lblKatalogDatei.Caption = namen.Datei;
}

// The file dialog makes the chosen name the catalog's own. Here the old name is kept until reading
// or writing has succeeded, so that a refusal or an error leaves the catalog its name.
frmHauptForm::KatalogNamen frmHauptForm::KatalogDialog(int modus) {
  const KatalogNamen vorher = Namen();
  prog.DateiHolen(kTypKatalog, modus);
  KatalogNamen gewaehlt = Namen();
  NamenSetzen(vorher);
  return gewaehlt;
}

frmHauptForm::Sicherung frmHauptForm::KatalogSichern() {
  const KatalogNamen gewaehlt = KatalogDialog(kModusSichern);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return Sicherung::Abgebrochen;
  }
  if (!DateiNameGueltig(DateiNameOhnePfad(prog.GewaehlteDatei))) {
    prog.MsgBoxen(LoadResString(8038), kHinweis);
    return Sicherung::Abgelehnt;
  }
  if (!KatalogSpeichern(prog.GewaehlteDatei)) return Sicherung::Abgelehnt;
  NamenSetzen(gewaehlt);
  return Sicherung::Fertig;
}

void frmHauptForm::imgKatalogSpeichern_MouseUp() {
  PlayWaveNormal(L"");
  if (lvwKatalog.ListItems.empty()) {
    prog.MsgBoxen(LoadResString(8037), kHinweis);
    return;
  }
  KatalogSichern();
}

// Asks for a catalog that can be read; returns false when none was chosen. A missing file is
// reported, with text number `mehrere` when several files were chosen.
bool frmHauptForm::KatalogWaehlen(int mehrere, KatalogNamen& gewaehlt) {
  gewaehlt = KatalogDialog(kModusOeffnen);
  if (prog.DialogAbbruch) {
    prog.DialogAbbruch = false;
    return false;
  }
  if (prog.DialogName == kKatalogEndung || Trim(prog.GewaehlteDatei).empty()) {
    prog.MsgBoxen(LoadResString(8034), kHinweis);
    return false;
  }
  if (!prog.DateiExistiert(prog.GewaehlteDatei)) {
    prog.MsgBoxen(LoadResString(prog.MehrfachAuswahl ? mehrere : 8035), kHinweis);
    return false;
  }
  return true;
}

void frmHauptForm::imgKatalogÖffnen_MouseUp() {
  PlayWaveNormal(L"");
  KatalogNamen gewaehlt;
  if (!KatalogWaehlen(8036, gewaehlt)) return;
  const Text datei = prog.GewaehlteDatei;
  KatalogGeaendertFragen();  // may change GewaehlteDatei by the file dialog
  prog.GewaehlteDatei = datei;
  // The file is read before the present catalog is dropped, so an unreadable file loses nothing.
  KatalogFeld katalog;
  KatalogLesen(prog.plattform.dateien, datei, katalog);
  KatalogInitialisieren();
  AktuellerTitel = 0;
  prog.Katalog = std::move(katalog);
  NamenSetzen(gewaehlt);
  KatalogShow();
  ZeigeLaengeNachOeffnen();
}

void frmHauptForm::KatalogAnfuegen(const KatalogFeld& quelle) {
  for (std::size_t i = 1; i < quelle.size(); ++i) {
    KatalogEintrag& neu = prog.Katalog.emplace_back(quelle[i]);
    neu.KatalogTitel = prog.Katalog[0].KatalogTitel;
    neu.KatalogInterpret = prog.Katalog[0].KatalogInterpret;
  }
}

void frmHauptForm::imgKatalogAnhaengen_MouseUp() {
  PlayWaveNormal(L"");
  if (lvwKatalog.ListItems.empty()) {
    prog.MsgBoxen(LoadResString(8033), kHinweis);
    return;
  }
  prog.KatalogGeaendert = true;
  KatalogLastStepSave();
  KatalogNamen gewaehlt;
  if (!KatalogWaehlen(8035, gewaehlt)) return;
  KatalogFeld quelle;
  KatalogLesen(prog.plattform.dateien, prog.GewaehlteDatei, quelle);
  KatalogAnfuegen(quelle);
  NamenSetzen(gewaehlt);
  KatalogShow();
  Text text;
  ObInZeitGrenzen(KatalogLaengeBerechnen(text));
}

std::int64_t frmHauptForm::KatalogLaengeBerechnen(Text& text) const {
  std::int64_t gesamt = 0;
  const int letzter = UBound(prog.Katalog);
  for (int i = 1; i <= letzter; ++i) {
    const KatalogEintrag& e = prog.Katalog[static_cast<std::size_t>(i)];
    const Text laenge = e.Laenge.Ganz();
    gesamt += Abgeschnitten(Val(laenge));
    // The last two digits of a full ten-character length are added once more: the catalog's total
    // is defined so, and the times shown for saved catalogs depend on it.
    gesamt += Abgeschnitten(Val(Rechts(laenge, 2)));
    if (i < letzter) gesamt += e.DateiBytes * std::int64_t{1000};
  }
  int stunden = 0, minuten = 0, sekunden = 0, frames = 0;
  MsNachHMSF(gesamt, stunden, minuten, sekunden, frames);
  text = Format(stunden, L"00") + L":" + Format(minuten, L"00") + L":" + Format(sekunden, L"00");
  return gesamt;
}

void frmHauptForm::ObInZeitGrenzen(std::int64_t ms) {
  const std::int64_t minuten = GanzDiv(GanzDiv(ms, 1000), 60);
  prog.KatalogUeberLaenge = minuten > kKnappeMinuten;
  if (minuten > prog.LängeCD) {
    prog.MsgBoxen(LoadResString(8003) + ZahlText(minuten) + LoadResString(8004), kHinweis,
                  LoadResString(0));
  }
}

void frmHauptForm::TitelUndInterpret(const Text& datei, const Text& datum, const Text& vorschlag,
                                     Text& titel, Text& interpret) {
  if (Trim(prog.NeuInterpret).empty()) {
    interpret = prog.Katalog[0].KatalogInterpret.Getrimmt();
    if (interpret.empty()) interpret = LoadResString(8441);
  }
  if (prog.Catalog_Check == 1) {
    Text gefundenerTitel, gefundenerInterpret, pause;
    KatalogTitelSuchen(datei, datum, gefundenerTitel, gefundenerInterpret, pause);
    titel = gefundenerTitel.empty() ? LoadResString(8440) : gefundenerTitel;
    if (!gefundenerInterpret.empty()) interpret = gefundenerInterpret;
  } else {
    titel = prog.Ask_Track_Info == 1 ? vorschlag : LoadResString(8440);
  }
}

void frmHauptForm::Katalog_AddWaveFile(const Text& dateiName, const Text& vorschlag) {
  const Text datei = Trim(dateiName);
  prog.KatalogGeaendert = true;
  if (!prog.DateiExistiert(datei)) return;
  if (!Weiter([&] { UBound(prog.Katalog); })) prog.Katalog.assign(2, KatalogEintrag{});
  if (!Weiter([&] { prog.plattform.dateien.Open(datei, Zugriff::Anhaengen); })) return;

  KatalogEintrag& kopf = prog.Katalog[0];
  KatalogEintrag neu;
  const double ms = Runden(WaveLaenge(*MMWaveFileX1, datei));
  const auto bytes = static_cast<double>(prog.plattform.dateien.FileLen(datei));
  kopf.KatalogTitel = TextErsetzen(kopf.KatalogTitel.Ganz(), Text(1, L'\0'), L" ");
  kopf.KatalogInterpret = TextErsetzen(kopf.KatalogInterpret.Ganz(), Text(1, L'\0'), L" ");
  neu.DateiDatum = Trim(prog.plattform.dateien.FileDateTime(datei));
  Text titel, interpret;
  TitelUndInterpret(datei, neu.DateiDatum, vorschlag, titel, interpret);
  neu.Titel = Trim(titel);
  neu.Interpret = Trim(interpret);
  neu.GroesseMB = Ganz16(Val(Format(bytes / kMB, L"00")));
  neu.Pause = kUeblichePause;
  neu.Datei = datei;
  neu.Laenge = ZahlText(ms);
  neu.Ueberblendet = 0;
  const Text katalogTitel = kopf.KatalogTitel.Getrimmt();
  const Text katalogInterpret = kopf.KatalogInterpret.Getrimmt();
  neu.KatalogTitel = katalogTitel.empty() ? lblKatalogTitel.Caption() : katalogTitel;
  neu.KatalogInterpret =
      katalogInterpret.empty() ? lblKatalogInterpret.Caption() : katalogInterpret;
  prog.Katalog.push_back(std::move(neu));
  KatalogShow();
  Text text;
  ObInZeitGrenzen(KatalogLaengeBerechnen(text));
}

void frmHauptForm::KatalogTitelSuchen(const Text& datei, const Text& datum, Text& titel,
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

void frmHauptForm::KatRowDelete() {
  if (lvwKatalog.ListItems.empty()) return;
  PlayWaveNormal(L"");
  std::vector<int> zeilen;
  for (int i = 1; i <= lvwKatalog.ListItems.Count(); ++i) {
    if (lvwKatalog.ListItems(i).Selected()) zeilen.push_back(i);
  }
  if (zeilen.empty()) return;
  if (KatalogAnzeigenInteraktiv) {
    KatalogFeld gemeint;
    for (const int zeile : zeilen) gemeint.push_back(Element(prog.Katalog, zeile));
    const Text nummer = ZahlText(zeilen.front());
    const Text titel = gemeint.front().Titel.Getrimmt();
    const Text frage = zeilen.size() > 1 ? LoadResString(8061)
                                         : LoadResString(8062) + nummer + kZeilenEnde +
                                               LoadResString(8020) + titel + LoadResString(8063);
    if (prog.MsgBoxen(frage, kJaNein) != kJa) return;
    // Rows may have been removed while the message box was open: when the window gets the focus
    // back, tracks without a file leave the list. So the rows are looked up again.
    for (std::size_t i = 0; i < zeilen.size(); ++i) zeilen[i] = Wiederfinden(gemeint[i], zeilen[i]);
    std::erase(zeilen, 0);
    if (zeilen.empty()) return;
    prog.KatalogGeaendert = true;
    KatalogLastStepSave();
  }
  for (const int zeile : zeilen) Element(prog.Katalog, zeile).Titel = kGeloescht;
  KatalogFeld bleibt(1, prog.Katalog[0]);
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    if (prog.Katalog[i].Titel.Getrimmt() != kGeloescht) bleibt.push_back(prog.Katalog[i]);
  }
  prog.Katalog = std::move(bleibt);
  if (!KatalogAnzeigenInteraktiv) return;
  KatalogNeu();
  AktuellerTitel = 1;
  KatalogShow();
  if (UBound(prog.Katalog) == 0) AktuellerTitel = 0;
}

int frmHauptForm::Wiederfinden(const KatalogEintrag& eintrag, int nummer) const {
  for (int i = std::min(nummer, UBound(prog.Katalog)); i >= 1; --i) {
    const KatalogEintrag& e = Element(prog.Katalog, i);
    if (e.Datei == eintrag.Datei && e.Titel == eintrag.Titel) return i;
  }
  return 0;
}

void frmHauptForm::imgDelTitel_MouseUp() {
  if (!lvwKatalog.ListItems.empty()) KatRowDelete();
}

void frmHauptForm::SetNewPos(std::int16_t von, std::int16_t nach) {
  std::swap(Element(prog.Katalog, von), Element(prog.Katalog, nach));
  KatalogNeu();
  KatalogShow();
}

void frmHauptForm::imgMove_MouseUp(int index) {
  const int letzter = UBound(prog.Katalog);
  if (AktuellerTitel < 1 || AktuellerTitel > letzter) return;
  const auto ueberblendet = [this](int i) {
    return prog.Katalog[static_cast<std::size_t>(i)].Ueberblendet != 0;
  };
  if (ueberblendet(AktuellerTitel)) return;
  PlayWaveNormal(L"");
  prog.KatalogGeaendert = true;
  KatalogLastStepSave();
  const int schritt = index == 0 ? -1 : 1;
  int ziel = AktuellerTitel + schritt;
  // A block of crossfaded tracks is skipped as a whole.
  while (ziel >= 1 && ziel <= letzter && ueberblendet(ziel)) ziel += schritt;
  if (ziel < 1 || ziel > letzter) return;
  const std::int16_t alt = AktuellerTitel;
  const auto neu = static_cast<std::int16_t>(ziel);
  SetNewPos(alt, neu);
  AktuellerTitel = neu;
  for (const std::int16_t zeile : {std::int16_t{1}, alt, neu}) {
    // A row may have lost its file and be gone by now.
    Weiter([&] { lvwKatalog.ListItems(zeile).SetSelected(zeile == neu); });
  }
}

void frmHauptForm::KatalogLastStepSave() {
  if (prog.KatalogGeaendert) prog.KatalogBackup = prog.Katalog;
}

void frmHauptForm::KatalogUndo() {
  if (!prog.KatalogGeaendert || prog.KatalogBackup.empty()) return;
  PlayWaveNormal(L"");
  prog.Katalog = prog.KatalogBackup;
  KatalogShow();
}

void frmHauptForm::imgDeleteTitel_MouseUp() {
  PlayWaveNormal(L"");
  prog.AppLog(L"imgDeleteTitel_MouseUp", L"UNDO");
  KatalogUndo();
}

void frmHauptForm::LoadLastCat() {
  KatalogNeu();
  const Text name = prog.Last_Catalogue_Name.Getrimmt();
  if (prog.Last_Catalog_Load != 1 || name.empty()) return;
  if (!prog.DateiExistiert(name) || Rechts(name, 3) != L"vtr") return;
  prog.LetzterKatalog = name;
  prog.KatalogDatei = name;
  KatalogLesen(prog.plattform.dateien, name, prog.Katalog);
  KatalogShow();
  ObInZeitGrenzen(0);
}

void frmHauptForm::GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                               std::vector<std::int32_t>& laengen, Text& katalogTitel,
                               Text& katalogInterpret) {
  if (lvwKatalog.ListItems.empty()) return;
  katalogTitel = lblKatalogTitel.Caption;
  katalogInterpret = lblKatalogInterpret.Caption;
  const int zeilen = lvwKatalog.ListItems.Count();
  interpreten.assign(1, Text());
  titel.assign(1, Text());
  laengen.assign(1, 0);
  for (int i = 1; i <= zeilen; ++i) {
    const KatalogEintrag& e = Element(prog.Katalog, i);
    interpreten.push_back(lvwKatalog.ListItems(i).SubItems(3));
    titel.push_back(lvwKatalog.ListItems(i).SubItems(2));
    const double pause = i < zeilen ? e.Pause : 0.0;
    laengen.push_back(Ganz32(Val(e.Laenge.Ganz()) / 1000.0 + pause));
  }
}

void frmHauptForm::GetFileNames(std::vector<Text>& dateien) const {
  dateien.assign(1, Text());
  for (int i = 1; i <= lvwKatalog.ListItems.Count(); ++i) {
    dateien.push_back(lvwKatalog.ListItems(i).SubItems(7));
  }
}

}  // namespace vantora
