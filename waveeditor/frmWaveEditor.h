// The wave editor. It shows one wave file of the catalog as a picture of its sound, with a range or
// a cursor on it, and edits the range. The file is changed in place; there is no working copy.
// Effects are heard live through a chain of components. On request, the effects are written into
// the file.
//
// Everything is counted in frames of 4 bytes, with 44.1 frames in a millisecond.
//
// The window holds the controls and forwards: each handler hands the work to one of the parts. They
// keep their state to themselves (selection, view, chain, transport, edits, rendering, presets).
#pragma once

#include "app/fenster.h"
#include "waveeditor/ansicht.h"
#include "waveeditor/auswahl.h"
#include "waveeditor/bearbeitung.h"
#include "waveeditor/editor_fenster.h"
#include "waveeditor/effekt_kette.h"
#include "waveeditor/effekt_tafeln.h"
#include "waveeditor/einrechnung.h"
#include "waveeditor/hallraeume.h"
#include "waveeditor/marker.h"
#include "waveeditor/preset_vorrat.h"
#include "waveeditor/prozessorlast.h"
#include "waveeditor/regler.h"
#include "waveeditor/transport.h"
#include "waveeditor/wellen_tafel.h"
#include "waveeditor/wellenbild.h"
#include "waveeditor/zeit.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace vantora {

