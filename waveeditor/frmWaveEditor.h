// The wave editor: one wave file of the catalog as a picture of its sound, a range or a cursor on
// it, and all that can be done with the range. The file is changed in place; there is no working
// copy. Effects are heard live through a chain of components and get into the file on request.
//
// Everything is counted in frames of 4 bytes at 44.1 frames a millisecond.
#pragma once

#include "app/fenster.h"
#include "app/zustand/editor_zustand.h"
#include "klang/klang_frame.h"
#include "waveeditor/auswahl.h"
#include "waveeditor/bearbeitung.h"
#include "waveeditor/pegel.h"

#include "platform/mmtools.h"

#include <array>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace vantora {

class frmWaveEditor final : public VtrFenster, public Auswahl {
 public:
  explicit frmWaveEditor(Programm& programm);

  // ---- window ----
  void Form_Load() override;
  void Form_Activate() override;  // the first time opens the file
  void Form_GotFocus() override;  // a button that was held has been let go elsewhere
  void Form_Unload() override;
  void Form_Close() override;
  void Form_Paint() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void SetTexte() override;
  void Init_Waveeditor();

  // ---- picture and selection ----
  static Text SmpToTime(double frames);  // "0:00.0" for none, else "m:ss:t"
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
  void marker_update();

  // ---- transport ----
  void PlayWave(bool an);
  void tmrAnzeigeTimer_Timer();
  void imgSteuerung_MouseDown(int index);
  void imgSteuerung_MouseUp(int index);
  void imgSteuerung_DblClick(int index);
  void imgLoop_MouseUp();

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
  void RuntimeConnections();
  void SetEqualizer();
  void SetLoudness();
  void DSP_OnBufferFilled(MMData& data);
  void tmrCPU_Timer();
  void CheckAllEffekte();
  void CheckRestEffekte();
  void CheckAllEffekte2();
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

  // ---- effects into the file, and leaving ----
  void Einrechnen2(const Text& datei);  // the whole of a batch for one file; closes the editor
  void Trigger_OnStop();
  void Trigger_OnError();
  void CloseMe();
  void imgZurück_MouseUp() { CloseMe(); }
  void EffektWerteMerken();
  void EffektWerteLaden();

  // ---- spectrum ----
  void Spektrum3D();
  void tmr3D_Timer();
  void pic3D_Paint();
  void pic3D_DblClick();

  // ---- state ----
  Text WorkDatei;          // the file that is open
  float MarkerStartX = 0;  // where the drag began, twips
  int ZugX = 0;            // where it is now
  float ZoomFaktor = 1;    // 1, 2, 4, 8, 16
  struct Punkt {
    std::int16_t Links = 0, Rechts = 0;  // twips from the top of the picture
  };
  std::vector<Punkt> WellenPunkte;
  struct Pixel {
    std::int32_t X = 0, Y = 0;
  };
  std::vector<Pixel> LinkePunkte, RechtePunkte;  // one segment of a trace
  using Frame = KlangFrame;
  static constexpr std::int32_t kBlockFrames = 0x40000;
  static constexpr std::int32_t kBlockBytes = 0x100000;
  std::vector<Frame> BlockPuffer = std::vector<Frame>(kBlockFrames);  // of scans
  bool Spielt = false, Pausiert = false, LoopAktiv = false;
  bool ScanLaeuft = false, ScanAbbruch = false;
  bool Beschaeftigt = false;   // the window opens or closes
  bool SpulAktiv = false;      // a wind button is held
  bool HaeltAn = false;        // the sound is being ended
  bool DanachSpielen = false;  // asked for meanwhile
  int Verbindungen = 0;        // how often the chain was connected
  std::int32_t SpulPos = 0;    // frames
  bool SpieltVorSpulen = false;

