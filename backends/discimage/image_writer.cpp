#include "backends/discimage/image_writer.h"

#include "backends/discimage/image_burn.h"
#include "backends/sound/disc/disc_plan.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <cwchar>

namespace vantora {

namespace {

constexpr int kTypeDiscAtOnce = 10;
constexpr int kFehlerFormat = 321;  // a file of a wrong format
constexpr std::size_t kMostTracks = 99;
constexpr int kRefused = 1;
constexpr long kMaxNumber = 1'000'000;  // higher numbers are not from this writer

}  // namespace

ImageWriter::ImageWriter(Dateien& dateien, EventLoop& loop, Background& background)
    : dateien_(dateien), loop_(loop), background_(background) {}

ImageWriter::~ImageWriter() {
  Abandon();
}

int ImageWriter::Init_Prog() {
  devices_ = Faults.NoDevice ? 0 : 1;
  current_ = 0;
  return Faults.InitProg;
}

int ImageWriter::DetermineDrive() {
  return Selected() ? kTypeDiscAtOnce : 0;
}

Text ImageWriter::GetDescription(int index) {
  return index == 0 && devices_ > 0 ? L"VANTORA\tVANTORA IMAGE\t1.0\t7" : L"";
}

bool ImageWriter::CanDAO() {
  return Selected() && Faults.CanDao;
}

void ImageWriter::Speed(int factor) {
  speed_ = 1;
  for (const int possible : {2, 4, 6, 8}) {
    if (factor >= possible) speed_ = possible;
  }
}

int ImageWriter::AddTrack(const Text& file, int /*reserved*/) {
  if (Faults.RefuseTrack > 0 && --Faults.RefuseTrack == 0) return kRefused;
  if (tracks_.size() == kMostTracks) return kFehlerIndex;
  try {
    SoundForDisc(dateien_, file);
  } catch (const Laufzeitfehler& fehler) {
    return fehler.Nummer == kFehlerEinAusgabe ? kFehlerFormat : fehler.Nummer;
  }
  tracks_.push_back(file);
  return 0;
}

void ImageWriter::CdText(int index, const Text& title, const Text& performer) {
  cdText_[index] = {title, performer};
}

bool ImageWriter::CheckIfBurnerOK() {
  bool ready = Selected() && !burn_;
  if (ready && Faults.NotReady > 0) {
    --Faults.NotReady;
    ready = false;
  }
  if (ready) {
    try {
      dateien_.MkDir(kFolder);
    } catch (const Laufzeitfehler&) {
      ready = false;  // the folder cannot be written to, which is reported as a missing disc
    }
  }
  Post([this, ready] {
    if (Events.MCD_StatusChange) Events.MCD_StatusChange(kMcdChecking);
    if (Events.MCD_StatusChange) Events.MCD_StatusChange(ready ? kMcdChecked : kMcdNoDisc);
  });
  return ready;
}

int ImageWriter::WriteTAO() {
  return Faults.WriteTao != 0 ? Faults.WriteTao : Write(false);
}

int ImageWriter::WriteDAO() {
  if (Faults.WriteDao != 0) return Faults.WriteDao;
  return CanDAO() ? Write(true) : -1;
}

int ImageWriter::Write(bool dao) {
  if (!Selected() || burn_ || tracks_.empty()) return kRefused;
  BurnOrder order;
  order.dao = dao;
  order.simulation = testMode_;
  order.fixate = fixate_;
  order.waves = tracks_;
  order.cdText = cdText_;
  order.faults = Faults;
  try {
    dateien_.MkDir(kFolder);
    ImageBurn::ClearUp(dateien_, kFolder);
    order.name = NextName();
  } catch (const Laufzeitfehler& fehler) {
    return fehler.Nummer;
  }
  const auto post = [this, watch = std::weak_ptr<int>(token_)](std::function<void()> work) {
    loop_.Post([watch, work = std::move(work)] {
      if (!watch.expired()) work();
    });
  };
  burn_ = std::make_shared<ImageBurn>(
      dateien_, std::move(order),
      [this, post](const ImageBurn::Event& event) { post([this, event] { event(Events); }); },
      [this, post](const ImageBurn::Event& failure) { post([this, failure] { Ended(failure); }); });
  job_ = background_.Start([burn = burn_] { return burn->Slice(); });
  return 0;
}

// One more than the highest number in the folder. A number is therefore not used again while a
// later disc exists.
Text ImageWriter::NextName() {
  int highest = 0;
  for (const Text& name : dateien_.List(kFolder, L"Disco *.bin;Disco *.cue")) {
    const std::size_t space = name.find(L' ');
    if (space != Text::npos) {
      const long number = std::wcstol(&name[space + 1], nullptr, 10);
      if (number < kMaxNumber) highest = std::max(highest, static_cast<int>(number));
    }
  }
  std::array<wchar_t, 32> name{};
  std::swprintf(name.data(), name.size(), L"\\Disco %03d", highest + 1);
  return Text(kFolder) + name.data();
}

void ImageWriter::Ended(const ImageBurn::Event& failure) {
  job_.reset();
  const auto burn = std::move(burn_);
  if (!failure && !burn->Simulation()) lastImage_ = burn->Sheet();
  if (failure) failure(Events);
  if (Events.MCD_BurningProcessComplete) Events.MCD_BurningProcessComplete(failure ? 0 : 1);
}

void ImageWriter::StopBurn() {
  if (!burn_) return;
  Abandon();
  Post([this] {
    if (Events.MCD_UserStop) Events.MCD_UserStop();
  });
}

void ImageWriter::StopVerify() {
  if (burn_) burn_->StopVerify();
}

void ImageWriter::ResetBurner() {
  Abandon();
  tracks_.clear();
  cdText_.clear();
}

void ImageWriter::Abandon() {
  if (!burn_) return;
  token_ = std::make_shared<int>(0);
  job_.reset();
  burn_->Discard();
  burn_.reset();
}

void ImageWriter::Post(std::function<void()> work) {
  loop_.Post([watch = std::weak_ptr<int>(token_), work = std::move(work)] {
    if (!watch.expired()) work();
  });
}

}  // namespace vantora
