// Clicks and crackle: short damage that was added to one channel of music, found and replaced.
//
// Finding (S. V. Vaseghi, P. J. W. Rayner, "Detection and suppression of impulsive noise in speech
// communication systems", 1990; S. J. Godsill, P. J. W. Rayner, "Digital Audio Restoration", 1998):
// a sample is suspected when an autoregressive model of its surroundings predicts it badly from
// both sides, measured against the median of the errors before and behind it, or when all errors
// from it on together look like those of damage. Damage spoils the model too, so the piece is
// repaired on trial and the search repeated with the model of the repaired piece.
//
// Telling damage from music. The period of a voice, a reed or a string errs in the same way again
// and again: what comes back at equal distances is music. An attack goes on: where the samples
// behind the suspected ones still err after the repair, they were the beginning of a sound. Where
// pulses were heard of late, an error that ends with the suspected samples is another pulse. A
// replacement must take off more of the error's energy than chance can make, and leave no more
// than chance or a small part. Long damage that is softer than the music around it is left alone,
// because attacks look like that.
//
// Replacing: least-squares interpolation from both sides. Damage that lies on the edge of a period
// would take the edge with it, so where errors come back a long model, which predicts a period from
// the one before it, fills the gaps.
//
// The filter sees what follows the buffer in hand. What it has decided about the samples that
// follow stays decided when they come; when others come in their place, they are decided anew.
// Nothing is looked for in the first samples of a sound, and in the last ones, as far as the model
// reaches. There the sound is predicted from one side only, and a track that begins in the
// middle of a concert would get a soft beginning.
//
// The level, 0 to 1, lowers the measure and lengthens the longest damage that is looked for. At 0
// nothing is done.
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

  // One piece of one channel in place, at most kBlock samples in the units of 16 bit, and what
  // follows it, at most kBlock samples. Returns how many of those are in their final form now.
  std::size_t Process(float level, float* sound, std::size_t count, float* follows,
                      std::size_t following);

 private:
  static constexpr std::size_t kPast = 768;
  static constexpr std::size_t kLongest = kPast + 2 * kBlock;
  static constexpr std::size_t kStretch = 128;  // samples that share one limit
  static constexpr std::size_t kStretches = kLongest / kStretch;
  static constexpr std::size_t kRecently = 4;                         // pieces
  static constexpr std::size_t kLeastPeriod = 40, kMostPeriod = 720;  // samples

  struct Gap {
    std::size_t First, Count;
    std::size_t End() const { return First + Count; }
  };
  struct Measure {  // what a level means
    float Times;    // the limit: so many usual errors
    std::size_t Longest;
    std::size_t Bridge;    // good samples within damage
    std::size_t Together;  // gaps of the longest that may lie close together
    double LongSure;       // what the long model must take off the error, in energies of the limit
    double PulseSure;      // the short model where pulses were heard, for each further sample
  };

  struct Errors {  // energies of a gap's errors
    double Before, Left, Behind;
    double Limit, Usual;  // of one error
  };

  Measure MeasureOf(float level) const;
  void Take(const float* sound, std::size_t count, const float* follows, std::size_t following);
  void Work();
  void MeasureStretches(const ArModel& model);
  void Search(ArModel& model);
  void AddMatches(ArModel& model);
  bool Narrow(Gap& gap, const ArModel& model) const;
  void Extend(Gap& gap, std::size_t from, std::size_t bridge) const;
  void SparePeriods();
  bool ComesBack(std::size_t place) const;
  void WorkOnHarmonics();
  void Unite();
  void FillAll(ArModel& model);
  void HearGaps();
  void Repair(ArModel& model);
  bool Replaced(ArModel& model, Gap& gap);
  void Damaged(const Gap& gap);
  Errors Filled(ArModel& model, const Gap& gap);
  bool Fits(const Errors& errors, const ArModel& model, const Gap& gap) const;
  static bool Drives(const Errors& errors, const ArModel& model, double share);
  void Trim(ArModel& model, Gap& gap);
  void FindEnd(Gap& gap);
  bool Loud(const Gap& gap) const;
  bool Plausible(const Gap& gap) const;

  const Damage damage_;
  Measure measure_{};
  ArModel model_;
  ArModel long_;                        // that predicts a period from the one before
  std::size_t spared_ = 0;              // errors that came back
  std::size_t sincePulse_ = kRecently;  // pieces
  std::vector<float> raw_;              // as it came: the piece and what follows
  // kPast samples repaired, then the piece and what follows: as they came, and repaired.
  std::vector<float> heard_, repaired_;
  std::size_t done_ = 0;   // of the piece and what follows, final already
  std::size_t known_ = 0;  // of raw_, announced before
  std::size_t past_ = 0;   // samples of the same sound before the piece, as far as they matter
  // The piece that is being worked on, within the above.
  std::size_t base_ = 0, length_ = 0, begin_ = 0, end_ = 0;
  std::vector<float> forward_, error_;  // the forward error, the lesser of both predictions'
  std::array<float, kStretches> usual_{}, stretchLimit_{}, shortLimit_{};
  const ArModel* working_ = nullptr;  // to which stretchLimit_ belongs
  std::vector<float> limit_;          // for each sample
  std::vector<float> up_, down_;      // the greatest errors near it, of either sign
  std::vector<Gap> gaps_, before_;
};

}  // namespace vantora
