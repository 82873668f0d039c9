#include "backends/mpg123/mpeg_stream.h"

#include "backends/mpg123/gap_fade.h"
#include "backends/mpg123/mpeg_runs.h"
#include "backends/mpg123/sound_check.h"

#include "platform/laufzeitfehler.h"

#include <mpg123.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <utility>
#include <vector>

namespace vantora {

namespace {

[[noreturn]] void KeinMpeg() {
  throw Laufzeitfehler(kFehlerKeinMpeg, L"El archivo no contiene audio MPEG.");
}

// A block as Next returns it.
struct Block {
  std::vector<char> Sound;  // interleaved stereo: 16-bit integers at 44.1 kHz, else floats
  long Rate = 0;
  std::int64_t Frame = 0;
  bool BehindGap = false;

  std::size_t Frames() const { return Sound.size() / FrameBytes(); }
  std::size_t FrameBytes() const { return Rate == 44100 ? 4 : 8; }
  // Calls `work` with the samples in their real type.
  template <class Work>
  auto As(const Work& work) {
    return Rate == 44100 ? work(reinterpret_cast<std::int16_t*>(Sound.data()))
                         : work(reinterpret_cast<float*>(Sound.data()));
  }
};

}  // namespace

// The library opens each run of frames as a separate stream. It never reads the bytes between runs,
// and frames of one run are never decoded with data of another.
//
// The library reads through this buffer. It asks for the header and the body of every frame
// separately, and a system call for each would take ten times as long as the scan itself.
struct MpegStream::Handle {
  explicit Handle(std::unique_ptr<Datei> source)
      : file(std::move(source)), runs(FindMpegRuns(*file)) {
    int error = MPG123_OK;
    decoder = mpg123_new(nullptr, &error);
    if (decoder == nullptr) throw Laufzeitfehler(kFehlerSpeicher, L"No hay memoria suficiente.");
    mpg123_param(decoder, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_SKIP_ID3V2, 0);
    mpg123_format_none(decoder);
    const long* rates = nullptr;
    std::size_t count = 0;
    mpg123_rates(&rates, &count);
    for (std::size_t i = 0; i < count; ++i) {
      const int encoding = rates[i] == 44100 ? MPG123_ENC_SIGNED_16 : MPG123_ENC_FLOAT_32;
      mpg123_format(decoder, rates[i], MPG123_STEREO, encoding);
    }
    mpg123_replace_reader_handle(decoder, &Handle::Read, &Handle::Seek, nullptr);
  }
  ~Handle() { mpg123_delete(decoder); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  // The next block as decoded; nothing at the end.
  std::optional<Block> Decode();
  bool Damaged() const;  // the frame of the last decoded block
  // The next block with its beginning faded in or silenced.
  std::optional<Block> Shaped();

  // Opens run `number`, or the first later one that the library accepts. Returns false when there
  // is none.
  bool OpenRun(std::size_t number) {
    for (; number < runs.size(); ++number) {
      run = number;
      behindGap = behindGap || !runs[number].Beginning;
      start = runs[number].Start;
      size = runs[number].Bytes;
      place = bufferStart = 0;
      held = 0;
      int channels = 0, encoding = 0;
      if (mpg123_open_handle(decoder, this) == MPG123_OK &&
          mpg123_getformat(decoder, &rate, &channels, &encoding) == MPG123_OK) {
        return true;
      }
      if (failure) std::rethrow_exception(failure);
    }
    return false;
  }

  static ssize_t Read(void* self, void* target, std::size_t count) {
    return static_cast<Handle*>(self)->Read(static_cast<char*>(target), count);
  }
  static off_t Seek(void* self, off_t offset, int whence) {
    auto& handle = *static_cast<Handle*>(self);
    const std::int64_t from = whence == SEEK_SET   ? 0
                              : whence == SEEK_CUR ? handle.place
                                                   : handle.size;
    handle.place = std::max<std::int64_t>(0, from + offset);
    return handle.place;
  }

  ssize_t Read(char* target, std::size_t count) {
    std::size_t got = 0;
    while (got < count) {
      if (place < bufferStart || place >= bufferStart + static_cast<std::int64_t>(held)) {
        if (!Fill()) break;
      }
      const auto offset = static_cast<std::size_t>(place - bufferStart);
      const std::size_t part = std::min(count - got, held - offset);
      std::memcpy(target + got, buffer.data() + offset, part);
      got += part;
      place += static_cast<std::int64_t>(part);
    }
    return failure ? -1 : static_cast<ssize_t>(got);
  }
  bool Fill() {
    held = 0;
    if (place >= size || failure) return false;
    // The library is written in C, so no exception may pass through it.
    try {
      file->Seek(start + place);
      bufferStart = place;
      held = file->ReadSome(buffer.data(), static_cast<std::size_t>(std::min<std::int64_t>(
                                               size - place, std::ssize(buffer))));
    } catch (...) {
      failure = std::current_exception();
    }
    return held > 0;
  }

  std::unique_ptr<Datei> file;
  std::vector<MpegRun> runs;
  std::size_t run = 0;                          // the open one
  bool behindGap = false;                       // frames in front of the next block are lost
  std::int64_t start = 0, size = 0, place = 0;  // open run in the file; next byte in the run
  std::array<char, 65536> buffer;
  std::int64_t bufferStart = 0;
  std::size_t held = 0;
  std::exception_ptr failure;
  mpg123_handle* decoder = nullptr;
  long rate = 0;
  std::int64_t framesBefore = 0, frame = 0;  // of the runs before this one; of all so far
  GapFade fade;
  SoundCheck check;
  // The block last returned, and the next one. Decoding is one block ahead because the end of the
  // block before a gap fades out.
  std::optional<Block> passed, ahead;
  bool begun = false;
};

MpegStream::MpegStream(Dateien& dateien, const Text& path)
    : handle_(std::make_unique<Handle>(dateien.Open(path, Zugriff::Lesen))) {
  if (!handle_->OpenRun(0)) KeinMpeg();
}

MpegStream::~MpegStream() = default;

std::optional<Block> MpegStream::Handle::Decode() {
  off_t number = 0;
  unsigned char* sound = nullptr;
  std::size_t bytes = 0;
  for (;;) {
    int result = mpg123_decode_frame(decoder, &number, &sound, &bytes);
    if (result == MPG123_NEW_FORMAT) {
      int channels = 0, encoding = 0;
      mpg123_getformat(decoder, &rate, &channels, &encoding);
      result = mpg123_decode_frame(decoder, &number, &sound, &bytes);
    }
    if (failure) std::rethrow_exception(failure);
    if (result == MPG123_OK) break;
    // Any other result ends the run, or the part of it that can be decoded.
    framesBefore = frame;
    behindGap = result != MPG123_DONE || !runs[run].Whole;
    if (!OpenRun(run + 1)) return {};
  }
  frame = framesBefore + number + 1;
  Block block{std::vector<char>(sound, sound + bytes), rate, frame, behindGap};
  behindGap = false;
  return block;
}

bool MpegStream::Handle::Damaged() const {
  const std::vector<std::int64_t>& damaged = runs[run].Damaged;
  return !damaged.empty() &&
         std::binary_search(damaged.begin(), damaged.end(), std::int64_t{mpg123_framepos(decoder)});
}

std::optional<Block> MpegStream::Handle::Shaped() {
  std::optional<Block> block = Decode();
  if (!block) return {};
  if (block->BehindGap) {
    fade.Behind();
    check.Begin();
  }
  const bool sound = block->As([&](auto* s) { return check.Sound(s, block->Frames()); });
  if (!sound || Damaged()) {
    block->BehindGap = true;
    block->Sound.assign(block->Sound.size(), 0);
    fade.Behind();
  } else {
    block->As([&](auto* samples) { fade.Rise(samples, block->Frames()); });
  }
  return block;
}

std::optional<MpegBlock> MpegStream::Next() {
  Handle& handle = *handle_;
  if (!handle.begun) handle.ahead = handle.Shaped();
  handle.begun = true;
  std::swap(handle.passed, handle.ahead);
  if (!handle.passed) return {};
  Block& block = *handle.passed;
  handle.ahead = handle.Shaped();
  if (handle.ahead ? handle.ahead->BehindGap : handle.behindGap) {
    block.As([&](auto* samples) { GapFade::Fall(samples, block.Frames()); });
  }
  return MpegBlock{block.Sound.data(), block.Sound.size(), block.Rate, block.Frame};
}

MpegLength MpegStream::Measure(Dateien& dateien, const Text& path) {
  MpegStream stream(dateien, path);
  Handle& handle = *stream.handle_;
  MpegLength length;
  length.rate = handle.rate;
  double samples = 0;
  std::size_t number = 0;
  for (bool open = true; open; open = handle.OpenRun(number + 1)) {
    number = handle.run;
    const MpegLength run = stream.MeasureRun();
    length.frames += run.frames;
    samples += static_cast<double>(run.samples) * static_cast<double>(length.rate) /
               static_cast<double>(run.rate);
  }
  if (length.frames <= 0) KeinMpeg();
  length.samples = std::llround(samples);
  return length;
}

MpegLength MpegStream::MeasureRun() {
  Handle& handle = *handle_;
  MpegLength length;
  length.rate = handle.rate;
  const std::int64_t promised = mpg123_framelength(handle.decoder);
  mpg123_scan(handle.decoder);
  if (handle.failure) std::rethrow_exception(handle.failure);
  length.frames = std::max<std::int64_t>(mpg123_framelength(handle.decoder), 0);
  length.samples = std::max<std::int64_t>(mpg123_length(handle.decoder), 0);
  const long samplesPerFrame = mpg123_spf(handle.decoder);
  if (length.frames == 0 || length.frames == promised) return length;

  // The frame count in the header is wrong, so the file was cut or joined. The decoder still skips
  // the encoder's delay at the start, but the scan does not subtract it. The first block of a new
  // decoding shows how long it is.
  const std::size_t run = handle.run;
  handle.OpenRun(run);
  while (handle.run == run) {
    const auto block = handle.Decode();
    if (!block) break;
    if (block->Sound.empty()) continue;
    const auto heard = static_cast<std::int64_t>(block->Frames());
    const std::int64_t frame = block->Frame - handle.framesBefore;
    length.samples = length.frames * samplesPerFrame - (frame * samplesPerFrame - heard);
    break;
  }
  return length;
}

}  // namespace vantora
