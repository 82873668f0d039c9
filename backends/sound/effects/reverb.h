// A room of eight echoes, read from a section of an ini file:
//
//   [01.Name]
//   Difusion=70
//   Eco1=23,80,84,30,-60
//   …
//   Eco8=71,62,84,35,40
//
// An echo has a delay in ms (2 to 2000, decimals allowed), a gain in percent (-100 to 100), a
// feedback in percent (-99 to 99), a damping in percent (0 to 100: how much treble is lost with
// each repeat) and a position (-100 left to 100 right). Difusion (0 to 100) is how much the echoes
// feed each other: at 0 an echo repeats only itself. A missing or invalid number counts as 0.
//
// The feedbacks of the file apply when SetFeedback is 40, the value with which the program starts.
// The decay time is proportional to SetFeedback: at 80 it is twice that of the file.
#pragma once

#include "backends/sound/effects/glide.h"
#include "backends/sound/effects/switched_effect.h"

#include "platform/profile.h"

#include <array>
#include <optional>
#include <vector>

namespace vantora {

struct TMMEcho {
  double Delay = 0;  // ms
  double Gain = 0, Feedback = 0, Damping = 0, Pan = 0;
};

class Reverb final : public SwitchedEffect<MMReverbX> {
 public:
  explicit Reverb(Profile& profiles);
  void SetFeedback(int percent) override;
  void SetOutputGain(int percent) override;
  void LoadFromIni(const Text& iniFile, const Text& section) override;

 private:
  static constexpr std::size_t kEchoes = 8;
  static constexpr std::size_t kBlock = 256;  // maximum number of frames processed at a time

  struct Room {
    std::array<TMMEcho, kEchoes> Echoes;
    double Diffusion = 0;
  };
  using Block = std::array<float, kBlock>;
  // The running state of an echo. The newest frame of its line is just before index `Head`.
  struct Line {
    std::vector<float> Memory;
    std::size_t Head = 0, Delay = 0;  // in frames
    float Straight = 0, Beside = 0;   // damping: weights of this frame and of each neighbour
    float Feedback = 0;               // of the file
    float Again = 0, Before = 0;      // gain of the repeat, at the end of this block and the last
    float FromLeft = 0, FromRight = 0;
    float ToNear = 0, ToFar = 0;
    bool LeftIsNear = true;  // the ear that hears the echo first
    std::size_t Apart = 0;   // frames by which the other ear hears it later
  };

  void Clear() override;
  void Settle() override;
  void Process(float* samples, std::size_t frames) override;
  Room Read(const Text& iniFile, const Text& section);
  void MoveIn();  // switches to next_
  void Empty();
  void Aim(float feedback);  // sets the gains of the repeats
  void Work(float* samples, std::size_t frames);
  void Enter(const float* samples, std::size_t frames);
  void Listen(const Line& line, Block& echo, std::size_t frames);
  void Exchange(std::size_t frames);
  void Feed(Line& line, const Block& echo, std::size_t frames) const;

  Profile& profiles_;
  std::optional<Room> next_;    // takes over when the old room has faded out
  bool silent_ = true;          // no echo has a gain
  std::size_t block_ = kBlock;  // limited by the shortest delay
  float turnedCos_ = 1, turnedSin_ = 0;
  std::array<Line, kEchoes> lines_;

  float aimed_ = 0;                          // the feedback that the gains are set to
  float strength_ = 1, strengthBefore_ = 1;  // gain of the input

  Glide feedback_{0}, level_{0};
  Glide entrance_{1}, exit_{1};                // fade the room out and in while it changes
  std::array<float, 2> lastIn_{}, lastOut_{};  // state of the high-pass
  Block left_{}, right_{}, wetLeft_{}, wetRight_{}, count_{}, loud_{}, door_{};
  std::array<Block, kEchoes> echoes_{};
};

}  // namespace vantora
