#include "backends/mpg123/mpeg_runs.h"

#include "backends/mpg123/mpeg_damage.h"
#include "backends/mpg123/mpeg_frame.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace vantora {

namespace {

constexpr std::int64_t kGarbage = 1 << 20;  // bytes allowed in front of the first frame
constexpr int kProof = 4;                   // consecutive frames that prove a start

// Reads a file through a buffer. Reads may go back a little.
class Bytes {
 public:
  explicit Bytes(Datei& file)
      : file_(file),
        length_(file.Length()),
        buffer_(static_cast<std::size_t>(std::clamp<std::int64_t>(length_, 1, kHeld))) {}

  std::int64_t Length() const { return length_; }
  // `count` bytes from `place`; null when the file ends before.
  const unsigned char* At(std::int64_t place, std::size_t count) {
    const auto wanted = static_cast<std::int64_t>(count);
    if (place + wanted > length_) return nullptr;
    if (place < start_ || place + wanted > start_ + held_) {
      start_ = std::max<std::int64_t>(place - kBehind, 0);
      file_.Seek(start_);
      held_ = static_cast<std::int64_t>(file_.ReadSome(buffer_.data(), buffer_.size()));
      if (place + wanted > start_ + held_) return nullptr;  // the file has become shorter
    }
    return buffer_.data() + (place - start_);
  }
  bool Has(std::int64_t place, const char* mark) {
    const std::size_t count = std::strlen(mark);
    const unsigned char* bytes = At(place, count);
    return bytes != nullptr && std::memcmp(bytes, mark, count) == 0;
  }
  std::uint32_t Number(std::int64_t place) {
    const unsigned char* b = At(place, 4);
    if (b == nullptr) return 0;
    return unsigned{b[0]} << 24U | unsigned{b[1]} << 16U | unsigned{b[2]} << 8U | unsigned{b[3]};
  }

 private:
  static constexpr std::int64_t kHeld = 1 << 18;
  static constexpr std::int64_t kBehind = 32768;  // more than kProof frames need

  Datei& file_;
  std::int64_t length_;
  std::vector<unsigned char> buffer_;
  std::int64_t start_ = 0, held_ = 0;
};

class Search {
 public:
  explicit Search(Datei& file) : bytes_(file) {}

  std::vector<MpegRun> Runs() {
    start_ = BehindTags(0);
    std::int64_t at = start_;
    // Frames of a free-format stream have no known size, so the stream must start at this byte. The
    // decoder finds the sizes.
    const auto first = Header(at);
    if (first && first->bytes == 0) return {{at, bytes_.Length() - at, true, true, {}}};
    at = NextStart(at, at + kGarbage);
    while (at >= 0) at = NextStart(Follow(at), bytes_.Length());
    for (MpegRun& run : runs_) damage_.Judge(run);
    std::erase_if(runs_, [](const MpegRun& run) { return run.Bytes <= 0; });
    return std::move(runs_);
  }

 private:
  std::optional<FrameHeader> Header(std::int64_t place) {
    const unsigned char* bytes = bytes_.At(place, 4);
    return bytes == nullptr ? std::nullopt : ParseHeader(bytes);
  }

  bool IsTag(std::int64_t place) {
    return bytes_.Has(place, "TAG") || bytes_.Has(place, "ID3") || bytes_.Has(place, "APE") ||
           bytes_.Has(place, "LYR");
  }

  std::int64_t BehindTags(std::int64_t at) {
    while (const unsigned char* tag = bytes_.At(at, 10)) {
      if (std::memcmp(tag, "ID3", 3) != 0 || tag[3] == 0xFF || tag[4] == 0xFF) break;
      std::int64_t size = 0;
      for (std::size_t i = 6; i < 10; ++i) size = size * 128 + (tag[i] & 0x7F);
      const bool footer = (tag[5] & 0x10) != 0;
      if (at + 10 + size > bytes_.Length()) break;
      at += 10 + size + (footer ? 10 : 0);
    }
    return at;
  }

