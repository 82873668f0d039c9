// The recorder: what the sound card's input hears becomes wave files, one a take. With several
// takes at a time (MultiTrack) it watches the level and cuts by itself; for a whole record
// (LPModus) it also asks for the other side. Nothing is ever cut out of the sound.
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
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }

  // ---- recording ----
  void Init_Aufnehmen();
  void imgAufnehmen_MouseUp();
  void imgRecordStop_MouseUp(int taste = kLeftButton);  // the right button empties the list
  void RecordStart();
  void RecordStop();
  void MMConnectorX1_OnTrigger();  // for every buffer that the input hears
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

  bool MultiTrack = false;  // cuts by itself
  bool Sitzung = false;     // from the record button until stop; only then the level cuts
  Text AktuelleDatei;       // of the present take
  Text BasisName;           // of the names of takes, without folder and extension
  std::vector<KatalogEintrag> Aufnahmen{1};  // takes from 1
  std::int32_t AufnahmeZahl = 0;
  std::int16_t Aufnahmewahl = 0;    // the take picked in the list, 0 for none
  std::uint32_t AufnahmeStart = 0;  // system milliseconds
  std::int16_t Eingang = 0;         // input line, 1 to 4; 0 for none
  bool Umgedreht = false;           // the other side was asked for
  std::int32_t MaxPegel = 4;        // read from the settings, and replaced by the automatic level
  std::int64_t GrenzeBytes = 0x7FFFFFFF - 65536;  // of the sound of a take: no wave is longer

  // ---- components, in the order in which the sound passes them ----
  std::unique_ptr<MMWaveInX> WaveIn;
  std::unique_ptr<MMPeakDetectX> Peak;
  std::unique_ptr<MMConnectorX> MMConnectorX1;
  std::unique_ptr<MMWaveFileX> WaveOUt;

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  Label lblEingang{*this, L"lblEingang"};  // head of the panel on the left
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
  Label lblAufnahmeArt{*this, L"lblAufnahmeArt"};  // head of the panel in the middle
  CheckBox cbxMultiTrack{*this, L"cbxMultiTrack"};
  CheckBox cbxAutoTrennen{*this, L"cbxAutoTrennen"};
  CheckBox cbxPauseAus{*this, L"cbxPauseAus"};
  ControlArray<Label, 2> lblSeite{*this, L"lblSeite"};  // of the meters
  LevelMeter Level1{*this, L"Level1"};
  LevelMeter Level2{*this, L"Level2"};
  Label lblLED{*this, L"lblLED"};
  Shape LED{*this, L"LED"};
  Label lblPausenzeit{*this, L"lblPausenzeit"};
  ControlArray<Label, 2> lblFeld{*this, L"lblFeld"};  // of time and size
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
  Label lblStatus{*this, L"lblStatus"};  // head of the status
  Label lblStatusanzeige{*this, L"lblStatusanzeige"};
  ListView lvwAufnehmen{*this, L"lvwAufnehmen"};
  Label lblTippTitel{*this, L"lblTippTitel"};
  Label lblTipp{*this, L"lblTipp"};
  ControlArray<PictureButton, 2> imgTipp{*this, L"imgTipp"};  // 0 back, 1 on
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
  bool EingangHoeren();   // opens and starts the input; false when it refuses
  void EingangOeffnen();  // anew, for a take
  void TakeSchliessen();
  void SitzungBeenden();
  std::uint32_t Jetzt() const;  // system milliseconds; of the buffer, in the handler of one
  void PufferPruefen();
  void PegelPruefen();
  void ZeitZeigen();
  void TakeAbbrechen(const Text& grund);
  void EingangVerloren();
  void Verlust(std::int64_t ms);
  void VerlustMelden();
  void Melden(const Text& text);  // in a box, when what runs now has ended
  void WachBleiben();
  Text FehlerText(const Laufzeitfehler& fehler) const;
  void BalkenZeigen(int links, int rechts);
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
  static int Linie(int index);  // the mixer's number of an input line, from 0
  int LinienPegel() const;      // of the chosen line, 0 to 65536; 0 without one
  void LinienPegelSetzen(std::int32_t pegel);
  void PegelZeigen();

  Text schwelleAus_;  // what stood in the box when the threshold was last made from it
  Pegelautomatik automatik_;
  std::array<std::pair<int, int>, 3> gehoert_{};  // peaks of the last buffers
  bool imPuffer_ = false;                         // in the handler of a buffer
  bool verloren_ = false;         // the device is gone, and has not been heard since
  Text ersetzen_;                 // a file that the user has agreed to replace
  Text laufwerk_ = L"C:\\";       // root of the drive that is recorded to
  std::int64_t geschrieben_ = 0;  // bytes of the present take
  int ungesichert_ = 0;           // buffers since the header was true last
  std::int64_t verlustMs_ = 0;    // what the card has lost since that was reported last
  std::vector<Text> verluste_;    // the same, by place
  int tipp_ = 0;
  int freiProzent_ = -1;
  bool schliesst_ = false;
  std::unique_ptr<Inhibition> wach_;
  std::shared_ptr<int> lebt_ = std::make_shared<int>(0);
};

}  // namespace vantora
