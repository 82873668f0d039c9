#include "catalog/katalog_liste.h"

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/katalog_rechnung.h"
#include "catalog/katalog_zeiten.h"
#include "catalog/vorschau.h"
#include "catalog/wave_pruefung.h"

namespace vantora {

namespace {

constexpr double kKuerzesteLaengeMs = 2000.0;

}  // namespace

KatalogListe::KatalogListe(Programm& programm, Tafel tafel, KatalogZeiten& zeiten,
                           Vorschau& vorschau, MMWave& wave)
    : prog(programm), tafel_(tafel), zeiten_(zeiten), vorschau_(vorschau), MMWaveFileX1(wave) {}

void KatalogListe::KatalogNeu() {
  tafel_.Liste.ListItems.Clear();
  tafel_.Titel.Caption = prog.Text(8440);
  tafel_.Interpret.Caption = prog.Text(8441);
  if (!KatalogGeladen) tafel_.Datei.Caption = L"";
  zeiten_.Leeren();
}

// Updates a record if its wave file has changed since the record was written. The old length is
// compared with a length computed from whole MB, so nearly every call reads the length again.
void KatalogListe::DateiNachlesen(KatalogEintrag& e, const Text& datei, const WaveBefund& befund) {
  Weiter([&] {
    const std::int64_t bytes =
        befund.Gueltig ? befund.Bytes : prog.plattform.dateien.FileLen(datei);
    const std::int16_t mb = Ganz16(static_cast<double>(bytes) / kMB);
    if (mb != e.GroesseMB) e.GroesseMB = mb;
  });
  Weiter([&] {
    bool gleich = false;  // stays false for a text that is no number
    Weiter([&] { gleich = Abgeschnitten(Val(e.Laenge.Ganz())) == BytesNachMs(e.GroesseMB * kMB); });
    if (!gleich) {
      e.Laenge = ZahlText(befund.Gueltig ? befund.LaengeMs : WaveLaenge(MMWaveFileX1, datei));
    }
  });
  Weiter([&] {
    const Text stempel =
        Trim(befund.Gueltig ? befund.Datum : prog.plattform.dateien.FileDateTime(datei));
    if (stempel != e.DateiDatum) e.DateiDatum = stempel;
  });
}

void KatalogListe::ZeileFuellen(int i, const Text& datei, const WaveBefund& befund) {
  KatalogEintrag& e = Element(prog.Katalog, i);
  ListItem& zeile = Zeile(i);
  Weiter([&] { PauseBestimmen(prog.Katalog, i); });
  const bool existiert = befund.Gueltig || prog.DateiExistiert(datei);
  if (existiert) DateiNachlesen(e, datei, befund);
  const bool letzte = i == UBound(prog.Katalog);
  // The last column is set first, so that memory is allocated once.
  zeile.SetSubItems(8, prog.Text(existiert ? 2 : 3));
  zeile.SetSubItems(0, e.Ueberblendet == -1 ? L"X" : L" ");
  zeile.SetSubItems(1, Format(i, L"00"));
  zeile.SetSubItems(2, e.Titel.Getrimmt());
  zeile.SetSubItems(3, e.Interpret.Getrimmt());
  Weiter([&] { zeile.SetSubItems(4, MinutenText(Abgeschnitten(Val(e.Laenge.Ganz())))); });
  zeile.SetSubItems(5, ZahlText(e.GroesseMB) + L" " + prog.Text(7603));
  zeile.SetSubItems(6, (letzte ? L"0" : ZahlText(e.Pause)) + prog.Text(8442));
  zeile.SetSubItems(7, datei);
}

// Selects and removes the rows whose file can't be burnt; returns true when it removed any.
bool KatalogListe::UngueltigeEntfernen(const std::vector<WaveBefund>& befunde) {
  bool gefunden = false;
  for (int i = 1; i <= UBound(prog.Katalog); ++i) {
    const KatalogEintrag& e = Element(prog.Katalog, i);
    bool brauchbar = befunde[static_cast<std::size_t>(i)].Gueltig;
    // A file whose edit is not finished looks damaged, but its row stays.
    if (!brauchbar && prog.plattform.edits.Needs(e.Datei.Getrimmt())) continue;
    brauchbar = brauchbar &&
                Weiter([&] { brauchbar = Val(e.Laenge.Ganz()) >= kKuerzesteLaengeMs; }) &&
                brauchbar;
    Zeile(i).SetSelected(!brauchbar);
    gefunden = gefunden || !brauchbar;
  }
  if (!gefunden) return false;
  KatalogAnzeigenInteraktiv = false;
  KatRowDelete();
  KatalogAnzeigenInteraktiv = true;
  return true;
}

// Examines each file once, for its row and for the removal.
void KatalogListe::ListeFuellen(std::vector<WaveBefund>& befunde) {
  const int anzahl = UBound(prog.Katalog);
  for (int i = 1; i <= anzahl; ++i) tafel_.Liste.ListItems.Add();
  befunde.assign(1, WaveBefund{});
  for (int i = 1; i <= anzahl; ++i) {
    const Text datei = prog.Katalog[static_cast<std::size_t>(i)].Datei.Getrimmt();
    if (prog.plattform.edits.Needs(datei)) Weiter([&] { prog.plattform.edits.Ready(datei); });
    befunde.push_back(WavePruefen(prog.plattform, MMWaveFileX1, datei));
    Weiter([&] { ZeileFuellen(i, datei, befunde.back()); });
  }
  // The last track, or record 0 of an empty catalog.
  const KatalogEintrag& quelle = prog.Katalog.back();
  const Text titel = quelle.KatalogTitel.Getrimmt();
  const Text interpret = quelle.KatalogInterpret.Getrimmt();
  if (anzahl == 0 || !titel.empty()) tafel_.Titel.Caption = titel;
  if (anzahl == 0 || !interpret.empty()) tafel_.Interpret.Caption = interpret;
  if (!KatalogGeladen) tafel_.Datei.Caption = prog.KatalogDatei;
  KatalogGeladen = false;
}

void KatalogListe::KatalogShow() {
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  std::vector<WaveBefund> befunde;
  do {
    Weiter([&] { KatalogNeu(); });
    ListeFuellen(befunde);
  } while (UngueltigeEntfernen(befunde));
  zeiten_.Zeigen();
  schleife.MousePointer(Pointer::Normal);
  const bool gewaehlt = AktuellerTitel_ > 0 && AktuellerTitel_ <= Zeilen();
  if (gewaehlt) Zeile(AktuellerTitel_).SetSelected(true);
}

// ---- rows and selection ----

Text KatalogListe::DateiDerZeile(int nummer) const {
  return Trim(Zeile(nummer).SubItems(7));
}

void KatalogListe::GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                               std::vector<std::int32_t>& laengen, Text& katalogTitel,
                               Text& katalogInterpret) const {
  if (Leer()) return;
  katalogTitel = KatalogTitel();
  katalogInterpret = KatalogInterpret();
  const int zeilen = Zeilen();
  interpreten.assign(1, Text());
  titel.assign(1, Text());
  laengen.assign(1, 0);
  for (int i = 1; i <= zeilen; ++i) {
    const KatalogEintrag& e = Element(prog.Katalog, i);
    interpreten.push_back(Zeile(i).SubItems(3));
    titel.push_back(Zeile(i).SubItems(2));
    const double pause = i < zeilen ? e.Pause : 0.0;
    laengen.push_back(Ganz32(Val(e.Laenge.Ganz()) / 1000.0 + pause));
  }
}

