// The small picture of the spectrum of what is selected.

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmSpektrum.h"
#include "waveeditor/frmWaveEditor.h"
#include "waveeditor/spektrum_bild.h"

#include "platform/cd_sound.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::int32_t kMindestFrames = 0x1000, kHoechstFrames = 0x11800;

}  // namespace

void frmWaveEditor::Spektrum3D() {
  if (!prog.Show3DAnalysis || ScanLaeuft || BatchLaeuft || Spielt || Beschaeftigt) return;
  // The file is being written, or the same arithmetic draws the large picture.
  if (tmrNormalize.Enabled || prog.frmSpektrum.Geladen()) return SpektrumNeuStarten();
  EventLoop& schleife = prog.plattform.schleife;
  const std::int32_t hoehe = pic3D.Height, breite = pic3D.Width;
  SpektrumBild bild(prog.plattform.audiolib);
  const std::unique_ptr<MMWaveFileX> datei = prog.plattform.mmtools.NewWaveFileX();
  MMWaveObject& wave = datei->Wave;
  wave.TimeFormat = TimeFormat::tfByte;
  std::int32_t frames = std::clamp(MarkerEnde - MarkerAnfang, kMindestFrames, kHoechstFrames);
  if (NurCursor) frames = kHoechstFrames;
  std::int32_t start = 0;
  const bool gelesen = Weiter([&] {
    wave.SetFileName(WorkDatei);
    wave.Open();
    wave.SetPosition(Ganz32(1.0 * (NurCursor ? CursorPos : MarkerAnfang) * kFrameBytes));
    start = wave.Position() / kFrameBytes;
    LinkenKanalLesen(wave, frames, BlockPuffer, SpektrumDaten);
  });
  Weiter([&] { wave.Close(); });
  if (!gelesen || Beschaeftigt) return;
  pic3D.Cls();
  bild.Umrechnen(SpektrumDaten, frames);
  schleife.DoEvents();
  if (Beschaeftigt) return;
  bild.Zeichnen(pic3D, hoehe, breite, LoadResString(21600), LoadResString(21601));
  schleife.DoEvents();
  prog.SpektrumDatei = WorkDatei;
  prog.SpektrumStart = start;
  prog.SpektrumLaenge = frames;
  prog.SpektrumBereit = true;
}

void frmWaveEditor::tmr3D_Timer() {
  tmr3D.Enabled = false;
  Spektrum3D();
}

void frmWaveEditor::pic3D_Paint() {
  if (!ScanAbbruch) SpektrumNeuStarten();
}

void frmWaveEditor::pic3D_DblClick() {
  if (!prog.Show3DAnalysis || !prog.SpektrumBereit) return;
  prog.AppLog(L"frmWaveEditor.pic3D_DblClick()", L"showing fullscreen FFT");
  prog.ZeigeModal(prog.frmSpektrum.Laden());
}

}  // namespace vantora