  std::array<bool, 6> EffektAn{};  // equalizer, volume, hall, restoration, flanger
  bool EffekteAktiv = false;
  bool EinrechnenLaeuft = false, BatchLaeuft = false;
  std::int16_t CPULast = 0;  // percent
  float DeclickLevel = 0, DecrackleLevel = 0, DenoiserLevel = 0;
  std::int32_t GateZaehler = 0;  // frames under the threshold; 0: open, and not counting

  std::int16_t AktivesPanel = 0;  // the panel in front
  Text PresetPrefix;
  static constexpr int kPresets = 10;
  using PresetFeld = std::array<Text, kPresets>;
  PresetFeld PresetsEqu, PresetsVol, PresetsRes, PresetsFla;

  std::vector<std::int16_t> SpektrumDaten;

  // ---- components, in the order of the sound ----
  std::unique_ptr<MMWaveFileX> SourceFile, DestFile;
  std::unique_ptr<MMPCMConverterX> MMPCMConverterX1;
  std::unique_ptr<MMPeakDetectX> Peak;
  std::unique_ptr<MMDSPInterfaceX> DSP;
  std::unique_ptr<MMEqualizerX> Eq, Loudness;
  std::unique_ptr<MMReverbX> Reverb;
  std::unique_ptr<MMFlangerX> Flanger;
  std::unique_ptr<MMVolumeX> mmVolume;
  std::unique_ptr<MMWaveOutX> Out;
  std::unique_ptr<MMConnectorX> MMConnectorX1;
  std::unique_ptr<MMTriggerX> Trigger;
  MMWaveHelperX WaveHelper;

  // What can be pasted and undone.
  const Bearbeitung& Edits() const { return bearbeitung_; }

  // ---- controls: head, picture, transport ----
  Label lblTitel{*this, L"lblTitel"};
  Label lblDatei{*this, L"lblDatei"};
  PictureButton imgHelp{*this, L"imgHelp"};
  PictureBox picZeitAnzeige{*this, L"picZeitAnzeige"};
  PictureBox picZeitFront{*this, L"picZeitFront"};
  PictureBox picWave{*this, L"picWave"};
  PictureBox picWaveBack{*this, L"picWaveBack"};
  Shape shpMarker{*this, L"shpMarker"};
  Shape linPosition{*this, L"linPosition"};
  Slider sliderWave{*this, L"sliderWave"};
  MMLevelX Level1{*this, L"Level1", Ears::Left};
  MMLevelX Level2{*this, L"Level2", Ears::Right};
  ControlArray<Label, 4> lblFeld{*this, L"lblFeld"};  // captions of the display
  Label lblMarkerAnfang{*this, L"lblMarkerAnfang"};
  Label lblMarkerDelta{*this, L"lblMarkerDelta"};
  Label lblMarkerEnde{*this, L"lblMarkerEnde"};
  Label lblStatus{*this, L"lblStatus"};
  Label lblZoomFaktor{*this, L"lblZoomFaktor"};
  ControlArray<PictureButton, 7> imgSteuerung{*this, L"imgSteuerung"};
  PictureButton imgLoop{*this, L"imgLoop"};
  ControlArray<PictureButton, 3> imgZoom{*this, L"imgZoom"};
  PictureButton cmdAllesAuswaehlen{*this, L"cmdAllesAuswaehlen"};
  PictureButton cmdAuswahlAufheben{*this, L"cmdAuswahlAufheben"};
  PictureButton imgCopy{*this, L"imgCopy"};
  PictureButton imgCut{*this, L"imgCut"};
  PictureButton imgPaste{*this, L"imgPaste"};
  Label lblPasteDisabled{*this, L"lblPasteDisabled"};
  PictureButton imgMute{*this, L"imgMute"};
  PictureButton imgFadeIn{*this, L"imgFadeIn"};
  PictureButton imgFadeOut{*this, L"imgFadeOut"};
  PictureButton imgNormalize{*this, L"imgNormalize"};
  PictureButton imgZurück{*this, L"imgZurück"};
  Label lblEinrechnen{*this, L"lblEinrechnen"};  // caption of the apply button
  Label lblZurück{*this, L"lblZurück"};

