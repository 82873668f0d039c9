// The takes: their files, their list, and adding them to the catalog.

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "dialogs/datei_holen.h"
#include "dialogs/frmNeuerInterpret.h"
#include "klang/klang_frame.h"
#include "recorder/frmAufnehmen.h"

namespace vantora {

namespace {

constexpr const wchar_t* kEndung = L".WAV";
constexpr std::size_t kLaengsterPfad = 100;
constexpr int kNummernZeichen = 3;  // room for the number of a take above 99
constexpr double kMindestMs = 2000;

}  // namespace

void frmAufnehmen::cbxMultiTrack_Click() {
  if (NimmtAuf) return;
  MultiTrack = cbxMultiTrack.Value != 0;
  cbxAutoTrennen.Enabled = MultiTrack;
  cbxPauseAus.Enabled = MultiTrack;
  SchwelleZeigen();
  if (!MultiTrack) return SitzungBeenden();
  AufnahmeZahl = 0;
  Aufnahmen.resize(1);
  Aufnahmewahl = 0;
  RecKatalogShow();
  GetMultiFileName();
}

// Runs the file dialog once. `zusatz` is the number of characters that the name will grow by.
frmAufnehmen::Wahl frmAufnehmen::DateiWaehlen(Text& datei, int zusatz) {
  DateiHolen(prog, kTypAufnahme, kModusSichern);
  const bool abbruch = prog.DialogAbbruch;
  prog.DialogAbbruch = false;
  datei = Trim(prog.GewaehlteDatei);
  if (abbruch || datei.empty() || prog.DialogName.starts_with(L".") || Enthaelt(datei, L"*")) {
    return Wahl::Ende;
  }
  if (!Endet(Ucase(datei), kEndung)) datei += kEndung;
  // The catalog would cut a longer path and could not find the take.
  if (datei.size() + static_cast<std::size_t>(zusatz) > kLaengsterPfad) {
    prog.MsgBoxen(LoadResString(8085), kHinweis);
    return Wahl::Nochmal;
  }
  if (!DateiNameGueltig(DateiNameOhnePfad(datei))) {
    prog.MsgBoxen(LoadResString(8038), kHinweis);
    return Wahl::Nochmal;
  }
  prog.Wave_Export_Dir = prog.DialogPfad;
  SaveSetting(prog.plattform, L"Wave_Export_Dir", prog.Wave_Export_Dir);
  return Wahl::Gut;
}

bool frmAufnehmen::SchonVergeben(const Text& datei) const {
  for (std::int32_t i = 1; i <= AufnahmeZahl; ++i) {
    if (Ucase(Element(Aufnahmen, i).Datei.Getrimmt()) == Ucase(datei)) return true;
  }
  return false;
}

void frmAufnehmen::imgNeueAufnahme_MouseUp() {
  if (MultiTrack) return GetMultiFileName();
  Text datei;
  for (;;) {
    const Wahl wahl = DateiWaehlen(datei, 0);
    if (wahl == Wahl::Ende) return;
    if (wahl == Wahl::Nochmal) continue;
    if (!SchonVergeben(datei)) break;
    prog.MsgBoxen(LoadResString(2039) + datei + LoadResString(2040) + kZeilenEnde, kHinweis);
  }
  if (prog.DateiExistiert(datei)) {
    if (prog.MsgBoxen(LoadResString(2041) + kZeilenEnde + LoadResString(2042), kJaNein) != kJa) {
      return;
    }
    prog.plattform.dateien.Kill(datei);
  }
  AktuelleDatei = datei;
  imgAufnehmen_MouseUp();
}

Text frmAufnehmen::MultiDatei(const Text& basis, std::int32_t nummer) const {
  return AddBackslash(Trim(prog.Wave_Export_Dir)) + basis + Format(nummer, L"00") + L".wav";
}

// Skips numbers whose files exist, unless the user has agreed to replace the file: during a
// recording no question can be asked.
Text frmAufnehmen::NaechsteMultiDatei() {
  std::int32_t nummer = AufnahmeZahl;
  const auto datei = [&] { return MultiDatei(BasisName, nummer); };
  const auto frei = [&] { return !prog.DateiExistiert(datei()) && !SchonVergeben(datei()); };
  while (!frei() && datei() != ersetzen_) ++nummer;
  ersetzen_.clear();
  return datei();
}

// Takes may begin while the dialog is open; until a name is chosen they get the old name.
void frmAufnehmen::GetMultiFileName() {
  if (!Sitzung) BasisName.clear();
  for (;;) {
    Text datei;
    const Wahl wahl = DateiWaehlen(datei, kNummernZeichen);
    if (wahl == Wahl::Ende) return;
    if (wahl == Wahl::Nochmal) continue;
    const Text name = DateiNameOhnePfad(datei);
    const Text basis = name.substr(0, name.size() - Text(kEndung).size());
    // Numbers may have been skipped, so the next number may belong to a take in the list.
    std::int32_t nummer = AufnahmeZahl;
    while (SchonVergeben(MultiDatei(basis, nummer))) ++nummer;
    const Text erste = MultiDatei(basis, nummer);
    if (prog.DateiExistiert(erste)) {
      if (prog.MsgBoxen(LoadResString(2041) + kZeilenEnde + LoadResString(2042), kJaNein) != kJa) {
        continue;
      }
      ersetzen_ = erste;
    }
    BasisName = basis;
    return;
  }
}

void frmAufnehmen::RecKatalogShow() {
  lvwAufnehmen.ListItems.Clear();
  for (std::int32_t i = 1; i <= AufnahmeZahl; ++i) {
    const KatalogEintrag& take = Element(Aufnahmen, i);
    ListItem& zeile = lvwAufnehmen.ListItems.Add();
    zeile.SetSubItems(0, Format(i, L"00"));
    zeile.SetSubItems(1, take.Titel.Getrimmt());
    zeile.SetSubItems(2, take.Interpret.Getrimmt());
    zeile.SetSelected(i == Aufnahmewahl);
  }
}

void frmAufnehmen::lvwAufnehmen_ItemClick(int zeile) {
  Aufnahmewahl = Ganz16(zeile);
}

void frmAufnehmen::lvwAufnehmen_DblClick() {
  KatalogEintragÄndern(Aufnahmewahl);
}

void frmAufnehmen::KatalogEintragÄndern(int index) {
  if (index <= 0 || index > AufnahmeZahl) return;
  const Text datei = Element(Aufnahmen, index).Datei.Getrimmt();
  prog.NeuTitel.clear();
  prog.NeuInterpret.clear();
  prog.DialogBestaetigt = false;
  {
    const ListItem& zeile = lvwAufnehmen.ListItems(index);
    const std::shared_ptr<vantora::frmNeuerInterpret> fenster = prog.frmNeuerInterpret.Laden();
    fenster->AufnahmeZeigen(zeile.SubItems(1), zeile.SubItems(2));
    prog.ZeigeModal(fenster);
  }
  const Text titel = std::exchange(prog.NeuTitel, {});
  const Text interpret = std::exchange(prog.NeuInterpret, {});
  if (!std::exchange(prog.DialogBestaetigt, false)) return;
  // Takes may have been added, or the list may have been emptied, while the window was open.
  if (index > AufnahmeZahl || Element(Aufnahmen, index).Datei.Getrimmt() != datei) return;
  ListItem& zeile = lvwAufnehmen.ListItems(index);
  if (!interpret.empty()) zeile.SetSubItems(2, interpret);
  if (!titel.empty()) zeile.SetSubItems(1, titel);
  Element(Aufnahmen, index).Interpret = interpret;
  Element(Aufnahmen, index).Titel = titel;
}

void frmAufnehmen::imgAufnahmeWiedergeben_MouseUp() {
  if (NimmtAuf || Aufnahmewahl <= 0 || Aufnahmewahl > AufnahmeZahl) return;
  const Text datei = Element(Aufnahmen, Aufnahmewahl).Datei.Getrimmt();
  if (!prog.DateiExistiert(datei)) return;
  const std::weak_ptr<int> lebt = lebt_;
  prog.Katalogfenster().PlayWaveNormal(L"");
  prog.plattform.schleife.DoEvents();
  if (lebt.expired() || NimmtAuf || schliesst_) return;
  prog.Katalogfenster().PlayWaveNormal(datei);
  prog.plattform.schleife.DoEvents();
}

// Adds a take to the catalog, unless the take is too short.
void frmAufnehmen::TakeEinfuegen(int nummer) {
  const KatalogEintrag take = Element(Aufnahmen, nummer);
  const Text datei = take.Datei.Getrimmt();
  if (!prog.DateiExistiert(datei)) return;
  const std::unique_ptr<MMWaveFileX> wave = prog.plattform.mmtools.NewWaveFileX();
  wave->Wave.TimeFormat = TimeFormat::tfSample;
  wave->Wave.SetFileName(datei);
  wave->Wave.Open();
  const std::int32_t frames = wave->Wave.DataSize();
  wave->Wave.Close();
  const std::int32_t ms = Ganz32(Val(Trim(ZahlText(frames / kFramesJeMs))));
  if (ms < kMindestMs) {
    prog.MsgBoxen(LoadResString(2056) + L" " + ZahlText(nummer) + L" " + LoadResString(2057) +
                      L" " + DateiNameOhnePfad(datei) + L" " + LoadResString(2058),
                  kHinweis);
    return;
  }
  prog.KatalogGeaendert = true;
  prog.Katalogfenster().Katalog_AddWaveFile(datei, take.Titel.Getrimmt());
  if (prog.Katalog.size() < 2 || prog.Katalog.back().Datei.Getrimmt() != datei) return;
  prog.Katalog.back().Interpret = take.Interpret.Getrimmt();
  prog.Katalog.back().Titel = take.Titel.Getrimmt();
}

void frmAufnehmen::imgOkay_MouseUp() {
  if (schliesst_) return;
  schliesst_ = true;
  Beenden();
  for (std::int32_t i = 1; i <= AufnahmeZahl; ++i) {
    // An error of one take must not keep the others out of the catalog.
    try {
      TakeEinfuegen(i);
    } catch (const Laufzeitfehler& fehler) {
      prog.AppLog(L"Aufnahme:", ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
      prog.MsgBoxen(LoadResString(4009) + fehler.Beschreibung + kZeilenEnde +
                        Element(Aufnahmen, i).Datei.Getrimmt(),
                    kHinweis);
    }
  }
  KatalogDienst& katalog = prog.Katalogfenster();
  CloseMe();
  katalog.KatalogShow();
}

void frmAufnehmen::imgAbbrechen_MouseUp() {
  if (schliesst_) return;
  schliesst_ = true;
  Beenden();
  CloseMe();
}

// Completes the last take; no further take begins.
void frmAufnehmen::Beenden() {
  WaveIn->CatchUp();
  Sitzung = false;
  for (Timer* uhr : {&tmrStatus, &tmrAutoRecord}) uhr->Enabled = false;
  if (NimmtAuf) RecordStop();
  SitzungBeenden();
  WaveIn->Stop();
  WaveIn->Close();
  Window.Enabled = false;
  VerlustMelden();
}

}  // namespace vantora
