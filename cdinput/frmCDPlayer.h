// The player window: the audio CD in a chosen drive, with its tracks, which are played here and
// saved as wave files, and their titles, which come from a CDDB server. The local database is not
// used: a disc whose tracks were named before has default names when it is inserted again.
#pragma once

#include "app/fenster.h"
#include "cdinput/clsCCd.h"

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace vantora {

class frmKomponenten;

// The disc in the drive; tracks from index 1, index 0 is unused.
struct CDDatenSatz {
  std::int32_t Laenge = 0;     // ms
  std::int32_t GroesseMB = 0;  // as wave files
  Text DiscID;
  Text Interpret;  // of the disc, if a server returned it
  std::int16_t TrackAnzahl = 0;
  std::vector<std::int32_t> TrackLaenge;  // ms
  std::vector<std::int32_t> TrackMB;
};

class frmCDPlayer final : public VtrFenster {
 public:
  explicit frmCDPlayer(Programm& programm);

  void Form_Load() override;
  void Form_Close() override { imgSchliessen_MouseUp(); }
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;

  void Init_CDPlayer();  // called after the window is shown
  void GetCDInfo();
  void ShowData();
  void ListBoxAllesClicken();

  void lstDriveLetter_Click();
  void lstTracks_Click();
  void lstTracks_DblClick();
  bool txtSongname_KeyPress(int taste);  // returns false when the character is refused
  void imgPlay_MouseUp();
  void imgPause_MouseUp();
  void imgStop_MouseUp();
  void cmdNextSong_Click();
  void cmdLetztesLied_Click();
  void imgAllesWaehlen_MouseUp();
  void imgDBAufnahme_MouseUp();
  void imgSpeichern_MouseUp();
  void imgSchliessen_MouseUp();
  void tmrCDAudio_Timer();
  void tmrCDDB_Timer();

  CDDatenSatz CDDaten;
  std::vector<Text> TrackName;   // as shown, from index 1
  bool Initialisierung = false;  // the list of drives is being filled
  bool Spielt = false, Pausiert = false;
  std::int16_t GrabAuswahl = 0;  // number of tracks selected
  std::int32_t GesamtMB = 0;     // of the tracks selected

  Label lblTitel{*this, L"lblTitel"};
  Label lblLaufwerk{*this, L"lblLaufwerk"};
  ComboBox lstDriveLetter{*this, L"lstDriveLetter"};
  Label lblHinweis{*this, L"lblHinweis"};
  Label txtCDInfo{*this, L"txtCDInfo"};
  Label lblSongname{*this, L"lblSongname"};
  ListBox lstTracks{*this, L"lstTracks"};
  TextBox txtSongname{*this, L"txtSongname"};
  ControlArray<Label, 7> lblFeld{*this, L"lblFeld"};
  Label txtCDLengthMs{*this, L"txtCDLengthMs"};
  Label txtAnzahlTracks{*this, L"txtAnzahlTracks"};
  Label txtCDLengthMB{*this, L"txtCDLengthMB"};
  Label txtTrackNr{*this, L"txtTrackNr"};
  Label txtZeit{*this, L"txtZeit"};
  Label txtMB{*this, L"txtMB"};
  Label txtPosition{*this, L"txtPosition"};
  PictureButton imgPlay{*this, L"imgPlay"};
  PictureButton imgPause{*this, L"imgPause"};
  PictureButton imgStop{*this, L"imgStop"};
  PictureButton cmdLetztesLied{*this, L"cmdLetztesLied"};
  PictureButton cmdNextSong{*this, L"cmdNextSong"};
  PictureButton imgAllesWaehlen{*this, L"imgAllesWaehlen"};
  PictureButton imgSpeichern{*this, L"imgSpeichern"};
  PictureButton imgDBAufnahme{*this, L"imgDBAufnahme"};
  PictureButton imgSchliessen{*this, L"imgSchliessen"};
  ControlArray<Label, 4> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Label lblStatus{*this, L"lblStatus"};
  Timer tmrCDAudio{*this, L"tmrCDAudio"};
  Timer tmrCDDB{*this, L"tmrCDDB"};

 private:
  // drives
  void LaufwerkListeFuellen();
  Text Laufwerk() const;  // root of the chosen drive, "D:\"
  void DiscOeffnen();
  // disc
  void AnzeigeLeeren();
  void Freigeben(bool mitDisc);
  void DatenLesen();
  bool AndereDisc();  // the drive now holds another disc than the one shown
  void TracksZeigen();
  Text StandardName(int track) const;
  bool HatNamen(int track) const;
  Text Zeile(int track) const;
  void ZeilenSchreiben();
  // titles
  void TitelHolen();
  void TitelUebernehmen(const CDDBInfo& info);
  // playing
  bool DiscDa();         // reports a missing disc
  int Gewaehlt() const;  // the selected track that has the focus, else the first one; 0 for none
  void TrackSpielen(int track);
  void Bewegen(int schritt);
  void AuswahlZaehlen();
  void NameUebernehmen();  // takes the typed text as the track's name
  void NameBeenden();      // takes it only if it was changed
  void NameFertig();       // closes the name field without taking its text
  // saving
  std::vector<int> Auswahl() const;
  Text ZielName(int track) const;
  Text FreierName(int track, std::set<Text>& vergeben) const;
  bool ZieleBestimmen();
  bool EinZiel();
  bool MehrereZiele();
  bool ErsetzenFragen(const Text& pfad);
  bool DateiFragen(const Text& vorschlag);
  void Grabben();
  void NachGrab();

  vantora::frmKomponenten& Komponenten() const;
  int namenZeile_ = -1;               // line whose name is being typed; -1 for none
  std::uint8_t cddbStatus_ = 0;       // of the running look-up
  std::optional<CDDBInfo> gefunden_;  // answer of a server about this disc
};

}  // namespace vantora