  // ---- controls: effects ----
  ControlArray<PictureButton, 6> imgEffekt{*this, L"imgEffekt"};
  ControlArray<Label, 6> lblEffekt{*this, L"lblEffekt"};
  CheckBox chkEQBypass{*this, L"chkEQBypass"};
  CheckBox chkLoudness{*this, L"chkLoudness"};
  CheckBox chkReverbbypass{*this, L"chkReverbbypass"};
  CheckBox chkFlangerAktiv{*this, L"chkFlangerAktiv"};
  CheckBox chkVolume{*this, L"chkVolume"};
  CheckBox chkGateraktiv{*this, L"chkGateraktiv"};
  CheckBox chkDeclickAktiv{*this, L"chkDeclickAktiv"};
  CheckBox chkDenoiserAktiv{*this, L"chkDenoiserAktiv"};
  CheckBox chkDecrackleAktiv{*this, L"chkDecrackleAktiv"};

  PictureBox picEqualizer{*this, L"picEqualizer"};
  Label lblEqualizer{*this, L"lblEqualizer"};
  ControlArray<Slider, kEqBaender> MMSliderX1{*this, L"MMSliderX1"};
  ControlArray<Label, kEqBaender> lblBand{*this, L"lblBand"};  // upper frequency of each band
  PictureButton imgByPass{*this, L"imgByPass"};
  Label lblByPass{*this, L"lblByPass"};
  PictureButton imgLoudness{*this, L"imgLoudness"};
  Label lblLoudness{*this, L"lblLoudness"};
  PictureButton imgEQPresets{*this, L"imgEQPresets"};
  Label lblEQPresets{*this, L"lblEQPresets"};

  PictureBox picVolume{*this, L"picVolume"};
  Label lblVolumePanel{*this, L"lblVolumePanel"};
  Label lblVolume{*this, L"lblVolume"};
  Slider slVolume{*this, L"slVolume"};
  TextBox txtVolume{*this, L"txtVolume"};
  PictureButton imgVolumeByPass{*this, L"imgVolumeByPass"};
  Label lblVolumeByPass{*this, L"lblVolumeByPass"};
  Label lblGater{*this, L"lblGater"};
  Label lblGaterThreshold{*this, L"lblGaterThreshold"};
  Slider slGaterThreshold{*this, L"slGaterThreshold"};
  TextBox txtGaterThreshold{*this, L"txtGaterThreshold"};
  Label lblGaterAttack{*this, L"lblGaterAttack"};
  Slider slGaterAttack{*this, L"slGaterAttack"};
  TextBox txtGaterTime{*this, L"txtGaterTime"};
  Shape LEDGaterAn{*this, L"LEDGaterAn"};
  Shape LEDGaterAus{*this, L"LEDGaterAus"};
  PictureButton imgGaterBypass{*this, L"imgGaterBypass"};
  Label lblGaterBypass{*this, L"lblGaterBypass"};
  PictureButton imgVolumePresets{*this, L"imgVolumePresets"};
  Label lblVolumePresets{*this, L"lblVolumePresets"};

  PictureBox picHall{*this, L"picHall"};
  Label lblHall{*this, L"lblHall"};
  ComboBox comboPreset{*this, L"comboPreset"};
  Label lblHallMixing{*this, L"lblHallMixing"};
  Slider sliderOutputGain{*this, L"sliderOutputGain"};
  TextBox txtHallMixing{*this, L"txtHallMixing"};
  Label lblHallFeedback{*this, L"lblHallFeedback"};
  Slider sliderFeedBack{*this, L"sliderFeedBack"};
  TextBox txtHallFeedback{*this, L"txtHallFeedback"};
  PictureButton imgHallByPass{*this, L"imgHallByPass"};
  Label lblHallByPass{*this, L"lblHallByPass"};

