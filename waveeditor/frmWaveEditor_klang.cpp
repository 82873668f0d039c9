// What is done to each buffer on its way, the machine's load, and the captions of the effects.

#include "app/programm.h"
#include "app/zahlen.h"
#include "waveeditor/frmWaveEditor.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kFrameBytes = 4;
constexpr double kFramesJeMs = 44.1;
constexpr std::int32_t kMaxZaehler = 1 << 30;
constexpr std::int16_t kStereo = 2;
constexpr const wchar_t* kStatStart = L"PerfStats\\StartStat";
constexpr const wchar_t* kStatDaten = L"PerfStats\\StatData";
constexpr const wchar_t* kLastWert = L"KERNEL\\CPUUsage";
constexpr int kGelbBis = 75, kGruenBis = 50;  // percent
constexpr Color kRot = Rgb(255, 0, 0), kGelb = Rgb(255, 255, 0), kGruen = Rgb(0, 255, 0);

}  // namespace

// ---- each buffer ----

void frmWaveEditor::DSP_OnBufferFilled(MMData& data) {
  const auto an = [](const CheckBox& kasten) { return kasten.Value() == 1; };
  if (ScanLaeuft) return;
  if (!an(chkGateraktiv) && !an(chkDeclickAktiv) && !an(chkDenoiserAktiv) &&
      !an(chkDecrackleAktiv)) {
    return;
  }
  const std::size_t n = ParseWaveHeader(data);
  if (n == 0) return;
  std::vector<std::int16_t>&a = PufferA_, &b = PufferB_;
  CopyWaveHeader(data, b.data(), n);
  std::copy_n(b.begin(), n / 2, a.begin());
  const auto aNachB = [&] { std::copy_n(a.begin(), n / 2, b.begin()); };
  if (an(chkGateraktiv)) {
    Gate(a, n);
    aNachB();
  }
  Audiolib& lib = prog.plattform.audiolib;
  const int frames = static_cast<int>(n) / kFrameBytes;
  MMData folgt;
  DSP->Peek(folgt);
  lib.Follows(folgt.Samples.data(), kStereo, static_cast<int>(folgt.Bytes) / kFrameBytes);
  if (an(chkDeclickAktiv)) {
    lib.func_08(DeclickLevel, kStereo, b.data(), a.data(), frames);
    aNachB();
  }
  if (an(chkDecrackleAktiv)) {
    lib.func_06(DecrackleLevel, kStereo, b.data(), a.data(), frames);
    aNachB();
  }
  if (an(chkDenoiserAktiv)) {
    lib.func_07(DenoiserLevel, kStereo, b.data(), a.data(), frames);
    aNachB();
  }
  FillWaveHeader(data, b.data(), n);
}

// Closes for the buffer in which the sound has been soft for long enough, stays closed while it is
// soft, and opens with the first buffer that is loud.
void frmWaveEditor::Gate(std::vector<std::int16_t>& klang, std::size_t bytes) {
  const int summe = Peak->PeakLeft() + Peak->PeakRight();
  const int schwelle = 2 * slGaterThreshold.Value();
  if (summe >= schwelle) {
    GateZaehler = 0;
    LEDGaterAn.Visible = true;
    LEDGaterAus.Visible = false;
    return;
  }
  if (GateZaehler == 0) {
    GateZaehler = 1;
    return;
  }
  // Silence may last for hours: once the gate is closed the count tells nothing more.
  GateZaehler = std::min(GateZaehler + static_cast<std::int32_t>(bytes) / kFrameBytes, kMaxZaehler);
  if (slGaterAttack.Value() * kFramesJeMs >= GateZaehler) return;
  LEDGaterAus.Visible = true;
  LEDGaterAn.Visible = false;
  std::fill_n(klang.begin(), bytes / 2, std::int16_t{0});
}

// ---- the machine's load ----

void frmWaveEditor::LastMessungBeginnen() {
  PerfData& zaehler = prog.plattform.perfData;
  if (!zaehler.RegOpenKey(kStatStart)) return;
  zaehler.RegQueryValue(kStatStart, kLastWert);
  zaehler.RegCloseKey(kStatStart);
  CPUBack.Width = 0;
  CPUBack.Visible = true;
  tmrCPU.Enabled = true;
}

void frmWaveEditor::tmrCPU_Timer() {
  PerfData& zaehler = prog.plattform.perfData;
  if (!zaehler.RegOpenKey(kStatDaten)) return;
  const std::optional<int> wert = zaehler.RegQueryValue(kStatDaten, kLastWert);
  zaehler.RegCloseKey(kStatDaten);
  if (!wert) return;
  const int u = *wert;
  CPUBack.Width = Ganz32(CPUHintergrund.Width / 100.0 * u);
  CPUBack.FillColor = u <= kGruenBis ? kGruen : u <= kGelbBis ? kGelb : kRot;
  CPULast = Ganz16((u + CPULast) / 2.0);
}

// ---- texts ----

void frmWaveEditor::TexteEffekte() {
  constexpr int kErsteHinweise = 21411;
  for (int i = 0; i < imgEffekt.Count(); ++i) {
    Beschriften(lblEffekt(i), imgEffekt(i), LoadResString(21233 + i));
    Hinweis(imgEffekt(i), kErsteHinweise + i);
  }
  constexpr const wchar_t* kBaender[] = {L"60", L"170", L"310", L"600", L"1k",
                                         L"3k", L"6k",  L"12k", L"14k", L"16k"};
  for (int i = 0; i < kEqBaender; ++i) {
    lblBand(i).Caption = kBaender[i];
    lblBand(i).Align = Alignment::Center;
    MMSliderX1(i).ToolTipText = LoadResString(21459);
    MMSliderX1(i).AccessibleName = LoadResString(21228) + L" " + kBaender[i] + L" Hz";
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
                 {lblEQPresets, imgEQPresets, 21221, 21417},
                 {lblVolumePresets, imgVolumePresets, 21222, 21440},
                 {lblRestPresets, imgRestPresets, 21223, 21446},
                 {lblFlangerPresets, imgFlangerPresets, 21224, 21447}};
  for (const auto& k : knoepfe) {
    Beschriften(k.Schild, k.Knopf, LoadResString(k.Text));
    Hinweis(k.Knopf, k.Hinweis);
  }
  const struct {
    Control& Feld;
    int Hinweis;
  } hinweise[] = {
      {imgDeclickByPass, 21406}, {imgDecrackleByPass, 21407}, {imgDenoiserByPass, 21408},
      {comboPreset, 21402},      {slVolume, 21473},           {txtVolume, 21484},
      {slGaterThreshold, 21479}, {txtGaterThreshold, 21479},  {slGaterAttack, 21480},
      {txtGaterTime, 21480},     {sliderOutputGain, 21468},   {txtHallMixing, 21486},
      {sliderFeedBack, 21466},   {txtHallFeedback, 21487},    {slFlangerMix, 21471},
      {txtFlangerMix, 21477},    {slFlangerFeedback, 21467},  {txtFlangerFeedback, 21481},
      {slFlangerDepth, 21470},   {txtFlangerDepth, 21482},    {slFlangerRate, 21469},
      {txtFlangerRate, 21478},   {slDeclick, 21474},          {txtDeclick, 21474},
      {slDenoiser, 21476},       {txtDenoiserLevel, 21476},   {slDecrackle, 21475},
      {txtDecrackle, 21475},     {lblDeclick, 21463},         {lblDecrackle, 21464},
      {lblDenoiser, 21465},      {CPUHintergrund, 21403}};
  for (const auto& h : hinweise) Hinweis(h.Feld, h.Hinweis);
}

}  // namespace vantora
