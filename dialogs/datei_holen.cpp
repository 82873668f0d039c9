// The call that runs the file dialog for every choice of a file: where the dialog begins, and how
// its result is used.

#include "app/programm.h"
#include "dialogs/frmLoadSave.h"

namespace vantora {

namespace {

constexpr int kNachlaufMs = 10;

}  // namespace

void Programm::DateiHolen(int typ, int modus, const vantora::Text& vorschlag) {
  EventLoop& schleife = plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  vantora::Text& katalogOrdner = modus == kModusSichern ? Catalogue_Save_Dir : Catalogue_Open_Dir;
  vantora::Text& ordner = typ == kTypKatalog    ? katalogOrdner
                          : typ == kTypWave     ? Wave_Import_Dir
                          : typ == kTypAufnahme ? Wave_Export_Dir
                          : typ == kTypBild     ? Picture_Save_Dir
                          : typ == kTypPdf      ? PdfOrdner
                                                : Songs_Import_Dir;
  DialogModus = static_cast<std::int16_t>(modus);
  if (typ == kTypPdf && PdfOrdner.empty()) PdfOrdner = AppPfad;
  DialogName = typ == kTypKatalog ? L".vtr"
               : typ == kTypMusik ? L".wav;*.mp3"
               : typ == kTypBild  ? L".jpg;*.bmp;*.gif"
               : typ == kTypPdf   ? L".pdf"
                                  : L".wav";
  DialogMuster = L"*" + DialogName;
  DialogPfad = UNCAufLaufwerk(ordner);
  GewaehlteDatei.clear();
  DialogAbbruch = false;
  MehrfachAuswahl = false;
  const std::shared_ptr<vantora::frmLoadSave> fenster = frmLoadSave.Laden();
  if (DateiExistiert(Links(DialogPfad, 3))) fenster->LaufwerkSetzen(DialogPfad);
  schleife.MousePointer(Pointer::Normal);
  if (!Trim(vorschlag).empty()) fenster->txtDateiName.Text = vorschlag;
  ZeigeModal(fenster);
  schleife.DoEvents();
  schleife.Sleep(kNachlaufMs);
  schleife.DoEvents();
  if (DialogName.starts_with(L".") || Enthaelt(GewaehlteDatei, L"*") || GewaehlteDatei.empty() ||
      DialogAbbruch) {
    schleife.MousePointer(Pointer::Normal);
    return;
  }
  ordner = DialogPfad;
  if (typ == kTypWave && modus == kModusSichern) ExtensionSicher(GewaehlteDatei, L".wav");
  if (typ == kTypPdf) ExtensionSicher(GewaehlteDatei, L".pdf");
  if (typ != kTypKatalog) return;
  if (!MehrfachAuswahl) ExtensionSicher(GewaehlteDatei, L".vtr");
  LetzterKatalog = GewaehlteDatei;
  KatalogDatei = GewaehlteDatei;
  if (MehrfachAuswahl) KatalogDatei.pop_back();
}

}  // namespace vantora
