#include "catalog/effekt_stapel.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "catalog/haupt_fenster.h"
#include "catalog/katalog_liste.h"
#include "catalog/vorschau.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>

namespace vantora {

EffektStapel::EffektStapel(Programm& programm, Tafel tafel, KatalogListe& liste, Vorschau& vorschau,
                           HauptFenster& fenster)
    : prog(programm), tafel_(tafel), liste_(liste), vorschau_(vorschau), fenster_(fenster) {}

void EffektStapel::Beginnen() {
  if (!prog.EffektEinstellung.Gueltig) {
    prog.MsgBoxen(prog.Text(8066), kHinweis);
    return;
  }
  vorschau_.Stop();
  if (liste_.Leer()) {
    prog.MsgBoxen(prog.Text(8060), kHinweis);
    return;
  }
  // The files are collected before the question: when the message box closes, the list is rebuilt
  // and only one row is selected.
  std::vector<Text> dateien;
  for (const int zeile : liste_.GewaehlteZeilen()) dateien.push_back(liste_.DateiDerZeile(zeile));
  if (prog.MsgBoxen(prog.Text(8064), kJaNein) != kJa) return;
  try {
    Jedenfalls([&] { Laufen(dateien); }, [this] { Beenden(); });
  } catch (const Laufzeitfehler& fehler) {
    prog.StapelFehlerMelden(prog.WaveEditorDatei, fehler, 30135);
  }
}

void EffektStapel::Laufen(const std::vector<Text>& dateien) {
  // A file that cannot be written blocks the batch for ever, so the user can close the window
  // during a batch.
  fenster_.FreiSetzen(false);
  fenster_.EndeErlauben(true);
  prog.EditorBatch = true;
  tafel_.Balken.Width = 0;
  tafel_.Balken.AccessibleName = prog.Text(8218);
  tafel_.Balken.Visible = true;
  const auto anzahl = static_cast<std::int64_t>(dateien.size());
  std::int64_t nummer = 0;
  for (const Text& datei : dateien) {
    ++nummer;
    prog.plattform.schleife.MousePointer(Pointer::Hourglass);
    tafel_.Balken.Width =
        Ganz32(static_cast<double>(nummer) / static_cast<double>(anzahl) * tafel_.Bahn.Width);
    tafel_.Balken.Percent = tafel_.Balken.Width * 100 / std::max(tafel_.Bahn.Width(), 1);
    tafel_.Stand.Caption = ZahlText(nummer) + prog.Text(4219) + ZahlText(anzahl);
    prog.WaveEditorDatei = datei;
    prog.frmWaveEditor.Laden()->Einrechnen2(datei);
  }
}

// An error here must not keep the catalog disabled.
void EffektStapel::Beenden() {
  if (prog.frmWaveEditor.Geladen()) {  // an error left the editor open
    Weiter([&] { prog.frmWaveEditor().CloseMe(); });
    prog.frmWaveEditor.Entladen();
  }
  prog.EditorBatch = false;
  tafel_.Balken.Visible = false;
  Weiter([&] { liste_.KatalogShow(); });
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  fenster_.EndeErlauben(false);
  fenster_.FreiSetzen(true);
}

}  // namespace vantora
