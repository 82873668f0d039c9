// The effects: their sliders, boxes and buttons, and how the chain is wired by them.

#include "app/programm.h"
#include "app/werte/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <array>

namespace vantora {

namespace {

constexpr int kFeldZeichen = 6;
constexpr int kStumm = 0, kUnverändert = 16384;

constexpr std::array<int, kEqBaender + 1> kBaender = {0,    60,   170,   310,   600,  1000,
                                                      3000, 6000, 12000, 14000, 16000};

struct KurvenPunkt {
  double Hertz, Gain;
};
// What the ear misses at low volume, after the curves of equal loudness; dB.
constexpr std::array<KurvenPunkt, 20> kLoudness = {
    {{0, 0},        {22, 2},       {32, 4},    {38, 5},       {47, 6},
     {61, 10},      {83, 11},      {106, 9},   {127, 7},      {144, 2},
     {230, 1.35},   {354, 0},      {6124, 0},  {8172, 1.07},  {9437, 2.87},
     {11435, 5.39}, {13210, 7.19}, {15752, 9}, {18483, 9.36}, {22050, 9.36}}};

}  // namespace

// ---- making ----

void frmWaveEditor::EffekteEinrichten() {
  ReglerEinrichten();
  const struct {
    CheckBox& Kasten;
    void (frmWaveEditor::*Handler)();
  } kaesten[] = {{chkEQBypass, &frmWaveEditor::chkEQBypass_Click},
                 {chkLoudness, &frmWaveEditor::chkLoudness_Click},
                 {chkReverbbypass, &frmWaveEditor::chkReverbbypass_Click},
                 {chkFlangerAktiv, &frmWaveEditor::chkFlangerAktiv_Click},
                 {chkVolume, &frmWaveEditor::chkVolume_Click},
                 {chkGateraktiv, &frmWaveEditor::chkGateraktiv_Click},
                 {chkDeclickAktiv, &frmWaveEditor::chkDeclickAktiv_Click},
                 {chkDenoiserAktiv, &frmWaveEditor::chkDenoiserAktiv_Click},
                 {chkDecrackleAktiv, &frmWaveEditor::chkDecrackleAktiv_Click}};
  for (const auto& k : kaesten) {
    k.Kasten.Click = [this, handler = k.Handler] { (this->*handler)(); };
  }
  Knopf(imgByPass, [this] { imgByPass_MouseUp(); });
  Knopf(imgLoudness, [this] { imgLoudness_MouseUp(); });
  Knopf(imgHallByPass, [this] { imgHallByPass_MouseUp(); });
  Knopf(imgFlangerBypass, [this] { imgFlangerBypass_MouseUp(); });
  Knopf(imgVolumeByPass, [this] { imgVolumeByPass_MouseUp(); });
  Knopf(imgGaterBypass, [this] { imgGaterBypass_MouseUp(); });
  Knopf(imgDeclickByPass, [this] { imgDeclickByPass_MouseUp(); });
  Knopf(imgDenoiserByPass, [this] { imgDenoiserByPass_MouseUp(); });
  Knopf(imgDecrackleByPass, [this] { imgDecrackleByPass_MouseUp(); });
  for (int i = 0; i < imgEffekt.Count(); ++i) {
    Knopf(imgEffekt(i), [this, i] { imgEffekt_MouseUp(i); });
  }
  PanelZeigen(0);
  LEDGaterAn.Visible = LEDGaterAus.Visible = false;
}

void frmWaveEditor::ReglerEinrichten() {
  for (int i = 0; i < kEqBaender; ++i) {
    MMSliderX1(i).Vertical = true;
    MMSliderX1(i).Upwards = true;
    Regler_.push_back(
        {&MMSliderX1(i), nullptr, -16, 16, 0, [this, i](int) { MMSliderX1_OnChange(i); }, {}});
  }
  const auto gleitend = [](int wert) { return static_cast<float>(wert); };
  const auto flanger = [this](Slider& schieber, TextBox& feld, int bis, int anfang, auto wirkung) {
    Regler_.push_back({&schieber,
                       &feld,
                       0,
                       bis,
                       anfang,
                       [this, wirkung](int wert) {
                         wirkung(wert);
                         chkFlangerAktiv_Click();
                       },
                       {}});
  };
  flanger(slFlangerRate, txtFlangerRate, 100, 10,
          [=, this](int w) { Flanger->SetRate(gleitend(w) / 20); });
  Regler_.back().Anzeige = [](int w) { return ZahlText(w / 20) + L"." + ZahlText(w % 20 / 2); };
  flanger(slFlangerDepth, txtFlangerDepth, 99, 50,
          [=, this](int w) { Flanger->SetDepth(gleitend(w)); });
  flanger(slFlangerFeedback, txtFlangerFeedback, 99, 30,
          [this](int w) { Flanger->SetFeedBack(w); });
  flanger(slFlangerMix, txtFlangerMix, 99, 50, [this](int w) {
    Flanger->SetWetMix(w);
    Flanger->SetDryMix(100 - w);
  });
  Regler_.push_back({&sliderFeedBack,
                     &txtHallFeedback,
                     -99,
                     99,
                     40,
                     [this](int w) {
                       Reverb->SetFeedback(w);
                       chkReverbbypass_Click();
                     },
                     {}});
  Regler_.push_back({&sliderOutputGain,
                     &txtHallMixing,
                     0,
                     99,
                     40,
                     [this](int w) {
                       Reverb->SetOutputGain(w);
                       chkReverbbypass_Click();
                     },
                     {}});
  Regler_.push_back({&slVolume, &txtVolume, kStumm, 16220, 16220,
                     [this](int w) {
                       mmVolume->SetVolume(w);
                       chkVolume_Click();
                     },
                     [](int w) { return ZahlText(Ganz32(w * 100.0 / kUnverändert)); }});
  Regler_.push_back({&slGaterThreshold, &txtGaterThreshold, 0, 32440, 0, [](int) {},
                     [this](int w) {
                       if (w == 0) return LoadResString(21615);
                       return Format(prog.plattform.mmtools.Helper().Db(w, 32768), L"##0,0");
                     }});
  Regler_.push_back({&slGaterAttack, &txtGaterTime, 0, 999, 100, [](int) {}, {}});
  const auto filter = [this, gleitend](Slider& schieber, TextBox& feld, int anfang, float& pegel) {
    Regler_.push_back({&schieber,
                       &feld,
                       0,
                       99,
                       anfang,
                       [&pegel, gleitend](int w) { pegel = gleitend(w) / 100; },
                       {}});
  };
  filter(slDeclick, txtDeclick, 10, DeclickLevel);
  filter(slDenoiser, txtDenoiserLevel, 20, DenoiserLevel);
  filter(slDecrackle, txtDecrackle, 30, DecrackleLevel);
  slGaterThreshold.Logarithmic = true;
  for (std::size_t i = 0; i < Regler_.size(); ++i) ReglerVerbinden(i);
}

void frmWaveEditor::ReglerVerbinden(std::size_t nummer) {
  const Regler& regler = Regler_[nummer];
  regler.Schieber->Min = regler.Von;
  regler.Schieber->Max = regler.Bis;
  regler.Schieber->Value = regler.Anfang;
  regler.Schieber->Change = [this, nummer] { ReglerGeaendert(Regler_[nummer]); };
  if (regler.Feld == nullptr) return;
  regler.Feld->MaxLength = kFeldZeichen;
  regler.Feld->KeyPress = [this, nummer](int taste) {
    if (taste != kKeyReturn) return NurZiffern(taste);
    FeldUebernehmen(Regler_[nummer], true);
    return true;
  };
  regler.Feld->GotFocus = [this, nummer] { Regler_[nummer].Vorher = Regler_[nummer].Feld->Text; };
  // A box shows less than its slider has (percent, decibels, "Off"), so one that was only passed
  // through must not write back what it shows.
  regler.Feld->LostFocus = [this, nummer] {
    Regler& r = Regler_[nummer];
    if (r.Feld->Text() != r.Vorher) FeldUebernehmen(r, false);
  };
}

void frmWaveEditor::ReglerGeaendert(Regler& regler) {
  if (regler.Feld != nullptr) FeldZeigen(regler);
  regler.Wirkung(regler.Schieber->Value);
}

void frmWaveEditor::FeldZeigen(Regler& regler) {
  const int wert = regler.Schieber->Value;
  regler.Vorher = regler.Anzeige ? regler.Anzeige(wert) : ZahlText(wert);
  regler.Feld->Text = regler.Vorher;
}

// ---- what a hand does, done by the program ----

void frmWaveEditor::Setzen(Slider& schieber, double wert) {
  const int neu = Ganz32(std::clamp<double>(Runden(wert), schieber.Min, schieber.Max));
  if (neu == schieber.Value()) return;
  schieber.Value = neu;
  schieber.Change();
}

void frmWaveEditor::Setzen(CheckBox& kasten, int wert) {
  if (kasten.Value() == wert) return;
  kasten.Value = wert;
  kasten.Click();
}

// The box shows what the slider took, also where that is what it had.
void frmWaveEditor::FeldUebernehmen(Regler& regler, bool mitReturn) {
  if (regler.Feld != &txtFlangerRate) {
    Setzen(*regler.Schieber, Val(regler.Feld->Text));
  } else if (mitReturn) {
    txtFlangerRate_KeyPress(kKeyReturn);
  } else {
    txtFlangerRate_LostFocus();
  }
  FeldZeigen(regler);
}

// The box counts in Hertz, its slider in twentieths; only what is entered with Return is taken so.
bool frmWaveEditor::txtFlangerRate_KeyPress(int taste) {
  if (taste != kKeyReturn) return NurZiffern(taste);
  Setzen(slFlangerRate, Val(txtFlangerRate.Text) * 20);
  return true;
}

void frmWaveEditor::txtFlangerRate_LostFocus() {
  Setzen(slFlangerRate, Val(txtFlangerRate.Text));
}

// ---- the chain ----

void frmWaveEditor::CheckAllEffekte2() {
  EffekteAktiv = std::any_of(EffektAn.begin(), EffektAn.begin() + 5, [](bool an) { return an; });
}

void frmWaveEditor::RuntimeConnections() {
  CheckAllEffekte2();
  prog.AppLog(L"RuntimeConnections()", L"building runtime connection");
  const bool live = Spielt && !Pausiert;
  const int diesmal = ++Verbindungen;
  std::int64_t gehoert = 0;
  if (live) {
    gehoert = std::max<std::int64_t>(Out->Position(), 0);
    Out->Pause();
  }
  const auto hinter = [](const CheckBox& kasten, MMComponentX& stufe) {
    return kasten.Value() != 0 ? &stufe : stufe.Input();
  };
  Eq->SetInput(DSP.get());
  Loudness->SetInput(hinter(chkEQBypass, *Eq));
  Reverb->SetInput(hinter(chkLoudness, *Loudness));
  Flanger->SetInput(hinter(chkReverbbypass, *Reverb));
  mmVolume->SetInput(hinter(chkFlangerAktiv, *Flanger));
  MMComponentX& ende = EinrechnenLaeuft || BatchLaeuft ? static_cast<MMComponentX&>(*Trigger)
                                                       : static_cast<MMComponentX&>(*Out);
  ende.SetInput(hinter(chkVolume, *mmVolume));
  prog.plattform.schleife.DoEvents();
  prog.AppLog(L"RuntimeConnections()", L"built runtime x-tions");
  // A handler may have stopped or paused the sound while events ran, or connected it anew and gone
  // on from where it was.
  if (!live || !Spielt || Pausiert || diesmal != Verbindungen) return;
  if (LoopAktiv) {
    PlayWave(false);
    BereichSetzen();
    PlayWave(true);
    return;
  }
  MMWaveObject& quelle = SourceFile->Wave;
  const std::int64_t stelle = quelle.PlayStart + gehoert / kFrameBytes;
  quelle.PlayStart = Ganz32(static_cast<double>(std::min<std::int64_t>(stelle, quelle.PlayEnd)));
  Out->Start();
}

void frmWaveEditor::SetEqualizer() {
  for (std::size_t i = 1; i < kBaender.size(); ++i) Eq->Add(kBaender[i - 1], kBaender[i], 0);
}

void frmWaveEditor::SetLoudness() {
  for (std::size_t i = 1; i < kLoudness.size(); ++i) {
    Loudness->Add(kLoudness[i - 1].Hertz, kLoudness[i].Hertz, kLoudness[i].Gain);
  }
}

void frmWaveEditor::MMSliderX1_OnChange(int index) {
  if (Eq->Count() > index) Eq->Item(index).SetGain(MMSliderX1(index).Value);
  chkEQBypass_Click();
}

// ---- on and off ----

namespace {

void Schalten(MMEffectX& effekt, const CheckBox& kasten) {
  if (kasten.Value() == 1) {
    effekt.Enable();
  } else {
    effekt.Disable();
  }
}

}  // namespace

void frmWaveEditor::chkEQBypass_Click() {
  Schalten(*Eq, chkEQBypass);
}
void frmWaveEditor::chkLoudness_Click() {
  Schalten(*Loudness, chkLoudness);
}
void frmWaveEditor::chkReverbbypass_Click() {
  Schalten(*Reverb, chkReverbbypass);
}
void frmWaveEditor::chkVolume_Click() {
  Schalten(*mmVolume, chkVolume);
}
void frmWaveEditor::chkFlangerAktiv_Click() {
  Schalten(*Flanger, chkFlangerAktiv);
}

void frmWaveEditor::chkGateraktiv_Click() {
  if (chkGateraktiv.Value() == 0) LEDGaterAn.Visible = LEDGaterAus.Visible = false;
}

void frmWaveEditor::chkDeclickAktiv_Click() {
  Audiolib& lib = prog.plattform.audiolib;
  FilterSchalten(chkDeclickAktiv, [&](bool an) { an ? lib.func_05(DeclickLevel) : lib.func_11(); });
}
void frmWaveEditor::chkDecrackleAktiv_Click() {
  Audiolib& lib = prog.plattform.audiolib;
  FilterSchalten(chkDecrackleAktiv,
                 [&](bool an) { an ? lib.func_03(DecrackleLevel) : lib.func_09(); });
}
void frmWaveEditor::chkDenoiserAktiv_Click() {
  Audiolib& lib = prog.plattform.audiolib;
  FilterSchalten(chkDenoiserAktiv,
                 [&](bool an) { an ? lib.func_04(DenoiserLevel) : lib.func_10(); });
}

// A machine that is busy already takes no filter on, so that the sound does not begin to stutter.
void frmWaveEditor::FilterSchalten(CheckBox& kasten, const std::function<void(bool an)>& filter) {
  constexpr int kHoechsteLast = 70;  // percent
  if (CPULast > kHoechsteLast && kasten.Value() == 1) kasten.Value = 0;
  filter(kasten.Value() == 1);
}

bool frmWaveEditor::Umschalten(CheckBox& kasten, PictureButton& knopf, const Text& bild) {
  Setzen(kasten, kasten.Value() == 0 ? 1 : 0);
  KnopfZeigen(knopf, kasten, bild);
  return kasten.Value() == 1;
}

void frmWaveEditor::KnopfZeigen(PictureButton& knopf, const CheckBox& kasten, const Text& bild) {
  knopf.Picture = bild + (kasten.Value() == 1 ? L"_ON" : L"_UNPRESSED");
}

void frmWaveEditor::PanelLicht(int index, bool an) {
  EffektAn[static_cast<std::size_t>(index)] = an;
  PictureButton& knopf = imgEffekt(index);
  knopf.PictureReleased = (an ? L"WAVEEFFEKTON_" : L"WAVEEFFEKTUNPRESSED_") + ZahlText(index);
  KnopfBild(knopf);
}

void frmWaveEditor::imgByPass_MouseUp() {
  PanelLicht(0, Umschalten(chkEQBypass, imgByPass, L"WAVE_EQBUTT"));
  RuntimeConnections();
}
void frmWaveEditor::imgLoudness_MouseUp() {
  Umschalten(chkLoudness, imgLoudness, L"WAVE_EQBUTT");
  RuntimeConnections();
}
void frmWaveEditor::imgHallByPass_MouseUp() {
  PanelLicht(2, Umschalten(chkReverbbypass, imgHallByPass, L"WAVE_HALLBYPASS"));
  RuntimeConnections();
}
void frmWaveEditor::imgFlangerBypass_MouseUp() {
  PanelLicht(4, Umschalten(chkFlangerAktiv, imgFlangerBypass, L"WAVE_FLANGERBYPASS"));
  RuntimeConnections();
}
void frmWaveEditor::imgVolumeByPass_MouseUp() {
  Umschalten(chkVolume, imgVolumeByPass, L"WAVE_VOLUMEBYPASS");
  CheckAllEffekte();
}
void frmWaveEditor::imgGaterBypass_MouseUp() {
  Umschalten(chkGateraktiv, imgGaterBypass, L"WAVE_VOLUMEBYPASS");
  CheckAllEffekte();
}
void frmWaveEditor::imgDeclickByPass_MouseUp() {
  Umschalten(chkDeclickAktiv, imgDeclickByPass, L"WAVE_RESTAURATIONBYPASS");
  CheckRestEffekte();
}
void frmWaveEditor::imgDenoiserByPass_MouseUp() {
  Umschalten(chkDenoiserAktiv, imgDenoiserByPass, L"WAVE_RESTAURATIONBYPASS");
  CheckRestEffekte();
}
void frmWaveEditor::imgDecrackleByPass_MouseUp() {
  Umschalten(chkDecrackleAktiv, imgDecrackleByPass, L"WAVE_RESTAURATIONBYPASS");
  CheckRestEffekte();
}

void frmWaveEditor::CheckRestEffekte() {
  PanelLicht(3, chkDeclickAktiv.Value() + chkDenoiserAktiv.Value() + chkDecrackleAktiv.Value() > 0);
  CheckAllEffekte2();  // these filters need no new wiring, but can be applied
}

void frmWaveEditor::CheckAllEffekte() {
  PanelLicht(1, chkVolume.Value() + chkGateraktiv.Value() > 0);
  RuntimeConnections();
}

void frmWaveEditor::imgEffekt_MouseUp(int index) {
  for (int i = 0; i < kPanels; ++i) PanelLicht(i, EffektAn[static_cast<std::size_t>(i)]);
  if (index < kPanels) {
    PanelZeigen(index);
  } else {
    AlleEffekteAus();
  }
  if (picPresets.Visible) imgOK_MouseUp();
  CheckAllEffekte();
}

void frmWaveEditor::PanelZeigen(int index) {
  PictureBox* const panels[] = {&picEqualizer, &picVolume, &picHall, &picRestauration, &picFlanger};
  for (int i = 0; i < kPanels; ++i) {
    panels[i]->Visible = i == index;
    lblEffekt(i).FontBold = i == index;
  }
  AktivesPanel = Ganz16(index);
}

void frmWaveEditor::AlleEffekteAus() {
  for (CheckBox* kasten :
       {&chkEQBypass, &chkLoudness, &chkReverbbypass, &chkFlangerAktiv, &chkVolume, &chkGateraktiv,
        &chkDeclickAktiv, &chkDenoiserAktiv, &chkDecrackleAktiv}) {
    Setzen(*kasten, 0);
  }
  KnoepfeZeigen();
  CheckRestEffekte();
  CheckAllEffekte();
}

// All buttons and lamps, as the boxes stand.
void frmWaveEditor::KnoepfeZeigen() {
  KnopfZeigen(imgByPass, chkEQBypass, L"WAVE_EQBUTT");
  KnopfZeigen(imgLoudness, chkLoudness, L"WAVE_EQBUTT");
  KnopfZeigen(imgHallByPass, chkReverbbypass, L"WAVE_HALLBYPASS");
  KnopfZeigen(imgFlangerBypass, chkFlangerAktiv, L"WAVE_FLANGERBYPASS");
  KnopfZeigen(imgVolumeByPass, chkVolume, L"WAVE_VOLUMEBYPASS");
  KnopfZeigen(imgGaterBypass, chkGateraktiv, L"WAVE_VOLUMEBYPASS");
  KnopfZeigen(imgDeclickByPass, chkDeclickAktiv, L"WAVE_RESTAURATIONBYPASS");
  KnopfZeigen(imgDenoiserByPass, chkDenoiserAktiv, L"WAVE_RESTAURATIONBYPASS");
  KnopfZeigen(imgDecrackleByPass, chkDecrackleAktiv, L"WAVE_RESTAURATIONBYPASS");
  PanelLicht(0, chkEQBypass.Value() == 1);
  PanelLicht(2, chkReverbbypass.Value() == 1);
  PanelLicht(4, chkFlangerAktiv.Value() == 1);
}

}  // namespace vantora
