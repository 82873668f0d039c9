#include "tests/emulators/drive/drive.h"

#include "tests/emulators/drive/wire.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <sys/stat.h>
#include <thread>

namespace vantora::emulated {

namespace fs = std::filesystem;

namespace {

constexpr std::array kSpeeds{8467, 5645, 4234, 2822, 1411, 706};  // kB/s: 48x to 4x
constexpr int kMaxRead = 8467;
constexpr int kBuffer = 2048 * 1024;
constexpr unsigned char kTestWrite = 0x10;

}  // namespace

// Grouped by use. A command that is not listed is refused.
const Drive::Command Drive::kCommands[] = {
    {&Drive::Accept, "TEST UNIT READY", 0x00, Needs::Disc},
    {&Drive::Inquiry, "INQUIRY", 0x12, Needs::Nothing},
    {&Drive::Accept, "START STOP UNIT", 0x1b, Needs::Calm},
    {&Drive::Accept, "PREVENT ALLOW", 0x1e, Needs::Calm},
    {&Drive::ModeSense, "MODE SENSE", 0x5a, Needs::Calm},
    {&Drive::ModeSelect, "MODE SELECT", 0x55, Needs::Calm},
    {&Drive::GetConfiguration, "GET CONFIGURATION", 0x46, Needs::Nothing},
    {&Drive::GetEvent, "GET EVENT STATUS", 0x4a, Needs::Nothing},
    {&Drive::GetPerformance, "GET PERFORMANCE", 0xac, Needs::Calm},
    {&Drive::SetSpeed, "SET CD SPEED", 0xbb, Needs::Calm},
    {&Drive::ReadDiscInformation, "READ DISC INFORMATION", 0x51, Needs::Disc},
    {&Drive::ReadTrackInformation, "READ TRACK INFORMATION", 0x52, Needs::Disc},
    {&Drive::ReadToc, "READ TOC", 0x43, Needs::Disc},
    {&Drive::ReadCapacity, "READ CAPACITY", 0x25, Needs::Disc},
    {&Drive::ReadBufferCapacity, "READ BUFFER CAPACITY", 0x5c, Needs::Calm},
    {&Drive::ReadCd, "READ CD", 0xbe, Needs::Disc},
    {&Drive::SendCueSheet, "SEND CUE SHEET", 0x5d, Needs::Disc},
    {&Drive::Write10, "WRITE(10)", 0x2a, Needs::Disc},
    {&Drive::SynchronizeCache, "SYNCHRONIZE CACHE", 0x35, Needs::Disc},
    {&Drive::Close, "CLOSE TRACK SESSION", 0x5b, Needs::Disc},
};

Drive::Drive(fs::path folder) : folder_(std::move(folder)), writeSpeed_(kSpeeds[0]) {
  writeParameters_[0] = 5;
  writeParameters_[1] = 50;
  script_ = Script::Load(folder_);
  LookAtDisc();
  attention_ = false;
  event_ = 0;
}

Answer Drive::Do(const Bytes& command, const Bytes& sent) {
  script_ = Script::Load(folder_);
  if (script_.Disconnected || command.empty()) return {{}, {}, true};
  LookAtDisc();
  const auto* known =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const Command& candidate) { return candidate.Code == command[0]; });
  if (known == std::end(kCommands)) known = nullptr;
  Answer answer;
  try {
    if (known == nullptr) throw Sense{5, 0x20, 0};
    answer.Data = Obey(*known, command, sent);
  } catch (const CablePulled&) {
    return {{}, {}, true};
  } catch (const Sense& trouble) {
    answer.Trouble = trouble;
  }
  if (script_.Log) Log(known, command, answer.Trouble);
  return answer;
}

Bytes Drive::Obey(const Command& command, const Bytes& bytes, const Bytes& sent) {
  if (command.What != Needs::Nothing && attention_) {
    attention_ = false;
    throw Sense{6, 0x28, 0};
  }
  if (command.What == Needs::Disc) {
    if (!disc_) throw Sense{2, 0x3a, 1};
    if (gettingReady_ > 0) {
      --gettingReady_;
      throw Sense{2, 4, 1};
    }
  }
  return (this->*command.Do)(bytes, sent);
}

void Drive::Log(const Command* known, const Bytes& command, Sense trouble) const {
  std::string line = known == nullptr ? "?" : known->Name;
  char text[40];
  line += ':';
  for (const unsigned byte : command) {
    std::snprintf(text, sizeof text, " %02x", byte);
    line += text;
  }
  std::snprintf(text, sizeof text, " -> %x/%02x/%02x", static_cast<unsigned>(trouble.Key),
                static_cast<unsigned>(trouble.Asc), static_cast<unsigned>(trouble.Ascq));
  std::ofstream(folder_ / "log", std::ios::app)
      << line << (trouble.Key == 0 ? " -> ok" : text) << '\n';
}

