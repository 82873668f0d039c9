#include "waveeditor/effekt_tafeln.h"

#include "app/fenster.h"
#include "app/werte/zahlen.h"
#include "app/zustand/editor_zustand.h"

#include <algorithm>
#include <cstddef>

namespace vantora {

// ---- switches ----

std::array<EffektTafeln::Schalter, 9> EffektTafeln::AlleSchalter() {
  const wchar_t* const kRest = L"WAVE_RESTAURATIONBYPASS";
  const wchar_t *const kEq = L"WAVE_EQBUTT", *const kLaut = L"WAVE_VOLUMEBYPASS";
  return {{{chkEQBypass, imgByPass, kEq, kEqualizer, true, false},
           {chkLoudness, imgLoudness, kEq, kEqualizer, false, true},
           {chkReverbbypass, imgHallByPass, L"WAVE_HALLBYPASS", kHall, true, false},
           {chkFlangerAktiv, imgFlangerBypass, L"WAVE_FLANGERBYPASS", kFlanger, true, false},
           {chkVolume, imgVolumeByPass, kLaut, kLautstaerke, false, true},
           {chkGateraktiv, imgGaterBypass, kLaut, kLautstaerke, false, true},
           {chkDeclickAktiv, imgDeclickByPass, kRest, kRestauration, false, true},
           {chkDenoiserAktiv, imgDenoiserByPass, kRest, kRestauration, false, true},
           {chkDecrackleAktiv, imgDecrackleByPass, kRest, kRestauration, false, true}}};
}

EffektTafeln::Schalter EffektTafeln::SchalterVon(const CheckBox& kasten) {
  const std::array<Schalter, 9> alle = AlleSchalter();
  return *std::find_if(alle.begin(), alle.end(),
                       [&](const Schalter& s) { return &s.Kasten == &kasten; });
}

void EffektTafeln::Schalter::Zeigen() const {
  Knopf.Picture = Bild + Text(An() ? L"_ON" : L"_UNPRESSED");
  Knopf.State = An() ? Lamp::On : Lamp::Off;
}

void EffektTafeln::Schalter::Umschalten() const {
  Setzen(Kasten, An() ? 0 : 1);
  Zeigen();
}

// ---- panels ----

void EffektTafeln::PanelZeigen(int index) {
  PictureBox* const panels[] = {&picEqualizer, &picVolume, &picHall, &picRestauration, &picFlanger};
  for (int i = 0; i < kPanels; ++i) {
    panels[i]->Visible = i == index;
    lblEffekt(i).FontBold = i == index;
  }
}

void EffektTafeln::PanelLicht(int index, bool an) {
  EffektAn_[static_cast<std::size_t>(index)] = an;
  PictureButton& knopf = imgEffekt(index);
  knopf.PictureReleased = (an ? L"WAVEEFFEKTON_" : L"WAVEEFFEKTUNPRESSED_") + ZahlText(index);
  knopf.State = an ? Lamp::On : Lamp::Off;
  KnopfBild(knopf);
}

void EffektTafeln::LichterZeigen() {
  for (int i = 0; i < kPanels; ++i) PanelLicht(i, EffektAn(i));
}

bool EffektTafeln::EinEffektAn() const {
  return std::any_of(EffektAn_.begin(), EffektAn_.begin() + kPanels, [](bool an) { return an; });
}

// ---- values ----

std::vector<EffektTafeln::PresetWert> EffektTafeln::PresetWerte(int panel) {
  std::vector<PresetWert> werte;
  switch (panel) {
    case kEqualizer:
      for (int i = 0; i < MMSliderX1.Count(); ++i) werte.emplace_back(&MMSliderX1(i));
      werte.emplace_back(&chkLoudness);
      return werte;
    case kLautstaerke:
      return {&slVolume, &chkVolume, &slGaterAttack, &slGaterThreshold, &chkGateraktiv};
    case kRestauration:
      return {&slDeclick,        &chkDeclickAktiv, &slDenoiser,
              &chkDenoiserAktiv, &slDecrackle,     &chkDecrackleAktiv};
    case kFlanger:
      return {&slFlangerMix, &slFlangerFeedback, &slFlangerDepth, &slFlangerRate};
    default:
      return werte;
  }
}

// Calls `weg` for each control with its place in the record.
template <typename Werte, typename Weg>
void EffektTafeln::AlleWerte(Werte& w, Weg weg) {
  weg(chkEQBypass, w.EQAktiv);
  weg(chkDenoiserAktiv, w.DenoiserAktiv);
  weg(chkDecrackleAktiv, w.DecrackleAktiv);
  weg(chkDeclickAktiv, w.DeclickAktiv);
  weg(chkLoudness, w.LoudnessAktiv);
  weg(chkVolume, w.VolumeAktiv);
  weg(chkGateraktiv, w.GaterAktiv);
  weg(chkFlangerAktiv, w.FlangerAktiv);
  weg(chkReverbbypass, w.HallAktiv);
  weg(slDenoiser, w.DenoiserWert);
  weg(slDecrackle, w.DecrackleWert);
  weg(slDeclick, w.DeclickWert);
  for (int i = 0; i < kEqBaender; ++i) {
    weg(MMSliderX1(i), w.EQBand[static_cast<std::size_t>(i)]);
  }
  weg(slVolume, w.Lautstaerke);
  weg(slGaterThreshold, w.GaterSchwelle);
  weg(slGaterAttack, w.GaterZeit);
  weg(slFlangerMix, w.FlangerMix);
  weg(slFlangerFeedback, w.FlangerFeedback);
  weg(slFlangerDepth, w.FlangerTiefe);
  weg(slFlangerRate, w.FlangerRate);
  weg(sliderOutputGain, w.HallGain);
  weg(sliderFeedBack, w.HallFeedback);
}

namespace {

struct InsMerkbuch {
  void operator()(const CheckBox& kasten, bool& wert) const { wert = kasten.Value() == 1; }
  void operator()(const Slider& schieber, std::int16_t& wert) const {
    wert = Ganz16(schieber.Value());
  }
  void operator()(const Slider& schieber, std::int32_t& wert) const { wert = schieber.Value(); }
};

}  // namespace

void EffektTafeln::WerteMerken(EffektWerte& werte) {
  AlleWerte(werte, InsMerkbuch{});
}

void EffektTafeln::WerteLaden(const EffektWerte& werte) {
  AlleWerte(werte, [](auto& control, const auto& wert) { Setzen(control, wert); });
}

}  // namespace vantora
