// Opening the wave editor, and the batch that applies its effects to many tracks.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "catalog/frmHauptForm.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>

namespace vantora {

void frmHauptForm::mnuWAVEditor_Click() {
  PlayWaveNormal(L"");
  Abspielen = false;
  imgWaveEdit_MouseUp();
}

void frmHauptForm::imgWaveEdit_MouseUp() {
  prog.AppLog(L"imgWaveEdit_MouseUp", L"WaveEditor starten");
  if (!Soundkarte) return;
  PlayWaveNormal(L"");
  const int anzahl = lvwKatalog.ListItems.Count();
  if (anzahl == 0) {
    prog.MsgBoxen(LoadResString(8060), kHinweis);
    return;
  }
  AktuellerTitel = Ganz16(std::clamp<int>(AktuellerTitel, 1, anzahl));
  const Text datei = Trim(lvwKatalog.ListItems(AktuellerTitel).SubItems(7));
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

// ---- many tracks ----

void frmHauptForm::imgAssistent_MouseUp() {
  mnuWaveAssistent_Click();
}

void frmHauptForm::mnuWaveAssistent_Click() {
  if (!prog.EffektEinstellung.Gueltig) {
    prog.MsgBoxen(LoadResString(8066), kHinweis);
    return;
  }
  PlayWaveNormal(L"");
  Abspielen = false;
  if (lvwKatalog.ListItems.empty()) {
    prog.MsgBoxen(LoadResString(8060), kHinweis);
    return;
  }
  // The files are collected before the question: when the message box closes, the list is rebuilt
  // and only one row is selected.
  std::vector<Text> dateien;
  for (int i = 1; i <= lvwKatalog.ListItems.Count(); ++i) {
    const ListItem& zeile = lvwKatalog.ListItems(i);
    if (zeile.Selected()) dateien.push_back(Trim(zeile.SubItems(7)));
  }
  if (prog.MsgBoxen(LoadResString(8064), kJaNein) != kJa) return;
  Jedenfalls([&] { StapelLaufen(dateien); }, [this] { StapelBeenden(); });
}

void frmHauptForm::StapelLaufen(const std::vector<Text>& dateien) {
  // A file that cannot be written blocks the batch for ever, so the window can be closed even then.
  Window.Enabled = false;
  CloseWhileDisabled = true;
  prog.EditorBatch = true;
  shpStapel.Width = 0;
  shpStapel.Visible = true;
  const auto anzahl = static_cast<std::int64_t>(dateien.size());
  std::int64_t nummer = 0;
  for (const Text& datei : dateien) {
    ++nummer;
    prog.plattform.schleife.MousePointer(Pointer::Hourglass);
    shpStapel.Width =
        Ganz32(static_cast<double>(nummer) / static_cast<double>(anzahl) * lblKatalogDatei.Width);
    lblRestzeitCD.Caption = ZahlText(nummer) + LoadResString(4219) + ZahlText(anzahl);
    prog.WaveEditorDatei = datei;
    prog.frmWaveEditor.Laden()->Einrechnen2(datei);
  }
}

// An error here must not keep the catalog disabled.
void frmHauptForm::StapelBeenden() {
  if (prog.frmWaveEditor.Geladen()) {  // an error left the editor open
    Weiter([&] { prog.frmWaveEditor().CloseMe(); });
    prog.frmWaveEditor.Entladen();
  }
  prog.EditorBatch = false;
  shpStapel.Visible = false;
  Weiter([&] { KatalogShow(); });
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  CloseWhileDisabled = false;
  Window.Enabled = true;
}

}  // namespace vantora