std::string Drive::DiscOnFile() const {
  if (script_.Disc == "none") return {};
  struct stat info {};
  if (::stat((folder_ / script_.Disc / "toc").c_str(), &info) != 0) return {};
  return script_.Disc + ' ' + std::to_string(info.st_ino) + ' ' +
         std::to_string(info.st_mtim.tv_sec) + ' ' + std::to_string(info.st_mtim.tv_nsec);
}

void Drive::LookAtDisc() {
  if (script_.GettingReady != gettingReadySaid_) {
    gettingReady_ = gettingReadySaid_ = script_.GettingReady;
  }
  if (script_.Disc != "none" && !fs::exists(folder_ / script_.Disc)) {
    MakeDisc(folder_ / script_.Disc);
  }
  const std::string now = DiscOnFile();
  if (now == seen_) return;
  const bool was = disc_.has_value();
  seen_ = now;
  writing_ = false;
  dry_.reset();
  disc_ = now.empty() ? std::nullopt : Disc::Load(folder_ / script_.Disc);
  attention_ = disc_.has_value();
  if (disc_ || was) event_ = disc_ ? 2 : 3;
}

void Drive::MakeDisc(const fs::path& folder) const {
  Disc disc{folder};
  if (script_.MadeAs == "sold") {
    constexpr int kTrack = 300;
    Bytes sound(std::size_t{kTrack} * 2 * kSectorBytes);
    for (std::size_t i = 0; i < sound.size(); i += 2) {  // two different tones
      const auto sample = static_cast<double>(i >> 2);
      const double step = i < sound.size() / 2 ? 0.03 : 0.05;
      const int value = static_cast<int>(8000 * std::sin(sample * step));
      sound[i] = static_cast<unsigned char>(value);
      sound[i + 1] = static_cast<unsigned char>(value >> 8);
    }
    fs::create_directories(folder);
    disc.Write(0, sound.data(), kTrack * 2);
    disc.Tracks = {{0, true}, {kTrack, true}};
    disc.LeadOut = kTrack * 2;
    disc.State = DiscState::Closed;
  }
  disc.Save();
}

void Drive::Take(int sectors) const {
  if (script_.Pace <= 0) return;
  std::this_thread::sleep_for(std::chrono::microseconds(1'000'000LL * sectors / script_.Pace));
}

// For commands of which nothing is to be seen.
Bytes Drive::Accept(const Bytes&, const Bytes&) {
  return {};
}

Bytes Drive::Inquiry(const Bytes&, const Bytes&) {
  constexpr char kNames[] = "EMULATEDCD-RW 48X16X48  1.04";
  Bytes answer(36);
  answer[0] = 5;
  answer[1] = 0x80;
  answer[3] = 2;
  answer[4] = 31;
  std::copy_n(kNames, 28, answer.begin() + 8);
  return answer;
}

Bytes Drive::Capabilities() const {
  constexpr int kCount = static_cast<int>(kSpeeds.size());
  Bytes page(32 + 4 * kSpeeds.size());
  page[0] = 0x2a;
  Put(page, 1, 1, 30 + 4 * kCount);
  page[2] = 0x03;                            // reads CD-R and CD-RW
  page[3] = script_.NoWriter ? 0x00 : 0x07;  // writes both, and simulates
  page[4] = 0x81;                            // underrun protection, plays audio
  page[5] = 0x03;                            // reads exact audio
  page[6] = 0x29;                            // has a tray, ejects, locks
  Put(page, 8, 2, kMaxRead);
  Put(page, 12, 2, kBuffer / 1024);
  Put(page, 14, 2, kMaxRead);
  if (script_.NoWriter) return page;
  Put(page, 18, 2, kSpeeds[0]);
  Put(page, 20, 2, writeSpeed_);
  Put(page, 28, 2, writeSpeed_);
  Put(page, 30, 2, kCount);
  for (std::size_t i = 0; i < kSpeeds.size(); ++i) Put(page, 34 + 4 * i, 2, kSpeeds[i]);
  return page;
}

Bytes Drive::ModeSense(const Bytes& command, const Bytes&) {
  const std::map<int, Bytes> pages{{0x01, {0x01, 10, 0, 5, 0, 0, 0, 0, 0, 0, 0, 0}},
                                   {0x05, {writeParameters_.begin(), writeParameters_.end()}},
                                   {0x2a, Capabilities()}};
  const auto page = pages.find(command[2] & 0x3f);
  if (page == pages.end()) throw Sense{5, 0x24, 0};
  Bytes answer(8);
  answer.insert(answer.end(), page->second.begin(), page->second.end());
  Put(answer, 0, 2, static_cast<int>(answer.size() - 2));
  return answer;
}

