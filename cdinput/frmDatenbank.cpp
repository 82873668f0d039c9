#include "cdinput/frmDatenbank.h"

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kDatei = L"qmaudio.ini";
constexpr std::size_t kNamenGrenze = 5000;  // characters of all section names
constexpr std::size_t kWertGrenze = 100, kTrackGrenze = 1000;
constexpr double kMeisteTracks = 32767;  // a higher count is not valid
constexpr double kLaengsteZeit = 1e9;    // seconds; a longer time is not valid

constexpr int kSuchen = 0, kAlle = 1, kLoeschen = 2, kSchliessen = 3;

// A number too large for a double counts as 0, because other programs may have written the file.
double Zahl(const Text& text) {
  double wert = 0;
  Weiter([&] { wert = Val(text); });
  return wert;
}

int AnzahlTracks(const DatenbankEintrag& eintrag) {
  return Ganz32(std::clamp(Zahl(eintrag.AnzahlTitel), 0.0, kMeisteTracks));
}

// Reads the key of a track, as the burn run writes it; returns -1 for another key.
int TrackNummer(const Text& schluessel) {
  constexpr std::size_t kMeisteZiffern = 5;
  if (schluessel.empty() || schluessel.size() > kMeisteZiffern ||
      schluessel.find_first_not_of(L"0123456789") != Text::npos) {
    return -1;
  }
  const int nummer = Ganz32(Val(schluessel));
  return schluessel == ZahlText(nummer) ? nummer : -1;
}

Text ZeitText(const Text& sekunden) {
  const std::int64_t s = Abgeschnitten(std::clamp(Zahl(sekunden), 0.0, kLaengsteZeit));
  const auto zweistellig = [](std::int64_t wert) {
    return Format(static_cast<double>(wert), L"00");
  };
  return zweistellig(GanzDiv(s, 60)) + L":" + zweistellig(s % 60);
}

}  // namespace