  PictureBox picRestauration{*this, L"picRestauration"};
  Label lblRestauration{*this, L"lblRestauration"};
  Label lblDeclick{*this, L"lblDeclick"};
  Slider slDeclick{*this, L"slDeclick"};
  TextBox txtDeclick{*this, L"txtDeclick"};
  PictureButton imgDeclickByPass{*this, L"imgDeclickByPass"};
  Label lblDenoiser{*this, L"lblDenoiser"};
  Slider slDenoiser{*this, L"slDenoiser"};
  TextBox txtDenoiserLevel{*this, L"txtDenoiserLevel"};
  PictureButton imgDenoiserByPass{*this, L"imgDenoiserByPass"};
  Label lblDecrackle{*this, L"lblDecrackle"};
  Slider slDecrackle{*this, L"slDecrackle"};
  TextBox txtDecrackle{*this, L"txtDecrackle"};
  PictureButton imgDecrackleByPass{*this, L"imgDecrackleByPass"};
  PictureButton imgRestPresets{*this, L"imgRestPresets"};
  Label lblRestPresets{*this, L"lblRestPresets"};

  PictureBox picFlanger{*this, L"picFlanger"};
  Label lblFlanger{*this, L"lblFlanger"};
  Label lblFlangerMix{*this, L"lblFlangerMix"};
  Slider slFlangerMix{*this, L"slFlangerMix"};
  TextBox txtFlangerMix{*this, L"txtFlangerMix"};
  Label lblFlangerFeedback{*this, L"lblFlangerFeedback"};
  Slider slFlangerFeedback{*this, L"slFlangerFeedback"};
  TextBox txtFlangerFeedback{*this, L"txtFlangerFeedback"};
  Label lblFlangerDepth{*this, L"lblFlangerDepth"};
  Slider slFlangerDepth{*this, L"slFlangerDepth"};
  TextBox txtFlangerDepth{*this, L"txtFlangerDepth"};
  Label lblFlangerRate{*this, L"lblFlangerRate"};
  Slider slFlangerRate{*this, L"slFlangerRate"};
  TextBox txtFlangerRate{*this, L"txtFlangerRate"};
  PictureButton imgFlangerBypass{*this, L"imgFlangerBypass"};
  Label lblFlangerBypass{*this, L"lblFlangerBypass"};
  PictureButton imgFlangerPresets{*this, L"imgFlangerPresets"};
  Label lblFlangerPresets{*this, L"lblFlangerPresets"};

  PictureBox picPresets{*this, L"picPresets"};
  Label lblPresets{*this, L"lblPresets"};
  ListBox lstPresets{*this, L"lstPresets"};
  TextBox txtPresName{*this, L"txtPresName"};
  ControlArray<PictureButton, 2> imgEddPres{*this, L"imgEddPres"};
  PictureButton imgOK{*this, L"imgOK"};

  PictureBox pic3D{*this, L"pic3D"};
  Label lblCPU{*this, L"lblCPU"};
  Shape CPUHintergrund{*this, L"CPUHintergrund"};
  Shape CPUBack{*this, L"CPUBack"};

  Timer tmrAnzeigeTimer{*this, L"tmrAnzeigeTimer"};
  Timer tmr3D{*this, L"tmr3D"};
  Timer tmrCPU{*this, L"tmrCPU"};
  Timer tmrNormalize{*this, L"tmrNormalize"};

 private:
  // making
  void KomponentenErzeugen();
  void KetteVerbinden();
  void TransportEinrichten();
  void EffekteEinrichten();
  void PresetsEinrichten();
  void TexteEffekte();
  void TextePresets();
  void Hinweis(Control& control, int nummer);  // tooltip, and name for those who listen

  // opening
  void BilderBereiten();
  void DateiOeffnen();
  using Handler = void (frmWaveEditor::*)();
  void Bearbeiten(Handler handler);  // the button of an edit, with the file open
  void PresetsVorbelegen();  // the presets that the program brings, where their slots are free
  void LastMessungBeginnen();