Bytes Drive::ModeSelect(const Bytes&, const Bytes& sent) {
  if (sent.size() < 10) throw Sense{5, 0x1a, 0};
  if ((sent[8] & 0x3f) != 5) return {};
  const int way = sent.size() > 10 ? sent[10] & 0xf : -1;
  const bool known = way == 1 || (way == 2 && !script_.NoSao);
  if (!known || script_.NoWriter || sent.size() > 8 + writeParameters_.size()) {
    throw Sense{5, 0x26, 0};
  }
  std::copy(sent.begin() + 8, sent.end(), writeParameters_.begin());
  cue_.clear();
  if ((writeParameters_[2] & kTestWrite) == 0 || !disc_) {
    dry_.reset();
  } else if (!dry_ || dry_->State == DiscState::Closed || dry_->State == DiscState::Spoilt) {
    dry_ = disc_;
    dry_->Dry = true;
  }
  return {};
}

Bytes Drive::GetConfiguration(const Bytes&, const Bytes&) {
  Bytes answer(8);
  const unsigned char current = disc_ ? 1 : 0;
  Put(answer, 6, 2, 9 * current);  // the profile of CD-R
  const auto add = [&](const Bytes& feature) {
    answer.insert(answer.end(), feature.begin(), feature.end());
  };
  add({0, 0, 3, 12, 0, 8, 0, 0, 0, 9, current, 0, 0, 10, 0, 0});
  add({0, 1, 3, 8, 0, 0, 0, 2, 0, 0, 0, 0});  // core: ATAPI
  add({0, 3, 3, 4, 0x29, 0, 0, 0});           // removable medium: tray
  add({0, 0x1e, 1, 4, 1, 0, 0, 0});           // CD read: CD-TEXT
  if (!script_.NoWriter) {
    add({0, 0x2d, 1, 4, 6, 0, 0, 0});                         // Track At Once, simulation, CD-RW
    if (!script_.NoSao) add({0, 0x2e, 1, 4, 0x26, 0, 0, 0});  // Session At Once, likewise
    add({1, 7, 5, 4, 0x0e, 0, 0, 0});                         // streaming: reports its speeds
  }
  Put(answer, 0, 4, static_cast<int>(answer.size()) - 4);
  return answer;
}

Bytes Drive::GetEvent(const Bytes& command, const Bytes&) {
  if ((command[4] & 0x10) == 0) return {0, 2, 0x80, 0x10};
  const auto code = static_cast<unsigned char>(event_);
  event_ = 0;
  const unsigned char state = disc_ ? 2 : 0;
  return {0, 6, 4, 0x10, code, state, 0, 0};
}

Bytes Drive::GetPerformance(const Bytes& command, const Bytes&) {
  const int wanted = Number(command, 8, 2);
  const bool writing = command[10] == 3;
  if (!writing && command[10] != 0) throw Sense{5, 0x24, 0};
  const std::size_t count = writing ? kSpeeds.size() : 1;
  Bytes answer(8);
  Put(answer, 0, 4, static_cast<int>(4 + 16 * count));
  const int end = disc_ ? disc_->Capacity : 359'847;
  for (std::size_t i = 0; i < count && static_cast<int>(i) < wanted; ++i) {
    Bytes one(16);
    Put(one, writing ? 4 : 8, 4, end);
    Put(one, writing ? 8 : 4, 4, kMaxRead);
    Put(one, 12, 4, writing ? kSpeeds[i] : kMaxRead);
    answer.insert(answer.end(), one.begin(), one.end());
  }
  return answer;
}

// The fastest speed that is not above the one asked for, or else the slowest.
Bytes Drive::SetSpeed(const Bytes& command, const Bytes&) {
  const int wish = Number(command, 4, 2);
  const auto* found =
      std::find_if(kSpeeds.begin(), kSpeeds.end(), [&](int speed) { return speed <= wish; });
  writeSpeed_ = found == kSpeeds.end() ? kSpeeds.back() : *found;
  return {};
}

Bytes Drive::ReadBufferCapacity(const Bytes&, const Bytes&) {
  Bytes answer(12);
  answer[1] = 10;
  Put(answer, 4, 4, kBuffer);
  Put(answer, 8, 4, kBuffer);
  return answer;
}

}  // namespace vantora::emulated
