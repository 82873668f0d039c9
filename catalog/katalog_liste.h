// The catalog as a list in the main window. This class fills the list and rebuilds it, removes
// tracks, and knows the selected rows. Rows count from 1, as the tracks of the catalog do.
#pragma once

#include "platform/controls.h"
#include "platform/mmtools.h"

#include <cstdint>
#include <vector>

namespace vantora {

class KatalogZeiten;
class Vorschau;
struct KatalogEintrag;
struct Programm;
struct WaveBefund;

class KatalogListe {
 public:
  // The controls that show the catalog.
  struct Tafel {
    ListView& Liste;
    Label& Titel;
    Label& Interpret;
    Label& Datei;
  };
  KatalogListe(Programm& programm, Tafel tafel, KatalogZeiten& zeiten, Vorschau& vorschau,
               MMWave& wave);

  // ---- display ----
  void KatalogNeu();  // empties the list, the titles and the times; the tracks stay
  // Rebuilds the list, rereads changed files, and removes tracks whose files are missing or
  // invalid.
  void KatalogShow();
  void ZeilenLeeren() { tafel_.Liste.ListItems.Clear(); }
  // The next display leaves the name of the catalog's file unchanged.
  void DateiNameBehalten() { KatalogGeladen = true; }
  void DateiNameZeigen(const Text& datei) { tafel_.Datei.Caption = datei; }
  void TitelZeigen(const Text& titel) { tafel_.Titel.Caption = titel; }
  void InterpretZeigen(const Text& interpret) { tafel_.Interpret.Caption = interpret; }
  Text KatalogTitel() const { return tafel_.Titel.Caption; }
  Text KatalogInterpret() const { return tafel_.Interpret.Caption; }

  // ---- rows ----
  bool Leer() const { return tafel_.Liste.ListItems.empty(); }
  int Zeilen() const { return tafel_.Liste.ListItems.Count(); }
  ListItem& Zeile(int nummer) { return tafel_.Liste.ListItems(nummer); }
  const ListItem& Zeile(int nummer) const { return tafel_.Liste.ListItems(nummer); }
  const ListView& Tabelle() const { return tafel_.Liste; }
  Text DateiDerZeile(int nummer) const;  // without blanks at both ends
  // These functions fill lists with the shown tracks, from index 1; index 0 is unused. Lengths are
  // in seconds and include the pause after the track, except for the last track.
  void GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                   std::vector<std::int32_t>& laengen, Text& katalogTitel,
                   Text& katalogInterpret) const;
  void GetFileNames(std::vector<Text>& dateien) const;

  // ---- selection ----
  int AktuellerTitel() const { return AktuellerTitel_; }  // the track in work, 0 for none
  void TitelWaehlen(int nummer);
  int SpielZeile() const;  // the row of the track in work, else the first selected row
  std::vector<int> GewaehlteZeilen() const;

  // ---- removing tracks, and undoing it ----
  void KatRowDelete();  // removes the selected tracks, after a question
  void KatalogLastStepSave();
  void KatalogUndo();

 private:
  void ListeFuellen(std::vector<WaveBefund>& befunde);
  void ZeileFuellen(int i, const Text& datei, const WaveBefund& befund);
  void DateiNachlesen(KatalogEintrag& eintrag, const Text& datei, const WaveBefund& befund);
  bool UngueltigeEntfernen(const std::vector<WaveBefund>& befunde);
  bool LoeschenFragen(std::vector<int>& zeilen);

  Programm& prog;
  Tafel tafel_;
  KatalogZeiten& zeiten_;
  Vorschau& vorschau_;
  MMWave& MMWaveFileX1;

  std::int16_t AktuellerTitel_ = 0;
  bool KatalogGeladen = false;
  bool KatalogAnzeigenInteraktiv = true;  // false: rows are removed without a question
};

}  // namespace vantora
