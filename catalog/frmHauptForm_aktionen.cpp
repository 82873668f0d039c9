// The buttons that open other windows.

#include "app/frmAbout.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "catalog/frmHauptForm.h"
#include "catalog/katalog_rechnung.h"
#include "cdinput/frmCDPlayer.h"
#include "cdinput/frmDatenbank.h"
#include "cdwriting/frmCDBrennen.h"
#include "cover/frmPrintStart.h"
#include "dialogs/frmExtrasMenue.h"
#include "medley/frmMedley.h"
#include "mixer/frmMixer.h"
#include "recorder/frmAufnehmen.h"
#include "waveeditor/frmWaveEditor.h"

#include "platform/printer.h"

#include <algorithm>

namespace vantora {

namespace {

// A button that needs a sound card says that there is none.
bool KarteFehlt(Programm& prog, const frmHauptForm& fenster) {
  if (fenster.Soundkarte()) return false;
  prog.MsgBoxen(prog.Text(8082), kHinweis);
  return true;
}

}  // namespace

void frmHauptForm::imgExtras_MouseUp() {
  PlayWaveNormal(L"");
  prog.ZeigeModal(prog.frmExtrasMenue.Laden());
}

// The cover window has its own buttons to close; closing it enables this window again.
void frmHauptForm::imgPrintCover_MouseUp() {
  if (liste_.Leer()) {
    prog.MsgBoxen(LoadResString(8059), kHinweis);
    return;
  }
  if (prog.plattform.drucker.Count() == 0) {
    prog.MsgBoxen(LoadResString(8081), kHinweis);
    return;
  }
  EventLoop& schleife = prog.plattform.schleife;
  vorschau_.Stop();
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  Jedenfalls([&] { prog.Zeigen(*prog.frmPrintStart.Laden()); },
             [&] {
               if (!prog.frmPrintStart.Geladen() || !prog.frmPrintStart().Visible()) {
                 Window.Enabled = true;
               }
               schleife.MousePointer(Pointer::Normal);
             });
}

void frmHauptForm::imgDatenBank_MouseUp() {
  prog.AppLog(L"imgDatenBank_MouseUp", L"Datenbank anzeigen");
  PlayWaveNormal(L"");
  prog.ZeigeModal(prog.frmDatenbank.Laden());
}

void frmHauptForm::imgTitel_MouseUp() {
  prog.AppLog(L"imgTitel_MouseUp", L"MedleyFunktion");
  PlayWaveNormal(L"");
  MedleyFunktion();
}

// The medley consists of all rows from the first selected one to the last selected one.
void frmHauptForm::MedleyFunktion() {
  if (!prog.frmCDBrennen().optDiscAtOnce.Enabled &&
      prog.MsgBoxen(LoadResString(8007) + LoadResString(8008), kJaNein) != kJa) {
    return;
  }
  if (liste_.Leer()) {
    prog.MsgBoxen(LoadResString(8009), kHinweis);
    return;
  }
  const std::vector<int> gewaehlt = liste_.GewaehlteZeilen();
  if (gewaehlt.size() < 2) {
    prog.MsgBoxen(LoadResString(8010), kHinweis);
    return;
  }
  prog.Medley.clear();
  for (int i = gewaehlt.front(); i <= gewaehlt.back(); ++i) {
    const ListItem& zeile = liste_.Zeile(i);
    MedleyEintrag& e = prog.Medley.emplace_back();
    e.Datei = zeile.SubItems(7);
    e.Titel = zeile.SubItems(2);
    e.Interpret = zeile.SubItems(3);
    e.Laenge = Element(prog.Katalog, i).Laenge.Getrimmt();
    if (e.Dauer.empty()) e.Dauer = L"1";
  }
  Window.Enabled = false;
  Jedenfalls([&] { prog.Zeigen(*prog.frmMedley.Laden()); },
             [&] {
               // If the medley window could not open, the main window is enabled again, so that the
               // user can go on.
               if (!prog.frmMedley.Geladen() || !prog.frmMedley().Visible()) Window.Enabled = true;
               prog.plattform.schleife.MousePointer(Pointer::Normal);
             });
}

void frmHauptForm::imgMixer_MouseUp() {
  prog.AppLog(L"imgMixer_MouseUp", L"Mixer aufrufen");
  prog.ZeigeModal(prog.frmMixer.Laden());
}

// In spite of its name, this is the handler of the exit button.
void frmHauptForm::imgÜberblenden_MouseUp() {
  PlayWaveNormal(L"");
  prog.AppLog(L"imgÜberblenden_MouseUp", L"Prg. beenden");
  prog.LastCatSave();
  KatalogGeaendertFragen();
  prog.ProgrammBeenden();
}

void frmHauptForm::imgAbspielen_MouseUp() {
  if (liste_.Leer() || KarteFehlt(prog, *this)) return;
  vorschau_.Vorspielen(liste_.DateiDerZeile(liste_.SpielZeile()));
}

void frmHauptForm::imgMinimize_MouseUp() {
  imgMinimize.Picture = L"HF_MINIMIZE_UNPRESSED";
  prog.plattform.schleife.Minimize(*this);
}

void frmHauptForm::Logo_Click() {
  prog.ZeigeModal(prog.frmAbout.Laden());
}

void frmHauptForm::lvwKatalog_ItemClick(int zeile) {
  liste_.TitelWaehlen(zeile);
  vorschau_.Ausklingen();
}

void frmHauptForm::lvwKatalog_KeyUp(int taste) {
  if (taste == kKeyDelete) KatRowDelete();
}

void frmHauptForm::lvwKatalog_MouseUp(int taste) {
  if (taste != kRightButton || liste_.Leer()) return;
  prog.plattform.schleife.PopupMenu(*this, *FindMenu(L"mnuKatalog"));
}

void frmHauptForm::FokusAufListe() {
  prog.plattform.schleife.SetFocus(lvwKatalog);
}

// If a wave file of the list does not exist, the first such file is reported and nothing is burnt.
bool frmHauptForm::BrennDateienPruefen() {
  for (std::size_t i = 1; i < prog.BrennDateien.size(); ++i) {
    if (prog.DateiExistiert(prog.BrennDateien[i])) continue;
    prog.MsgBoxen(LoadResString(8016) + ZahlText(static_cast<std::int64_t>(i)) + kZeilenEnde +
                      prog.BrennDateien[i] + LoadResString(8017) + kZeilenEnde +
                      LoadResString(8065),
                  kOk);
    return false;
  }
  return true;
}

void frmHauptForm::imgBrennen_MouseUp() {
  EventLoop& schleife = prog.plattform.schleife;
  KnopfBild(imgBrennen);
  if (!prog.BrennerBereit) {
    prog.AppLog(L"CDKopieren:", L"No burner available!");
    prog.MsgBoxen(LoadResString(8013) + LoadResString(8014) + kZeilenEnde + LoadResString(8015),
                  kStopp);
    schleife.MousePointer(Pointer::Normal);
    return;
  }
  if (liste_.Leer()) {
    Window.Enabled = true;
    prog.MsgBoxen(LoadResString(8018), kStopp);
    return;
  }
  schleife.MousePointer(Pointer::Hourglass);
  PlayWaveNormal(L"");
  GetFileNames(prog.BrennDateien);
  if (!BrennDateienPruefen()) {
    schleife.MousePointer(Pointer::Normal);
    return;
  }
  Window.Enabled = false;
  const std::shared_ptr<vantora::frmCDBrennen> brennen = prog.frmCDBrennen.Laden();
  if (!prog.BrennerBereit) {
    schleife.MousePointer(Pointer::Normal);
    return;
  }
  brennen->optTrackAtOnce.SetValue(true);
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    // A crossfade has no gap, so a catalog with a crossfade is burnt disc-at-once if the drive
    // supports this.
    if (!brennen->optDiscAtOnce.Enabled || prog.Katalog[i].Ueberblendet == 0) continue;
    brennen->optDiscAtOnce.SetValue(true);
    break;
  }
  prog.BrennerFensterGeschlossen = false;
  prog.Zeigen(*brennen);
  schleife.MousePointer(Pointer::Normal);
}

