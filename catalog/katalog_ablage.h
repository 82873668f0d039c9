// The catalog and its files: new, open, append, save, and the one of the last session. Every
// dialog keeps the catalog's name until the file has been read or written.
#pragma once

#include "platform/text.h"

namespace vantora {

class KatalogListe;
class KatalogZeiten;
class Vorschau;
struct Programm;

class KatalogAblage {
 public:
  KatalogAblage(Programm& programm, KatalogListe& liste, KatalogZeiten& zeiten, Vorschau& vorschau);

  void KatalogInitialisieren();   // an empty catalog under the usual title
  void NeuerKatalog();            // the same without a file; offers to save a changed catalog
  void KatalogGeaendertFragen();  // offers to save a changed catalog
  bool KatalogSpeichern(const Text& datei);  // false: the user refused to replace a file
  void LoadLastCat();

  // ---- the buttons ----
  void Oeffnen();
  void Speichern();
  void Anhaengen();
  void LiedKatalog();            // shows the tracks of another catalog, to choose from
  void LiedAusKatalogAnzeige();  // fills that window's list

 private:
  struct KatalogNamen {
    Text Datei, Letzter;
  };
  enum class Sicherung { Fertig, Abgelehnt, Abgebrochen };
  Sicherung KatalogSichern();  // asks once for a name
  bool KatalogWaehlen(int mehrere, KatalogNamen& gewaehlt);
  KatalogNamen Namen() const;
  void NamenSetzen(const KatalogNamen& namen);
  KatalogNamen KatalogDialog(int modus);

  Programm& prog;
  KatalogListe& liste_;
  KatalogZeiten& zeiten_;
  Vorschau& vorschau_;
};

}  // namespace vantora
