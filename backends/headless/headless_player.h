// Plays a wave file on the loop's time, without any sound. Playing takes as long as the file lasts.
// The reported levels are those of the file at the present place.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/mmtools.h"

#include <functional>
#include <memory>
#include <vector>

namespace vantora {

// The sound card that all players share.
struct HeadlessSoundCard {
  bool Present = true;       // false: every start is refused, and streams end
  std::vector<Text> Played;  // files that were started, in order
  std::int64_t From = 0;     // start of the last playing, in bytes of the sound
};

class HeadlessPlayer final : public MMWavePlayerX {
 public:
  using NewWaveFile = std::function<std::unique_ptr<MMWave>()>;

  HeadlessPlayer(EventLoop& loop, Clock& clock, HeadlessSoundCard& card, NewWaveFile newWaveFile);
  ~HeadlessPlayer() override;

  void SetFileName(const Text& file) override {
    file_ = file;
    from_ = 0;
  }
  void SetPosition(std::int64_t bytes) override { from_ = bytes; }
  void Start() override;
  void Stop() override;
  bool Playing() const override { return voice_ != nullptr; }
  std::int64_t Position() const override;

 private:
  struct Voice;

  void Tick(const std::shared_ptr<Voice>& voice);
  void End();

  EventLoop& loop_;
  Clock& clock_;
  HeadlessSoundCard& card_;
  NewWaveFile newWaveFile_;
  Text file_;
  std::int64_t from_ = 0;          // bytes
  std::shared_ptr<Voice> voice_;   // the file that plays now; null for none
  std::int64_t lastPosition_ = 0;  // the place at which the last voice ended
  std::shared_ptr<bool> alive_;    // false after the player is destroyed
};

// Returns a function that makes players for a set of sound tools. The players share one loop, one
// clock and one card.
std::function<std::unique_ptr<MMWavePlayerX>()> HeadlessPlayers(
    EventLoop& loop, Clock& clock, HeadlessSoundCard& card,
    HeadlessPlayer::NewWaveFile newWaveFile);

}  // namespace vantora
