// Commands that describe the disc or read from it.
#include "tests/emulators/drive/drive.h"
#include "tests/emulators/drive/wire.h"

#include <algorithm>

namespace vantora::emulated {

namespace {

constexpr int kLeadOutTrack = 0xaa;

unsigned char Control(const DiscTrack& track) {
  return !track.Audio ? 0x14 : track.Preemphasis ? 0x11 : 0x10;
}

void Append(Bytes& answer, const Bytes& more) {
  answer.insert(answer.end(), more.begin(), more.end());
}

Bytes WithLength(Bytes answer) {
  Put(answer, 0, 2, static_cast<int>(answer.size()) - 2);
  return answer;
}

// Formats 0 and 2 of READ TOC: addresses by track, and entries as in the lead-in.
Bytes TocByTrack(const Disc& disc, int from, bool asTime) {
  Bytes answer{0, 0, 1, static_cast<unsigned char>(disc.Tracks.size())};
  const auto add = [&](int number, unsigned char control, int sector) {
    if (number < from) return;
    Bytes entry{0, control, static_cast<unsigned char>(number), 0, 0, 0, 0, 0};
    if (asTime) {
      PutTime(entry, 5, sector);
    } else {
      Put(entry, 4, 4, sector);
    }
    Append(answer, entry);
  };
  int number = 0;
  for (const DiscTrack& track : disc.Tracks) add(++number, Control(track), track.Start);
  add(kLeadOutTrack, Control(disc.Tracks.back()), disc.LeadOut);
  return WithLength(answer);
}

Bytes TocOfLeadIn(const Disc& disc) {
  Bytes answer{0, 0, 1, 1};
  const auto count = static_cast<unsigned char>(disc.Tracks.size());
  const unsigned char first = Control(disc.Tracks.front()), last = Control(disc.Tracks.back());
  Append(answer, {1, first, 0, 0xa0, 0, 0, 0, 0, 1, 0, 0});
  Append(answer, {1, last, 0, 0xa1, 0, 0, 0, 0, count, 0, 0});
  const auto add = [&](unsigned char control, int point, int sector) {
    Bytes entry{1, control, 0, static_cast<unsigned char>(point), 0, 0, 0, 0, 0, 0, 0};
    PutTime(entry, 8, sector);
    Append(answer, entry);
  };
  add(last, 0xa2, disc.LeadOut);
  int number = 0;
  for (const DiscTrack& track : disc.Tracks) add(Control(track), ++number, track.Start);
  return WithLength(answer);
}

}  // namespace

Bytes Drive::ReadDiscInformation(const Bytes&, const Bytes&) {
  Bytes answer(34);
  answer[1] = 32;
  const bool blank = disc_->State == DiscState::Blank, closed = disc_->State == DiscState::Closed;
  answer[2] = blank ? 0 : closed ? 0x0e : 0x05;
  const auto tracks = static_cast<int>(disc_->Tracks.size());
  answer[3] = answer[4] = answer[5] = 1;
  Put(answer, 6, 1, closed ? tracks : tracks + 1);  // includes the next track to be written
  answer[7] = 0x20;
  answer[8] = blank ? 0xff : 0;
  if (closed) {
    std::fill_n(answer.begin() + 16, 8, static_cast<unsigned char>(0xff));
  } else {
    PutTime(answer, 17, kLeadIn);
    PutTime(answer, 21, disc_->Capacity);
  }
  return answer;
}

Bytes Drive::ReadTrackInformation(const Bytes& command, const Bytes&) {
  const Disc& disc = Target();
  const auto count = static_cast<int>(disc.Tracks.size());
  const int wanted = Number(command, 2, 4);
  const bool ahead = wanted == 0xff;  // the next track to be written
  if (!ahead && (wanted < 1 || wanted > count)) throw Sense{5, 0x24, 0};
  Bytes answer(28);
  answer[1] = 26;
  Put(answer, 2, 1, ahead ? count + 1 : wanted);
  answer[3] = 1;
  if (!ahead) {
    const DiscTrack& track = disc.Tracks[static_cast<std::size_t>(wanted) - 1];
    const int end =
        wanted < count ? disc.Tracks[static_cast<std::size_t>(wanted)].Start : disc.LeadOut;
    answer[5] = track.Audio ? 0 : 4;
    Put(answer, 8, 4, track.Start);
    Put(answer, 24, 4, end - track.Start);
    return answer;
  }
  const int next = NextWritable();
  if (next == kNowhere) {
    answer[5] = disc.State == DiscState::Spoilt ? 0x20 : 0;
    return answer;
  }
  answer[6] = writing_ ? 0 : 0x40;
  answer[7] = 1;
  Put(answer, 8, 4, writing_ ? trackStart_ : next);
  Put(answer, 12, 4, next);
  Put(answer, 16, 4, std::max(0, disc.Capacity - next));
  Put(answer, 24, 4, std::max(0, disc.Capacity - next));
  return answer;
}

Bytes Drive::ReadToc(const Bytes& command, const Bytes&) {
  const int format = command[2] & 0xf;
  if (disc_->State != DiscState::Closed || disc_->Tracks.empty()) throw Sense{5, 0x24, 0};
  switch (format) {
    case 0: {
      const int from = command[6];
      const bool there = from <= static_cast<int>(disc_->Tracks.size()) || from == kLeadOutTrack;
      if (!there) throw Sense{5, 0x24, 0};
      return TocByTrack(*disc_, from, (command[1] & 2) != 0);
    }
    case 1: {
      Bytes answer{0, 10, 1, 1, 0, Control(disc_->Tracks[0]), 1, 0, 0, 0, 0, 0};
      if ((command[1] & 2) != 0) PutTime(answer, 9, disc_->Tracks[0].Start);
      return answer;
    }
    case 2:
      return TocOfLeadIn(*disc_);
    default:
      throw Sense{5, 0x24, 0};
  }
}

Bytes Drive::ReadCapacity(const Bytes&, const Bytes&) {
  Bytes answer(8);
  if (disc_->LeadOut > 0) Put(answer, 0, 4, disc_->LeadOut - 1);
  Put(answer, 4, 4, 2048);
  return answer;
}

Bytes Drive::ReadCd(const Bytes& command, const Bytes&) {
  const int sector = Number(command, 2, 4), count = Number(command, 6, 3);
  const bool audio = OnAudio(sector);
  const int expected = command[1] >> 2 & 7;
  if ((expected == 1 && !audio) || (expected > 1 && audio)) throw Sense{5, 0x64, 0};
  const bool whole = audio || (command[9] & 0xf8) == 0xf8;
  if (!whole || (command[9] & 0x10) == 0 || (command[9] & 6) != 0 || (command[10] & 7) != 0) {
    throw Sense{5, 0x24, 0};
  }
  if (script_.ReadError >= sector && script_.ReadError < sector + count) throw Sense{3, 0x11, 0};
  Bytes sectors(static_cast<std::size_t>(count) * kSectorBytes);
  if (!ReadSound(sector, count, sectors)) throw Sense{5, 0x21, 0};
  Take(count);
  return sectors;
}

bool Drive::ReadSound(int sector, int count, Bytes& sectors) const {
  if (!disc_->Read(sector, sectors.data(), count, script_.Late)) return false;
  const int wrong = script_.WrongSample - sector;
  if (wrong >= 0 && wrong < count) sectors[static_cast<std::size_t>(wrong) * kSectorBytes] ^= 1;
  return true;
}

bool Drive::OnAudio(int sector) const {
  bool audio = true;
  for (const DiscTrack& track : disc_->Tracks) {
    if (track.Start <= sector) audio = track.Audio;
  }
  return audio;
}

}  // namespace vantora::emulated
