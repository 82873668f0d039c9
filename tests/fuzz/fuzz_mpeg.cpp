// Random bytes as an MP3 file: the search for frames must find places of the file in their order,
// and decoding must come to an end with sound that a wave file can hold.
#include "backends/mpg123/mpeg_runs.h"
#include "backends/mpg123/mpeg_stream.h"
#include "tests/backends/linux/home.h"
#include "tests/fuzz/fuzz_body.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantora::test {

namespace {

const Text kFile = L"C:\\a.mp3";
constexpr std::int64_t kMostFramesOfAByte = 1152 / 2;  // the smallest frames have 24 bytes

void CheckRuns(const std::vector<MpegRun>& runs, std::int64_t length) {
  std::int64_t end = 0;
  for (const MpegRun& run : runs) {
    Require(run.Start >= end && run.Bytes > 0, "runs follow each other");
    end = run.Start + run.Bytes;
    Require(end <= length, "a run lies in its file");
    Require(std::is_sorted(run.Damaged.begin(), run.Damaged.end()), "damage is in order");
    Require(run.Damaged.empty() || (run.Damaged.front() >= 0 && run.Damaged.back() < run.Bytes),
            "damage lies in its run");
  }
}

}  // namespace

void FuzzOne(const std::string& bytes) {
  static Home home;
  Lay(home / "a.mp3", bytes);
  const std::int64_t length = std::ssize(bytes);
  CheckRuns(FindMpegRuns(*home.Files.Open(kFile, Zugriff::Lesen)), length);
  try {
    const MpegLength measured = MpegStream::Measure(home.Files, kFile);
    Require(measured.frames > 0 && measured.frames <= length && measured.rate > 0,
            "a length is measured");
    Require(measured.samples >= 0, "sound has a length");
    MpegStream stream(home.Files, kFile);
    std::int64_t frame = 0, sound = 0;
    while (const auto block = stream.Next()) {
      Require(block->frame >= frame, "frames are counted");
      frame = block->frame;
      const bool whole = block->rate == 44100;
      Require(block->rate > 0 && block->bytes % (whole ? 4 : 8) == 0, "a block has whole samples");
      sound += static_cast<std::int64_t>(block->bytes / (whole ? 4 : 8));
      for (std::size_t i = 0; !whole && i + 4 <= block->bytes; i += 4) {
        float sample = 0;
        std::memcpy(&sample, static_cast<const char*>(block->sound) + i, sizeof sample);
        Require(std::isfinite(sample), "a sample is a number");
      }
    }
    Require(sound <= length * kMostFramesOfAByte, "no invented sound");
  } catch (const Laufzeitfehler& fehler) {
    Require(fehler.Nummer == kFehlerKeinMpeg, "what is no MP3 file raises 321");
  }
}

}  // namespace vantora::test
