#include "waveeditor/effekt_kette.h"

#include "app/zustand/eq_baender.h"
#include "klang/klang_frame.h"

#include <cstddef>

namespace vantora {

namespace {

constexpr int kBibliothekBytes = 8192;

struct KurvenPunkt {
  double Hertz, Gain;
};
// The gain in dB that balances the loss of hearing at low volume, after the curves of equal
// loudness.
constexpr std::array<KurvenPunkt, 20> kLoudnessKurve = {
    {{0, 0},        {22, 2},       {32, 4},    {38, 5},       {47, 6},
     {61, 10},      {83, 11},      {106, 9},   {127, 7},      {144, 2},
     {230, 1.35},   {354, 0},      {6124, 0},  {8172, 1.07},  {9437, 2.87},
     {11435, 5.39}, {13210, 7.19}, {15752, 9}, {18483, 9.36}, {22050, 9.36}}};

}  // namespace

// ---- making ----

EffektKette::EffektKette(MMTools& werkzeug, Audiolib& bibliothek)
    : SourceFile_(werkzeug.NewWaveFileX()),
      MMPCMConverterX1_(werkzeug.NewPCMConverter()),
      Peak_(werkzeug.NewPeakDetect()),
      DSP_(werkzeug.NewDSPInterface()),
      Eq_(werkzeug.NewEqualizer()),
      Loudness_(werkzeug.NewEqualizer()),
      Reverb_(werkzeug.NewReverb()),
      Flanger_(werkzeug.NewFlanger()),
      mmVolume_(werkzeug.NewVolume()),
      Out_(werkzeug.NewWaveOut()),
      MMConnectorX1(werkzeug.NewConnector()),
      Trigger_(werkzeug.NewTrigger()),
      DestFile_(werkzeug.NewWaveFileX()),
      effekte_{
          {{Eq_.get()}, {Loudness_.get()}, {Reverb_.get()}, {Flanger_.get()}, {mmVolume_.get()}}},
      bibliothek_(bibliothek),
      restauration_(bibliothek) {
  MMPCMConverterX1_->SetInput(SourceFile_.get());
  Peak_->SetInput(MMPCMConverterX1_.get());
  DSP_->SetInput(Peak_.get());
  for (const Effekt& effekt : effekte_) effekt.Komponente->SetInput(DSP_.get());
  Out_->SetInput(DSP_.get());
  MMConnectorX1->SetInput(Out_.get());
  DestFile_->SetInput(Trigger_.get());
  DestFile_->Wave.FileMustExist = false;
  DSP_->OnBufferFilled = [this](MMData& data) {
    if (OnPuffer) OnPuffer(data);
  };
  MMConnectorX1->OnLevel = [this](int links, int rechts) {
    if (OnPegel) OnPegel(links, rechts);
  };
}

void EffektKette::Starten() {
  bibliothek_.func_01(kBibliothekBytes);
  for (const Effekt& effekt : effekte_) {
    effekt.Komponente->Enable();
    effekt.Komponente->Disable();
  }
}

void EffektKette::Beenden() {
  bibliothek_.func_02();
}

void EffektKette::SetEqualizer() {
  for (const Band& band : kBaender) Eq_->Add(band.Von, band.Bis, 0);
}

void EffektKette::SetLoudness() {
  for (std::size_t i = 1; i < kLoudnessKurve.size(); ++i) {
    const KurvenPunkt& bis = kLoudnessKurve[i];
    Loudness_->Add(kLoudnessKurve[i - 1].Hertz, bis.Hertz, bis.Gain);
  }
}

// ---- connections ----

// A component that is left out keeps its input, so that it can be wired in again.
void EffektKette::Verbinden(Ende ende) {
  MMComponentX* davor = DSP_.get();
  for (const Effekt& effekt : effekte_) {
    effekt.Komponente->SetInput(davor);
    if (effekt.An) davor = effekt.Komponente;
  }
  if (ende == Ende::Datei) {
    Trigger_->SetInput(davor);
  } else {
    Out_->SetInput(davor);
  }
}

void EffektKette::Schalten(Stufe stufe, bool an) {
  Effekt& effekt = effekte_[stufe];
  effekt.An = an;
  if (an) {
    effekt.Komponente->Enable();
  } else {
    effekt.Komponente->Disable();
  }
}

void EffektKette::Auffrischen() {
  for (const Effekt& effekt : effekte_) effekt.Komponente->Disable();
  for (const Effekt& effekt : effekte_) {
    if (effekt.An) effekt.Komponente->Enable();
  }
  gate_.Auffrischen();
  restauration_.Auffrischen();
}

std::int32_t EffektKette::Laenge() const {
  return SourceFile_->Wave.IsOpen() ? SourceFile_->Wave.DataSize() : 0;
}

// ---- each buffer ----

void EffektKette::PufferFiltern(MMData& data) {
  if (!gate_.An && !restauration_.Aktiv()) return;
  const std::size_t bytes = ParseWaveHeader(data);
  if (bytes == 0) return;
  CopyWaveHeader(data, PufferA_.data(), bytes);
  if (gate_.An) gate_.Anwenden(PufferA_.data(), bytes, Peak_->PeakLeft() + Peak_->PeakRight());
  if (restauration_.Aktiv()) {
    MMData folgt;
    DSP_->Peek(folgt);
    Folgt_.Bytes = ParseWaveHeader(folgt);
    CopyWaveHeader(folgt, Folgt_.Samples.data(), Folgt_.Bytes);
    restauration_.Anwenden(PufferA_.data(), PufferB_.data(), bytes, Folgt_);
  }
  FillWaveHeader(data, PufferA_.data(), bytes);
}

}  // namespace vantora
