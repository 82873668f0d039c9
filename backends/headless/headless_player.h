// Plays a wave file through the loop's time: it starts, it is heard for as long as it lasts, it
// stops, and the levels told are those of the file at that place. Nothing sounds.
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
  bool Present = true;       // false: every start is refused, a stream ends
  std::vector<Text> Played;  // files that were started, in order
  std::int64_t From = 0;     // where the last of them began, in bytes of its sound
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
  std::shared_ptr<Voice> voice_;   // what plays now
  std::int64_t lastPosition_ = 0;  // where the last voice ended
  std::shared_ptr<bool> alive_;    // false when the player is gone
};

// Makes players that share one loop, clock and card; a set of sound tools takes it as its source.
std::function<std::unique_ptr<MMWavePlayerX>()> HeadlessPlayers(
    EventLoop& loop, Clock& clock, HeadlessSoundCard& card,
    HeadlessPlayer::NewWaveFile newWaveFile);

}  // namespace vantora
