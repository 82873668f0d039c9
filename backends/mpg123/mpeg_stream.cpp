#include "backends/mpg123/mpeg_stream.h"

#include "backends/mpg123/mpeg_runs.h"

#include "platform/laufzeitfehler.h"

#include <mpg123.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <vector>

namespace vantora {

namespace {

[[noreturn]] void KeinMpeg() {
  throw Laufzeitfehler(kFehlerKeinMpeg, L"El archivo no contiene audio MPEG.");
}

// Lets the sound of a block rise from silence; false when it has none.
template <typename Sample>
bool RiseIn(void* sound, std::size_t bytes) {
  auto* samples = static_cast<Sample*>(sound);
  const std::size_t count = bytes / sizeof(Sample);
  if (std::all_of(samples, samples + count, [](Sample s) { return s == 0; })) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const float rise = static_cast<float>(i) / static_cast<float>(count);
    samples[i] = static_cast<Sample>(static_cast<float>(samples[i]) * rise);
  }
  return true;
}

}  // namespace

// The library is given one run of frames after the other, each as a stream of its own: it never
// sees what lies between them, and what frames of one run refer to is not looked for in another.
//
// It reads through this buffer: it asks for every frame's header and body singly, and a system call
// for each would take ten times as long as the scan itself.
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

  // Behind a gap frames are silent until all is there that they refer to, and the first that sounds
  // lacks its neighbour, which would take echoes of it away.
  void SoftenStart(void* sound, std::size_t bytes) {
    if (!behindGap || bytes == 0) return;
    const bool risen =
        rate == 44100 ? RiseIn<std::int16_t>(sound, bytes) : RiseIn<float>(sound, bytes);
    behindGap = !risen;
  }

  // Opens the run `number`, or the first behind it that the library takes; false when there is
  // none.
  bool OpenRun(std::size_t number) {
    for (; number < runs.size(); ++number) {
      run = number;
      behindGap = !runs[number].Beginning;
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
    // No exception may pass through the library, which is C.
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
  bool behindGap = false;                       // nothing of it has sounded yet
  std::int64_t start = 0, size = 0, place = 0;  // the run in the file; the next byte of it
  std::array<char, 65536> buffer;
  std::int64_t bufferStart = 0;
  std::size_t held = 0;
  std::exception_ptr failure;
  mpg123_handle* decoder = nullptr;
  long rate = 0;
  std::int64_t framesBefore = 0, frame = 0;  // of the runs before this one; of all so far
};

MpegStream::MpegStream(Dateien& dateien, const Text& path)
    : handle_(std::make_unique<Handle>(dateien.Open(path, Zugriff::Lesen))) {
  if (!handle_->OpenRun(0)) KeinMpeg();
}

MpegStream::~MpegStream() = default;

std::optional<MpegBlock> MpegStream::Next() {
  Handle& handle = *handle_;
  MpegBlock block;
  off_t number = 0;
  unsigned char* sound = nullptr;
  for (;;) {
    int result = mpg123_decode_frame(handle.decoder, &number, &sound, &block.bytes);
    if (result == MPG123_NEW_FORMAT) {
      int channels = 0, encoding = 0;
      mpg123_getformat(handle.decoder, &handle.rate, &channels, &encoding);
      result = mpg123_decode_frame(handle.decoder, &number, &sound, &block.bytes);
    }
    if (handle.failure) std::rethrow_exception(handle.failure);
    if (result == MPG123_OK) break;
    // Any other answer is the end: of the run, or of what can be heard of it.
    handle.framesBefore = handle.frame;
    if (!handle.OpenRun(handle.run + 1)) return {};
  }
  handle.frame = handle.framesBefore + number + 1;
  handle.SoftenStart(sound, block.bytes);
  block.sound = sound;
  block.rate = handle.rate;
  block.frame = handle.frame;
  return block;
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

  // The file was cut or joined. What the encoder put in front is then left out all the same, but
  // the scan does not count it: it shows in the first sound of a decoder that begins anew.
  const std::size_t run = handle.run;
  handle.OpenRun(run);
  while (handle.run == run) {
    const auto block = Next();
    if (!block) break;
    if (block->bytes == 0) continue;
    const std::size_t frameBytes = block->rate == 44100 ? 4 : 8;
    const auto heard = static_cast<std::int64_t>(block->bytes / frameBytes);
    const std::int64_t frame = block->frame - handle.framesBefore;
    length.samples = length.frames * samplesPerFrame - (frame * samplesPerFrame - heard);
    break;
  }
  return length;
}

}  // namespace vantora
