// The input line, the level meters, the sliders and the automatic level.

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "mixer/frmMixer.h"
#include "recorder/frmAufnehmen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr double kVoll = 32768;     // full scale of one channel
constexpr int kStufenSchwelle = 5;  // percent of the threshold for one step of its slider
constexpr double kMsJeSekunde = 1000;

}  // namespace

// The event loop handles several buffers before it paints once, so the meters show the highest
// level of the last buffers.
void frmAufnehmen::BalkenZeigen(int links, int rechts) {
  std::shift_left(gehoert_.begin(), gehoert_.end(), 1);
  gehoert_.back() = {links, rechts};
  for (const auto& [l, r] : gehoert_) {
    links = std::max(links, l);
    rechts = std::max(rechts, r);
  }
  Level1.PeakLeft = links;
  Level2.PeakRight = rechts;
}

void frmAufnehmen::BalkenLeeren() {
  gehoert_ = {};
  BalkenZeigen(0, 0);
}

// The threshold is a sum of both channels, so equally loud channels reach it at half of its value
// each.
void frmAufnehmen::SchwelleZeigen() {
  const int marke = MultiTrack ? std::clamp(Pegelschwelle / 2, 1, 32767) : 0;
  Level1.Mark = marke;
  Level2.Mark = marke;
}

// Places a knob: 0 takes percent, 1 seconds, 2 steps of five percent.
void frmAufnehmen::SchieberSetzen(double wert, int index) {
  const double stelle = index == 2 ? wert * kStufenSchwelle : wert;
  Slider& schieber = imgSliderKnopf(index);
  schieber.Value = std::clamp(Ganz32(stelle), schieber.Min(), schieber.Max());
}

void frmAufnehmen::imgSliderKnopf_Change(int index) {
  const int wert = imgSliderKnopf(index).Value;
  if (index == 0) return LinienPegelSetzen(Ganz32(wert / 100.0 * kFullVolume));
  TextBox& feld = index == 1 ? txtMinPause : txtMaxVolume;
  feld.Text = ZahlText(wert);
  if (index == 1) {
    if (!NimmtAuf) Pausenlaenge = Ganz32(wert * kMsJeSekunde);
    return;
  }
  if (!NimmtAuf) {
    schwelleAus_ = feld.Text;
    Pegelschwelle = Ganz32(Runden(wert / 100.0 * kVoll));
  }
  SchwelleZeigen();
}

void frmAufnehmen::txtMinPause_LostFocus() {
  double wert = Val(txtMinPause.Text);
  if (wert < 1) wert = 1;
  if (wert > 10) wert = 10;
  if (wert != Val(txtMinPause.Text)) txtMinPause.Text = ZahlText(wert);
  if (!NimmtAuf) Pausenlaenge = Ganz32(wert * kMsJeSekunde);
  SchieberSetzen(wert, 1);
}

void frmAufnehmen::txtMaxVolume_LostFocus() {
  double wert = Val(txtMaxVolume.Text);
  if (wert < 0) wert = 1;
  if (wert > 99) wert = 99;
  if (wert != Val(txtMaxVolume.Text)) txtMaxVolume.Text = ZahlText(wert);
  if (Trim(txtMaxVolume.Text).empty()) txtMaxVolume.Text = ZahlText(wert);
  SchieberSetzen(wert / kStufenSchwelle, 2);
  // If the user only passes through the text box, the threshold stays unchanged.
  if (NimmtAuf || txtMaxVolume.Text() == schwelleAus_) return;
  schwelleAus_ = txtMaxVolume.Text;
  Pegelschwelle = Ganz32(Runden(wert / 100 * kVoll));
  SchwelleZeigen();
}

// ---- the input lines ----

// Sets the line's level directly; the faders follow and do not write it back to the card.
class frmAufnehmen::MixerRuhe {
 public:
  explicit MixerRuhe(vantora::frmMixer& mixer) : mixer_(mixer), vorher_(mixer.MixerLiest) {
    mixer_.MixerLiest = true;
  }
  ~MixerRuhe() { mixer_.MixerLiest = vorher_; }
  MixerRuhe(const MixerRuhe&) = delete;
  MixerRuhe& operator=(const MixerRuhe&) = delete;

 private:
  vantora::frmMixer& mixer_;
  bool vorher_;
};

