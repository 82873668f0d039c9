#include "backends/mpg123/mpeg_stream.h"

#include "backends/mpg123/mpeg_start.h"

#include "platform/laufzeitfehler.h"

#include <mpg123.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <exception>
#include <vector>

namespace vantora {

namespace {

[[noreturn]] void KeinMpeg() {
  throw Laufzeitfehler(kFehlerKeinMpeg, L"El archivo no contiene audio MPEG.");
}

}  // namespace

// The library reads through this buffer: it asks for every frame's header and body singly, and a
// system call for each would take ten times as long as the scan itself.
struct MpegStream::Handle {
  explicit Handle(std::unique_ptr<Datei> source) : file(std::move(source)) {
    const auto found = FindMpegStart(*file);
    if (!found) KeinMpeg();
    start = *found;
    size = file->Length() - start;

    int error = MPG123_OK;
    decoder = mpg123_new(nullptr, &error);
    if (decoder == nullptr) throw Laufzeitfehler(kFehlerSpeicher, L"No hay memoria suficiente.");
    constexpr long kResync = 1 << 20;  // bytes of damage to look through for the next frame
    mpg123_param(decoder, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_SKIP_ID3V2, 0);
    mpg123_param(decoder, MPG123_RESYNC_LIMIT, kResync, 0);
    mpg123_format_none(decoder);
    const long* rates = nullptr;
    std::size_t count = 0;
    mpg123_rates(&rates, &count);
    for (std::size_t i = 0; i < count; ++i) {
      const int encoding = rates[i] == 44100 ? MPG123_ENC_SIGNED_16 : MPG123_ENC_FLOAT_32;
      mpg123_format(decoder, rates[i], MPG123_STEREO, encoding);
    }
    mpg123_replace_reader_handle(decoder, &Handle::Read, &Handle::Seek, nullptr);
    int channels = 0, encoding = 0;
    if (mpg123_open_handle(decoder, this) != MPG123_OK ||
        mpg123_getformat(decoder, &rate, &channels, &encoding) != MPG123_OK) {
      mpg123_delete(decoder);
      if (failure) std::rethrow_exception(failure);
      KeinMpeg();
    }
  }
  ~Handle() { mpg123_delete(decoder); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

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
      held = file->ReadSome(buffer.data(), buffer.size());
    } catch (...) {
      failure = std::current_exception();
    }
    return held > 0;
  }

  std::unique_ptr<Datei> file;
  std::int64_t start = 0, size = 0, place = 0;  // the stream in the file; the next byte of it
  std::array<char, 65536> buffer;
  std::int64_t bufferStart = 0;
  std::size_t held = 0;
  std::exception_ptr failure;
  mpg123_handle* decoder = nullptr;
  long rate = 0;
};

MpegStream::MpegStream(Dateien& dateien, const Text& path)
    : handle_(std::make_unique<Handle>(dateien.Open(path, Zugriff::Lesen))) {}

MpegStream::~MpegStream() = default;

std::optional<MpegBlock> MpegStream::Next() {
  Handle& handle = *handle_;
  MpegBlock block;
  off_t number = 0;
  unsigned char* sound = nullptr;
  int result = mpg123_decode_frame(handle.decoder, &number, &sound, &block.bytes);
  if (result == MPG123_NEW_FORMAT) {
    int channels = 0, encoding = 0;
    mpg123_getformat(handle.decoder, &handle.rate, &channels, &encoding);
    result = mpg123_decode_frame(handle.decoder, &number, &sound, &block.bytes);
  }
  if (handle.failure) std::rethrow_exception(handle.failure);
  // Any other answer is the end: of the file, or of what can be heard of a broken one.
  if (result != MPG123_OK) return {};
  block.sound = sound;
  block.rate = handle.rate;
  block.frame = number + 1;
  return block;
}

MpegLength MpegStream::Measure(Dateien& dateien, const Text& path) {
  MpegLength length;
  std::int64_t promised = 0;
  long samplesPerFrame = 0;
  {
    MpegStream stream(dateien, path);
    Handle& handle = *stream.handle_;
    length.rate = handle.rate;
    promised = mpg123_framelength(handle.decoder);
    mpg123_scan(handle.decoder);
    if (handle.failure) std::rethrow_exception(handle.failure);
    length.frames = mpg123_framelength(handle.decoder);
    length.samples = mpg123_length(handle.decoder);
    samplesPerFrame = mpg123_spf(handle.decoder);
  }
  if (length.frames <= 0) KeinMpeg();
  if (length.frames == promised) return length;

  // The file was cut or joined. What the encoder put in front is then left out all the same, but
  // the scan does not count it: a fresh decoder tells it with its first sound.
  MpegStream stream(dateien, path);
  while (const auto block = stream.Next()) {
    if (block->bytes == 0) continue;
    const std::size_t frameBytes = block->rate == 44100 ? 4 : 8;
    const auto heard = static_cast<std::int64_t>(block->bytes / frameBytes);
    length.samples = length.frames * samplesPerFrame - (block->frame * samplesPerFrame - heard);
    break;
  }
  return length;
}

}  // namespace vantora
