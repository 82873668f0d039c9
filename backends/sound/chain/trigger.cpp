#include "backends/sound/chain/trigger.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <chrono>

namespace vantora {

namespace {

constexpr auto kSlice = std::chrono::milliseconds(25);
// The number of buffers is limited too, since without effects a slice of time would move far more
// than 2 MiB.
constexpr int kSliceBuffers = 512;

}  // namespace

void Trigger::Start() {
  token_ = std::make_shared<int>(0);
  begun_ = false;
  Next();
}

void Trigger::Next() {
  loop_.PostAfter(std::max(Interval, 1), [this, watch = std::weak_ptr<int>(token_)] {
    if (!watch.expired()) Slice();
  });
}

// Raises events last, since a handler may start or destroy the trigger.
void Trigger::Slice() {
  const std::weak_ptr<int> watch = token_;
  bool over = false;
  try {
    over = Pumped();
  } catch (const Laufzeitfehler& error) {
    if (watch.expired()) return;
    if (OnFailure) return Tell([error, call = OnFailure] { call(error); });
    Tell(OnError);
    throw;
  }
  if (watch.expired()) return;
  if (over) return Tell(OnStop);
  Next();
}

// Does one slice of work and returns true at the end of the sound. Components downstream are
// informed of the sound's start first, so that a file is created before anything is computed for
// it.
bool Trigger::Pumped() {
  const std::weak_ptr<int> watch = token_;
  if (!begun_) {
    begun_ = true;
    Rewind();
    Receive();
  }
  const auto end = std::chrono::steady_clock::now() + kSlice;
  const int buffers = Interval > 0 ? 1 : kSliceBuffers;
  for (int i = 0; i < buffers; ++i) {
    if (OnBufferLoad) OnBufferLoad();
    if (watch.expired()) return false;
    MMData data;
    Pull(data);
    if (watch.expired()) return false;  // stopped by a callback
    if (data.Bytes == 0) return true;
    Push(data);
    if (std::chrono::steady_clock::now() >= end) break;
  }
  return false;
}

void Trigger::Tell(const std::function<void()>& event) {
  token_.reset();
  const std::function<void()> call = event;
  if (call) call();
}

}  // namespace vantora
