// The buffers between a chain and the sound device: the interface thread puts them in, the device's
// thread reads them. A buffer stays in the queue until it has been heard, so that a pause loses
// nothing.
//
// A place is a frame's number in the queue, counted from the queue's first frame. The device counts
// its own frames, which include the silence of underruns.
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
  SoundQueue(int buffers, std::int64_t place);  // empty; its first frame has number `place`

  // Called from the interface thread.

  bool Full() const;
  std::int64_t End() const;                             // the place after the last buffer
  std::int64_t Given() const;                           // the place that the device reads next
  void Append(const MMData& data, std::int64_t round);  // not when full; `round`: start of the loop
  void Close();                                         // no more buffers will follow
  bool Closed() const;
  bool NextHeard(std::int64_t heard, MMData& data);  // removes a buffer that has been heard
  std::int64_t Place(std::int64_t deviceFrames);     // heard at this frame of the device
  std::int64_t Round(std::int64_t place) const;      // where the loop around `place` began
  void Resume(std::int64_t place);                   // a new device continues from `place`
  // Replaces the buffers by those of `other`. Returns false when the device has read this queue to
  // its end.
  bool Replace(SoundQueue& other);
  int Underruns() const;

  // Called from the device's thread.

  // Reads the next frames. Returns silence for frames that come too late, and fewer frames only at
  // the end.
  std::size_t Take(std::int16_t* target, std::size_t frames);

 private:
  struct Piece {
    PcmData Sound;
    std::int64_t Start = 0, Round = 0;

    std::int64_t Frames() const { return static_cast<std::int64_t>(Sound.Bytes / 4); }
    std::int64_t End() const { return Start + Frames(); }
  };
  struct Stretch {  // sound that the device has played, and where in its time
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
  std::int64_t round_;  // of the buffer removed last
  bool closed_ = false;
  std::vector<Stretch> stretches_;
  std::int64_t device_ = 0;  // frames read by the current device
  bool silent_ = false;      // silence was read last
  int underruns_ = 0;

  // A step between two joined sounds would be heard as a click. The difference fades out over a
  // short curve.
  bool joint_ = true;
  std::array<std::int16_t, 2> last_{};
  std::array<float, 2> step_{};
  int stepLeft_ = 0;  // in frames
};

}  // namespace vantora
