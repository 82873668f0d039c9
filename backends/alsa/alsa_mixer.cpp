#include "backends/alsa/alsa_mixer.h"

#include "backends/alsa/alsa_devices.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <poll.h>
#include <utility>

namespace vantora {

namespace {

using Element = snd_mixer_elem_t;
using Channel = snd_mixer_selem_channel_id_t;

constexpr int kFirstID = 3000;
constexpr auto kPatience = std::chrono::milliseconds(500);
constexpr long kFewDecibels = 2400;  // hundredths; a scale this short is treated as linear
constexpr double kCubic = 6000;      // hundredths of a decibel per factor of ten in loudness

// The first name that a card has wins. Cards without "Master" or "PCM" may have another element
// that stands for all outputs, or for the sound of programs.
constexpr std::array kMasters = {"Master",    "Hardware Master", "Speaker",
                                 "Headphone", "Headset",         "Front"};
constexpr std::array kWaves = {"PCM", "Wave", "DAC", "Digital"};

struct Release {
  void operator()(snd_ctl_t* control) const { snd_ctl_close(control); }
};

// libasound has separate functions for the playback and the capture side of an element. A Side
// holds one of the two sets.
struct Side {
  int (*HasChannel)(Element*, Channel);
  int (*Range)(Element*, long*, long*);
  int (*Volume)(Element*, Channel, long*);
  int (*SetVolume)(Element*, Channel, long);
  int (*Decibels)(Element*, long*, long*);
  int (*VolumeToDecibels)(Element*, long, long*);
  int (*DecibelsToVolume)(Element*, long, int, long*);
  int (*Switch)(Element*, Channel, int*);
  int (*SetSwitch)(Element*, int);
  int (*HasSwitch)(Element*);
  int (*HasVolume)(Element*);
};

const Side& SideOf(bool input) {
  static const Side kOutput = {
      snd_mixer_selem_has_playback_channel,    snd_mixer_selem_get_playback_volume_range,
      snd_mixer_selem_get_playback_volume,     snd_mixer_selem_set_playback_volume,
      snd_mixer_selem_get_playback_dB_range,   snd_mixer_selem_ask_playback_vol_dB,
      snd_mixer_selem_ask_playback_dB_vol,     snd_mixer_selem_get_playback_switch,
      snd_mixer_selem_set_playback_switch_all, snd_mixer_selem_has_playback_switch,
      snd_mixer_selem_has_playback_volume};
  static const Side kInput = {
      snd_mixer_selem_has_capture_channel,    snd_mixer_selem_get_capture_volume_range,
      snd_mixer_selem_get_capture_volume,     snd_mixer_selem_set_capture_volume,
      snd_mixer_selem_get_capture_dB_range,   snd_mixer_selem_ask_capture_vol_dB,
      snd_mixer_selem_ask_capture_dB_vol,     snd_mixer_selem_get_capture_switch,
      snd_mixer_selem_set_capture_switch_all, snd_mixer_selem_has_capture_switch,
      snd_mixer_selem_has_capture_volume};
  return input ? kInput : kOutput;
}

std::vector<Channel> ChannelsOf(Element* element, const Side& side) {
  std::vector<Channel> channels;
  for (int i = 0; i <= SND_MIXER_SCHN_LAST; ++i) {
    const auto channel = static_cast<Channel>(i);
    if (side.HasChannel(element, channel) != 0) channels.push_back(channel);
  }
  return channels;
}

std::vector<long> Raw(Element* element, const Side& side) {
  std::vector<long> raw;
  for (const Channel channel : ChannelsOf(element, side)) {
    long volume = 0;
    if (side.Volume(element, channel, &volume) == 0) raw.push_back(volume);
  }
  return raw;
}

// Converts between the card's volume numbers and shares of its scale (0 to 1), proportional to
// perceived loudness.
class Scale {
 public:
  Scale(Element* element, const Side& side) : element_(element), side_(side) {
    side.Range(element, &low_, &high_);
    long bottom = 0, top = 0;
    const bool known = side.Decibels(element, &bottom, &top) == 0;
    decibels_ = known && top - bottom > kFewDecibels;
    top_ = static_cast<double>(top);
    if (decibels_ && bottom > SND_CTL_TLV_DB_GAIN_MUTE) floor_ = Heard(bottom);
  }

