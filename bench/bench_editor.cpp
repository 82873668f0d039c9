// The wave editor in real windows. `bench-editor WORK HOME` prints measurements with the wave file
// C:\Vantora\Wavs\larga.wav of the home.

#include "backends/qt/desktop/qt_app.h"
#include "bench/stage.h"
#include "main/desktop_platform.h"
#include "main/window_platform.h"
#include "waveeditor/frmWaveEditor.h"

#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;

using Windows = Stage<WindowPlatform>;

constexpr const wchar_t* kFile = L"C:\\Vantora\\Wavs\\larga.wav";
constexpr int kRounds = 9;

void Paint(Windows& stage) {
  std::int64_t before = -1;
  while (before != stage.platform.loop.Paints()) {
    before = stage.platform.loop.Paints();
    stage.platform.loop.DoEvents();
  }
}

// Waits for a pending paint, which may be delayed after the previous paint.
void PaintAgain(Windows& stage) {
  const std::int64_t before = stage.platform.loop.Paints();
  while (before == stage.platform.loop.Paints()) stage.platform.loop.DoEvents();
  Paint(stage);
}

frmWaveEditor& Load(Windows& stage) {
  stage.prog.WaveEditorDatei = kFile;
  frmWaveEditor& editor = *stage.prog.frmWaveEditor.Laden();
  stage.prog.Zeigen(editor);
  PaintAgain(stage);
  if (editor.WellenPunkte().empty()) throw std::runtime_error("nothing was drawn");
  return editor;
}

// Reads the file once in blocks of 1 MiB; returns ms.
double ReadPlainly(const fs::path& file) {
  static std::vector<char> block(1U << 20U);
  const auto start = BenchTime::now();
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) throw std::runtime_error("the file is not there");
  while (::read(descriptor, block.data(), block.size()) > 0) {
  }
  ::close(descriptor);
  return Milliseconds(start, BenchTime::now());
}

int InFrontOfTheMainWindow(const fs::path& home, const std::function<void(Windows&)>& work) {
  Windows stage(home);
  stage.Play([&](Form*) {
    work(stage);
    return false;
  });
  return 0;
}

// Measures from the choice of the track until its picture is painted, and reading the file plainly.
// Each round begins in the main loop, where the window of the round before is released.
int Open(const fs::path& home) {
  Windows stage(home);
  const fs::path file = stage.platform.machine.files.SystemPath(kFile);
  int round = 0;
  stage.Play([&](Form*) {
    const double plain = ReadPlainly(file);
    const auto start = BenchTime::now();
    Load(stage);
    const double opened = Milliseconds(start, BenchTime::now());
    stage.prog.frmWaveEditor.Entladen();
    Paint(stage);
    if (round > 0) std::printf("%.3f %.3f\n", opened, plain);
    return ++round <= kRounds;
  });
  return 0;
}

// Pauses as a user would, so that no paint is delayed after the previous paint.
void Rest() {
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
}

// Measures a step of the zoom, and a step of the scroll bar at the greatest zoom, until it is
// painted.
int Repaint(const fs::path& home) {
  return InFrontOfTheMainWindow(home, [](Windows& stage) {
    frmWaveEditor& editor = Load(stage);
    for (int round = 0; round < kRounds; ++round) {
      for (const int button : {0, 0, 0, 0, 1, 1, 1, 1}) {
        Rest();
        const auto start = BenchTime::now();
        editor.imgZoom_MouseUp(button);
        Paint(stage);
        const double zoomed = Milliseconds(start, BenchTime::now());
        Rest();
        const auto scroll = BenchTime::now();
        if (editor.sliderWave.Visible) {
          editor.sliderWave.Value = editor.sliderWave.Max / (round + 2);
          editor.sliderWave_OnChange();
        }
        Paint(stage);
        std::printf("%.3f %.3f\n", zoomed, Milliseconds(scroll, BenchTime::now()));
      }
    }
  });
}

// Measures from a step of a slider until the sound card plays the first changed sound. Runs in real
// time, on the machine's sound card or the test's substitute, with the user's own home.
int ToTheEar(const fs::path& home) {
  struct Desktop : DesktopPlatform {
    explicit Desktop(const fs::path& /*home*/) : DesktopPlatform(ResourceFolder()) {}
  };
  Stage<Desktop> stage(home);
  stage.Play([&](Form*) {
    stage.prog.WaveEditorDatei = kFile;
    frmWaveEditor& editor = *stage.prog.frmWaveEditor.Laden();
    stage.prog.Zeigen(editor);
    stage.prog.Pausieren(500);
    std::int64_t fetched = 0;
    editor.Kette().OnPuffer = [&](MMData& data) {
      editor.DSP_OnBufferFilled(data);
      fetched += static_cast<std::int64_t>(data.Bytes);
    };
    editor.imgVolumeByPass_MouseUp();
    editor.imgSteuerung_MouseUp(0);
    for (int round = 0; round < 2 * kRounds; ++round) {
      stage.prog.Pausieren(700 + 37 * round % 100);
      const auto start = BenchTime::now();
      editor.slVolume.Value = editor.slVolume.Value == 8000 ? 16000 : 8000;
      editor.slVolume.Change();
      const std::int64_t before = fetched;
      while (editor.Kette().Out().Position() < before) stage.prog.Pausieren(1);
      std::printf("%.3f\n", Milliseconds(start, BenchTime::now()));
    }
    editor.imgSteuerung_MouseUp(1);
    stage.prog.frmWaveEditor.Entladen();
    return false;
  });
  return 0;
}

// Prints the peak memory of the process in KiB, after opening, playing and winding the file.
int Memory(const fs::path& home) {
  return InFrontOfTheMainWindow(home, [](Windows& stage) {
    frmWaveEditor& editor = Load(stage);
    for (int i = 0; i < 4; ++i) editor.imgZoom_MouseUp(0);
    editor.imgSteuerung_MouseUp(0);
    stage.prog.Pausieren(4000);
    editor.imgSteuerung_MouseUp(1);
    Paint(stage);
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("VmHWM:")) std::printf("%ld\n", std::stol(line.substr(6)));
    }
  });
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  const vantora::QtApp app(argc, argv);
  if (work == "open") return vantora::RunWork(vantora::Open, argv[2]);
  if (work == "repaint") return vantora::RunWork(vantora::Repaint, argv[2]);
  if (work == "slider") return vantora::RunWork(vantora::ToTheEar, argv[2]);
  if (work == "memory") return vantora::RunWork(vantora::Memory, argv[2]);
  std::fputs("bench-editor open|repaint|slider|memory HOME\n", stderr);
  return 2;
}
