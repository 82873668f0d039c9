// The recorder: sound from the sound card's input becomes wave files, one a take. For several takes
// (MultiTrack) the level decides where a take ends; for a whole record (LPModus) the user is also
// asked to turn the record over. No sound is ever removed.
#pragma once

#include "app/fenster.h"
#include "app/zustand/katalog_eintrag.h"
#include "klang/pegelausloeser.h"

#include "platform/inhibitor.h"
#include "platform/mmtools.h"

#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace vantora {

class frmAufnehmen final : public VtrFenster, public Pegelausloeser {
 public:
  explicit frmAufnehmen(Programm& programm);

  void Form_Load() override;
  void Form_Unload() override;
  void SetTexte() override;
  void HinweiseSetzen();
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }

  // ---- recording ----
  void Init_Aufnehmen();
  void imgAufnehmen_MouseUp();
  void imgRecordStop_MouseUp(int taste = kLeftButton);  // the right button empties the list
  void RecordStart();
  void RecordStop();
  void MMConnectorX1_OnTrigger();  // called for every buffer that is recorded
  void tmrStatus_Timer();
  void tmrUmdrehen_Timer();
  void CloseMe();

  // ---- level and input line ----
  void tmrAutoRecord_Timer();
  void optInput_Click(int index);  // from 0
  void lbInputCaption_Click(int index);
  void optAuto_Click();
  void optManuell_Click();
  void SchieberSetzen(double wert, int index);
  void imgSliderKnopf_Change(int index);  // 0 level, 1 pause, 2 threshold
  void txtMinPause_LostFocus();
  void txtMaxVolume_LostFocus();

  // ---- takes ----
  void cbxMultiTrack_Click();
  void imgNeueAufnahme_MouseUp();
  void GetMultiFileName();
  void RecKatalogShow();
  void KatalogEintragÄndern(int index);
  void lvwAufnehmen_ItemClick(int zeile);
  void lvwAufnehmen_DblClick();
  void imgAufnahmeWiedergeben_MouseUp();
  void imgOkay_MouseUp();
  void imgAbbrechen_MouseUp();

  bool MultiTrack = false;  // takes begin and end by the level
  bool Sitzung = false;  // from the record button until stop; only in between the level cuts takes
  Text AktuelleDatei;    // the current take's file
  Text BasisName;        // common part of the takes' names, without folder and extension
  std::vector<KatalogEintrag> Aufnahmen{1};  // takes from 1
  std::int32_t AufnahmeZahl = 0;
  std::int16_t Aufnahmewahl = 0;    // the take selected in the list, 0 for none
  std::uint32_t AufnahmeStart = 0;  // system milliseconds
  std::int16_t Eingang = 0;         // input line, 1 to 4; 0 for none
  bool Umgedreht = false;           // the user was asked to turn the record over
  std::int32_t MaxPegel = 4;        // read from the settings, and replaced by the automatic level
  // Most bytes of sound in a take; a wave file cannot hold more.
  std::int64_t GrenzeBytes = 0x7FFFFFFF - 65536;

  // ---- components, in the order of the sound's path ----
  std::unique_ptr<MMWaveInX> WaveIn;
  std::unique_ptr<MMPeakDetectX> Peak;
  std::unique_ptr<MMConnectorX> MMConnectorX1;
  std::unique_ptr<MMWaveFileX> WaveOUt;

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  Label lblEingang{*this, L"lblEingang"};  // heading of the left panel
  ControlArray<OptionButton, 4> optInput{*this, L"optInput", 1};
  ControlArray<Label, 4> lbInputCaption{*this, L"lbInputCaption"};
  OptionButton optAuto{*this, L"optAuto", -1, 2};
  OptionButton optManuell{*this, L"optManuell", -1, 2};
  ControlArray<Label, 3> lblSlider{*this, L"lblSlider"};
  ControlArray<Slider, 3> imgSliderKnopf{*this, L"imgSliderKnopf"};
  Label lbldb{*this, L"lbldb"};
  TextBox txtMinPause{*this, L"txtMinPause"};
  TextBox txtMaxVolume{*this, L"txtMaxVolume"};
  ControlArray<Label, 2> lblEinheit{*this, L"lblEinheit"};
  Label lblAufnahmeArt{*this, L"lblAufnahmeArt"};  // heading of the middle panel
  CheckBox cbxMultiTrack{*this, L"cbxMultiTrack"};
  CheckBox cbxAutoTrennen{*this, L"cbxAutoTrennen"};
  CheckBox cbxPauseAus{*this, L"cbxPauseAus"};
  ControlArray<Label, 2> lblSeite{*this, L"lblSeite"};  // captions of the meters
  LevelMeter Level1{*this, L"Level1"};
  LevelMeter Level2{*this, L"Level2"};
  Label lblLED{*this, L"lblLED"};
  Shape LED{*this, L"LED"};
  Label lblPausenzeit{*this, L"lblPausenzeit"};
  ControlArray<Label, 2> lblFeld{*this, L"lblFeld"};  // captions of time and size
  Label lblRecZeit{*this, L"lblRecZeit"};
  Label lblRecSize{*this, L"lblRecSize"};
  PictureButton imgAufnahmeBild{*this, L"imgAufnahmeBild"};
  Label lblAufnahme{*this, L"lblAufnahme"};
  PictureButton imgNeueAufnahme{*this, L"imgNeueAufnahme"};
  PictureButton imgAufnehmen{*this, L"imgAufnehmen"};
  PictureButton imgRecordStop{*this, L"imgRecordStop"};
  PictureButton imgAufnahmeWiedergeben{*this, L"imgAufnahmeWiedergeben"};
  Label lblPlatz{*this, L"lblPlatz"};
  Shape gauFreeHD{*this, L"gauFreeHD"};
  Shape shpFreeHD{*this, L"shpFreeHD"};  // the filled part of the gauge
  Label lblMB{*this, L"lblMB"};
  Label lblMinuten{*this, L"lblMinuten"};
  Label lblStatus{*this, L"lblStatus"};  // heading of the status
  Label lblStatusanzeige{*this, L"lblStatusanzeige"};
  ListView lvwAufnehmen{*this, L"lvwAufnehmen"};
  Label lblTippTitel{*this, L"lblTippTitel"};
  Label lblTipp{*this, L"lblTipp"};
  ControlArray<PictureButton, 2> imgTipp{*this, L"imgTipp"};  // 0 back, 1 forward
  ControlArray<Label, 2> lblTippKnopf{*this, L"lblTippKnopf"};
  PictureButton imgOkay{*this, L"imgOkay"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 3> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Timer tmrUmdrehen{*this, L"tmrUmdrehen"};
  Timer tmrStatus{*this, L"tmrStatus"};
  Timer tmrAutoRecord{*this, L"tmrAutoRecord"};

 private:
  void Verdrahten();
  void EingaengeZeigen();
  void Bedienbar(bool frei);
  bool EingangHoeren();   // opens and starts the input; returns false when it fails
  void EingangOeffnen();  // opens the input again, for a take
  void TakeSchliessen();
  void SitzungBeenden();
  // System milliseconds; inside a buffer's handler, the time of the buffer.
  std::uint32_t Jetzt() const;
  void PufferPruefen();
  void PegelPruefen();
  void ZeitZeigen();
  void TakeAbbrechen(const Text& grund);
  void EingangVerloren();
  std::int64_t GeschriebenMs() const;
  void Verlust(std::int64_t ms);
  void VerlustSuchen();
  void VerlustMelden();
  void Melden(const Text& text);  // shows a message after the running handlers have ended
  void WachBleiben();
  Text FehlerText(const Laufzeitfehler& fehler) const;
  void BalkenZeigen(int links, int rechts);
  void BalkenLeeren();  // when the input cannot be heard
  void SchwelleZeigen();
  void TippZeigen(int schritt);
  void PlatzZeigen(double frei);
  std::int32_t Summenpegel() const;

  enum class Wahl { Ende, Nochmal, Gut };
  Wahl DateiWaehlen(Text& datei, int zusatz);
  Text MultiDatei(const Text& basis, std::int32_t nummer) const;
  Text NaechsteMultiDatei();
  bool SchonVergeben(const Text& datei) const;
  void TakeEinfuegen(int nummer);
  void Beenden();
  class MixerRuhe;
  static int Linie(int index);  // number in the mixer of an input line; from 0
  int LinienPegel() const;      // of the chosen line, 0 to 65536; 0 without a line
  void LinienPegelSetzen(std::int32_t pegel);
  void PegelZeigen();

  Text schwelleAus_;  // content of the text box when the threshold was last set
  Pegelautomatik automatik_;
  std::array<std::pair<int, int>, 3> gehoert_{};  // peaks of the last buffers
  bool imPuffer_ = false;                         // a buffer's handler is running
  bool verloren_ = false;                         // the device is gone, and no sound has come since
  Text ersetzen_;                                 // a file that the user has agreed to replace
  Text laufwerk_ = L"C:\\";                       // root of the drive that receives the takes
  std::int64_t geschrieben_ = 0;                  // bytes of the current take
  std::int64_t verlustMs_ = 0;  // sound that the card has lost since the last report
  std::int64_t verlustImTake_ = 0;
  std::vector<Text> verluste_;  // lost sound since the last report, by place
  int tipp_ = 0;
  int freiProzent_ = -1;
  bool schliesst_ = false;
  std::unique_ptr<Inhibition> wach_;
  std::shared_ptr<int> lebt_ = std::make_shared<int>(0);
};

}  // namespace vantora
