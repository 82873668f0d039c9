// The database of burnt discs: all of them or the result of a search, and the tracks of the
// selected disc. The database is a private profile file with a section for each disc. The burn run
// writes the file; this window reads it and deletes entries.
#pragma once

#include "app/fenster.h"

#include <map>
#include <vector>

namespace vantora {

// One disc of the file.
struct DatenbankEintrag {
  Text Schluessel;   // section name: the disc's media identity in hexadecimal
  Text Interpret;    // of the catalog that was burnt
  Text Titel;        // of the catalog that was burnt
  Text AnzahlTitel;  // number of tracks
  Text Gesamtzeit;   // seconds
};

class frmDatenbank final : public VtrFenster {
 public:
  explicit frmDatenbank(Programm& programm);

  void Form_Load() override { init_Datenbank(); }
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgSchliessen_MouseUp(); }
  void init_Datenbank();

  void DatenbankLaden();  // shows the complete list
  void imgSuchen_MouseUp();
  void imgGesammteListe_MouseUp() { DatenbankLaden(); }
  void imgLöschen_MouseUp();
  void imgSchliessen_MouseUp();
  void lstInterpreten_Click();
  void lstTitel_Click();
  void txtSuchtext_KeyDown(int taste);

  std::vector<DatenbankEintrag> Datenbank{1};  // the lines of lstInterpreten, from 1

  Label lblTitel{*this, L"lblTitel"};
  Label lblSuchen{*this, L"lblSuchen"};
  TextBox txtSuchtext{*this, L"txtSuchtext"};
  CheckBox chkLabel{*this, L"chkLabel"};          // the search looks at performer and title
  CheckBox chkLiedTitel{*this, L"chkLiedTitel"};  // the search looks at the tracks
  PictureButton imgSuchen{*this, L"imgSuchen"};
  PictureButton imgGesammteListe{*this, L"imgGesammteListe"};
  Label lblInterpreten{*this, L"lblInterpreten"};
  ListBox lstInterpreten{*this, L"lstInterpreten"};
  ControlArray<Label, 5> lblFeld{*this, L"lblFeld"};  // names of the values below
  Label lblVorhandeneCDNum{*this, L"lblVorhandeneCDNum"};
  Label lblVorhandeneTitelNum{*this, L"lblVorhandeneTitelNum"};
  Label lblTracks{*this, L"lblTracks"};
  ListBox lstTitel{*this, L"lstTitel"};
  Label lblAnzahlTitelAktuelleCD{*this, L"lblAnzahlTitelAktuelleCD"};
  Label lblGesamtzeit{*this, L"lblGesamtzeit"};
  Label lblDauer{*this, L"lblDauer"};
  PictureButton imgLöschen{*this, L"imgLöschen"};
  PictureButton imgSchliessen{*this, L"imgSchliessen"};
  ControlArray<Label, 4> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  // Reads a value of a disc, cut after `grenze` characters and at its first NUL.
  Text Lesen(const Text& schluessel, const Text& name, const Text& ersatz,
             std::size_t grenze) const;
  // The fields of the tracks that the file holds, by track number.
  using Tracks = std::map<int, std::vector<Text>>;
  Tracks TracksLesen(const DatenbankEintrag& eintrag) const;
  bool Treffer(const DatenbankEintrag& eintrag, const Text& gesucht) const;
  void ListenLeeren();
  void ListeZeigen();

  std::vector<Text> trackZeiten_;  // seconds, for each line of lstTitel
};

}  // namespace vantora
