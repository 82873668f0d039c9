// The lower part of the wave editor's window: the panels of the effects, the list of presets, the
// small picture of the spectrum and the load. One panel is in front. Hidden check boxes hold the
// state of the effects, and buttons show it.
#pragma once

#include "app/zustand/eq_baender.h"
#include "waveeditor/regler.h"

#include "platform/form.h"

#include <array>
#include <variant>
#include <vector>

namespace vantora {

struct EffektWerte;

struct EffektTafeln {
  enum Panel : int { kEqualizer, kLautstaerke, kHall, kRestauration, kFlanger };
  static constexpr int kPanels = 5;

  explicit EffektTafeln(Form& fenster) : fenster_(fenster) {}
  EffektTafeln(const EffektTafeln&) = delete;
  EffektTafeln& operator=(const EffektTafeln&) = delete;

  // An effect's check box and the button that shows it.
  struct Schalter {
    CheckBox& Kasten;
    PictureButton& Knopf;
    const wchar_t* Bild;  // the beginning of the names of the button's pictures
    Panel Tafel;          // the panel on which the button lies
    bool Licht;           // the effect alone decides the light of the panel's button
    bool Preset;          // the presets of the panel contain the effect

    bool An() const { return Kasten.Value() == 1; }
    void Zeigen() const;      // makes the button show the state of the box
    void Umschalten() const;  // does what a press of the button does
  };
  std::array<Schalter, 9> AlleSchalter();
  Schalter SchalterVon(const CheckBox& kasten);

  // Brings a panel to the front.
  void PanelZeigen(int index);
  // Switches the light of a panel's button.
  void PanelLicht(int index, bool an);
  void LichterZeigen();  // paints the lights of all panels again
  bool EffektAn(int index) const { return EffektAn_[static_cast<std::size_t>(index)]; }
  bool EinEffektAn() const;

  // The controls that a preset of the panel holds, in the order of its values.
  using PresetWert = std::variant<Slider*, CheckBox*>;
  std::vector<PresetWert> PresetWerte(int panel);

  // These functions store and set the values of all check boxes and sliders. The room of the hall
  // is not among the values.
  void WerteMerken(EffektWerte& werte);
  void WerteLaden(const EffektWerte& werte);  // runs the handlers of changed controls

 private:
  template <typename Werte, typename Weg>
  void AlleWerte(Werte& werte, Weg weg);

  Form& fenster_;
  std::array<bool, 6> EffektAn_{};  // which panels are lit

 public:
  ControlArray<PictureButton, 6> imgEffekt{fenster_, L"imgEffekt"};  // by Panel; 5: all off
  ControlArray<Label, 6> lblEffekt{fenster_, L"lblEffekt"};
  CheckBox chkEQBypass{fenster_, L"chkEQBypass"};
  CheckBox chkLoudness{fenster_, L"chkLoudness"};
  CheckBox chkReverbbypass{fenster_, L"chkReverbbypass"};
  CheckBox chkFlangerAktiv{fenster_, L"chkFlangerAktiv"};
  CheckBox chkVolume{fenster_, L"chkVolume"};
  CheckBox chkGateraktiv{fenster_, L"chkGateraktiv"};
  CheckBox chkDeclickAktiv{fenster_, L"chkDeclickAktiv"};
  CheckBox chkDenoiserAktiv{fenster_, L"chkDenoiserAktiv"};
  CheckBox chkDecrackleAktiv{fenster_, L"chkDecrackleAktiv"};

  PictureBox picEqualizer{fenster_, L"picEqualizer"};
  Label lblEqualizer{fenster_, L"lblEqualizer"};
  ControlArray<Slider, kEqBaender> MMSliderX1{fenster_, L"MMSliderX1"};
  ControlArray<Label, kEqBaender> lblBand{fenster_, L"lblBand"};
  PictureButton imgByPass{fenster_, L"imgByPass"};
  Label lblByPass{fenster_, L"lblByPass"};
  PictureButton imgLoudness{fenster_, L"imgLoudness"};
  Label lblLoudness{fenster_, L"lblLoudness"};
  PictureButton imgEQPresets{fenster_, L"imgEQPresets"};
  Label lblEQPresets{fenster_, L"lblEQPresets"};

  PictureBox picVolume{fenster_, L"picVolume"};
  Label lblVolumePanel{fenster_, L"lblVolumePanel"};
  Label lblVolume{fenster_, L"lblVolume"};
  Slider slVolume{fenster_, L"slVolume"};
  TextBox txtVolume{fenster_, L"txtVolume"};
  PictureButton imgVolumeByPass{fenster_, L"imgVolumeByPass"};
  Label lblVolumeByPass{fenster_, L"lblVolumeByPass"};
  Label lblGater{fenster_, L"lblGater"};
  Label lblGaterThreshold{fenster_, L"lblGaterThreshold"};
  Slider slGaterThreshold{fenster_, L"slGaterThreshold"};
  TextBox txtGaterThreshold{fenster_, L"txtGaterThreshold"};
  Label lblGaterAttack{fenster_, L"lblGaterAttack"};
  Slider slGaterAttack{fenster_, L"slGaterAttack"};
  TextBox txtGaterTime{fenster_, L"txtGaterTime"};
  Shape LEDGaterAn{fenster_, L"LEDGaterAn"};
  Shape LEDGaterAus{fenster_, L"LEDGaterAus"};
  PictureButton imgGaterBypass{fenster_, L"imgGaterBypass"};
  Label lblGaterBypass{fenster_, L"lblGaterBypass"};
  PictureButton imgVolumePresets{fenster_, L"imgVolumePresets"};
  Label lblVolumePresets{fenster_, L"lblVolumePresets"};

