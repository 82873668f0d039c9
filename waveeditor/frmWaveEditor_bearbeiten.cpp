// The buttons of the edits: the window is shut while one of them works.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

namespace vantora {

void frmWaveEditor::Ausfuehren(const std::function<void()>& arbeit) {
  EventLoop& schleife = prog.plattform.schleife;
  const auto frei = [this, &schleife] {
    Window.Enabled = true;
    schleife.MousePointer(Pointer::Normal);
  };
  schleife.MousePointer(Pointer::Hourglass);
  Window.Enabled = false;
  try {
    if (bearbeitung_.Vorbereiten()) QuelleNeuOeffnen();
    arbeit();
  } catch (const Laufzeitfehler&) {
    bearbeitung_.NachFehler();
    Weiter([&] { NeuZeigen(); });
    frei();
    throw;
  }
  // An edit that was refused half way has closed the file that is played and drawn.
  if (!SourceFile->Wave.IsOpen()) QuelleNeuOeffnen();
  frei();
}

void frmWaveEditor::NeuZeigen() {
  SourceFile->Wave.SetFileName(WorkDatei);
  SourceFile->Wave.Open();
  ScanWave(picWave);
  DrawWave(picWave, picWaveBack);
}

void frmWaveEditor::NormalizeWave() {
  if (bearbeitung_.PlatzZumNormalisieren()) Ausfuehren([this] { bearbeitung_.NormalizeWave(); });
}

void frmWaveEditor::tmrNormalize_Timer() {
  lblStatus.Caption = LoadResString(bearbeitung_.NormalizePhase() == 0 ? 21607 : 21614) +
                      ZahlText(bearbeitung_.NormalizeProzent()) + L"%";
}

void frmWaveEditor::UndoWave() {
  if (Spielt || !bearbeitung_.UndoMoeglich()) return;
  Ausfuehren([this] { bearbeitung_.UndoWave(); });
}

// ---- buttons ----

void frmWaveEditor::imgCopy_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgCopy);
  InAblage([this] { CopyWave(); });
}

void frmWaveEditor::imgCut_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgCut);
  InAblage([this] { CutWave(); });
}

// Afterwards the clipboard can be pasted, also when the operation has failed.
void frmWaveEditor::InAblage(const std::function<void()>& arbeit) {
  Jedenfalls([&] { Ausfuehren(arbeit); },
             [this] {
               imgPaste.Enabled = true;
               lblPasteDisabled.Visible = false;
             });
}

void frmWaveEditor::imgPaste_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgPaste);
  Ausfuehren([this] { PasteWave(); });
}

void frmWaveEditor::imgMute_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgMute);
  Ausfuehren([this] { MuteWave(); });
}

void frmWaveEditor::imgFadeIn_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgFadeIn);
  Ausfuehren([this] { FadeInWave(); });
}

void frmWaveEditor::imgFadeOut_MouseUp() {
  if (Spielt) return;
  KnopfBild(imgFadeOut);
  Ausfuehren([this] { FadeOutWave(); });
}

void frmWaveEditor::imgNormalize_MouseUp() {
  if (Spielt) {
    PlayWave(false);
    prog.MsgBoxen(LoadResString(21008), kHinweis);
    return;
  }
  KnopfBild(imgNormalize);
  NormalizeWave();
}

}  // namespace vantora
