// The recorder. `bench-recorder WORK HOME [NUMBER ...]` prints measurements.

#include "app/frmMBox.h"
#include "backends/qt/desktop/qt_app.h"
#include "bench/stage.h"
#include "catalog/frmHauptForm.h"
#include "main/desktop_platform.h"
#include "main/headless_platform.h"
#include "recorder/frmAufnehmen.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr const wchar_t* kTake = L"C:\\Vantora\\Wavs\\toma.wav";

// Real windows, the machine's sound card or the test's substitute, and the user's own home.
struct Desktop : DesktopPlatform {
  explicit Desktop(const fs::path& /*home*/) : DesktopPlatform(ResourceFolder()) {}
};

// Opens the recorder for a single take, and closes it when `step` returns false. Answers messages
// with no.
template <class Platform>
void Record(Stage<Platform>& stage, const std::function<bool(frmAufnehmen&)>& step) {
  bool opened = false;
  stage.Play([&](Form* front) {
    if (auto* box = dynamic_cast<frmMBox*>(front)) {
      box->picMboxButton_MouseUp(box->picMboxButton(2).Visible ? 2 : 1);
      return true;
    }
    auto* window = dynamic_cast<frmAufnehmen*>(front);
    if (window == nullptr) {
      if (opened) return false;
      opened = true;
      stage.prog.frmHauptForm().imgLPAufnehmen_MouseUp();
      return true;
    }
    if (!step(*window)) window->imgAbbrechen_MouseUp();
    return true;
  });
}

void BeginTake(frmAufnehmen& window) {
  window.AktuelleDatei = kTake;
  window.imgAufnehmen_MouseUp();
  if (window.AufnahmeZahl != 1) throw std::runtime_error("no take has begun");
}

double ProcessorSeconds() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

// Records a take of `seconds` in real time; `holds` times, the interface thread is blocked for ten
// seconds. Prints the CPU seconds, and the milliseconds that were reported as lost.
int Take(const fs::path& home, int seconds, int holds) {
  constexpr int kHeldSeconds = 10;
  Stage<Desktop> stage(home);
  const int rest = (seconds - holds * kHeldSeconds) * 1000 / (holds + 1);
  std::int64_t lost = 0;
  int turn = 0;
  double used = 0;
  Record<Desktop>(stage, [&](frmAufnehmen& window) {
    if (turn == 0) {
      const auto reported = window.WaveIn->OnOverrun;
      window.WaveIn->OnOverrun = [&lost, reported](std::int64_t ms) {
        lost += ms;
        reported(ms);
      };
      BeginTake(window);
      std::puts("recording");
      std::fflush(stdout);
      used = ProcessorSeconds();
    } else if (turn <= holds) {
      std::this_thread::sleep_for(std::chrono::seconds(kHeldSeconds));
    } else {
      std::printf("%.3f %d\n", ProcessorSeconds() - used, static_cast<int>(lost));
      window.imgRecordStop_MouseUp();
      return false;
    }
    ++turn;
    stage.Rest(rest);
    return true;
  });
  return 0;
}

// ---- delay of the meter behind the sound ----

constexpr int kLoud = 12000;
constexpr int kBurstFrames = 4410;

// Plays bursts of a tenth of a second, whose starts are a little over half a second apart.
SoundOutput::Source Bursts() {
  return [frame = 0, next = 44100](std::int16_t* target, std::size_t frames) mutable {
    for (std::size_t i = 0; i < frames; ++i, ++frame) {
      if (frame == next + kBurstFrames) next += 22050 + next / 7 % 8820;
      const bool sounds = frame >= next;
      const int value = sounds ? (frame % 100 < 50 ? 2 * kLoud : -2 * kLoud) : 0;
      target[2 * i] = target[2 * i + 1] = static_cast<std::int16_t>(value);
    }
    return frames;
  };
}

