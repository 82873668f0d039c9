// The mixer: the lines of the sound card as faders, 0 to 4 outputs, 5 to 9 inputs, and the master.
// The window is loaded once and only hidden after each use, so that the preview can check the
// volume at any time. The faders show the card's values whenever the window is activated or
// painted.
//
// A fader's value is 0 to 100, a line's volume is 0 to 65536.
#pragma once

#include "app/fenster.h"
#include "mixer/fader.h"

#include "platform/eqpro.h"

#include <array>
#include <memory>

namespace vantora {

class frmMixer final : public VtrFenster {
 public:
  static constexpr int kFader = 10, kErsterEingang = 5;

  explicit frmMixer(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  void Form_Activate() override;
  void Form_Paint() override { GetMixerValueFormWindows(); }
  void Form_GotFocus() override { GetMixerValueFormWindows(); }
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgCloseMixer_MouseUp(); }
  void imgCloseMixer_MouseUp();

  void InitMixer();  // finds the card's lines again if they may have changed
  void OutputsSuchen();
  void InputsSuchen();
  void GetMixerValueFormWindows();  // sets the faders to the card's values
  void Fader_Change(int Index);     // sets the card to a fader's value and switch
  void faderMasterOut_Change();

  ucEQPro& M(int i) { return *linien_.at(static_cast<std::size_t>(i)); }

  std::unique_ptr<ucEQPro> Mixer;  // the master
  bool MixerLiest = false;         // values are being read, so changes are not written to the card

  Label lblTitel{*this, L"lblTitel"};
  Label lblReproducir{*this, L"lblReproducir"}, lblGuardar{*this, L"lblGuardar"};
  vantora::Fader faderMasterOut{*this, L"faderMasterOut"};
  ControlArray<vantora::Fader, kFader> Fader{*this, L"Fader"};
  PictureButton imgCloseMixer{*this, L"imgCloseMixer"};
  Label lblCloseMixer{*this, L"lblCloseMixer"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Timer tmrWaste{*this, L"tmrWaste"}, tmrGetWinMixerData{*this, L"tmrGetWinMixerData"};

 private:
  void LinieZeigen(int i, int lineID);
  void FaderVorbereiten(vantora::Fader& fader);
  void FaderLesen(vantora::Fader& fader, ucEQPro& linie, bool eingang);
  void FaderSchreiben(vantora::Fader& fader, ucEQPro& linie, bool eingang);

  std::array<std::unique_ptr<ucEQPro>, kFader> linien_;
  // While hidden, so the lines must be found again: a card may have been plugged in.
  bool versteckt_ = true;
};

}  // namespace vantora
