// Clicks and crackle: short damage that was added to one channel of music, found and replaced.
//
// Finding (S. V. Vaseghi, P. J. W. Rayner, "Detection and suppression of impulsive noise in speech
// communication systems", 1990; S. J. Godsill, P. J. W. Rayner, "Digital Audio Restoration", 1998):
// a sample is suspected when an autoregressive model of its surroundings foretells it badly from
// both sides, measured against the median of the errors nearby. Damage spoils the model too, so the
// piece is repaired on trial and the search repeated with the model of the repaired piece.
//
// Telling damage from music: the attack of a drum, a plucked string or a voice's pulse is foretold
// badly as well, but everything after it follows from it. Damage leaves no trace behind. Where
// replacing the suspected samples does not take away nearly all of the error of the samples after
// them too, they were music and stay. Clicks are rare: peaks of the error that come back every few
// milliseconds raise the measure for them.
//
// Replacing: least-squares interpolation from both sides. There is no delay, so damage at the end
// of a buffer is replaced by what the music before it foretells, and the next buffer, in which the
// right side is known, goes on from a better guess at it.
//
// The level, 0 to 1, lowers the measure (from about 12 to 3 times the usual error) and lengthens
// the longest damage that is looked for. At 0 nothing is done.
#pragma once

#include "backends/sound/restoration/ar_model.h"

#include <array>
#include <cstddef>
#include <vector>

namespace vantora {

class ClickFilter {
 public:
  enum class Damage { kClicks, kCrackle };
  static constexpr std::size_t kBlock = 1024;

  explicit ClickFilter(Damage damage);

  // One piece of one channel in place, at most kBlock samples in the units of 16 bit.
  void Process(float level, float* sound, std::size_t count);

 private:
  static constexpr std::size_t kPast = 512;
  static constexpr std::size_t kStretch = 256;  // samples that share one limit
  static constexpr std::size_t kStretches = (kPast + kBlock) / kStretch;
  static constexpr int kRounds = 2;  // of repair on trial

  struct Gap {
    std::size_t First, Count;
    std::size_t End() const { return First + Count; }
  };
  struct Measure {  // what a level means
    float Times;    // the limit: so many usual errors,
    float Crest;    // and so many usual peaks of the error
    std::size_t Longest;
    std::size_t Bridge;    // good samples within damage
    std::size_t Together;  // gaps of the longest that may lie close together
  };

  Measure MeasureOf(float level) const;
  void Search(const Measure& measure);
  void MeasureStretches(const Measure& measure);
  void Extend(Gap& gap, std::size_t from, std::size_t bridge) const;
  void CloseOpenGap(const Measure& measure);
  void Repair();
  bool Replaced(const Gap& gap, float most);
  void RepairSwells(const Measure& measure);
  void Keep(std::size_t count);

  const Damage damage_;
  ArModel model_;
  std::size_t length_ = 0;  // of the past and the new piece
  std::vector<float> heard_,
      repaired_;              // kPast samples, repaired as well as is known, and the piece
  std::vector<float> error_;  // the lesser of both predictions'
  std::vector<float> sorted_;
  std::array<float, kStretches> limit_{};
  float blindLimit_ = 0;  // at the end of the piece, where the right side is missing
  std::vector<Gap> gaps_;
  std::size_t open_ = 0;  // samples at the end of the past that were foretold
};

}  // namespace vantora
