// The crossfades. `bench-medley transition HOME` prints alternating CPU times in s: a transition of
// 10 s between C:\\a.wav and C:\\b.wav, and moving the tail of the second file in place by plain
// reads and writes of 512 KiB; both files get shorter. `memory` prints by how many bytes the
// process grows at its peak in such a transition. `slide` slides the tempo from C:\\in.wav to
// C:\\out.wav.

#include "bench/plain_file.h"
#include "bench/stage.h"
#include "main/headless_platform.h"
#include "main/windows.h"
#include "medley/ueberblendung.h"

#include <cstdlib>
#include <fstream>

namespace vantora {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kFadeBytes = 1'764'000;  // 10 s
constexpr std::size_t kBlock = 524'288;
constexpr int kRounds = 9;
constexpr double kSlideEnd = 125.0 / 120 * 25;

// Two rows of a medley in a program that shows no window.
struct Desk {
  explicit Desk(const fs::path& home) : platform(home), prog(platform.bundle, AllWindows) {
    prog.Temporary_Directory = L"C:\\Temp\\";
    prog.Medley.resize(2);
    prog.Medley[0].Datei = L"C:\\a.wav";
    prog.Medley[1].Datei = L"C:\\b.wav";
    prog.Medley[0].Dauer = L"10";
  }
  void Fade() {
    engine.UeberblendungAusfuehren(0, 1);
    if (engine.MedleyFehler) throw std::runtime_error("the transition was refused");
  }

  HeadlessPlatform platform;
  Programm prog;
  Form form{platform.loop, L"frm"};
  CheckBox box{form, L"chkPitch"};
  Ueberblendung engine{prog, box};
};

int Transition(const fs::path& home) {
  Desk desk(home);
  for (int round = 0; round <= kRounds; ++round) {
    const double plain = Spent([&] {
      PlainFile(home / "b.wav", kBlock)
          .Move(PlainFile::kHeader + kFadeBytes, PlainFile::kHeader + kFadeBytes / 2);
    });
    const double ours = Spent([&] { desk.Fade(); });
    if (round > 0) std::printf("%.4f %.4f\n", ours, plain);
  }
  return 0;
}

// Reads a value of the process's status, in bytes.
std::int64_t Status(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::int64_t kib = 0;
    if (word == name + ":" && status >> kib) return kib * 1024;
  }
  return 0;
}

int Memory(const fs::path& home) {
  Desk desk(home);
  const std::int64_t before = Status("VmRSS");
  desk.Fade();
  std::printf("%lld\n", static_cast<long long>(Status("VmHWM") - before));
  return 0;
}

int Slide(const fs::path& home) {
  HeadlessPlatform platform(home);
  auto source = platform.mmtools.NewWaveFileX();
  auto target = platform.mmtools.NewWaveFileX();
  auto pitcher = platform.mmtools.NewPitch();
  source->Wave.SetFileName(L"C:\\in.wav");
  source->Wave.Open();
  source->Wave.PlayEnd = source->Wave.DataSize();
  target->Wave.SetFileName(L"C:\\out.wav");
  pitcher->SetInput(source.get());
  pitcher->Rewind();
  target->Receive();
  const double step = kSlideEnd * kBufferBytes / (4.0 * source->Wave.DataSize());
  for (MMData data;;) {
    pitcher->Pitch = static_cast<float>(pitcher->Pitch + step);
    pitcher->Pull(data);
    if (data.Bytes == 0) break;
    target->Push(data);
  }
  target->Wave.Close();
  return 0;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  if (work == "transition") return vantora::RunWork(vantora::Transition, argv[2]);
  if (work == "memory") return vantora::RunWork(vantora::Memory, argv[2]);
  if (work == "slide") return vantora::RunWork(vantora::Slide, argv[2]);
  std::fputs("bench-medley transition|memory|slide HOME\n", stderr);
  return 2;
}
