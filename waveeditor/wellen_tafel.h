// The upper part of the wave editor's window: head, picture of the sound, transport and edits.
#pragma once

#include "waveeditor/pegel.h"

#include "platform/form.h"

namespace vantora {

struct WellenTafel {
  // The buttons of the transport.
  enum Steuerung : int {
    kWiedergabe = 0,
    kStop = 1,
    kPause = 2,
    kVor = 3,
    kZurueck = 4,
    kEinrechnen = 5,
    kUndo = 6,
  };

  explicit WellenTafel(Form& fenster) : fenster_(fenster) {}

  // Shows a button of the transport pressed, as long as the sound plays or pauses.
  void GedruecktZeigen(Steuerung knopf);
  static void GeloestZeigen(PictureButton& knopf);

 private:
  Form& fenster_;

 public:
  Label lblTitel{fenster_, L"lblTitel"};
  Label lblDatei{fenster_, L"lblDatei"};
  PictureButton imgHelp{fenster_, L"imgHelp"};
  PictureBox picZeitAnzeige{fenster_, L"picZeitAnzeige"};  // the ruler of the times
  PictureBox picZeitFront{fenster_, L"picZeitFront"};      // the scrolled surface of the ruler
  PictureBox picWave{fenster_, L"picWave"};                // the picture of the sound
  PictureBox picWaveBack{fenster_, L"picWaveBack"};        // the scrolled surface of the picture
  Shape shpMarker{fenster_, L"shpMarker"};
  Shape linPosition{fenster_, L"linPosition"};
  Slider sliderWave{fenster_, L"sliderWave"};
  MMLevelX Level1{fenster_, L"Level1", Ears::Left};
  MMLevelX Level2{fenster_, L"Level2", Ears::Right};
  ControlArray<Label, 4> lblFeld{fenster_, L"lblFeld"};  // captions of the display
  Label lblMarkerAnfang{fenster_, L"lblMarkerAnfang"};
  Label lblMarkerDelta{fenster_, L"lblMarkerDelta"};
  Label lblMarkerEnde{fenster_, L"lblMarkerEnde"};
  Label lblStatus{fenster_, L"lblStatus"};
  Label lblZoomFaktor{fenster_, L"lblZoomFaktor"};
  ControlArray<PictureButton, 7> imgSteuerung{fenster_, L"imgSteuerung"};  // by Steuerung
  PictureButton imgLoop{fenster_, L"imgLoop"};
  ControlArray<PictureButton, 3> imgZoom{fenster_, L"imgZoom"};
  PictureButton cmdAllesAuswaehlen{fenster_, L"cmdAllesAuswaehlen"};
  PictureButton cmdAuswahlAufheben{fenster_, L"cmdAuswahlAufheben"};
  PictureButton imgCopy{fenster_, L"imgCopy"};
  PictureButton imgCut{fenster_, L"imgCut"};
  PictureButton imgPaste{fenster_, L"imgPaste"};
  Label lblPasteDisabled{fenster_, L"lblPasteDisabled"};
  PictureButton imgMute{fenster_, L"imgMute"};
  PictureButton imgFadeIn{fenster_, L"imgFadeIn"};
  PictureButton imgFadeOut{fenster_, L"imgFadeOut"};
  PictureButton imgNormalize{fenster_, L"imgNormalize"};
  PictureButton imgZurück{fenster_, L"imgZurück"};
  Label lblEinrechnen{fenster_, L"lblEinrechnen"};  // caption of the apply button
  Label lblZurück{fenster_, L"lblZurück"};
};

}  // namespace vantora