  PictureBox picHall{fenster_, L"picHall"};
  Label lblHall{fenster_, L"lblHall"};
  ComboBox comboPreset{fenster_, L"comboPreset"};
  Label lblHallMixing{fenster_, L"lblHallMixing"};
  Slider sliderOutputGain{fenster_, L"sliderOutputGain"};
  TextBox txtHallMixing{fenster_, L"txtHallMixing"};
  Label lblHallFeedback{fenster_, L"lblHallFeedback"};
  Slider sliderFeedBack{fenster_, L"sliderFeedBack"};
  TextBox txtHallFeedback{fenster_, L"txtHallFeedback"};
  PictureButton imgHallByPass{fenster_, L"imgHallByPass"};
  Label lblHallByPass{fenster_, L"lblHallByPass"};

  PictureBox picRestauration{fenster_, L"picRestauration"};
  Label lblRestauration{fenster_, L"lblRestauration"};
  Label lblDeclick{fenster_, L"lblDeclick"};
  Slider slDeclick{fenster_, L"slDeclick"};
  TextBox txtDeclick{fenster_, L"txtDeclick"};
  PictureButton imgDeclickByPass{fenster_, L"imgDeclickByPass"};
  Label lblDeclickByPass{fenster_, L"lblDeclickByPass"};
  Label lblDenoiser{fenster_, L"lblDenoiser"};
  Slider slDenoiser{fenster_, L"slDenoiser"};
  TextBox txtDenoiserLevel{fenster_, L"txtDenoiserLevel"};
  PictureButton imgDenoiserByPass{fenster_, L"imgDenoiserByPass"};
  Label lblDenoiserByPass{fenster_, L"lblDenoiserByPass"};
  Label lblDecrackle{fenster_, L"lblDecrackle"};
  Slider slDecrackle{fenster_, L"slDecrackle"};
  TextBox txtDecrackle{fenster_, L"txtDecrackle"};
  PictureButton imgDecrackleByPass{fenster_, L"imgDecrackleByPass"};
  Label lblDecrackleByPass{fenster_, L"lblDecrackleByPass"};
  PictureButton imgRestPresets{fenster_, L"imgRestPresets"};
  Label lblRestPresets{fenster_, L"lblRestPresets"};

  PictureBox picFlanger{fenster_, L"picFlanger"};
  Label lblFlanger{fenster_, L"lblFlanger"};
  Label lblFlangerMix{fenster_, L"lblFlangerMix"};
  Slider slFlangerMix{fenster_, L"slFlangerMix"};
  TextBox txtFlangerMix{fenster_, L"txtFlangerMix"};
  Label lblFlangerFeedback{fenster_, L"lblFlangerFeedback"};
  Slider slFlangerFeedback{fenster_, L"slFlangerFeedback"};
  TextBox txtFlangerFeedback{fenster_, L"txtFlangerFeedback"};
  Label lblFlangerDepth{fenster_, L"lblFlangerDepth"};
  Slider slFlangerDepth{fenster_, L"slFlangerDepth"};
  TextBox txtFlangerDepth{fenster_, L"txtFlangerDepth"};
  Label lblFlangerRate{fenster_, L"lblFlangerRate"};
  Slider slFlangerRate{fenster_, L"slFlangerRate"};
  TextBox txtFlangerRate{fenster_, L"txtFlangerRate"};
  PictureButton imgFlangerBypass{fenster_, L"imgFlangerBypass"};
  Label lblFlangerBypass{fenster_, L"lblFlangerBypass"};
  PictureButton imgFlangerPresets{fenster_, L"imgFlangerPresets"};
  Label lblFlangerPresets{fenster_, L"lblFlangerPresets"};

  PictureBox picPresets{fenster_, L"picPresets"};
  Label lblPresets{fenster_, L"lblPresets"};
  ListBox lstPresets{fenster_, L"lstPresets"};
  TextBox txtPresName{fenster_, L"txtPresName"};
  ControlArray<PictureButton, 2> imgEddPres{fenster_, L"imgEddPres"};
  PictureButton imgOK{fenster_, L"imgOK"};

  PictureBox pic3D{fenster_, L"pic3D"};               // the spectrum
  Label lblSpektrumAus{fenster_, L"lblSpektrumAus"};  // says why the picture stays empty
  Label lblCPU{fenster_, L"lblCPU"};
  Shape CPUHintergrund{fenster_, L"CPUHintergrund"};
  Shape CPUBack{fenster_, L"CPUBack"};  // the machine's load
};

}  // namespace vantora
