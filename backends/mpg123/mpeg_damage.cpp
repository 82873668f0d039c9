#include "backends/mpg123/mpeg_damage.h"

#include <algorithm>

namespace vantora {

void MpegDamage::BeginRun() {
  free_ = lastStart_ = INT64_MIN;
  spoilt_ = rooms_;
  held_ = 0;
}

void MpegDamage::Look(std::int64_t place, const FrameHeader& header, const unsigned char* frame) {
  if (header.sideInfo == 0) return;
  const std::size_t head = kHeaderOfFrame + (header.checksum ? 2 : 0) + header.sideInfo;
  const std::int64_t room = header.bytes - static_cast<std::int64_t>(head);
  const SideInfo info = ParseSideInfo(header, frame);
  const std::int64_t start = rooms_ - info.back;
  const Frame here{place, header.bytes};
  ++frames_;
  unsigned broken = 0;
  if (!ChecksumFits(header, frame)) broken |= kChecksum;
  if (!info.possible) broken |= kNumbers;
  if (info.used > info.back + room) broken |= kRoom;
  // The decoder keeps earlier frames only back to the start of the last frame's sound.
  if (start < lastStart_) broken |= kRoom;
  lastStart_ = start;
  if (broken == 0 && start < free_) {
    // The sounds of the two frames overlap. Either frame may be the damaged one.
    Breaks(last_, kRoom);
    broken = kRoom;
    free_ = std::min(free_, start + info.used);
  } else if (broken == 0) {
    free_ = start + info.used;
  }
  if (broken != 0) Breaks(here, broken);
  if (header.checksum && NeedsSpoilt(header, info.back, room)) Entry(here).spoilt = true;
  last_ = here;
  rooms_ += room;
}

MpegDamage::Frame& MpegDamage::Entry(const Frame& frame) {
  if (suspects_.empty() || suspects_.back().place != frame.place) suspects_.push_back(frame);
  return suspects_.back();
}

void MpegDamage::Breaks(const Frame& frame, unsigned rules) {
  Frame& entry = Entry(frame);
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    if (((rules & ~entry.broken) >> rule & 1U) != 0) ++counts_[rule];
  }
  entry.broken |= rules;
}

// True for a frame with a checksum whose sound begins in data that the decoder has lost. When a
// frame refers to missing data, the decoder makes it silent; if the frame has a checksum, it also
// loses all data before the frame and the first two bytes of its data. In each frame with a
// checksum it counts two bytes too few.
bool MpegDamage::NeedsSpoilt(const FrameHeader& header, std::int64_t back, std::int64_t room) {
  constexpr std::int64_t kLost = 2;
  const bool silent = back > held_;
  if (silent) spoilt_ = rooms_ + kLost;
  held_ = std::min<std::int64_t>(held_ + room - kLost, header.first ? 511 : 255);
  return !silent && rooms_ - back < spoilt_;
}

bool MpegDamage::Damaged(const Frame& frame) const {
  for (std::size_t rule = 0; rule < counts_.size(); ++rule) {
    if ((frame.broken >> rule & 1U) != 0 && counts_[rule] * 8 < frames_) return true;
  }
  return false;
}

void MpegDamage::Judge(MpegRun& run) const {
  const auto at = [this](std::int64_t place) {
    return std::lower_bound(suspects_.begin(), suspects_.end(), place,
                            [](const Frame& frame, std::int64_t to) { return frame.place < to; });
  };
  auto first = at(run.Start), last = at(run.Start + run.Bytes);
  for (; !run.Whole && last != first; --last) {
    const Frame& frame = *(last - 1);
    if (!Damaged(frame) || frame.place + frame.bytes < run.Start + run.Bytes) break;
    run.Bytes = frame.place - run.Start;
  }
  for (; !run.Beginning && first != last; ++first) {
    if (!Damaged(*first) || first->place != run.Start) break;
    run.Start += first->bytes;
    run.Bytes -= first->bytes;
  }
  // No data is missing in front of the beginning of a stream, so the decoder has lost none.
  for (; first != last; ++first) {
    if (Damaged(*first) || (first->spoilt && !run.Beginning)) {
      run.Damaged.push_back(first->place - run.Start);
    }
  }
}

}  // namespace vantora