void frmHauptForm::mnuWAVEditor_Click() {
  vorschau_.Stop();
  imgWaveEdit_MouseUp();
}

void frmHauptForm::imgWaveEdit_MouseUp() {
  prog.AppLog(L"imgWaveEdit_MouseUp", L"WaveEditor starten");
  if (KarteFehlt(prog, *this)) return;
  PlayWaveNormal(L"");
  const int anzahl = liste_.Zeilen();
  if (anzahl == 0) {
    prog.MsgBoxen(LoadResString(8060), kHinweis);
    return;
  }
  liste_.TitelWaehlen(std::clamp(liste_.AktuellerTitel(), 1, anzahl));
  const Text datei = liste_.DateiDerZeile(liste_.AktuellerTitel());
  if (!prog.DateiExistiert(datei)) return;
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  prog.WaveEditorDatei = datei;
  Window.Enabled = false;
  // If opening fails, the half-built editor is unloaded, so that the next press starts with a new
  // one.
  Jedenfalls([this] { prog.ZeigeModal(prog.frmWaveEditor.Laden()); },
             [this] { prog.frmWaveEditor.Entladen(); });
  Window.Enabled = true;
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

// ---- discs and records ----

void frmHauptForm::imgCDAuslesen_MouseUp() {
  EventLoop& schleife = prog.plattform.schleife;
  prog.AppLog(L"imgCDAuslesen_MouseUp", L"CD-Auslesen");
  vorschau_.Stop();
  Window.Enabled = false;
  schleife.MousePointer(Pointer::Hourglass);
  zeiten_.NachOeffnen();
  const std::shared_ptr<vantora::frmCDPlayer> player = prog.frmCDPlayer.Laden();
  prog.Zeigen(*player);
  schleife.DoEvents();
  player->Init_CDPlayer();
  schleife.MousePointer(Pointer::Normal);
}

void frmHauptForm::imgLPKopieren_MouseUp() {
  prog.AppLog(L"imgLPKopieren_MouseUp", L"LP-Kopieren");
  if (!KarteFehlt(prog, *this)) AufnahmeOeffnen(-1);
}

void frmHauptForm::imgLPAufnehmen_MouseUp() {
  prog.AppLog(L"imgLPAufnehmen_MouseUp", L"LP-Aufnehmen");
  if (!KarteFehlt(prog, *this)) AufnahmeOeffnen(0);
}

void frmHauptForm::AufnahmeOeffnen(std::int16_t lpModus) {
  EventLoop& schleife = prog.plattform.schleife;
  vorschau_.Stop();
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  prog.LPModus = lpModus;
  Jedenfalls([&] { prog.frmAufnehmen.Laden()->Init_Aufnehmen(); },
             [&] {
               // If the recorder could not open, the main window is enabled again, so that the user
               // can go on.
               if (!prog.frmAufnehmen.Geladen() || !prog.frmAufnehmen().Visible()) {
                 Window.Enabled = true;
               }
               schleife.MousePointer(Pointer::Normal);
             });
}

// ---- forwards ----

void frmHauptForm::imgNeuerKatalog_MouseUp() {
  PlayWaveNormal(L"");
  ablage_.NeuerKatalog();
}

void frmHauptForm::imgDeleteTitel_MouseUp() {
  PlayWaveNormal(L"");
  prog.AppLog(L"imgDeleteTitel_MouseUp", L"UNDO");
  KatalogUndo();
}

bool frmHauptForm::lvwKatalog_OLEDragOver(const std::vector<Text>& dateien) const {
  return LiedImport::NurMusik(dateien);
}

std::int64_t frmHauptForm::KatalogLaengeBerechnen(Text& text) const {
  return vantora::KatalogLaengeBerechnen(prog.Katalog, text);
}

void frmHauptForm::Katalog_AddWaveFile(const Text& datei, const Text& titel) {
  bearbeitung_.Katalog_AddWaveFile(datei, titel);
}

void frmHauptForm::GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                               std::vector<std::int32_t>& laengen, Text& katalogTitel,
                               Text& katalogInterpret) {
  liste_.GetKatInfos(interpreten, titel, laengen, katalogTitel, katalogInterpret);
}

void frmHauptForm::PlayWaveMitte(const Text& datei, std::int32_t sekunden) {
  vorschau_.PlayWaveMitte(datei, sekunden);
}

}  // namespace vantora
