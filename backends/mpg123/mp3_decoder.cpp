#include "backends/mpg123/mp3_decoder.h"

#include "backends/mpg123/mpeg_stream.h"
#include "backends/mpg123/resampler.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <array>
#include <chrono>
#include <cstring>
#include <optional>
#include <vector>

namespace vantora {

namespace {

using Time = std::chrono::steady_clock;

constexpr std::size_t kHeaderBytes = 44;
constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
constexpr int kFramesPerSlice = 64;  // MPEG frames; 2 ms of work, up to 30 ms with resampling
constexpr auto kTellEvery = std::chrono::milliseconds(50);
// Many programs read the size fields of a wave file as signed numbers.
constexpr std::int64_t kMostBytes = 0x7FFFFFFF - static_cast<std::int64_t>(kHeaderBytes);

std::array<unsigned char, kHeaderBytes> WaveHeader(std::int64_t dataBytes) {
  std::array<unsigned char, kHeaderBytes> header{};
  const auto word = [&header](std::size_t at, std::int64_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
      header[at + i] = static_cast<unsigned char>((value >> (8 * i)) & 0xFF);
    }
  };
  std::memcpy(&header[0], "RIFF", 4);
  word(4, dataBytes + static_cast<std::int64_t>(kHeaderBytes) - 8);
  std::memcpy(&header[8], "WAVEfmt ", 8);
  word(16, 16);
  word(20, 2 << 16 | 1);  // two channels, PCM
  word(24, kSampleRate);
  word(28, kBytesPerSecond);
  word(32, kSampleBits << 16 | kFrameBytes);  // bits, bytes of a frame
  std::memcpy(&header[36], "data", 4);
  word(40, dataBytes);
  return header;
}

}  // namespace

// One decoding run. It belongs to the background thread until the slices have ended, then to the
// interface thread.
struct Mp3Decoder::Run {
  Run(Mp3Decoder& decoder, int frameCount)
      : owner(decoder), token(decoder.token_), frames(frameCount) {}

  int Slice() noexcept {
    try {
      if (!stream) Begin();
      for (int i = 0; i < kFramesPerSlice; ++i) {
        const auto block = stream->Next();
        if (!block) {
          Complete();
          ended = true;
          Tell([to = &owner] { to->RunEnded(0, {}); });
          return -1;
        }
        frame = block->frame;
        Take(*block);
      }
      if (Time::now() - told >= kTellEvery) TellFrame();
      return 0;
    } catch (const Laufzeitfehler& fehler) {
      Fail(fehler.Nummer, fehler.Beschreibung);
    } catch (const std::exception& error) {
      const std::string what = error.what();
      Fail(kFehlerEinAusgabe, Text(what.begin(), what.end()));
    }
    return -1;
  }

  void Begin() {
    stream = std::make_unique<MpegStream>(owner.dateien_, owner.source_);
    OpenTarget();
    told = Time::now();
  }

  void OpenTarget() {
    target = owner.dateien_.Open(owner.target_, Zugriff::Neu);
    const auto header = WaveHeader(0);
    target->Write(header.data(), header.size());
  }

  void Take(const MpegBlock& block) {
    if (resampler && resampler->Rate() != block.rate) EndResampling();
    if (block.rate == kSampleRate) {
      Store(block.sound, block.bytes);
      return;
    }
    if (!resampler) resampler.emplace(block.rate);
    converted.clear();
    resampler->Push(static_cast<const float*>(block.sound), block.bytes / (2 * sizeof(float)),
                    converted);
    Store(converted.data(), converted.size() * sizeof(std::int16_t));
  }

  void EndResampling() {
    converted.clear();
    resampler->Flush(converted);
    resampler.reset();
    Store(converted.data(), converted.size() * sizeof(std::int16_t));
  }

  void Store(const void* sound, std::size_t bytes) {
    if (written + static_cast<std::int64_t>(pending.size() + bytes) > kMostBytes) {
      throw Laufzeitfehler(kFehlerUeberlauf,
                           L"La grabación es demasiado larga para un archivo de audio.");
    }
    const auto* from = static_cast<const char*>(sound);
    pending.insert(pending.end(), from, from + bytes);
    if (pending.size() >= kBlockBytes) Drain();
  }

  void Drain() {
    target->Write(pending.data(), pending.size());
    written += static_cast<std::int64_t>(pending.size());
    pending.clear();
  }

