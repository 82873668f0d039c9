#include "backends/sound/chain/wave_in.h"

#include "platform/cd_sound.h"

#include <utility>

namespace vantora {

namespace {

// Three seconds of sound, a few milliseconds of work. The limit keeps windows responsive when much
// sound has piled up.
constexpr int kBuffersATurn = 128;
constexpr int kMostWaiting = 2048;  // more buffers than any input keeps

}  // namespace

void WaveIn::Open() {
  if (open_) return;
  if (!capture_) {
    if (BitLength != b16Bit || Mode != mStereo || SampleRate != kSampleRate) {
      throw Laufzeitfehler(kFehlerEinAusgabe, L"La entrada no conoce este formato.");
    }
    capture_ = input_.Listen([this] { Deliver(kBuffersATurn); });
  }
  open_ = true;
}

void WaveIn::Close() {
  if (!open_) return;
  open_ = running_ = false;
  loop_.Post([this, watch = std::weak_ptr<int>(token_)] {
    if (!watch.expired() && !open_) capture_.reset();
  });
}

void WaveIn::Start() {
  if (!open_) throw Laufzeitfehler(kFehlerEinAusgabe, L"La entrada de sonido está cerrada.");
  if (!delivering_ && !running_) capture_->Skip();
  Receive();
  running_ = true;
}

void WaveIn::CatchUp() {
  Deliver(kMostWaiting);
}

// A handler may process events, so Deliver can be called while a buffer is being delivered. The
// inner call returns, and the outer call delivers the rest.
void WaveIn::Deliver(int most) {
  if (delivering_ || !capture_) return;
  const std::shared_ptr<SoundCapture> capture = capture_;
  const std::weak_ptr<int> watch = token_;
  int left = most;
  while (left > 0 && capture_ == capture && capture->Next(piece_)) {
    --left;
    if (!DeliverOne()) return;
  }
  if (capture_ != capture) return;
  if (left == 0) {
    loop_.Post([this, watch] {
      if (!watch.expired()) Deliver(kBuffersATurn);
    });
  } else if (capture->Gone()) {
    Lose();
  }
}

// Returns false when a handler has destroyed this component.
bool WaveIn::DeliverOne() {
  if (!running_) return true;
  const std::weak_ptr<int> watch = token_;
  delivering_ = true;
  try {
    if (piece_.LostMs > 0 && OnOverrun) OnOverrun(piece_.LostMs);
    if (watch.expired()) return false;
    MMData data;
    FillWaveHeader(data, piece_.Data.Samples.data(), piece_.Data.Bytes);
    Push(data);
  } catch (const Laufzeitfehler& error) {
    if (watch.expired()) return false;
    delivering_ = false;
    if (!OnError) throw;
    OnError(error);
  } catch (...) {
    if (!watch.expired()) delivering_ = false;
    throw;
  }
  if (watch.expired()) return false;
  delivering_ = false;
  return true;
}

void WaveIn::Lose() {
  open_ = running_ = false;
  capture_.reset();
  const std::function<void()> call = OnLost;
  if (call) call();
}

}  // namespace vantora
