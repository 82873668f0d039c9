// What a loudspeaker has ahead of the ear: buffers in a row, put in by the interface thread and
// taken out by the device's. A buffer stays until it has been heard, so that a pause loses nothing.
//
// A place is a frame of the row, counted from where the row began. What the device has heard is
// counted in frames of the device, in which the silence of an underrun counts too.
#pragma once

#include "platform/mmchain.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

namespace vantora {

class SoundQueue {
 public:
  SoundQueue(int buffers, std::int64_t place);  // empty; begins at a place

  // ---- the interface thread ----

  bool Full() const;
  std::int64_t End() const;                             // the place behind the last buffer
  std::int64_t Given() const;                           // the place that the device takes next
  void Append(const MMData& data, std::int64_t round);  // not when full; `round`: where it began
  void Close();                                         // nothing more will follow
  bool Closed() const;
  bool NextHeard(std::int64_t heard, MMData& data);  // takes out what is behind the ear
  std::int64_t Place(std::int64_t deviceFrames);     // where the ear is
  std::int64_t Round(std::int64_t place) const;      // where the round of a place began
  void Resume(std::int64_t place);                   // a new device goes on from here
  // Takes its buffers in place of the own; not when the device has come to the end of these.
  bool Replace(SoundQueue& other);
  int Underruns() const;

  // ---- the device's thread ----

  // The next frames; silence for those that come late, fewer only at the end.
  std::size_t Take(std::int16_t* target, std::size_t frames);

 private:
  struct Piece {
    MMData Sound;
    std::int64_t Start = 0, Round = 0;

    std::int64_t Frames() const { return static_cast<std::int64_t>(Sound.Bytes / 4); }
    std::int64_t End() const { return Start + Frames(); }
  };
  struct Stretch {  // of the device's time: sound from a place on, silence behind it
    std::int64_t Device, Place, Frames;
  };

  const Piece& At(std::size_t index) const { return ring_[(first_ + index) % ring_.size()]; }
  std::size_t TakeSound(std::int16_t* target, std::size_t frames);
  void Note(std::int64_t frames);
  void Join(std::int16_t* target, std::size_t frames);

  mutable std::mutex guard_;
  std::vector<Piece> ring_;
  std::size_t first_ = 0, count_ = 0;
  std::int64_t end_, given_;
  std::int64_t round_;  // of what was taken out last
  bool closed_ = false;
  std::vector<Stretch> stretches_;
  std::int64_t device_ = 0;  // frames that this device has taken
  bool silent_ = false;      // it has got silence last
  int underruns_ = 0;

  // A step between what follows and what went before would be a click: it is let down in a curve.
  bool joint_ = true;
  std::array<std::int16_t, 2> last_{};
  std::array<float, 2> step_{};
  int stepLeft_ = 0;  // frames
};

}  // namespace vantora
