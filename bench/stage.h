// A whole program on a platform, with a user whose actions come from one function.
#pragma once

#include "app/einstellungen.h"
#include "app/programm.h"
#include "main/machine.h"
#include "main/windows.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>

namespace vantora {

using BenchTime = std::chrono::steady_clock;

inline double Milliseconds(BenchTime::time_point from, BenchTime::time_point to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

template <class Platform>
struct Stage final : User {
  explicit Stage(const std::filesystem::path& home)
      : platform(home), prog(platform.bundle, AllWindows) {
    platform.loop.TheUser = this;
    SaveSetting(platform.bundle, L"Show_Start_Assistant", L"0");
  }
  ~Stage() override { platform.loop.TheUser = nullptr; }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  // Starts the program and returns after `act` has returned false in front of the main window.
  void Play(std::function<bool(Form*)> act) {
    act_ = std::move(act);
    prog.Laufen();
  }
  bool Act(Form* front) override { return act_(front); }
  bool Resting() const override { return resting_; }
  // Lets so much of the program's time pass before `act` is called again.
  void Rest(int ms) {
    resting_ = true;
    platform.loop.PostAfter(ms, [this] { resting_ = false; });
  }

  Platform platform;
  Programm prog;

 private:
  std::function<bool(Form*)> act_;
  bool resting_ = false;
};

// Fills the catalog with all waves of the program's own folder without opening them.
inline void CatalogOfWaves(Programm& prog, const Text& length) {
  const Text folder = L"C:\\Vantora\\Wavs\\";
  prog.Katalog.assign(1, KatalogEintrag{});
  for (const Text& name : prog.plattform.dateien.List(folder, L"*.wav")) {
    KatalogEintrag track;
    track.Titel = name;
    track.Interpret = L"Voz";
    track.Datei = folder + name;
    track.Laenge = length;
    track.Pause = 2;
    prog.Katalog.push_back(track);
  }
}

// Lines in the database window: it reads 5000 characters of keys, which have eight digits and a
// separator.
inline constexpr int kShownDiscs = 5000 / 9;

// The main of a benchmark: runs the work with the given name in the given home.
using Work = std::function<int(const std::filesystem::path& home)>;

inline int RunWork(const Work& work, const char* home) {
  try {
    return work(home);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
}

}  // namespace vantora