// Another program that listens with the least delay of the sound server, and the time when it last
// heard a burst begin.
class OtherEar {
 public:
  OtherEar()
      : pipe_(popen(
            "parec --raw --format=s16le --rate=44100 --channels=2 --latency-msec=1 2>/dev/null",
            "r")),
        thread_([this] { Listen(); }) {}
  ~OtherEar() {
    stop_ = true;
    thread_.join();
    pclose(pipe_);
  }
  OtherEar(const OtherEar&) = delete;
  OtherEar& operator=(const OtherEar&) = delete;

  BenchTime::time_point LastBurst() const {
    return BenchTime::time_point(BenchTime::duration(last_));
  }

 private:
  void Listen() {
    std::int16_t frame[2] = {};
    int quiet = 0;
    std::setvbuf(pipe_, nullptr, _IONBF, 0);
    while (!stop_ && std::fread(frame, sizeof frame, 1, pipe_) == 1) {
      if (std::abs(static_cast<int>(frame[0])) < kLoud) {
        ++quiet;
      } else if (std::exchange(quiet, 0) > kBurstFrames) {
        last_ = BenchTime::now().time_since_epoch().count();
      }
    }
  }

  FILE* pipe_;
  std::atomic<bool> stop_ = false;
  std::atomic<BenchTime::rep> last_ = 0;
  std::thread thread_;
};

// Prints times in ms from the start of a burst until its level is painted.
int Meter(const fs::path& home) {
  constexpr int kRounds = 30;
  Stage<Desktop> stage(home);
  Record<Desktop>(stage, [&](frmAufnehmen& window) {
    const auto& loop = stage.platform.loop;
    std::int64_t paintsBefore = -1;  // count at the burst's level; -1 during silence
    const auto show = window.MMConnectorX1->OnLevel;
    window.MMConnectorX1->OnLevel = [&](int left, int right) {
      show(left, right);
      const bool loud = left >= kLoud;
      if (!loud || paintsBefore < 0) paintsBefore = loud ? loop.Paints() : -1;
    };
    const OtherEar ear;
    const auto sound = stage.platform.sound.Play(Bursts(), {}, kSoundAheadMs);
    const auto end = BenchTime::now() + 60s;
    const auto until = [&](const auto& seen) {
      while (!seen() && BenchTime::now() < end) {
        stage.platform.loop.DoEvents();
        std::this_thread::sleep_for(500us);
      }
    };
    for (int round = 0; round <= kRounds && BenchTime::now() < end; ++round) {
      until([&] { return paintsBefore < 0; });
      until([&] { return paintsBefore >= 0 && loop.Paints() > paintsBefore; });
      // The first burst is skipped, because the streams are not stable yet.
      if (round > 0) std::printf("%.3f\n", Milliseconds(ear.LastBurst(), BenchTime::now()));
    }
    return false;
  });
  return 0;
}

// ---- memory ----

// Prints the peak memory of a process that records a take of `minutes`, in KiB.
int Memory(const fs::path& home, int minutes) {
  Stage<HeadlessPlatform> stage(home);
  bool recorded = false;
  Record<HeadlessPlatform>(stage, [&](frmAufnehmen& window) {
    if (recorded) {
      window.imgRecordStop_MouseUp();
      return false;
    }
    recorded = true;
    BeginTake(window);
    stage.platform.input.Play(L"C:\\disco.wav");
    stage.Rest(minutes * 60'000);
    return true;
  });
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) std::printf("%ld\n", std::stol(line.substr(6)));
  }
  return 0;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  using vantora::RunWork;
  const std::string work = argc > 2 ? argv[1] : "";
  const auto number = [&](int place) { return argc > place ? std::atoi(argv[place]) : 0; };
  if (work == "memory" && argc == 4) {
    return RunWork([&](const auto& home) { return vantora::Memory(home, number(3)); }, argv[2]);
  }
  const vantora::QtApp app(argc, argv);
  if (work == "take" && argc == 5) {
    return RunWork([&](const auto& home) { return vantora::Take(home, number(3), number(4)); },
                   argv[2]);
  }
  if (work == "meter" && argc == 3) return RunWork(vantora::Meter, argv[2]);
  std::fputs("bench-recorder take HOME SECONDS HOLDS | meter HOME | memory HOME MINUTES\n", stderr);
  return 2;
}