  // The next position before `limit` at which a run begins; -1 when there is none.
  std::int64_t NextStart(std::int64_t at, std::int64_t limit) {
    for (at = BehindTags(at); at <= limit; ++at) {
      const unsigned char* bytes = bytes_.At(at, 4);
      if (bytes == nullptr) break;
      if (bytes[0] == 0xFF && FramesFollow(at)) return at;
    }
    return -1;
  }

  bool FramesFollow(std::int64_t at) {
    // After a gap, a single frame followed by a tag is not enough.
    const int least = runs_.empty() ? 1 : 2;
    std::uint32_t kind = 0;
    for (int count = 0; count < kProof; ++count) {
      if (at + 4 > bytes_.Length()) return count > 1;
      if (count >= least && IsTag(at)) return true;
      const auto header = Header(at);
      if (!header || header->bytes == 0 || (count > 0 && header->kind != kind)) return false;
      kind = header->kind;
      at += header->bytes;
    }
    return true;
  }

  // The number of frames that an encoder wrote into the first frame of a stream, plus one for that
  // frame itself; 0 when there is none.
  std::int64_t Counted(std::int64_t start) {
    const unsigned char* head = bytes_.At(start, 4);
    if (head == nullptr) return 0;
    const bool first = (head[1] & 0x08) != 0, mono = (head[3] & 0xC0) == 0xC0;
    const std::int64_t place = start + 4 + (first ? (mono ? 17 : 32) : (mono ? 9 : 17));
    const bool counts = (bytes_.Has(place, "Info") || bytes_.Has(place, "Xing")) &&
                        (bytes_.Number(place + 4) & 1U) != 0;
    return counts ? std::int64_t{bytes_.Number(place + 8)} + 1 : 0;
  }

  // True when the sound of a run's first frame begins in frames that are missing.
  bool LacksWhatWasBefore(std::int64_t start) {
    const unsigned char* frame = bytes_.At(start, kHeadOfFrame);
    const auto header = Header(start);
    return frame != nullptr && header->sideInfo > 0 && ParseSideInfo(*header, frame).back > 0;
  }

  // Adds the run that begins at `start`. Returns the position at which the next run may begin.
  std::int64_t Follow(std::int64_t start) {
    const std::uint32_t kind = Header(start)->kind;
    std::int64_t at = start, last = start, frames = 0;
    damage_.BeginRun();
    for (auto header = Header(at); header && header->kind == kind && header->bytes > 0;
         header = Header(at)) {
      // A frame with a frame count has no side information, so it is not checked.
      const bool sounds = Counted(at) == 0;
      const unsigned char* frame = bytes_.At(at, kHeadOfFrame);
      if (sounds && frame != nullptr) damage_.Look(at, *header, frame);
      last = at;
      at += header->bytes;
      ++frames;
    }
    const std::int64_t counted = Counted(start);
    const bool toTheEnd = at + 4 > bytes_.Length();
    const bool followed = toTheEnd || IsTag(at) || frames == counted || FramesFollow(at);
    if (!followed) at = last;
    if (at > start) {
      const bool beginning = (start == start_ || counted > 0) && !LacksWhatWasBefore(start);
      // Encoders differ on whether the frame with the count is included, so one frame may be
      // missing.
      const bool whole = followed && at <= bytes_.Length() && frames + 1 >= counted;
      runs_.push_back({start, std::min(at, bytes_.Length()) - start, beginning, whole, {}});
    }
    return followed ? at : last + 1;
  }

  Bytes bytes_;
  std::int64_t start_ = 0;  // first byte after the tags
  std::vector<MpegRun> runs_;
  MpegDamage damage_;
};

}  // namespace

std::vector<MpegRun> FindMpegRuns(Datei& file) {
  return Search(file).Runs();
}

}  // namespace vantora