  double ShareOf(long raw) const {
    if (high_ <= low_ || raw <= low_) return 0;
    long decibels = 0;
    if (!decibels_ || side_.VolumeToDecibels(element_, raw, &decibels) != 0) {
      return static_cast<double>(raw - low_) / static_cast<double>(high_ - low_);
    }
    return std::clamp((Heard(decibels) - floor_) / (1 - floor_), 0.0, 1.0);
  }
  long RawOf(double share) const {
    if (share <= 0) return low_;
    if (share >= 1) return high_;
    long raw = 0;
    const double heard = floor_ + share * (1 - floor_);
    const long decibels = std::lround(top_ + kCubic * std::log10(heard));
    if (decibels_ && side_.DecibelsToVolume(element_, decibels, -1, &raw) == 0) {
      return std::clamp(raw, low_, high_);
    }
    return low_ + std::lround(share * static_cast<double>(high_ - low_));
  }

 private:
  double Heard(long decibels) const {
    return std::pow(10, (static_cast<double>(decibels) - top_) / kCubic);
  }

  Element* element_;
  const Side& side_;
  long low_ = 0, high_ = 0;
  double top_ = 0, floor_ = 0;
  bool decibels_ = false;
};

double Loudest(Element* element, const Side& side) {
  const Scale scale(element, side);
  double share = 0;
  for (const long raw : Raw(element, side)) share = std::max(share, scale.ShareOf(raw));
  return share;
}

// The number of the card of the control "default"; -1 when that control belongs to a sound server.
int CardOfDefault() {
  snd_ctl_t* opened = nullptr;
  if (snd_ctl_open(&opened, "default", SND_CTL_NONBLOCK) < 0) return -1;
  const std::unique_ptr<snd_ctl_t, Release> control(opened);
  snd_ctl_card_info_t* info = nullptr;
  snd_ctl_card_info_alloca(&info);
  if (snd_ctl_type(opened) != SND_CTL_TYPE_HW || snd_ctl_card_info(opened, info) < 0) return -1;
  return snd_ctl_card_info_get_card(info);
}

// The controls in the order in which they are tried.
std::vector<std::string> Controls() {
  std::vector<std::string> names;
  if (const int first = CardOfDefault(); first >= 0) names.push_back("hw:" + std::to_string(first));
  for (int card = -1; snd_card_next(&card) == 0 && card >= 0;) {
    names.push_back("hw:" + std::to_string(card));
  }
  names.emplace_back("default");
  return names;
}

bool HasOutput(snd_mixer_t* mixer) {
  for (Element* e = snd_mixer_first_elem(mixer); e != nullptr; e = snd_mixer_elem_next(e)) {
    if (snd_mixer_selem_has_playback_volume(e) != 0) return true;
  }
  return false;
}

template <std::size_t N>
std::size_t RankIn(const std::array<const char*, N>& names, const std::string& name) {
  return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

}  // namespace

AlsaMixer::Handle AlsaMixer::Opened(const std::string& control) {
  snd_mixer_t* opened = nullptr;
  if (snd_mixer_open(&opened, 0) < 0) return nullptr;
  Handle mixer(opened);
  const bool ready = snd_mixer_attach(opened, control.c_str()) >= 0 &&
                     snd_mixer_selem_register(opened, nullptr, nullptr) >= 0 &&
                     snd_mixer_load(opened) >= 0;
  return ready ? std::move(mixer) : nullptr;
}

void AlsaMixer::Look() {
  if (!mixer_) Search();
}

void AlsaMixer::Search() {
  const auto now = std::chrono::steady_clock::now();
  if (looked_ && now - *looked_ < kPatience) return;
  looked_ = now;
  TakeIn();
  Choose();
}

// Prefers a control that has output volumes: a card without any is skipped when another card, or a
// sound server, has some.
void AlsaMixer::Choose() {
  SilenceAlsaMessages();
  const std::vector<std::string> names =
      control_.empty() ? Controls() : std::vector<std::string>{control_};
  for (const std::string& name : names) {
    if (mixer_ && name == open_) break;
    Handle mixer = Opened(name);
    if (!mixer || (!HasOutput(mixer.get()) && name != names.back())) continue;
    mixer_ = std::move(mixer);
    if (name != std::exchange(open_, name)) {
      for (Known& line : known_) line.Set = -1;  // another card has other volume steps
    }
    break;
  }
  sound_ = mixer_ != nullptr || !AlsaPlaybackDevices().empty();
}

void AlsaMixer::Follow() {
  Look();
  TakeIn();
}

void AlsaMixer::TakeIn() {
  if (!mixer_) return;
  const int count = snd_mixer_poll_descriptors_count(mixer_.get());
  std::vector<pollfd> waits(static_cast<std::size_t>(std::max(count, 0)));
  snd_mixer_poll_descriptors(mixer_.get(), waits.data(), static_cast<unsigned>(waits.size()));
  if (poll(waits.data(), waits.size(), 0) <= 0) return;
  unsigned short events = 0;
  const int asked = snd_mixer_poll_descriptors_revents(
      mixer_.get(), waits.data(), static_cast<unsigned>(waits.size()), &events);
  const bool gone = asked < 0 || (events & (POLLERR | POLLNVAL | POLLHUP)) != 0;
  if (gone || snd_mixer_handle_events(mixer_.get()) < 0) mixer_.reset();
}

bool AlsaMixer::Present() {
  Look();
  return sound_;
}

Text AlsaMixer::Name() {
  Look();
  snd_hctl_t* hctl = nullptr;
  if (!mixer_ || snd_mixer_get_hctl(mixer_.get(), open_.c_str(), &hctl) < 0) return {};
  snd_ctl_card_info_t* info = nullptr;
  snd_ctl_card_info_alloca(&info);
  if (snd_ctl_card_info(snd_hctl_ctl(hctl), info) < 0) return {};
  return AlsaName(snd_ctl_card_info_get_name(info));
}

int AlsaMixer::IDOf(const std::string& name, unsigned index, bool input) {
  const auto found = std::find_if(known_.begin(), known_.end(), [&](const Known& line) {
    return line.Name == name && line.Index == index && line.Input == input;
  });
  const auto place = found - known_.begin();
  if (found == known_.end()) known_.push_back({name, index, input, -1, {}});
  return kFirstID + static_cast<int>(place);
}

void AlsaMixer::AddLines(snd_mixer_elem_t* element, std::vector<Line>& lines) {
  if (snd_mixer_selem_is_active(element) == 0) return;
  const std::string name = snd_mixer_selem_get_name(element);
  const unsigned index = snd_mixer_selem_get_index(element);
  Text shown = AlsaName(name.c_str());
  if (index > 0) shown += L" " + std::to_wstring(index + 1);
  for (const bool input : {false, true}) {
    const Side& side = SideOf(input);
    const bool volume = side.HasVolume(element) != 0, turned = side.HasSwitch(element) != 0;
    const bool shared = input && snd_mixer_selem_has_common_volume(element) != 0;
    if ((!volume && !(input && turned)) || shared) continue;
    lines.push_back({IDOf(name, index, input), shown, input ? Role::Input : Role::Output, turned});
  }
}

std::vector<MixerCard::Line> AlsaMixer::Lines() {
  Follow();
  std::vector<Line> lines;
  if (!mixer_) return lines;
  for (Element* e = snd_mixer_first_elem(mixer_.get()); e != nullptr; e = snd_mixer_elem_next(e)) {
    AddLines(e, lines);
  }
  Line *master = nullptr, *wave = nullptr;
  std::size_t masterRank = kMasters.size(), waveRank = kWaves.size();
  for (Line& line : lines) {
    const Known& known = known_[static_cast<std::size_t>(line.ID - kFirstID)];
    if (known.Input || known.Index != 0) continue;
    if (RankIn(kMasters, known.Name) < masterRank) {
      masterRank = RankIn(kMasters, known.Name);
      master = &line;
    }
    if (RankIn(kWaves, known.Name) < waveRank) {
      waveRank = RankIn(kWaves, known.Name);
      wave = &line;
    }
  }
  if (master != nullptr) master->Is = Role::Master;
  if (wave != nullptr) wave->Is = Role::Wave;
  return lines;
}

AlsaMixer::Known* AlsaMixer::Find(int id) {
  const auto place = static_cast<std::size_t>(id - kFirstID);
  return id >= kFirstID && place < known_.size() ? &known_[place] : nullptr;
}

snd_mixer_elem_t* AlsaMixer::ElementOf(const Known& line) const {
  if (!mixer_) return nullptr;
  snd_mixer_selem_id_t* id = nullptr;
  snd_mixer_selem_id_alloca(&id);
  snd_mixer_selem_id_set_name(id, line.Name.c_str());
  snd_mixer_selem_id_set_index(id, line.Index);
  return snd_mixer_find_selem(mixer_.get(), id);
}

int AlsaMixer::Volume(int id) {
  Follow();
  const Known* line = Find(id);
  snd_mixer_elem_t* element = line == nullptr ? nullptr : ElementOf(*line);
  if (element == nullptr) return 0;
  const Side& side = SideOf(line->Input);
  if (side.HasVolume(element) == 0) return kFullVolume;  // the line has a switch only
  if (line->Set >= 0 && Raw(element, side) == line->Made) return line->Set;
  return static_cast<int>(std::lround(Loudest(element, side) * kFullVolume));
}

// Channels with different volumes keep their balance.
void AlsaMixer::SetVolume(int id, int volume) {
  Follow();
  Known* line = Find(id);
  snd_mixer_elem_t* element = line == nullptr ? nullptr : ElementOf(*line);
  if (element == nullptr || SideOf(line->Input).HasVolume(element) == 0) return;
  const Side& side = SideOf(line->Input);
  const Scale scale(element, side);
  const double share = static_cast<double>(volume) / kFullVolume;
  const double loudest = Loudest(element, side);
  for (const Channel channel : ChannelsOf(element, side)) {
    long raw = 0;
    side.Volume(element, channel, &raw);
    const double balance = loudest > 0 ? scale.ShareOf(raw) / loudest : 1;
    side.SetVolume(element, channel, scale.RawOf(share * balance));
  }
  line->Set = volume;
  line->Made = Raw(element, side);
}

bool AlsaMixer::On(int id) {
  Follow();
  const Known* line = Find(id);
  snd_mixer_elem_t* element = line == nullptr ? nullptr : ElementOf(*line);
  if (element == nullptr) return false;
  const Side& side = SideOf(line->Input);
  if (side.HasSwitch(element) == 0) return true;
  for (const Channel channel : ChannelsOf(element, side)) {
    int on = 0;
    if (side.Switch(element, channel, &on) == 0 && on != 0) return true;
  }
  return false;
}

void AlsaMixer::SetOn(int id, bool on) {
  Follow();
  const Known* line = Find(id);
  snd_mixer_elem_t* element = line == nullptr ? nullptr : ElementOf(*line);
  if (element != nullptr) SideOf(line->Input).SetSwitch(element, on ? 1 : 0);
}

}  // namespace vantora
