#include "dialogs/datei_holen.h"

#include "app/programm.h"
#include "dialogs/frmLoadSave.h"

namespace vantora {

namespace {

constexpr int kNachlaufMs = 10;

}  // namespace

void DateiHolen(Programm& prog, int typ, int modus, const Text& vorschlag) {
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  Text& katalogOrdner = modus == kModusSichern ? prog.Catalogue_Save_Dir : prog.Catalogue_Open_Dir;
  Text& ordner = typ == kTypKatalog    ? katalogOrdner
                 : typ == kTypWave     ? prog.Wave_Import_Dir
                 : typ == kTypAufnahme ? prog.Wave_Export_Dir
                 : typ == kTypBild     ? prog.Picture_Save_Dir
                 : typ == kTypPdf      ? prog.PdfOrdner
                                       : prog.Songs_Import_Dir;
  prog.DialogModus = static_cast<std::int16_t>(modus);
  if (typ == kTypPdf && prog.PdfOrdner.empty()) prog.PdfOrdner = prog.AppPfad;
  prog.DialogName = typ == kTypKatalog ? L".vtr"
                    : typ == kTypMusik ? L".wav;*.mp3"
                    : typ == kTypBild  ? L".jpg;*.bmp;*.gif"
                    : typ == kTypPdf   ? L".pdf"
                                       : L".wav";
  prog.DialogMuster = L"*" + prog.DialogName;
  prog.DialogPfad = prog.UNCAufLaufwerk(ordner);
  prog.GewaehlteDatei.clear();
  prog.DialogAbbruch = false;
  prog.MehrfachAuswahl = false;
  const std::shared_ptr<vantora::frmLoadSave> fenster = prog.frmLoadSave.Laden();
  if (prog.DateiExistiert(Links(prog.DialogPfad, 3))) fenster->LaufwerkSetzen(prog.DialogPfad);
  schleife.MousePointer(Pointer::Normal);
  if (!Trim(vorschlag).empty()) fenster->txtDateiName.Text = vorschlag;
  prog.ZeigeModal(fenster);
  schleife.DoEvents();
  schleife.Sleep(kNachlaufMs);
  schleife.DoEvents();
  if (prog.DialogName.starts_with(L".") || Enthaelt(prog.GewaehlteDatei, L"*") ||
      prog.GewaehlteDatei.empty() || prog.DialogAbbruch) {
    schleife.MousePointer(Pointer::Normal);
    return;
  }
  ordner = prog.DialogPfad;
  if (typ == kTypWave && modus == kModusSichern) ExtensionSicher(prog.GewaehlteDatei, L".wav");
  if (typ == kTypPdf) ExtensionSicher(prog.GewaehlteDatei, L".pdf");
  if (typ != kTypKatalog) return;
  if (!prog.MehrfachAuswahl) ExtensionSicher(prog.GewaehlteDatei, L".vtr");
  prog.LetzterKatalog = prog.GewaehlteDatei;
  prog.KatalogDatei = prog.GewaehlteDatei;
  if (prog.MehrfachAuswahl) prog.KatalogDatei.pop_back();
}

}  // namespace vantora
