// The effects of the wave editor. `bench-effects NAMES HOME` runs HOME/in.wav through a list of
// effects like "eq,reverb" into HOME/out.wav; the caller measures time and memory of the process.

#include "bench/stage.h"
#include "main/headless_platform.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vantora {
namespace {

struct Chain {
  explicit Chain(SoundTools& tools) : tools_(tools) {}

  void Add(std::unique_ptr<MMComponentX> component) {
    if (!parts_.empty()) component->SetInput(parts_.back().get());
    parts_.push_back(std::move(component));
  }
  void AddEffect(std::unique_ptr<MMEffectX> effect) {
    effect->Enable();
    Add(std::move(effect));
  }
  bool AddNamed(const std::string& name);
  MMComponentX& End() { return *parts_.back(); }

 private:
  void AddEqualizer();
  void AddReverb();
  void AddFlanger();
  void AddVolume();
  void AddGate();

  SoundTools& tools_;
  std::vector<std::unique_ptr<MMComponentX>> parts_;
};

void Chain::AddEqualizer() {
  const std::vector<double> edges{0, 60, 170, 310, 600, 1000, 3000, 6000, 12000, 14000, 16000};
  auto equalizer = tools_.NewEqualizer();
  for (std::size_t i = 1; i < edges.size(); ++i) {
    equalizer->Add(edges[i - 1], edges[i], i % 2 == 0 ? 4 : -3);
  }
  AddEffect(std::move(equalizer));
}

void Chain::AddReverb() {
  auto reverb = tools_.NewReverb();
  reverb->LoadFromIni(L"C:\\Reverb.ini", L"Sala de conciertos");
  reverb->SetFeedback(80);
  reverb->SetOutputGain(50);
  AddEffect(std::move(reverb));
}

void Chain::AddFlanger() {
  auto flanger = tools_.NewFlanger();
  flanger->SetDryMix(50);
  flanger->SetWetMix(50);
  flanger->SetFeedBack(60);
  flanger->SetDepth(70);
  flanger->SetRate(0.5F);
  AddEffect(std::move(flanger));
}

void Chain::AddVolume() {
  auto volume = tools_.NewVolume();
  volume->SetVolume(11469);
  AddEffect(std::move(volume));
}

// Adds a gate that processes each buffer as the product's gate does.
void Chain::AddGate() {
  auto gate = tools_.NewDSPInterface();
  gate->OnBufferFilled = [waiting = 0](MMData& data) mutable {
    float left = 0, right = 0;
    const std::size_t frames = ParseWaveHeader(data) / 4;
    for (std::size_t n = 0; n < frames; ++n) {
      left = std::max(left, std::abs(data.Samples[2 * n]));
      right = std::max(right, std::abs(data.Samples[2 * n + 1]));
    }
    if (left + right >= 2 * 1000) {
      waiting = 0;
    } else if (waiting == 0) {
      waiting = 1;
    } else {
      waiting += static_cast<int>(frames);
      if (50 * 44.1 < waiting) std::fill_n(data.Samples.begin(), frames * 2, 0.0F);
    }
  };
  Add(std::move(gate));
}

bool Chain::AddNamed(const std::string& name) {
  if (name == "eq") return AddEqualizer(), true;
  if (name == "reverb") return AddReverb(), true;
  if (name == "flanger") return AddFlanger(), true;
  if (name == "volume") return AddVolume(), true;
  if (name == "gate") return AddGate(), true;
  return name == "none";
}

int Render(std::string names, const std::filesystem::path& home) {
  HeadlessPlatform platform(home);
  auto source = platform.mmtools.NewWaveFileX();
  auto target = platform.mmtools.NewWaveFileX();
  source->Wave.SetFileName(L"C:\\in.wav");
  source->Wave.Open();
  source->Wave.PlayEnd = source->Wave.DataSize();
  source->Rewind();
  target->Wave.SetFileName(L"C:\\out.wav");
  target->Receive();
  Chain chain(platform.mmtools);
  chain.Add(std::move(source));
  for (names += ','; !names.empty(); names.erase(0, names.find(',') + 1)) {
    if (!chain.AddNamed(names.substr(0, names.find(',')))) return 2;
  }
  for (MMData data;;) {
    chain.End().Pull(data);
    if (data.Bytes == 0) break;
    target->Push(data);
  }
  target->Wave.Close();
  return 0;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  if (argc == 3) {
    const std::string names = argv[1];
    return vantora::RunWork([&](const auto& home) { return vantora::Render(names, home); },
                            argv[2]);
  }
  std::fputs("bench-effects eq,reverb,flanger,volume,gate HOME\n", stderr);
  return 2;
}