  // picture
  void MarkerSetzen(int links, int breite);
  void ZugBis(int x);  // the marker to there, or a cursor there
  void BefehlsTaste(int taste);
  void PositionSetzen(double x);
  void MarkerZeigen();  // from the selection, after a change of the picture's width
  void ZeitLineal(int breite);
  void SpurenZeichnen(PictureBox& flaeche);
  void SegmentZeichnen(PictureBox& flaeche, std::size_t punkte);
  Pixel PixelTwips() const;  // the size of a pixel, in twips
  void QuelleNeuOeffnen();
  std::int32_t Laenge() const;  // frames of the file that is open
  void BlockLesen(std::int64_t frame);
  void SpektrumNeuStarten();  // two seconds from now, unless something changes again

  // edits
  void Ausfuehren(const std::function<void()>& arbeit);  // with the window shut
  void NeuZeigen();
  void InAblage(const std::function<void()>& arbeit);

  // transport
  void Anhalten();
  void SpielEnde();
  void SpieltNochPruefen();
  void BereichSetzen();  // range and position of the source, from the selection
  void KnoepfeFreigeben();
  void Spulen(bool vor);
  void SpulenBeenden();
  void PauseUmschalten();

  // presets
  using PresetWert = std::variant<Slider*, CheckBox*>;
  std::vector<PresetWert> PresetWerte();  // of the panel in front, as they stand in its presets
  PresetFeld* PresetsDesPanels();         // nothing for a panel without presets
  void PresetKnoepfeZeigen();
  Text ReverbDatei() const;
  void ReverbDateiAnlegen();

  // effects into the file
  void Einrechnen();
  void Sperren(bool gesperrt);  // the window, while a file is being written
  void EffekteFrisch();
  void ErgebnisUebernehmen();
  void RenderAbschliessen();
  template <typename Weg>
  void AlleEffektWerte(Weg weg);
  bool TriggerSteht = false;  // a render has failed

  // effects
  struct Regler {  // a slider, the box beside it, and what both mean
    Slider* Schieber;
    TextBox* Feld;
    int Von, Bis, Anfang;
    std::function<void(int wert)> Wirkung;
    std::function<Text(int wert)> Anzeige;  // nothing: the value itself
    Text Vorher = {};                       // in the box when it got the focus, or shown since
  };
  std::vector<Regler> Regler_;
  void ReglerEinrichten();
  void ReglerVerbinden(std::size_t nummer);
  void ReglerGeaendert(Regler& regler);
  void FeldZeigen(Regler& regler);
  void FeldUebernehmen(Regler& regler, bool mitReturn);  // else the box is left
  void Setzen(Slider& schieber, double wert);            // as a hand would: its handler runs
  void Setzen(CheckBox& kasten, int wert);               // the same
  bool Umschalten(CheckBox& kasten, PictureButton& knopf, const Text& bild);
  static void KnopfZeigen(PictureButton& knopf, const CheckBox& kasten, const Text& bild);
  void KnoepfeZeigen();
  static constexpr int kPanels = 5;
  void PanelZeigen(int index);
  void PanelLicht(int index, bool an);
  void FilterSchalten(CheckBox& kasten, const std::function<void(bool an)>& filter);
  void AlleEffekteAus();
  void Gate(std::vector<std::int16_t>& klang, std::size_t bytes);
  std::vector<std::int16_t> PufferA_ = std::vector<std::int16_t>(2049);
  std::vector<std::int16_t> PufferB_ = std::vector<std::int16_t>(2049);

  Bearbeitung bearbeitung_{
      prog,
      *this,
      *SourceFile,
      {[this](const Text& text) { lblStatus.Caption = text; }, [this] { NeuZeigen(); },
       [this](bool an) { tmrNormalize.Enabled = an; }}};
};

}  // namespace vantora
