// The lower part of the window: the effects with their sliders, boxes and buttons, their presets,
// and the machine's load.

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vantora {

namespace {

constexpr int kUnveraendert = 16384;          // a volume that leaves the sound as loud as it is
constexpr int kGelbBis = 75, kGruenBis = 50;  // percent of load
constexpr Color kRot = Rgb(255, 0, 0), kGelb = Rgb(255, 255, 0), kGruen = Rgb(0, 255, 0);

float Gleitend(int wert) {
  return static_cast<float>(wert);
}

}  // namespace

// ---- making ----

void frmWaveEditor::EffekteEinrichten() {
  ReglerEinrichten();
  for (const Schalter& schalter : AlleSchalter()) schalter.Knopf.State = Lamp::Off;
  for (int i = 0; i < kPanels; ++i) imgEffekt(i).State = Lamp::Off;
  const std::pair<CheckBox&, Handler> kaesten[] = {
      {chkEQBypass, &frmWaveEditor::chkEQBypass_Click},
      {chkLoudness, &frmWaveEditor::chkLoudness_Click},
      {chkReverbbypass, &frmWaveEditor::chkReverbbypass_Click},
      {chkFlangerAktiv, &frmWaveEditor::chkFlangerAktiv_Click},
      {chkVolume, &frmWaveEditor::chkVolume_Click},
      {chkGateraktiv, &frmWaveEditor::chkGateraktiv_Click},
      {chkDeclickAktiv, &frmWaveEditor::chkDeclickAktiv_Click},
      {chkDenoiserAktiv, &frmWaveEditor::chkDenoiserAktiv_Click},
      {chkDecrackleAktiv, &frmWaveEditor::chkDecrackleAktiv_Click}};
  for (const auto& [kasten, handler] : kaesten) {
    kasten.Visible = false;  // it holds a state that a button shows
    kasten.Click = [this, h = handler] { (this->*h)(); };
  }
  const std::pair<PictureButton&, Handler> knoepfe[] = {
      {imgByPass, &frmWaveEditor::imgByPass_MouseUp},
      {imgLoudness, &frmWaveEditor::imgLoudness_MouseUp},
      {imgHallByPass, &frmWaveEditor::imgHallByPass_MouseUp},
      {imgFlangerBypass, &frmWaveEditor::imgFlangerBypass_MouseUp},
      {imgVolumeByPass, &frmWaveEditor::imgVolumeByPass_MouseUp},
      {imgGaterBypass, &frmWaveEditor::imgGaterBypass_MouseUp},
      {imgDeclickByPass, &frmWaveEditor::imgDeclickByPass_MouseUp},
      {imgDenoiserByPass, &frmWaveEditor::imgDenoiserByPass_MouseUp},
      {imgDecrackleByPass, &frmWaveEditor::imgDecrackleByPass_MouseUp}};
  for (const auto& [knopf, handler] : knoepfe) {
    Knopf(knopf, [this, h = handler] { (this->*h)(); });
  }
  for (int i = 0; i < imgEffekt.Count(); ++i) {
    Knopf(imgEffekt(i), [this, i] { imgEffekt_MouseUp(i); });
  }
  PanelZeigen(0);
  LEDGaterAn.Visible = LEDGaterAus.Visible = false;  // each of them is shown while it is lit
  LEDGaterAn.State = LEDGaterAus.State = Lamp::On;
}

void frmWaveEditor::ReglerEinrichten() {
  for (int i = 0; i < kEqBaender; ++i) {
    MMSliderX1(i).Vertical = true;
    MMSliderX1(i).Upwards = true;
    regler_.Hinzufuegen(
        {&MMSliderX1(i), nullptr, -16, 16, 0, [this, i](int) { MMSliderX1_OnChange(i); }});
  }
  FlangerEinrichten();
  HallUndFilterEinrichten();
  regler_.Hinzufuegen({&slVolume, &txtVolume, 0, 16220, 16220,
                       [this](int w) {
                         kette_.mmVolume().SetVolume(w);
                         chkVolume_Click();
                       },
                       [](int w) { return ZahlText(Ganz32(w * 100.0 / kUnveraendert)); }});
  slGaterThreshold.Logarithmic = true;
  regler_.Hinzufuegen({&slGaterThreshold, &txtGaterThreshold, 0, 32440, 0,
                       [this](int w) { kette_.Tor().Schwelle = w; },
                       [this](int w) {
                         if (w == 0) return LoadResString(21615);
                         return Format(prog.plattform.mmtools.Helper().Db(w, 32768), L"##0,0");
                       }});
  regler_.Hinzufuegen(
      {&slGaterAttack, &txtGaterTime, 0, 999, 100, [this](int w) { kette_.Tor().HalteMs = w; }});
}

void frmWaveEditor::FlangerEinrichten() {
  const auto flanger = [this](Slider& schieber, TextBox& feld, int bis, int anfang, auto wirkung) {
    return Regler{&schieber, &feld, 0, bis, anfang, [this, wirkung](int wert) {
                    wirkung(kette_.Flanger(), wert);
                    chkFlangerAktiv_Click();
                  }};
  };
  Regler rate = flanger(slFlangerRate, txtFlangerRate, 100, 10,
                        [](MMFlangerX& f, int w) { f.SetRate(Gleitend(w) / 20); });
  rate.Anzeige = [](int w) { return ZahlText(w / 20) + L"." + ZahlText(w % 20 / 2); };
  rate.Eingabe = [this](bool mitReturn) {
    if (mitReturn) {
      txtFlangerRate_KeyPress(kKeyReturn);
    } else {
      txtFlangerRate_LostFocus();
    }
  };
  regler_.Hinzufuegen(std::move(rate));
  regler_.Hinzufuegen(flanger(slFlangerDepth, txtFlangerDepth, 99, 50,
                              [](MMFlangerX& f, int w) { f.SetDepth(Gleitend(w)); }));
  regler_.Hinzufuegen(flanger(slFlangerFeedback, txtFlangerFeedback, 99, 30,
                              [](MMFlangerX& f, int w) { f.SetFeedBack(w); }));
  regler_.Hinzufuegen(flanger(slFlangerMix, txtFlangerMix, 99, 50, [](MMFlangerX& f, int w) {
    f.SetWetMix(w);
    f.SetDryMix(100 - w);
  }));
}

void frmWaveEditor::HallUndFilterEinrichten() {
  regler_.Hinzufuegen({&sliderFeedBack, &txtHallFeedback, -99, 99, 40, [this](int w) {
                         kette_.Reverb().SetFeedback(w);
                         chkReverbbypass_Click();
                       }});
  regler_.Hinzufuegen({&sliderOutputGain, &txtHallMixing, 0, 99, 40, [this](int w) {
                         kette_.Reverb().SetOutputGain(w);
                         chkReverbbypass_Click();
                       }});
  const auto filter = [this](Slider& schieber, TextBox& feld, Restauration::Filter welcher) {
    const int anfang = Restauration::kAnfang[welcher];
    regler_.Hinzufuegen({&schieber, &feld, 0, 99, anfang, [this, welcher](int w) {
                           kette_.Filter().PegelSetzen(welcher, Gleitend(w) / 100);
                         }});
  };
  filter(slDeclick, txtDeclick, Restauration::kDeclick);
  filter(slDenoiser, txtDenoiserLevel, Restauration::kDenoiser);
  filter(slDecrackle, txtDecrackle, Restauration::kDecrackle);
}

// The box counts in Hertz, and its slider in twentieths of a Hertz. Only Return takes the number as
// Hertz.
bool frmWaveEditor::txtFlangerRate_KeyPress(int taste) {
  if (taste != kKeyReturn) return NurZiffern(taste);
  Setzen(slFlangerRate, Val(txtFlangerRate.Text) * 20);
  return true;
}

void frmWaveEditor::txtFlangerRate_LostFocus() {
  Setzen(slFlangerRate, Val(txtFlangerRate.Text));
}

// ---- the chain ----

void frmWaveEditor::RuntimeConnections() {
  CheckAllEffekte2();
  transport_.Verbinden(einrechnung_.Ende());
}

void frmWaveEditor::DSP_OnBufferFilled(MMData& data) {
  if (!ScanLaeuft()) kette_.PufferFiltern(data);
}

void frmWaveEditor::MMSliderX1_OnChange(int index) {
  MMEqualizerX& eq = kette_.Equalizer();
  if (eq.Count() > index) eq.Item(index).SetGain(MMSliderX1(index).Value);
  chkEQBypass_Click();
}

// ---- on and off ----

void frmWaveEditor::chkEQBypass_Click() {
  kette_.Schalten(EffektKette::kEqualizer, chkEQBypass.Value() == 1);
}
void frmWaveEditor::chkLoudness_Click() {
  kette_.Schalten(EffektKette::kLoudness, chkLoudness.Value() == 1);
}
void frmWaveEditor::chkReverbbypass_Click() {
  kette_.Schalten(EffektKette::kHall, chkReverbbypass.Value() == 1);
}
void frmWaveEditor::chkVolume_Click() {
  kette_.Schalten(EffektKette::kLautstaerke, chkVolume.Value() == 1);
}
void frmWaveEditor::chkFlangerAktiv_Click() {
  kette_.Schalten(EffektKette::kFlanger, chkFlangerAktiv.Value() == 1);
}

void frmWaveEditor::chkGateraktiv_Click() {
  kette_.Tor().An = chkGateraktiv.Value() == 1;
  if (chkGateraktiv.Value() == 0) LEDGaterAn.Visible = LEDGaterAus.Visible = false;
}

void frmWaveEditor::chkDeclickAktiv_Click() {
  FilterSchalten(chkDeclickAktiv, Restauration::kDeclick);
}
void frmWaveEditor::chkDecrackleAktiv_Click() {
  FilterSchalten(chkDecrackleAktiv, Restauration::kDecrackle);
}
void frmWaveEditor::chkDenoiserAktiv_Click() {
  FilterSchalten(chkDenoiserAktiv, Restauration::kDenoiser);
}

// On a busy machine no filter is switched on, so that the sound does not begin to stutter.
void frmWaveEditor::FilterSchalten(CheckBox& kasten, Restauration::Filter filter) {
  if (last_.Hoch() && kasten.Value() == 1) kasten.Value = 0;
  kette_.Filter().Schalten(filter, kasten.Value() == 1);
}

void frmWaveEditor::Umschalten(CheckBox& kasten) {
  const Schalter schalter = SchalterVon(kasten);
  schalter.Umschalten();
  if (schalter.Licht) PanelLicht(schalter.Tafel, schalter.An());
}

void frmWaveEditor::imgByPass_MouseUp() {
  Umschalten(chkEQBypass);
  RuntimeConnections();
}
void frmWaveEditor::imgLoudness_MouseUp() {
  Umschalten(chkLoudness);
  RuntimeConnections();
}
void frmWaveEditor::imgHallByPass_MouseUp() {
  Umschalten(chkReverbbypass);
  RuntimeConnections();
}
void frmWaveEditor::imgFlangerBypass_MouseUp() {
  Umschalten(chkFlangerAktiv);
  RuntimeConnections();
}
void frmWaveEditor::imgVolumeByPass_MouseUp() {
  Umschalten(chkVolume);
  CheckAllEffekte();
}
void frmWaveEditor::imgGaterBypass_MouseUp() {
  Umschalten(chkGateraktiv);
  CheckAllEffekte();
}
void frmWaveEditor::imgDeclickByPass_MouseUp() {
  Umschalten(chkDeclickAktiv);
  CheckRestEffekte();
}
void frmWaveEditor::imgDenoiserByPass_MouseUp() {
  Umschalten(chkDenoiserAktiv);
  CheckRestEffekte();
}
void frmWaveEditor::imgDecrackleByPass_MouseUp() {
  Umschalten(chkDecrackleAktiv);
  CheckRestEffekte();
}

void frmWaveEditor::CheckRestEffekte() {
  PanelLicht(kRestauration,
             chkDeclickAktiv.Value() + chkDenoiserAktiv.Value() + chkDecrackleAktiv.Value() > 0);
  CheckAllEffekte2();  // these filters need no new wiring, but can be applied
}

void frmWaveEditor::CheckAllEffekte() {
  PanelLicht(kLautstaerke, chkVolume.Value() + chkGateraktiv.Value() > 0);
  RuntimeConnections();
}

void frmWaveEditor::imgEffekt_MouseUp(int index) {
  LichterZeigen();
  if (index < kPanels) {
    PanelZeigen(index);
    AktivesPanel = Ganz16(index);
  } else {
    AlleEffekteAus();
  }
  if (picPresets.Visible) imgOK_MouseUp();
  CheckAllEffekte();
}

void frmWaveEditor::AlleEffekteAus() {
  for (const Schalter& schalter : AlleSchalter()) Setzen(schalter.Kasten, 0);
  for (const Schalter& schalter : AlleSchalter()) {
    schalter.Zeigen();
    if (schalter.Licht) PanelLicht(schalter.Tafel, schalter.An());
  }
  CheckRestEffekte();
  CheckAllEffekte();
}

void frmWaveEditor::EffektWerteMerken() {
  WerteMerken(prog.EffektEinstellung);
  prog.EffektEinstellung.HallPreset = Ganz16(comboPreset.ListIndex());
  prog.EffektEinstellung.Gueltig = true;
}

void frmWaveEditor::EffektWerteLaden() {
  WerteLaden(prog.EffektEinstellung);
  const int raum = prog.EffektEinstellung.HallPreset;
  if (raum >= comboPreset.ListCount()) return;  // the file of the rooms has changed meanwhile
  comboPreset.ListIndex = raum;
  comboPreset_Click();
}

// ---- presets ----

void frmWaveEditor::PresetsEinrichten() {
  Knopf(imgEQPresets, [this] { imgEQPresets_MouseUp(); });
  Knopf(imgVolumePresets, [this] { imgVolumePresets_MouseUp(); });
  Knopf(imgRestPresets, [this] { imgRestPresets_MouseUp(); });
  Knopf(imgFlangerPresets, [this] { imgFlangerPresets_MouseUp(); });
  for (int i = 0; i < imgEddPres.Count(); ++i) {
    Knopf(imgEddPres(i), [this, i] { imgEddPres_MouseUp(i); });
  }
  Knopf(imgOK, [this] { imgOK_MouseUp(); });
  lstPresets.Click = [this] { lstPresets_Click(); };
  txtPresName.KeyPress = [this](int taste) { return txtPresName_KeyPress(taste); };
  comboPreset.Click = [this] { comboPreset_Click(); };
  picPresets.Visible = false;
}

void frmWaveEditor::InitPresets() {
  lstPresets.Clear();
  txtPresName.Text = L"";
  for (const Text& name : presets_.Lesen(AktivesPanel)) lstPresets.AddItem(name);
  picPresets.Visible = true;
}

void frmWaveEditor::imgOK_MouseUp() {
  picPresets.Visible = false;
}

void frmWaveEditor::lstPresets_Click() {
  if (lstPresets.ListIndex < 0 || !presets_.Moeglich()) return;
  txtPresName.Text = lstPresets.List(lstPresets.ListIndex);
  const std::vector<Text> teile = presets_.Teile(lstPresets.ListIndex);
  int teil = 0;
  for (const PresetWert& wert : PresetWerte(AktivesPanel)) {
    const double zahl = Val(Element(teile, ++teil));
    if (Slider* const* schieber = std::get_if<Slider*>(&wert)) {
      Setzen(**schieber, zahl);
    } else {
      Setzen(*std::get<CheckBox*>(wert), Runden(zahl) == 1 ? 1 : 0);
    }
  }
  for (const Schalter& schalter : AlleSchalter()) {
    if (schalter.Preset && schalter.Tafel == AktivesPanel) schalter.Zeigen();
  }
  CheckRestEffekte();
  CheckAllEffekte();
}

bool frmWaveEditor::txtPresName_KeyPress(int taste) {
  if (taste != kKeyReturn) return true;
  const Text name = txtPresName.Text;
  const std::vector<Text>& namen = lstPresets.Items();
  if (std::find(namen.begin(), namen.end(), name) != namen.end()) {
    prog.MsgBoxen(LoadResString(21006), kHinweis, LoadResString(21007));
    return true;
  }
  if (name.empty() || !presets_.Moeglich()) return true;
  lstPresets.AddItem(name);
  std::vector<int> werte;
  for (const PresetWert& wert : PresetWerte(AktivesPanel)) {
    werte.push_back(std::visit([](const auto* control) -> int { return control->Value; }, wert));
  }
  if (lstPresets.ListCount() > PresetVorrat::kPlaetze) {
    throw Laufzeitfehler(kFehlerIndex, LoadResString(30181));
  }
  presets_.Merken(lstPresets.ListCount() - 1, name, werte);
  return true;
}

void frmWaveEditor::imgEddPres_MouseUp(int index) {
  if (index == 0) {
    txtPresName_KeyPress(kKeyReturn);
    return;
  }
  presets_.Loeschen(lstPresets.ListIndex);
  InitPresets();
}

void frmWaveEditor::ReverbPresetsLaden() {
  for (const Text& name : raeume_.Namen()) comboPreset.AddItem(name);
}

void frmWaveEditor::comboPreset_Click() {
  if (comboPreset.ListIndex < 0) return;
  kette_.Reverb().LoadFromIni(raeume_.Datei(), comboPreset.List(comboPreset.ListIndex));
}

// ---- the machine's load ----

void frmWaveEditor::LastMessungBeginnen() {
  if (!last_.Beginnen()) return;
  CPUBack.Width = 0;
  CPUHintergrund.Percent = 0;
  CPUBack.Visible = true;
  tmrCPU.Enabled = true;
}

void frmWaveEditor::tmrCPU_Timer() {
  const std::optional<int> last = last_.Messen();
  if (!last) return;
  CPUBack.Width = Ganz32(CPUHintergrund.Width / 100.0 * *last);
  CPUHintergrund.Percent = std::clamp(*last, 0, 100);
  CPUBack.FillColor = *last <= kGruenBis ? kGruen : *last <= kGelbBis ? kGelb : kRot;
}

// ---- texts ----

void frmWaveEditor::TexteEffekte() {
  constexpr int kErsteHinweise = 21411;
  for (int i = 0; i < imgEffekt.Count(); ++i) {
    Beschriften(lblEffekt(i), imgEffekt(i), LoadResString(21233 + i));
    Hinweis(imgEffekt(i), kErsteHinweise + i);
  }
  for (int i = 0; i < kEqBaender; ++i) {
    const Text name = kBaender[static_cast<std::size_t>(i)].Name;
    lblBand(i).Caption = name;
    lblBand(i).Align = Alignment::Center;
    MMSliderX1(i).ToolTipText = LoadResString(21459);
    MMSliderX1(i).AccessibleName = LoadResString(21228) + L" " + name + L" Hz";
  }
  const struct {
    Label& Schild;
    int Text;
  } schilder[] = {{lblEqualizer, 21228},
                  {lblVolumePanel, 21231},
                  {lblHall, 21229},
                  {lblRestauration, 21230},
                  {lblFlanger, 21232},
                  {lblVolume, 21217},
                  {lblGater, 21225},
                  {lblGaterThreshold, 21215},
                  {lblGaterAttack, 21216},
                  {lblHallMixing, 21207},
                  {lblHallFeedback, 21208},
                  {lblFlangerMix, 21209},
                  {lblFlangerFeedback, 21210},
                  {lblFlangerDepth, 21211},
                  {lblFlangerRate, 21212},
                  {lblDeclick, 21204},
                  {lblDenoiser, 21205},
                  {lblDecrackle, 21206},
                  {lblCPU, 21226}};
  for (const auto& s : schilder) s.Schild.Caption = LoadResString(s.Text);
  const struct {
    Label& Schild;
    PictureButton& Knopf;
    int Text, Hinweis;
  } knoepfe[] = {{lblByPass, imgByPass, 21203, 21401},
                 {lblLoudness, imgLoudness, 21239, 21426},
                 {lblHallByPass, imgHallByPass, 21213, 21423},
                 {lblFlangerBypass, imgFlangerBypass, 21214, 21420},
                 {lblVolumeByPass, imgVolumeByPass, 21219, 21439},
                 {lblGaterBypass, imgGaterBypass, 21220, 21422},
                 {lblDeclickByPass, imgDeclickByPass, 21213, 21406},
                 {lblDenoiserByPass, imgDenoiserByPass, 21213, 21408},
                 {lblDecrackleByPass, imgDecrackleByPass, 21213, 21407},
                 {lblEQPresets, imgEQPresets, 21221, 21417},
                 {lblVolumePresets, imgVolumePresets, 21222, 21440},
                 {lblRestPresets, imgRestPresets, 21223, 21446},
                 {lblFlangerPresets, imgFlangerPresets, 21224, 21447}};
  imgDeclickByPass.AccessibleName = LoadResString(21406);  // "On/Off" would not say of what
  imgDenoiserByPass.AccessibleName = LoadResString(21408);
  imgDecrackleByPass.AccessibleName = LoadResString(21407);
  for (const auto& k : knoepfe) {
    Beschriften(k.Schild, k.Knopf, LoadResString(k.Text));
    Hinweis(k.Knopf, k.Hinweis);
  }
}

void frmWaveEditor::HinweiseEffekte() {
  // Names that are used by more than one effect get the name of their effect in front.
  const auto zusatz = [](const Label& gruppe, const Label& teil,
                         const std::vector<Control*>& felder) {
    for (Control* feld : felder) feld->AccessibleName = gruppe.Caption() + L": " + teil.Caption();
  };
  zusatz(lblEqualizer, lblByPass, {&imgByPass});
  zusatz(lblVolumePanel, lblVolumeByPass, {&imgVolumeByPass});
  zusatz(lblHall, lblHallByPass, {&imgHallByPass});
  zusatz(lblFlanger, lblFlangerBypass, {&imgFlangerBypass});
  zusatz(lblFlanger, lblFlangerMix, {&slFlangerMix, &txtFlangerMix});
  zusatz(lblFlanger, lblFlangerFeedback, {&slFlangerFeedback, &txtFlangerFeedback});
  zusatz(lblFlanger, lblFlangerDepth, {&slFlangerDepth, &txtFlangerDepth});
  zusatz(lblFlanger, lblFlangerRate, {&slFlangerRate, &txtFlangerRate});
  zusatz(lblGater, lblGaterBypass, {&imgGaterBypass});
  zusatz(lblGater, lblGaterThreshold, {&slGaterThreshold, &txtGaterThreshold});
  zusatz(lblGater, lblGaterAttack, {&slGaterAttack, &txtGaterTime});
  const struct {
    Control& Feld;
    int Hinweis;
  } hinweise[] = {
      {comboPreset, 21402},      {slVolume, 21473},          {txtVolume, 21484},
      {slGaterThreshold, 21479}, {txtGaterThreshold, 21479}, {slGaterAttack, 21480},
      {txtGaterTime, 21480},     {sliderOutputGain, 21468},  {txtHallMixing, 21486},
      {sliderFeedBack, 21466},   {txtHallFeedback, 21487},   {slFlangerMix, 21471},
      {txtFlangerMix, 21477},    {slFlangerFeedback, 21467}, {txtFlangerFeedback, 21481},
      {slFlangerDepth, 21470},   {txtFlangerDepth, 21482},   {slFlangerRate, 21469},
      {txtFlangerRate, 21478},   {slDeclick, 21474},         {txtDeclick, 21474},
      {slDenoiser, 21476},       {txtDenoiserLevel, 21476},  {slDecrackle, 21475},
      {txtDecrackle, 21475},     {lblDeclick, 21463},        {lblDecrackle, 21464},
      {lblDenoiser, 21465},      {CPUHintergrund, 21403}};
  for (const auto& h : hinweise) Hinweis(h.Feld, h.Hinweis);
  LEDGaterAn.AccessibleName = LoadResString(21225) + LoadResString(30178);
  LEDGaterAus.AccessibleName = LoadResString(21225) + LoadResString(30179);
}

void frmWaveEditor::TextePresets() {
  lblPresets.Caption = LoadResString(21221);
  Hinweis(lstPresets, 21456);
  Hinweis(txtPresName, 21483);
  Hinweis(imgEddPres(0), 21409);
  Hinweis(imgEddPres(1), 21410);
  Hinweis(imgOK, 21429);
}

}  // namespace vantora