frmDatenbank::frmDatenbank(Programm& programm) : VtrFenster(programm, L"frmDatenbank") {
  Knopf(imgSuchen, [this] { imgSuchen_MouseUp(); });
  Knopf(imgGesammteListe, [this] { imgGesammteListe_MouseUp(); });
  Knopf(imgLöschen, [this] { imgLöschen_MouseUp(); });
  Knopf(imgSchliessen, [this] { imgSchliessen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  lstInterpreten.Click = [this] { lstInterpreten_Click(); };
  // Deleting happens at the release, so that a key held down does not empty the database.
  lstInterpreten.KeyUp = [this](int taste) {
    if (taste == kKeyDelete) imgLöschen_MouseUp();
  };
  lstTitel.Click = [this] { lstTitel_Click(); };
  txtSuchtext.KeyDown = [this](int taste) { txtSuchtext_KeyDown(taste); };
}

void frmDatenbank::init_Datenbank() {
  FensterEinrichten();
  SetTexte();
  chkLabel.Value = 1;
  chkLiedTitel.Value = 1;
  DatenbankLaden();
  prog.plattform.schleife.SetFocus(txtSuchtext);
}

void frmDatenbank::SetTexte() {
  Caption = LoadResString(6206);
  lblTitel.Caption = LoadResString(6206);
  lblSuchen.Caption = LoadResString(6216);
  txtSuchtext.Text = L"";
  chkLabel.Caption = LoadResString(6219) + L" / " + LoadResString(6220);
  chkLiedTitel.Caption = LoadResString(6221);
  lblInterpreten.Caption = LoadResString(6214);
  lblTracks.Caption = LoadResString(6215);
  lblFeld(0).Caption = LoadResString(6421);
  lblFeld(1).Caption = LoadResString(6422);
  lblFeld(2).Caption = LoadResString(6423);
  lblFeld(3).Caption = LoadResString(6207);
  lblFeld(4).Caption = LoadResString(6419);
  Beschriften(lblButtCaption(kSuchen), imgSuchen, LoadResString(6217));
  Beschriften(lblButtCaption(kAlle), imgGesammteListe, LoadResString(6218));
  Beschriften(lblButtCaption(kLoeschen), imgLöschen, LoadResString(6202));
  Beschriften(lblButtCaption(kSchliessen), imgSchliessen, LoadResString(5205));
  txtSuchtext.ToolTipText = LoadResString(6005);
  txtSuchtext.AccessibleName = LoadResString(6402);
  chkLabel.ToolTipText = LoadResString(30034);
  chkLiedTitel.ToolTipText = LoadResString(30035);
  lstInterpreten.ToolTipText = LoadResString(6400);
  lstTitel.ToolTipText = LoadResString(6401);
  imgSuchen.ToolTipText = LoadResString(6416);
  imgGesammteListe.ToolTipText = LoadResString(6417);
  lblDauer.ToolTipText = LoadResString(6420);
  imgLöschen.ToolTipText = LoadResString(6426);
  imgSchliessen.ToolTipText = LoadResString(6427);
  imgHelp.ToolTipText = LoadResString(6425);
}

Text frmDatenbank::Lesen(const Text& schluessel, const Text& name, const Text& ersatz,
                         std::size_t grenze) const {
  Text wert =
      prog.plattform.profile.GetPrivateProfileString(schluessel, name, ersatz, grenze, kDatei);
  wert.resize(std::min(wert.find(L'\0'), wert.size()));
  return wert;
}

// The section is read as a whole, because its count of tracks may be far higher than its lines. A
// ";" inside a title is taken for a separator, so the next field then holds the rest of the title.
frmDatenbank::Tracks frmDatenbank::TracksLesen(const DatenbankEintrag& eintrag) const {
  Tracks tracks;
  const int anzahl = AnzahlTracks(eintrag);
  for (ProfileEntry& zeile :
       prog.plattform.profile.GetPrivateProfileSection(eintrag.Schluessel, kTrackGrenze, kDatei)) {
    const int nummer = TrackNummer(zeile.Key);
    if (nummer < 0 || nummer >= anzahl) continue;
    zeile.Value.resize(std::min(zeile.Value.find(L'\0'), zeile.Value.size()));
    const auto [track, neu] = tracks.try_emplace(nummer);
    if (neu) Split(zeile.Value, L";", track->second);
  }
  return tracks;
}

void frmDatenbank::ListenLeeren() {
  lstInterpreten.Clear();
  lstTitel.Clear();
  trackZeiten_.clear();
  for (Label* wert : {&lblAnzahlTitelAktuelleCD, &lblGesamtzeit, &lblDauer}) wert->Caption = L"";
}

// Writes the lines of the discs and selects the first.
void frmDatenbank::ListeZeigen() {
  for (std::size_t i = 1; i < Datenbank.size(); ++i) {
    lstInterpreten.AddItem(Datenbank[i].Interpret + L": " + Datenbank[i].Titel);
  }
  if (lstInterpreten.ListCount() == 0) return;
  lstInterpreten.ListIndex = 0;
  lstInterpreten_Click();
}

void frmDatenbank::DatenbankLaden() {
  ListenLeeren();
  Datenbank.assign(1, {});
  double titel = 0;
  for (const Text& schluessel :
       prog.plattform.profile.GetPrivateProfileSectionNames(kDatei, kNamenGrenze)) {
    if (schluessel.empty()) continue;
    const Text anzahl = Lesen(schluessel, L"numtracks", L"0", kWertGrenze);
    if (Zahl(anzahl) == 0) continue;
    Datenbank.push_back({schluessel, Lesen(schluessel, L"artist", L"", kWertGrenze),
                         Lesen(schluessel, L"title", L"", kWertGrenze), anzahl,
                         Lesen(schluessel, L"totaltime", L"", kWertGrenze)});
    titel += Zahl(anzahl);
  }
  lblVorhandeneCDNum.Caption = ZahlText(static_cast<std::int64_t>(Datenbank.size()) - 1);
  lblVorhandeneTitelNum.Caption = ZahlText(titel);
  ListeZeigen();
}

void frmDatenbank::lstInterpreten_Click() {
  const int zeile = lstInterpreten.ListIndex;
  if (zeile < 0) return;
  const DatenbankEintrag& eintrag = Element(Datenbank, zeile + 1);
  lstTitel.Clear();
  trackZeiten_.clear();
  lblAnzahlTitelAktuelleCD.Caption = eintrag.AnzahlTitel;
  lblGesamtzeit.Caption = ZeitText(eintrag.Gesamtzeit);
  lblDauer.Caption = eintrag.Gesamtzeit;  // until a track is selected, whose own length replaces it
  for (const auto& [nummer, felder] : TracksLesen(eintrag)) {
    if (felder[0].empty()) continue;
    const bool zweites = felder.size() > 1 && felder[1] != L";";
    lstTitel.AddItem(zweites ? felder[0] + L": " + felder[1] : felder[0]);
    trackZeiten_.push_back(felder.size() > 2 ? felder[2] : Text());
  }
  if (lstTitel.ListCount() == 0) return;
  lstTitel.ListIndex = 0;
  lstTitel_Click();
}

void frmDatenbank::lstTitel_Click() {
  const int zeile = lstTitel.ListIndex;
  if (zeile < 0 || lstInterpreten.ListIndex < 0) return;
  lblDauer.Caption = ZeitText(Element(trackZeiten_, zeile));
}

bool frmDatenbank::Treffer(const DatenbankEintrag& eintrag, const Text& gesucht) const {
  if (chkLabel.Value != 0 &&
      (Enthaelt(eintrag.Interpret, gesucht) || Enthaelt(eintrag.Titel, gesucht))) {
    return true;
  }
  if (chkLiedTitel.Value == 0) return false;
  for (const auto& [nummer, felder] : TracksLesen(eintrag)) {
    if (Enthaelt(felder[0], gesucht)) return true;
    if (felder.size() > 1 && Enthaelt(felder[1], gesucht)) return true;
  }
  return false;
}

// Searches only the discs in the list, so that a second search narrows the first.
void frmDatenbank::imgSuchen_MouseUp() {
  const Text gesucht = txtSuchtext.Text;
  if (gesucht.empty()) return;
  ListenLeeren();
  std::vector<DatenbankEintrag> gefunden(1);
  for (std::size_t i = 1; i < Datenbank.size(); ++i) {
    if (Treffer(Datenbank[i], gesucht)) gefunden.push_back(Datenbank[i]);
  }
  Datenbank = std::move(gefunden);
  ListeZeigen();
}

void frmDatenbank::txtSuchtext_KeyDown(int taste) {
  if (taste == kKeyReturn) imgSuchen_MouseUp();
}

void frmDatenbank::imgLöschen_MouseUp() {
  const int zeile = lstInterpreten.ListIndex;
  if (zeile < 0) return;
  const Text schluessel = Element(Datenbank, zeile + 1).Schluessel;
  Profile& profile = prog.plattform.profile;
  profile.DeletePrivateProfileSection(schluessel, kDatei);
  // The profile reports no errors, so the file is looked at.
  const bool gibtEs = prog.DateiExistiert(profile.GetWindowsDirectory() + L"\\" + kDatei);
  if (!gibtEs || !profile.GetPrivateProfileSection(schluessel, 1, kDatei).empty()) {
    prog.MsgBoxen(prog.Text(30127), kHinweis);
  }
  imgGesammteListe_MouseUp();
}

void frmDatenbank::imgSchliessen_MouseUp() {
  prog.frmDatenbank.Entladen();
}

bool frmDatenbank::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgSchliessen_MouseUp();
  return true;
}

}  // namespace vantora