// Offers the mixer's input lines and chooses the line that is selected in the mixer.
void frmAufnehmen::EingaengeZeigen() {
  vantora::frmMixer& mixer = prog.frmMixer();
  mixer.InitMixer();  // a card may have been plugged in since the start
  Eingang = 0;
  int gewaehlt = -1;
  for (int i = 0; i < optInput.Count(); ++i) {
    const int platz = vantora::frmMixer::kErsterEingang + i;
    const Text name = mixer.M(platz).LineName();
    const bool da = mixer.M(platz).LineID() != kNoLine && !name.empty() && name != L"--";
    optInput(i).Visible = da;
    lbInputCaption(i).Visible = da;
    optInput(i).SetValue(false);
    if (!da) continue;
    lbInputCaption(i).Caption = mixer.Fader(platz).CaptionFader();
    lbInputCaption(i).ToolTipText = name;
    optInput(i).AccessibleName = name;
    if (gewaehlt < 0 || (mixer.M(platz).Select() && !mixer.M(Linie(gewaehlt)).Select())) {
      gewaehlt = i;
    }
  }
  if (gewaehlt >= 0) {
    // The card's selection stays unchanged until the user chooses another line.
    optInput(gewaehlt).SetValue(true);
    Eingang = Ganz16(gewaehlt + 1);
    PegelZeigen();
  }
  imgSliderKnopf(0).Enabled = gewaehlt >= 0;
  optAuto.Enabled = gewaehlt >= 0;
}

int frmAufnehmen::Linie(int index) {
  return vantora::frmMixer::kErsterEingang + index;
}

int frmAufnehmen::LinienPegel() const {
  return Eingang > 0 ? prog.frmMixer().M(Linie(Eingang - 1)).Volume() : 0;
}

void frmAufnehmen::PegelZeigen() {
  SchieberSetzen(static_cast<double>(LinienPegel()) / kFullVolume * 100, 0);
}

void frmAufnehmen::LinienPegelSetzen(std::int32_t pegel) {
  if (Eingang <= 0) return;
  vantora::frmMixer& mixer = prog.frmMixer();
  const MixerRuhe ruhe(mixer);
  mixer.M(Linie(Eingang - 1)).SetVolume(std::clamp(pegel, 0, kFullVolume));
  mixer.Fader(Linie(Eingang - 1)).Value = Ganz32(static_cast<double>(pegel) / kFullVolume * 100);
}

void frmAufnehmen::optInput_Click(int index) {
  Eingang = Ganz16(std::min(index + 1, optInput.Count()));
  vantora::frmMixer& mixer = prog.frmMixer();
  {
    const MixerRuhe ruhe(mixer);
    for (int i = vantora::frmMixer::kErsterEingang; i < vantora::frmMixer::kFader; ++i) {
      const bool diese = i == Linie(Eingang - 1);
      // The chosen line is never deselected in between, because the card would record silence.
      if (mixer.M(i).LineID() == kNoLine || mixer.M(i).Select() == diese) continue;
      mixer.M(i).SetSelect(diese);
    }
  }
  mixer.GetMixerValueFormWindows();
  PegelZeigen();
}

void frmAufnehmen::lbInputCaption_Click(int index) {
  if (!optInput(index).Enabled) return;
  optInput(index).SetValue(true);
  optInput_Click(index);
}

void frmAufnehmen::optAuto_Click() {
  tmrAutoRecord.Enabled = optAuto.Value();
}

void frmAufnehmen::optManuell_Click() {
  tmrAutoRecord.Enabled = optAuto.Value();
}

// The level is only turned down, and only when both channels are nearly at full scale.
void frmAufnehmen::tmrAutoRecord_Timer() {
  // A device that is gone has left its last level behind.
  const std::int32_t summe = WaveIn->IsOpen() ? std::max(Summenpegel(), 1) : 1;
  const double db = prog.plattform.mmtools.Helper().Db(summe, kFullVolume);
  const std::int32_t pegel = LinienPegel();
  lbldb.Caption = ZahlText(pegel) + L" " + Format(db, L"00") + L" dB ";
  if (automatik_.Messen(summe)) {
    const std::int32_t neu = automatik_.Neu(pegel);
    if (neu != pegel) LinienPegelSetzen(neu);
  }
  PegelZeigen();
}

}  // namespace vantora
