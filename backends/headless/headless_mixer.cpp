#include "backends/headless/headless_mixer.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr int kFirstID = 2000;

}  // namespace

void HeadlessMixer::Put(Line line) {
  using Role = MixerCard::Role;
  if (std::exchange(own_, false)) {
    std::erase_if(Lines, [](const Line& old) { return old.Is != Role::Master; });
  }
  if (line.Is == Role::Output && line.Name == L"Wave") line.Is = Role::Wave;
  if (line.Is == Role::Output && line.Name == L"Master") {
    line.Is = Role::Master;
    std::erase_if(Lines, [](const Line& old) { return old.Is == Role::Master; });
  }
  Lines.push_back(std::move(line));
}

HeadlessMixer::Line* HeadlessMixer::Find(const Text& name, bool inputsOnly) {
  for (const bool inputs : {false, true}) {
    if (inputsOnly && !inputs) continue;
    for (Line& line : Lines) {
      if (line.Name == name && (line.Is == MixerCard::Role::Input) == inputs) return &line;
    }
  }
  return nullptr;
}

std::vector<MixerCard::Line> HeadlessMixerCard::Lines() {
  std::vector<Line> lines;
  for (const HeadlessMixer::Line& line : mixer_.Lines) {
    lines.push_back(
        {kFirstID + static_cast<int>(lines.size()), line.Name, line.Is, line.HasSwitch});
  }
  return lines;
}

HeadlessMixer::Line* HeadlessMixerCard::Find(int id) {
  const auto place = static_cast<std::size_t>(id - kFirstID);
  return Present() && id >= kFirstID && place < mixer_.Lines.size() ? &mixer_.Lines[place]
                                                                    : nullptr;
}

int HeadlessMixerCard::Volume(int id) {
  const HeadlessMixer::Line* line = Find(id);
  return line == nullptr ? 0 : line->Volume;
}

void HeadlessMixerCard::SetVolume(int id, int volume) {
  if (HeadlessMixer::Line* line = Find(id)) line->Volume = volume;
}

bool HeadlessMixerCard::On(int id) {
  const HeadlessMixer::Line* line = Find(id);
  return line != nullptr && line->On;
}

void HeadlessMixerCard::SetOn(int id, bool on) {
  if (HeadlessMixer::Line* line = Find(id)) line->On = on;
}

}  // namespace vantora
