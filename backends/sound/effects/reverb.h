// A room out of eight echoes, read from a section of an ini file:
//
//   [01.Name]
//   Difusion=70
//   Eco1=23,80,84,30,-60
//   …
//   Eco8=71,62,84,35,40
//
// An echo is a delay in ms (2 to 2000; decimals count), its gain in percent (-100 to 100), its
// feedback in percent (-99 to 99), its damping in percent (0 to 100: how much duller it becomes on
// every way) and its place (-100 left to 100 right). Difusion (0 to 100) is how far the echoes feed
// each other: at 0 each repeats itself alone. What is missing or no number counts as 0.
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
  explicit Reverb(Profile& profiles) : profiles_(profiles) {}
  void SetFeedback(int percent) override;
  void SetOutputGain(int percent) override;
  void LoadFromIni(const Text& iniFile, const Text& section) override;

 private:
  static constexpr std::size_t kEchoes = 8;
  static constexpr std::size_t kBlock = 256;  // frames that are worked on at a time, at most

  struct Room {
    std::array<TMMEcho, kEchoes> Echoes;
    double Diffusion = 0;
  };
  using Block = std::array<float, kBlock>;
  // An echo as it sounds. The newest frame of its line stands before `Head`.
  struct Line {
    std::vector<float> Memory;
    std::size_t Head = 0, Delay = 0;  // frames
    float Straight = 0, Beside = 0;   // damping: this frame, and each of its neighbours
    float Again = 0;
    float FromLeft = 0, FromRight = 0, ToLeft = 0, ToRight = 0;
  };

  void Clear() override;
  void Settle() override;
  void Process(std::int16_t* samples, std::size_t frames) override;
  Room Read(const Text& iniFile, const Text& section);
  void MoveIn();  // to next_
  void Empty();
  void Work(std::int16_t* samples, std::size_t frames);
  void Enter(const std::int16_t* samples, std::size_t frames);
  void Listen(const Line& line, Block& echo, std::size_t frames);
  void Exchange(std::size_t frames);
  void Feed(Line& line, const Block& echo, std::size_t frames) const;

  Profile& profiles_;
  std::optional<Room> next_;    // is moved into when the old one has faded away
  bool silent_ = true;          // no echo has a gain
  std::size_t block_ = kBlock;  // the shortest delay allows no more at a time
  float turnedCos_ = 1, turnedSin_ = 0;
  std::array<Line, kEchoes> lines_;

  Glide feedback_{0}, level_{0};
  Glide entrance_{1}, exit_{1};                // doors that open and close while the room changes
  std::array<float, 2> lastIn_{}, lastOut_{};  // of what keeps a constant out of the room
  Block left_{}, right_{}, wetLeft_{}, wetRight_{}, again_{}, loud_{}, door_{};
  std::array<Block, kEchoes> echoes_{};
};

}  // namespace vantora
