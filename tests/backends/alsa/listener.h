// A player with a wave file, and a log of its events.
#pragma once

#include "backends/alsa/alsa_player.h"
#include "tests/backends/bench.h"

namespace vantora::test {

using Seconds = std::chrono::duration<double>;

inline double Now() {
  return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Stereo sound in tenths of a second, each of a constant loudness: left as given, right half of it.
inline std::string Steps(const std::vector<int>& loudness) {
  std::string data;
  for (const int level : loudness) {
    for (int i = 0; i < 4410; ++i) {
      const int sign = i % 100 < 50 ? 1 : -1;
      data += Number(static_cast<std::uint16_t>(sign * level), 2);
      data += Number(static_cast<std::uint16_t>(sign * (level / 2)), 2);
    }
  }
  return data;
}

class Listener : public Bench {
 protected:
  Listener() {
    player.OnStart = [this] { Note("start"); };
    player.OnStop = [this] {
      EXPECT_FALSE(player.Playing());
      Note("stop");
      StoppedAt = Now();
    };
    player.OnLevel = [this](int left, int right) {
      Note("");
      Levels.emplace_back(left, right);
    };
  }
  void Note(const std::string& what) {
    Bench::Note();
    if (!what.empty()) Log += Log.empty() ? what : " " + what;
  }
  void Wave(const std::string& data, Format format = {}) {
    Put(home / "a.wav", test::Wave(data, "", format));
    player.SetFileName(L"C:\\a.wav");
  }
  // Lets the loop run for `seconds`, or until the log ends with `until`.
  void Run(double seconds, const std::string& until = "never") {
    const double end = Now() + seconds;
    while (Now() < end && !Log.ends_with(until)) {
      loop.DoEvents();
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  OutputVolume volume;
  AlsaPlayer player{home.Files, loop, volume};
  std::string Log;
  std::vector<std::pair<int, int>> Levels;
  double StoppedAt = 0;
};

}  // namespace vantora::test
