#include "backends/sound/mixer/mixer_lines.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

using Line = MixerCard::Line;
using Role = MixerCard::Role;

constexpr int kOwnLine = 1000;  // the program's own volume
constexpr std::size_t kWavePlace = 1;

class MixerLine final : public ucEQPro {
 public:
  MixerLine(MixerCard& card, OutputVolume& own) : card_(card), own_(own) {}

  void Init() override {
    outs_.clear();
    ins_.clear();
    master_ = {};
    card_.Search();
    if (!card_.Present()) return;
    Line wave{kOwnLine, L"Wave", Role::Wave, true};
    for (const Line& line : card_.Lines()) {
      switch (line.Is) {
        case Role::Output:
          outs_.push_back(line);
          break;
        case Role::Input:
          ins_.push_back(line);
          break;
        case Role::Wave:
          wave = {line.ID, L"Wave", Role::Wave, line.HasSwitch};
          break;
        case Role::Master:
          master_ = line;
          break;
      }
    }
    if (outs_.empty()) outs_.push_back({});
    outs_.insert(outs_.begin() + kWavePlace, wave);
  }
  int MixerCount() override { return card_.Present() ? 1 : 0; }
  Text MixerName(int index) override { return index == 0 ? card_.Name() : Text(); }
  void MixerIndex(int /*index*/) override {}  // there is only one mixer, that of the card in use
  void PollInterval(int /*ms*/) override {}   // every reading is current

  int LineOutCount() override { return static_cast<int>(outs_.size()); }
  int LineOutID(int index) override { return IdAt(outs_, index); }
  int LineInCount() override { return static_cast<int>(ins_.size()); }
  int LineInID(int index) override { return IdAt(ins_, index); }
  bool HasMute(int lineID) override {
    const Line* line = Find(lineID);
    return line != nullptr && line->HasSwitch;
  }

  int LineID() const override { return lineID_; }
  void SetLineID(int lineID) override { lineID_ = lineID; }
  Text LineName() override {
    const Line* line = Find(lineID_);
    return line == nullptr ? Text() : line->Name;
  }
  int Volume() override {
    const Line* line = Find(lineID_);
    if (line == nullptr) return 0;
    return line->ID == kOwnLine ? own_.Volume() : card_.Volume(line->ID);
  }
  void SetVolume(int volume) override {
    const Line* line = Find(lineID_);
    if (line == nullptr) return;
    const int set = std::clamp(volume, 0, kFullVolume);
    if (line->ID == kOwnLine) {
      own_.SetVolume(set);
    } else {
      card_.SetVolume(line->ID, set);
    }
  }
  bool Mute() override { return HasMute(lineID_) && !On(); }
  void SetMute(bool mute) override { SetOn(!mute); }
  bool Select() override { return HasMute(lineID_) && On(); }
  void SetSelect(bool select) override { SetOn(select); }

 private:
  static int IdAt(const std::vector<Line>& lines, int index) {
    const bool there = index >= 0 && index < static_cast<int>(lines.size());
    return there ? lines[static_cast<std::size_t>(index)].ID : kNoLine;
  }
  const Line* Find(int lineID) const {
    if (lineID == kNoLine) return nullptr;
    if (lineID == kMasterLine) return master_.ID == kNoLine ? nullptr : &master_;
    for (const auto* lines : {&outs_, &ins_}) {
      const auto found = std::find_if(lines->begin(), lines->end(),
                                      [&](const Line& line) { return line.ID == lineID; });
      if (found != lines->end()) return &*found;
    }
    return nullptr;
  }
  bool On() {
    const Line* line = Find(lineID_);
    return line->ID == kOwnLine ? own_.On() : card_.On(line->ID);
  }
  void SetOn(bool on) {
    if (!HasMute(lineID_)) return;
    const Line* line = Find(lineID_);
    if (line->ID == kOwnLine) {
      own_.SetOn(on);
    } else {
      card_.SetOn(line->ID, on);
    }
  }

  MixerCard& card_;
  OutputVolume& own_;
  std::vector<Line> outs_, ins_;
  Line master_;
  int lineID_ = kNoLine;
};

}  // namespace

std::unique_ptr<ucEQPro> MixerLines::NewMixer() {
  return std::make_unique<MixerLine>(card_, own_);
}

}  // namespace vantora