  // Finishes the wave file with the sound decoded so far.
  void Complete() {
    if (resampler) EndResampling();
    Drain();
    const auto header = WaveHeader(written);
    target->Seek(0);
    target->Write(header.data(), header.size());
    target.reset();
    if (frame < frames) frame = frames;
    TellFrame();
  }

  void Fail(int number, const Text& text) noexcept {
    if (target) {
      target.reset();
      try {
        owner.dateien_.Kill(owner.target_);
      } catch (const std::exception&) {
        // Only the first failure is reported.
      }
    }
    ended = true;
    code = number;
    words = text;
    Tell([to = &owner, number, text] { to->RunEnded(number, text); });
  }

  void TellFrame() {
    told = Time::now();
    Tell([to = &owner, at = static_cast<int>(frame)] {
      if (to->Mp3Play1_ActFrame) to->Mp3Play1_ActFrame(at);
    });
  }

  template <class Work>
  void Tell(Work work) {
    owner.loop_.Post([watch = token, work] {
      if (!watch.expired()) work();
    });
  }

  Mp3Decoder& owner;
  std::weak_ptr<int> token;
  int frames;  // of the whole source
  std::unique_ptr<MpegStream> stream;
  std::unique_ptr<Datei> target;  // open from the first slice to the last
  std::optional<Resampler> resampler;
  std::vector<std::int16_t> converted;
  std::vector<char> pending;
  std::int64_t written = 0, frame = 0;
  Time::time_point told;
  bool ended = false;
  int code = 0;  // of the failure
  Text words;
};

Mp3Decoder::Mp3Decoder(Dateien& dateien, EventLoop& loop, Background& background)
    : dateien_(dateien), loop_(loop), background_(background) {}

Mp3Decoder::~Mp3Decoder() {
  token_.reset();
  Mp3Decoder::Stop();
}

void Mp3Decoder::Init() {
  Close();
}

int Mp3Decoder::Open(const Text& source, const Text& target) {
  Close();
  if (source.empty()) return 0;
  state_ = kMp3Unusable;
  try {
    const MpegLength length = MpegStream::Measure(dateien_, source);
    frames_ = static_cast<int>(length.frames);
    lengthMs_ = static_cast<double>(length.samples) * 1000 / static_cast<double>(length.rate);
  } catch (const Laufzeitfehler& fehler) {
    return fehler.Nummer;
  }
  source_ = source;
  target_ = target;
  state_ = kMp3Open;
  return 0;
}

void Mp3Decoder::Decode() {
  if ((state_ != kMp3Open && state_ != kMp3Stopped) || target_.empty()) {
    throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"No hay ningún archivo MP3 abierto.");
  }
  // Reports the end of the run before, so that it is not taken for the end of this one.
  if (endPending_) TellEnd();
  token_ = std::make_shared<int>(0);
  run_ = std::make_shared<Run>(*this, frames_);
  state_ = kMp3Busy;
  endPending_ = true;
  job_ = background_.Start([run = run_] { return run->Slice(); });
}

void Mp3Decoder::Stop() {
  if (!Busy()) return;
  job_.reset();
  const auto run = std::move(run_);
  state_ = kMp3Stopped;
  if (!run->ended) {
    try {
      if (!run->target) run->OpenTarget();
      run->Complete();
    } catch (const Laufzeitfehler& fehler) {
      run->Fail(fehler.Nummer, fehler.Beschreibung);
    }
  }
  const bool alive = token_ != nullptr;
  token_ = alive ? std::make_shared<int>(0) : nullptr;
  run->token = token_;
  run->Tell([this, code = run->code, words = run->words] { RunEnded(code, words); });
}

void Mp3Decoder::Close() {
  Stop();
  state_ = kMp3Closed;
  source_.clear();
  target_.clear();
  frames_ = 0;
  lengthMs_ = 0;
}

void Mp3Decoder::RunEnded(int code, const Text& text) {
  job_.reset();
  run_.reset();
  if (state_ == kMp3Busy) state_ = kMp3Stopped;
  if (code != 0 && Mp3Play1_Failure) Mp3Play1_Failure(code, text);
  TellEnd();
}

void Mp3Decoder::TellEnd() {
  if (!endPending_) return;
  endPending_ = false;
  if (Mp3Play1_ThreadEnded) Mp3Play1_ThreadEnded();
}

}  // namespace vantora
