// A short piece of sound as the output of an all-pole filter: each sample is a weighted sum of the
// ones before it plus an error. Music is predicted well by such a model, damage is not, so the
// error shows the damage and the model shows what should have been there.
//
// Fit: Burg's recursion (J. P. Burg, "Maximum entropy spectral analysis", 1967). It needs no window
// and leaves both prediction errors behind. Fill: least-squares interpolation (A. J. E. M. Janssen,
// R. N. J. Veldhuis, L. B. Vries, "Adaptive interpolation of discrete-time signals that can be
// modeled as autoregressive processes", 1986).
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace vantora {

class ArModel {
 public:
  static constexpr std::size_t kLongestGap = 240;

  // How many samples a prediction rests on; the longest piece, in samples.
  ArModel(std::size_t order, std::size_t longest);

  std::size_t Order() const { return order_; }

  void Fit(const float* sound, std::size_t length);

  // The prediction errors of the piece that Fit saw last: of sample n from the Order() samples
  // before it, and from those behind it. Towards the two ends, where fewer samples are left, the
  // prediction is of a lower order and so the error greater.
  const float* Forward() const { return forward_.data(); }
  const float* Backward() const { return backward_.data(); }
  // Makes them the errors of a piece that differs from that one in [first, first + count) alone, by
  // what is added to it there. Near an end the errors are those of the whole order.
  void Add(const float* difference, std::size_t first, std::size_t count, std::size_t length);

  // What a single sample of damage would have to be to explain the errors that follow it, times the
  // root of the energy of the model: as great as the errors on the average, but greater where there
  // is damage, the more the less even the spectrum is, and smaller where a sound begins.
  void Match(std::size_t length);
  const float* Matched() const { return matched_.data(); }

  // Puts into sound[first, first + count) what makes the prediction errors from `first` on least.
  // `first` is at least Order(), `count` at most kLongestGap. What follows the gap counts as far as
  // `length`; with nothing behind it the gap is the prediction of what stands before. Returns the
  // part of the error's energy that is left; 0 to 1.
  float Fill(float* sound, std::size_t first, std::size_t count, std::size_t length);
  double Before() const { return before_; }  // the error's energy before the last Fill
  double Behind() const { return behind_; }  // of it, behind the gap

  // Looks at gaps from `first` on, of each length up to `count`, and changes nothing. After that
  // Taken()[i] is the energy that sample i of the gap takes off the error when it is replaced
  // together with those before it.
  void Look(const float* sound, std::size_t first, std::size_t count, std::size_t length);
  const double* Taken() const { return taken_.data(); }

 private:
  void Errors(const float* sound, std::size_t first);
  void Equations(std::size_t count);
  void Factor(std::size_t count);

  const std::size_t order_;
  std::size_t rows_ = 0;  // errors that a gap has an effect on
  double before_ = 0, behind_ = 0;
  std::vector<float> forward_, backward_, matched_, taps_;
  std::vector<double> a_;          // error = sum of a_[k] * sample[n - k], a_[0] = 1, then zeros
  std::vector<double> backwards_;  // a_ from its end on
  // The equations of a gap: the lower half of a matrix, a column after the other, and its right
  // side, which Factor divides by the matrix's root.
  std::vector<double> matrix_, gap_, taken_;
  std::vector<double> around_, errors_, alike_;
};

}  // namespace vantora
