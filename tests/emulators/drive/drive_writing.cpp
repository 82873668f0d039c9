// Commands that write: Track At Once, and Session At Once by a cue sheet.
#include "tests/emulators/drive/drive.h"
#include "tests/emulators/drive/wire.h"

#include <algorithm>
#include <fstream>

namespace vantora::emulated {

namespace {

constexpr int kShortestTrack = 300;  // sectors
constexpr int kRunOut = 2;           // sectors after a track written on its own
constexpr std::size_t kTextBlock = 96, kPackInLeadIn = 24;
constexpr std::size_t kMostTracks = 99;

// The lead-in repeats the text packs throughout. Each of its bytes holds six bits.
Bytes TextOf(const Bytes& leadIn) {
  Bytes text;
  for (std::size_t at = 0; at + kPackInLeadIn <= leadIn.size(); at += kPackInLeadIn) {
    Bytes pack;
    for (std::size_t i = at; i < at + kPackInLeadIn; i += 4) {
      const int bits = leadIn[i] << 18 | leadIn[i + 1] << 12 | leadIn[i + 2] << 6 | leadIn[i + 3];
      for (const int shift : {16, 8, 0}) pack.push_back(static_cast<unsigned char>(bits >> shift));
    }
    if (!text.empty() && std::equal(pack.begin(), pack.end(), text.begin())) break;
    text.insert(text.end(), pack.begin(), pack.end());
  }
  return text;
}

}  // namespace

int Drive::NextWritable() {
  if (writing_) return std::max(next_, 0);
  const Disc& disc = Target();
  if (disc.State == DiscState::Blank) return 0;
  return disc.State == DiscState::Open ? disc.LeadOut + kPregap : kNowhere;
}

// Saves the disc, and remembers it so that it is not reported as newly inserted.
void Drive::Keep() {
  Target().Save();
  if (!dry_) seen_ = DiscOnFile();
}

Bytes Drive::SendCueSheet(const Bytes&, const Bytes& sent) {
  if (script_.NoSao || script_.NoWriter) throw Sense{5, 0x20, 0};
  if (!AtOnce()) throw Sense{5, 0x2c, 0};
  if (Target().State != DiscState::Blank) throw Sense{5, 0x30, 5};
  cue_.clear();
  leadIn_.clear();
  int last = kLeadIn - 1;
  bool text = false, ended = false;
  for (std::ptrdiff_t at = 0; at + 8 <= std::ssize(sent); at += 8) {
    const Bytes line(sent.begin() + at, sent.begin() + at + 8);
    const int kind = line[0] & 0xf, number = line[1], index = line[2];
    if (kind == 2 || kind == 3) continue;  // catalog number and ISRC, which are not kept
    const int sector = Time(line, 5);
    const bool first = last < kLeadIn;
    const bool data = (line[0] & 0x40) != 0;
    // The lead-in may have the time of the pregap that follows it.
    const bool order = first || sector > last || (sector == last && sector == -kPregap);
    if (ended || data || first != (number == 0) || !order) throw Sense{5, 0x26, 0};
    last = sector;
    if (number == 0) text = (line[3] & 0x40) != 0;
    if (text && script_.NoCdText) throw Sense{5, 0x26, 0};
    if (number == 0xaa) ended = true;
    if (number == 0 || number == 0xaa || index != 1) continue;
    if (number != static_cast<int>(cue_.size()) + 1) throw Sense{5, 0x26, 0};
    cue_.push_back({sector, true});
  }
  if (!ended || cue_.empty() || cue_[0].Start != 0) throw Sense{5, 0x26, 0};
  if (last > Target().Capacity) throw Sense{5, 0x26, 0};
  cueEnd_ = last;
  next_ = text ? kLeadIn : -kPregap;
  return {};
}

Bytes Drive::Write10(const Bytes& command, const Bytes& sent) {
  const int sector = Number(command, 2, 4), count = Number(command, 7, 2);
  if (!writing_) {
    if (NextWritable() == kNowhere || script_.NoWriter) throw Sense{5, 0x30, 5};
    if (AtOnce() && cue_.empty()) throw Sense{5, 0x2c, 0};
    if (!AtOnce() && Target().Tracks.size() == kMostTracks) throw Sense{5, 0x21, 0};
    if (!AtOnce()) next_ = trackStart_ = NextWritable();
    if (!AtOnce() && (writeParameters_[4] & 0xf) != 0) throw Sense{5, 0x64, 0};
  }
  const bool leadIn = sector < -kPregap;
  if (sector != next_) throw Sense{5, 0x21, 2};
  if (sent.size() != static_cast<std::size_t>(count) * (leadIn ? kTextBlock : kSectorBytes)) {
    throw Sense{5, 0x24, 0};
  }
  if (sector + count > (AtOnce() ? cueEnd_ : Target().Capacity)) throw Sense{5, 0x63, 0};
  if (!writing_) {
    writing_ = true;
    Target().State = DiscState::Spoilt;  // until the write is complete
    Keep();
  }
  if (script_.DisconnectAt >= sector && script_.DisconnectAt < sector + count) {
    std::ofstream(folder_ / "script", std::ios::app) << "disconnected\n";
    throw CablePulled{};
  }
  if (script_.WriteError >= sector && script_.WriteError < sector + count) {
    writing_ = false;
    throw Sense{3, 0x0c, 0};
  }
  Take(count);
  if (leadIn) {
    leadIn_.insert(leadIn_.end(), sent.begin(), sent.end());
  } else {
    const int skipped = std::clamp(-sector, 0, count);  // of the pregap, which is silent
    Target().Write(sector + skipped, sent.data() + std::ptrdiff_t{skipped} * kSectorBytes,
                   count - skipped);
  }
  next_ += count;
  return {};
}

void Drive::EndTrack() {
  Disc& disc = Target();
  disc.Tracks.push_back({trackStart_, true});
  disc.LeadOut = std::max(next_, trackStart_ + kShortestTrack) + kRunOut;
  disc.State = DiscState::Open;
}

// A session that ends before all sectors of its cue sheet were written stays spoilt.
void Drive::EndSession() {
  if (next_ < cueEnd_) return;
  Disc& disc = Target();
  disc.Tracks = cue_;
  disc.LeadOut = cueEnd_;
  disc.Text = TextOf(leadIn_);
  disc.State = DiscState::Closed;
}

Bytes Drive::SynchronizeCache(const Bytes&, const Bytes&) {
  if (!writing_) return {};
  if (AtOnce()) {
    EndSession();
  } else {
    EndTrack();
  }
  writing_ = false;
  cue_.clear();
  Keep();
  return {};
}

Bytes Drive::Close(const Bytes& command, const Bytes& none) {
  SynchronizeCache(command, none);
  const bool session = (command[2] & 6) != 0;
  if (!session) return {};
  Disc& disc = Target();
  if (disc.State == DiscState::Spoilt) throw Sense{3, 0x72, 0};
  if (disc.State != DiscState::Open) throw Sense{5, 0x2c, 0};
  disc.State = DiscState::Closed;
  Keep();
  dry_.reset();
  return {};
}

}  // namespace vantora::emulated
