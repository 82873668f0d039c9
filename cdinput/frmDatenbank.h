// The database of the discs that were burnt: all of them or those that a search finds, and the
// tracks of the one that is selected. It lies in a private profile file, a section a disc, which
// the burn run writes and this window reads; here entries are only deleted.
#pragma once

#include "app/fenster.h"

#include <map>
#include <vector>

namespace vantora {

// One disc, as the file has it.
struct DatenbankEintrag {
  Text Schluessel;   // section: the disc's media identity in hexadecimal
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

  void DatenbankLaden();  // the complete list
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
  ControlArray<Label, 5> lblFeld{*this, L"lblFeld"};  // what the values below stand for
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
  // A value of a disc, up to a number of characters and to its first NUL.
  Text Lesen(const Text& schluessel, const Text& name, const Text& ersatz,
             std::size_t grenze) const;
  // The fields of those of its tracks that the file has, by their numbers.
  using Tracks = std::map<int, std::vector<Text>>;
  Tracks TracksLesen(const DatenbankEintrag& eintrag) const;
  bool Treffer(const DatenbankEintrag& eintrag, const Text& gesucht) const;
  void ListenLeeren();
  void ListeZeigen();

  std::vector<Text> trackZeiten_;  // seconds, of the lines of lstTitel
};

}  // namespace vantora