void KatalogListe::GetFileNames(std::vector<Text>& dateien) const {
  dateien.assign(1, Text());
  for (int i = 1; i <= Zeilen(); ++i) dateien.push_back(Zeile(i).SubItems(7));
}

void KatalogListe::TitelWaehlen(int nummer) {
  AktuellerTitel_ = Ganz16(nummer);
}

int KatalogListe::SpielZeile() const {
  const int anzahl = Zeilen();
  if (AktuellerTitel_ > 0 && AktuellerTitel_ <= anzahl) return AktuellerTitel_;
  const std::vector<int> gewaehlt = GewaehlteZeilen();
  if (!gewaehlt.empty()) return gewaehlt.front();
  return anzahl > 0 ? 1 : 0;
}

std::vector<int> KatalogListe::GewaehlteZeilen() const {
  std::vector<int> zeilen;
  for (int i = 1; i <= Zeilen(); ++i) {
    if (Zeile(i).Selected()) zeilen.push_back(i);
  }
  return zeilen;
}

// ---- tracks leave, and come back ----

// Asks whether the tracks are to be removed; returns false when nothing is to be removed.
bool KatalogListe::LoeschenFragen(std::vector<int>& zeilen) {
  KatalogFeld gemeint;
  for (const int zeile : zeilen) gemeint.push_back(Element(prog.Katalog, zeile));
  const Text nummer = ZahlText(zeilen.front());
  const Text titel = gemeint.front().Titel.Getrimmt();
  const Text frage = zeilen.size() > 1 ? prog.Text(8061)
                                       : prog.Text(8062) + nummer + kZeilenEnde + prog.Text(8020) +
                                             titel + prog.Text(8063);
  if (prog.MsgBoxen(frage, kJaNein) != kJa) return false;
  // Rows may have been removed while the message box was open: when the window gets the focus back,
  // tracks without a file are removed. So the rows are looked up again.
  for (std::size_t i = 0; i < zeilen.size(); ++i) {
    zeilen[i] = Wiederfinden(prog.Katalog, gemeint[i], zeilen[i]);
  }
  std::erase(zeilen, 0);
  return !zeilen.empty();
}

void KatalogListe::KatRowDelete() {
  if (Leer()) return;
  vorschau_.PlayWaveNormal(L"");
  std::vector<int> zeilen = GewaehlteZeilen();
  if (zeilen.empty()) return;
  if (KatalogAnzeigenInteraktiv) {
    if (!LoeschenFragen(zeilen)) return;
    prog.KatalogGeaendert = true;
    KatalogLastStepSave();
  }
  TracksEntfernen(prog.Katalog, zeilen);
  if (!KatalogAnzeigenInteraktiv) return;
  KatalogNeu();
  AktuellerTitel_ = 1;
  KatalogShow();
  if (UBound(prog.Katalog) == 0) AktuellerTitel_ = 0;
}

void KatalogListe::KatalogLastStepSave() {
  if (prog.KatalogGeaendert) prog.KatalogBackup = prog.Katalog;
}

void KatalogListe::KatalogUndo() {
  if (!prog.KatalogGeaendert || prog.KatalogBackup.empty()) return;
  vorschau_.PlayWaveNormal(L"");
  prog.Katalog = prog.KatalogBackup;
  KatalogShow();
}

}  // namespace vantora
