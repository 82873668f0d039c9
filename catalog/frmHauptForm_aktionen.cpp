// The short handlers of the main window's buttons, list and menu.

#include "app/frmAbout.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "catalog/frmHauptForm.h"
#include "catalog/frmLiedAusKatalog.h"
#include "catalog/katalog_datei.h"
#include "cdinput/frmDatenbank.h"
#include "cdwriting/frmCDBrennen.h"
#include "cover/frmPrintStart.h"
#include "dialogs/frmExtrasMenue.h"
#include "dialogs/frmNeuerInterpret.h"
#include "medley/frmMedley.h"
#include "mixer/frmMixer.h"

#include "platform/printer.h"

namespace vantora {

namespace {

constexpr int kNachlaufMs = 250;  // until a stopped preview is silent

}  // namespace

void frmHauptForm::imgExtras_MouseUp() {
  PlayWaveNormal(L"");
  prog.ZeigeModal(prog.frmExtrasMenue.Laden());
}

// The cover window has its own buttons to close; closing it enables this window again.
void frmHauptForm::imgPrintCover_MouseUp() {
  if (lvwKatalog.ListItems.empty()) {
    prog.MsgBoxen(LoadResString(8059), kHinweis);
    return;
  }
  if (prog.plattform.drucker.Count() == 0) {
    prog.MsgBoxen(LoadResString(8081), kHinweis);
    return;
  }
  EventLoop& schleife = prog.plattform.schleife;
  PlayWaveNormal(L"");
  Abspielen = false;
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
  if (lvwKatalog.ListItems.empty()) {
    prog.MsgBoxen(LoadResString(8009), kHinweis);
    return;
  }
  int erste = 0, letzte = 0, gewaehlt = 0;
  for (int i = 1; i <= lvwKatalog.ListItems.Count(); ++i) {
    if (!lvwKatalog.ListItems(i).Selected()) continue;
    ++gewaehlt;
    if (erste == 0) erste = i;
    letzte = i;
  }
  if (gewaehlt < 2) {
    prog.MsgBoxen(LoadResString(8010), kHinweis);
    return;
  }
  prog.Medley.clear();
  for (int i = erste; i <= letzte; ++i) {
    const ListItem& zeile = lvwKatalog.ListItems(i);
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

// The name does not match the job: this is the exit button.
void frmHauptForm::imgÜberblenden_MouseUp() {
  PlayWaveNormal(L"");
  prog.AppLog(L"imgÜberblenden_MouseUp", L"Prg. beenden");
  prog.LastCatSave();
  KatalogGeaendertFragen();
  prog.ProgrammBeenden();
}

int frmHauptForm::GewaehlteZeile() const {
  const int anzahl = lvwKatalog.ListItems.Count();
  if (AktuellerTitel > 0 && AktuellerTitel <= anzahl) return AktuellerTitel;
  for (int i = 1; i <= anzahl; ++i) {
    if (lvwKatalog.ListItems(i).Selected()) return i;
  }
  return anzahl > 0 ? 1 : 0;
}

void frmHauptForm::imgAbspielen_MouseUp() {
  if (!Soundkarte || lvwKatalog.ListItems.empty()) return;
  PlayWaveNormal(Trim(lvwKatalog.ListItems(GewaehlteZeile()).SubItems(7)));
  prog.plattform.schleife.DoEvents();
  Abspielen = true;
}

void frmHauptForm::imgStop_MouseUp() {
  PlayWaveNormal(L"");
  Abspielen = false;
}

void frmHauptForm::imgTitelBearb_MouseUp() {
  if (lvwKatalog.ListItems.empty()) return;
  prog.KatalogGeaendert = true;
  bool gewaehlt = false;
  for (int i = 1; i <= lvwKatalog.ListItems.Count(); ++i) {
    gewaehlt = gewaehlt || lvwKatalog.ListItems(i).Selected();
  }
  if (gewaehlt) {
    TrackDatenAendern();
  } else {
    KatalogDatenAendern();
  }
}

void frmHauptForm::imgMinimize_MouseUp() {
  imgMinimize.Picture = L"HF_MINIMIZE_UNPRESSED";
  prog.plattform.schleife.Minimize(*this);
}

void frmHauptForm::Logo_Click() {
  prog.ZeigeModal(prog.frmAbout.Laden());
}

void frmHauptForm::lvwKatalog_ItemClick(int zeile) {
  AktuellerTitel = Ganz16(zeile);
  if (!Abspielen) return;
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  PlayWaveNormal(L"");
  schleife.Sleep(kNachlaufMs);
  schleife.MousePointer(Pointer::Normal);
}

void frmHauptForm::lvwKatalog_KeyUp(int taste) {
  if (taste == kKeyDelete) KatRowDelete();
}

void frmHauptForm::lvwKatalog_MouseUp(int taste) {
  if (taste != kRightButton || lvwKatalog.ListItems.empty()) return;
  prog.plattform.schleife.PopupMenu(*this, *FindMenu(L"mnuKatalog"));
}

void frmHauptForm::TrackDatenAendern(bool ohneUndo) {
  if (AktuellerTitel <= 0 || AktuellerTitel > lvwKatalog.ListItems.Count()) return;
  const KatalogEintrag gemeint = Element(prog.Katalog, AktuellerTitel);
  const std::shared_ptr<vantora::frmNeuerInterpret> fenster = prog.frmNeuerInterpret.Laden();
  const ListItem& gezeigt = lvwKatalog.ListItems(AktuellerTitel);
  fenster->TrackZeigen(AktuellerTitel, gezeigt.SubItems(2), gezeigt.SubItems(3));
  prog.NeuInterpret.clear();
  prog.NeuTitel.clear();
  prog.NeuPause.clear();
  prog.DialogBestaetigt = false;
  prog.ZeigeModal(fenster);
  // Rows may have lost their files and been removed meanwhile, so the other rows may have moved up.
  const int nummer = Wiederfinden(gemeint, AktuellerTitel);
  if (fenster->Abbruch || nummer == 0) return;
  AktuellerTitel = Ganz16(nummer);
  if (prog.DialogBestaetigt) {
    prog.KatalogGeaendert = true;
    if (!ohneUndo) KatalogLastStepSave();
  }
  ListItem& zeile = lvwKatalog.ListItems(AktuellerTitel);
  if (!Trim(prog.NeuInterpret).empty()) zeile.SetSubItems(3, prog.NeuInterpret);
  if (!Trim(prog.NeuTitel).empty()) zeile.SetSubItems(2, prog.NeuTitel);
  if (!Trim(prog.NeuPause).empty()) zeile.SetSubItems(6, prog.NeuPause + LoadResString(8070));
  prog.NeuInterpret.clear();
  prog.NeuTitel.clear();
  prog.NeuPause.clear();
  KatalogEintrag& e = Element(prog.Katalog, AktuellerTitel);
  e.Interpret = zeile.SubItems(3);
  e.Titel = zeile.SubItems(2);
  e.Pause = Ganz16(Val(zeile.SubItems(6)));
  KatalogShow();
}

void frmHauptForm::KatalogDatenAendern(bool ohneUndo) {
  const std::shared_ptr<vantora::frmNeuerInterpret> fenster = prog.frmNeuerInterpret.Laden();
  fenster->KatalogZeigen(Trim(lblKatalogTitel.Caption), Trim(lblKatalogInterpret.Caption));
  prog.DialogBestaetigt = false;
  prog.ZeigeModal(fenster);
  if (fenster->Abbruch) return;
  if (prog.DialogBestaetigt) {
    prog.KatalogGeaendert = true;
    if (!ohneUndo) KatalogLastStepSave();
  }
  const Text titel = prog.NeuTitel, interpret = prog.NeuInterpret;
  prog.NeuTitel.clear();
  prog.NeuInterpret.clear();
  prog.NeuPause.clear();
  if (!Trim(interpret).empty()) {
    lblKatalogInterpret.Caption = interpret;
    for (KatalogEintrag& e : prog.Katalog) e.KatalogInterpret = interpret;
  }
  if (!Trim(titel).empty()) {
    lblKatalogTitel.Caption = titel;
    for (KatalogEintrag& e : prog.Katalog) e.KatalogTitel = titel;
  }
}

void frmHauptForm::imgLiedKatalog_MouseUp() {
  PlayWaveNormal(L"");
  KatalogNamen quelle;  // of another catalog, so the open catalog keeps its own names
  if (!KatalogWaehlen(8035, quelle)) return;
  prog.KatalogGeaendert = true;
  KatalogGeladen = true;
  KatalogLastStepSave();
  KatalogLesen(prog.plattform.dateien, prog.GewaehlteDatei, prog.QuellKatalog);
  const std::shared_ptr<vantora::frmLiedAusKatalog> fenster = prog.frmLiedAusKatalog.Laden();
  LiedAusKatalogAnzeige();
  prog.ZeigeModal(fenster);
}

void frmHauptForm::LiedAusKatalogAnzeige() {
  ListBox& liste = prog.frmLiedAusKatalog().lstLiedAusKatalog;
  liste.Clear();
  for (std::size_t i = 1; i < prog.QuellKatalog.size(); ++i) {
    const KatalogEintrag& e = prog.QuellKatalog[i];
    Text laenge = MinutenText(0);
    Weiter([&] { laenge = MinutenText(Abgeschnitten(Val(e.Laenge.Ganz()))); });
    liste.AddItem(ZahlText(static_cast<std::int64_t>(i)) + L". " + e.Titel.Getrimmt() + L" " +
                  e.Interpret.Getrimmt() + L" " + laenge + L" " + e.Datei.Getrimmt());
  }
}

void frmHauptForm::LiedAusKatalogImport() {
  for (const std::int16_t nummer : prog.QuellAuswahl) {
    KatalogEintrag& neu = prog.Katalog.emplace_back(Element(prog.QuellKatalog, nummer));
    neu.KatalogTitel = prog.Katalog[0].KatalogTitel;
    neu.KatalogInterpret = prog.Katalog[0].KatalogInterpret;
  }
  KatalogNeu();
  KatalogShow();
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
  if (lvwKatalog.ListItems.empty()) {
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
    // A crossfade has no gap, so a catalog with a crossfade is burnt disc-at-once if the drive can.
    if (!brennen->optDiscAtOnce.Enabled || prog.Katalog[i].Ueberblendet == 0) continue;
    brennen->optDiscAtOnce.SetValue(true);
    break;
  }
  prog.BrennerFensterGeschlossen = false;
  prog.Zeigen(*brennen);
  schleife.MousePointer(Pointer::Normal);
}

}  // namespace vantora