class frmWaveEditor final : public VtrFenster,
                            public WellenTafel,
                            public EffektTafeln,
                            private EditorFenster {
 public:
  explicit frmWaveEditor(Programm& programm);

  // ---- window ----
  void Form_Load() override;
  void Form_Activate() override;  // opens the file the first time
  void Form_GotFocus() override;  // a held button has been released in another window
  void Form_Unload() override;
  void Form_Close() override;
  void Form_Paint() override { pic3D_Paint(); }
  bool Form_KeyDown(int taste, bool strg) override;
  void SetTexte() override;
  void Init_Waveeditor();
  void CloseMe();
  void imgZurück_MouseUp() { CloseMe(); }

  // ---- picture and selection ----
  static Text SmpToTime(double frames) { return vantora::SmpToTime(frames); }
  void ScanWave(const PictureBox& bild);
  void DrawWave(const PictureBox& fenster, PictureBox& flaeche);
  void imgZoom_MouseUp(int index);  // 0 in, 1 out, 2 the whole file
  void sliderWave_OnChange();
  void picWave_MouseDown(int x);  // twips on the surface
  void picWave_MouseMove(int taste, int x);
  void picWave_MouseUp();
  void picWave_KeyDown(int taste);
  void picWave_DblClick() { cmdAllesAuswaehlen_Click(); }
  void cmdAllesAuswaehlen_Click();
  void cmdAuswahlAufheben_Click();
  void marker_reset();
  void marker_update() override;

  // ---- transport ----
  void PlayWave(bool an) { transport_.PlayWave(an); }
  void tmrAnzeigeTimer_Timer() { transport_.Anzeigen(); }
  void imgSteuerung_MouseDown(int index);
  void imgSteuerung_MouseUp(int index);
  void imgSteuerung_DblClick(int index);
  void imgLoop_MouseUp() { transport_.Schleife(); }

  // ---- edits ----
  bool PrepareUndo() { return bearbeitung_.PrepareUndo(); }
  bool CopyWave() { return bearbeitung_.CopyWave(); }
  void CutWave() { bearbeitung_.CutWave(); }
  void PasteWave() { bearbeitung_.PasteWave(); }
  void MuteWave() { bearbeitung_.MuteWave(); }
  void FadeInWave() { bearbeitung_.FadeInWave(); }
  void FadeOutWave() { bearbeitung_.FadeOutWave(); }
  void NormalizeWave();
  void UndoWave();
  void imgCopy_MouseUp();
  void imgCut_MouseUp();
  void imgPaste_MouseUp();
  void imgMute_MouseUp();
  void imgFadeIn_MouseUp();
  void imgFadeOut_MouseUp();
  void imgNormalize_MouseUp();
  void tmrNormalize_Timer();

  // ---- effects ----
  void RuntimeConnections() override;
  void SetEqualizer() { kette_.SetEqualizer(); }
  void SetLoudness() { kette_.SetLoudness(); }
  void DSP_OnBufferFilled(MMData& data);
  void tmrCPU_Timer();
  void CheckAllEffekte();
  void CheckRestEffekte();
  void CheckAllEffekte2() { EffekteAktiv_ = EinEffektAn(); }
  void MMSliderX1_OnChange(int index);
  void chkEQBypass_Click();
  void chkLoudness_Click();
  void chkReverbbypass_Click();
  void chkVolume_Click();
  void chkFlangerAktiv_Click();
  void chkGateraktiv_Click();
  void chkDeclickAktiv_Click();
  void chkDecrackleAktiv_Click();
  void chkDenoiserAktiv_Click();
  bool txtFlangerRate_KeyPress(int taste);  // false: the character is refused
  void txtFlangerRate_LostFocus();
  void imgByPass_MouseUp();
  void imgLoudness_MouseUp();
  void imgHallByPass_MouseUp();
  void imgFlangerBypass_MouseUp();
  void imgVolumeByPass_MouseUp();
  void imgGaterBypass_MouseUp();
  void imgDeclickByPass_MouseUp();
  void imgDenoiserByPass_MouseUp();
  void imgDecrackleByPass_MouseUp();
  void imgEffekt_MouseUp(int index);  // 0 to 4 a panel, 5 all effects off
  void EffektWerteMerken();
  void EffektWerteLaden();

  // ---- presets ----
  void ReverbPresetsLaden();
  void InitPresets();
  void lstPresets_Click();
  bool txtPresName_KeyPress(int taste);  // false: the character is refused
  void imgEddPres_MouseUp(int index);    // 0 add, 1 delete
  void imgEQPresets_MouseUp() { InitPresets(); }
  void imgVolumePresets_MouseUp() { InitPresets(); }
  void imgRestPresets_MouseUp() { InitPresets(); }
  void imgFlangerPresets_MouseUp() { InitPresets(); }
  void imgOK_MouseUp();
  void comboPreset_Click();

  // ---- effects into the file ----
  void Einrechnen2(const Text& datei);  // renders a file of a batch and closes the editor
  void Trigger_OnStop() { einrechnung_.Trigger_OnStop(); }
  void Trigger_OnError() { einrechnung_.Trigger_OnError(); }

  // ---- spectrum ----
  void Spektrum3D();
  void tmr3D_Timer();
  void pic3D_Paint();
  void pic3D_DblClick();

  // ---- state ----
  const Auswahl& Gewaehlt() const { return auswahl_; }
  void Waehlen(const Auswahl& auswahl) { auswahl_ = auswahl; }  // the marker stays where it is
  float ZoomFaktor() const { return ansicht_.ZoomFaktor(); }
  const std::vector<WellenBild::Punkt>& WellenPunkte() const { return bild_.WellenPunkte(); }
  bool ScanLaeuft() const { return bild_.ScanLaeuft(); }
  bool Spielt() const { return transport_.Spielt(); }
  bool Pausiert() const { return transport_.Pausiert(); }
  bool EffekteAktiv() const { return EffekteAktiv_; }  // there are effects to apply
  bool EinrechnenLaeuft() const { return einrechnung_.EinrechnenLaeuft(); }
  bool BatchLaeuft() const { return einrechnung_.BatchLaeuft(); }
  std::int16_t CPULast() const { return last_.CPULast(); }
  EffektKette& Kette() { return kette_; }
  const Bearbeitung& Edits() const { return bearbeitung_; }
  PresetVorrat& Presets() { return presets_; }

  Timer tmrAnzeigeTimer{*this, L"tmrAnzeigeTimer"};
  Timer tmr3D{*this, L"tmr3D"};
  Timer tmrCPU{*this, L"tmrCPU"};
  Timer tmrNormalize{*this, L"tmrNormalize"};

 private:
  using Handler = void (frmWaveEditor::*)();

  // EditorFenster
  const Text& WorkDatei() const override { return WorkDatei_; }
  void Status(const Text& text) override { lblStatus.Caption = text; }
  void StelleZeigen(std::int64_t frame) override;
  void WelleAnsagen(double stelle);
  void NormalizeUhr(bool an) override { tmrNormalize.Enabled = an; }
  void KlangZeigen() override;
  void NeuZeigen() override;
  bool Veraendert() override;
  void Freigeben(bool frei) override { Window.Enabled = frei; }
  void Sperren(bool gesperrt) override;
  bool Besetzt() const override { return EinrechnenLaeuft() || Beschaeftigt; }
  void StapelFertig() override;

  // construction
  void BildEinrichten();
  void TransportEinrichten();
  void UhrenEinrichten();
  void EffekteEinrichten();
  void ReglerEinrichten();
  void FlangerEinrichten();
  void HallUndFilterEinrichten();
  void PresetsEinrichten();
  void TexteEffekte();
  void HinweiseEffekte();
  void TextePresets();
  void Hinweis(Control& control, int nummer);  // sets the tooltip, and the name for screen readers

  // opening
  void BilderBereiten();
  void DateiOeffnen();
  void QuelleNeuOeffnen();
  void LastMessungBeginnen();

  // picture
  void ZugBis(int x);  // draws the marker to `x`, or sets a cursor there
  void BefehlsTaste(int taste);
  void SpektrumNeuStarten() { tmr3D.Restart(); }  // draws it two seconds after the last call

  // edits
  void Bearbeiten(Handler handler);  // runs the handler of an edit's button, with the file open
  void Ausfuehren(const std::function<void()>& arbeit);  // disables the window meanwhile
  void InAblage(const std::function<void()>& arbeit);

  // effects
  void Umschalten(CheckBox& kasten);
  void FilterSchalten(CheckBox& kasten, Restauration::Filter filter);
  void AlleEffekteAus();

  Text WorkDatei_;
  DateiStand Gelesen_;        // of the file, when it was read last
  bool Beschaeftigt = false;  // the window opens or closes
  bool EffekteAktiv_ = false;
  std::int16_t AktivesPanel = 0;  // the panel in front

  EffektKette kette_;
  Auswahl auswahl_;
  Ansicht ansicht_;
  Marker marker_;
  WellenBild bild_;
  Prozessorlast last_;
  Transport transport_;
  Einrechnung einrechnung_;
  Bearbeitung bearbeitung_;
  ReglerBrett regler_;
  PresetVorrat presets_;
  Hallraeume raeume_;
};

}  // namespace vantora
