// Makes, opens, appends and saves catalogs, and opens the catalog of the last session. Every dialog
// keeps the name of the open catalog until the file has been read or written.
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

  void KatalogInitialisieren();  // makes an empty catalog with the usual title
  // Offers to save a changed catalog, and then makes an empty catalog without a file.
  void NeuerKatalog();
  void KatalogGeaendertFragen();             // offers to save a changed catalog
  bool KatalogSpeichern(const Text& datei);  // false: the user refused to replace a file
  void LoadLastCat();

  // ---- the buttons ----
  void Oeffnen();
  void Speichern();
  void Anhaengen();
  void LiedKatalog();            // shows the tracks of another catalog, to choose from
  void LiedAusKatalogAnzeige();  // fills the list of frmLiedAusKatalog

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
